#include "report/PageCheck.h"

#include "report/TestReport.h"

#include <gtest/gtest.h>

using namespace report;
using namespace report::test;
using namespace Qt::StringLiterals;

namespace {

PlacedText placed(double left, double top, double width, QRectF box = {}) {
    PlacedText text;
    text.text = u"text"_s;
    text.left = left;
    text.ascent = 80;
    text.baseline = top + 80;
    text.height = 100;
    text.width = width;
    text.box = box.isNull() ? text.extent() : box;
    return text;
}

struct FaultCase {
    const char* name;
    Page page;
    int overlapping = 0;
    int cut = 0;
    int struck = 0;
};

TEST(PageCheck, FindsWhatAReaderStumblesOver) {
    const FaultCase cases[] = {
        {"side by side", {{placed(0, 0, 50), placed(50, 0, 50)}, {}}},
        {"below each other", {{placed(0, 100, 50), placed(0, 0, 50)}, {}}},
        {"overlap by a corner", {{placed(40, 90, 50), placed(0, 0, 50)}, {}}, 1},
        {"three on a heap", {{placed(0, 0, 50), placed(10, 0, 50), placed(20, 0, 50)}, {}}, 3},
        {"too wide", {{placed(0, 0, 50, {0, 0, 40, 100})}, {}}, 0, 1},
        {"too high", {{placed(0, 0, 50, {0, 0, 50, 90})}, {}}, 0, 1},
        {"begins left of its box", {{placed(0, 0, 50, {10, 0, 50, 100})}, {}}, 0, 1},
        {"struck", {{placed(0, 0, 50)}, {{{0, 50, 500, 0}, false}}}, 0, 0, 1},
        {"struck upright", {{placed(0, 0, 50)}, {{{25, -100, 0, 500}, false}}}, 0, 0, 1},
        {"underlined", {{placed(0, 0, 50)}, {{{0, 100, 500, 0}, false}}}},
        {"in a box", {{placed(0, 0, 50)}, {{{-1, -1, 60, 110}, true}}}},
        {"half in a box", {{placed(0, 0, 50)}, {{{20, -1, 60, 110}, true}}}, 0, 0, 1},
    };
    for (const auto& [name, page, overlapping, cut, struck] : cases) {
        EXPECT_EQ(overlaps(page).size(), overlapping) << name;
        EXPECT_EQ(cutTexts(page).size(), cut) << name;
        EXPECT_EQ(struckTexts(page).size(), struck) << name;
    }
    Pages pages;
    pages.pages = {cases[0].page, {{placed(960, 0, 50)}, {}}};
    for (Page& page : pages.pages)
        page.paper = {1000, 1000};
    const QStringList faults = layoutFaults(pages);
    ASSERT_EQ(faults.size(), 1);
    EXPECT_TRUE(faults[0].startsWith(u"page 2: \"text\""_s)) << faults[0].toStdString();
    EXPECT_TRUE(faults[0].endsWith(u"leaves the paper"_s));
}

} // namespace
