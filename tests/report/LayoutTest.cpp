#include "report/Report.h"
#include "report/TestReport.h"

#include <gtest/gtest.h>

using namespace report;
using namespace report::test;
using namespace Qt::StringLiterals;

namespace {

Layout sample() {
    Layout layout;
    layout.reportHeader.height = 240;
    layout.reportHeader.controls = {label(u"Label105"_s, 0, 0, 3000, u"za rok 2005/2006"_s)};
    layout.detail.height = 240;
    layout.detail.controls = {field(u"a"_s, 0, 0, 3000)};
    return layout;
}

TEST(Layout, FindsSectionsAndControlsWhateverTheCase) {
    Layout layout = sample();
    const std::pair<QString, Section*> names[] = {
        {u"SECTION4"_s, &layout.reportHeader}, {u"Section2"_s, &layout.pageHeader},
        {u"section1"_s, &layout.detail},       {u"section3"_s, &layout.pageFooter},
        {u"section5"_s, &layout.reportFooter},
    };
    for (const auto& [name, section] : names)
        EXPECT_EQ(&layout.section(name), section);
    EXPECT_THROW(layout.section(u"section6"), std::out_of_range);
    EXPECT_THROW(layout.reportHeader.control(u"label10"), std::out_of_range);
}

TEST(Report, KeepsWhatIsSetBetweenRunsAndLeavesTheLayoutAlone) {
    const Layout layout = sample();
    Report loaded(layout);
    for (const auto& year : {u"2006/2007"_s, u"2007/2008"_s}) {
        QString& caption = loaded.control(u"section4", u"label105").caption;
        caption = caption.left(7) + year;
        loaded.control(u"section1", u"TXT_A").dataField = u"b"_s;
        loaded.setOrientation(Orientation::Landscape);
        ListSource rows({{u"no"_s, u"yes"_s}});
        const Pages pages = loaded.make(rows, GridMeter(), today);
        EXPECT_EQ(textsOf(pages.pages.at(0)), (QStringList{u"za rok "_s + year, u"yes"_s}));
        EXPECT_EQ(pages.paper, QSizeF(16838, 11906));
    }
    EXPECT_EQ(layout.reportHeader.controls.front().caption, u"za rok 2005/2006"_s);
}

} // namespace
