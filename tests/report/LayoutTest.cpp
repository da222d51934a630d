#include "report/Report.h"
#include "report/TestReport.h"

#include <gtest/gtest.h>

using namespace report;
using namespace report::test;

namespace {

Layout sample() {
    Layout layout;
    layout.reportHeader.height = 240;
    layout.reportHeader.controls = {
        label(QStringLiteral("Label105"), 0, 0, 3000, QStringLiteral("za rok 2005/2006"))};
    layout.detail.height = 240;
    layout.detail.controls = {field(QStringLiteral("a"), 0, 0, 3000)};
    return layout;
}

TEST(Layout, FindsSectionsAndControlsWhateverTheCase) {
    Layout layout = sample();
    for (const auto* name : {u"section4", u"SECTION4", u"Section4"})
        EXPECT_EQ(&layout.section(name), &layout.reportHeader);
    const std::vector<std::pair<QString, Section*>> others{
        {QStringLiteral("section2"), &layout.pageHeader},
        {QStringLiteral("section1"), &layout.detail},
        {QStringLiteral("section3"), &layout.pageFooter},
        {QStringLiteral("section5"), &layout.reportFooter}};
    for (const auto& [name, section] : others)
        EXPECT_EQ(&layout.section(name), section);
    EXPECT_EQ(&layout.reportHeader.control(u"label105"), &layout.reportHeader.controls.front());
}

TEST(Layout, RefusesUnknownNames) {
    Layout layout = sample();
    EXPECT_THROW(layout.section(u"section6"), std::out_of_range);
    EXPECT_THROW(layout.section(u"section"), std::out_of_range);
    EXPECT_THROW(layout.reportHeader.control(u"label10"), std::out_of_range);
}

TEST(Report, KeepsWhatIsSetBetweenRunsAndLeavesTheLayoutAlone) {
    const Layout layout = sample();
    Report loaded(layout);
    for (const auto& year : {QStringLiteral("2006/2007"), QStringLiteral("2007/2008")}) {
        QString& caption = loaded.control(u"section4", u"label105").caption;
        caption = caption.left(7) + year;
        loaded.control(u"section1", u"TXT_A").dataField = QStringLiteral("b");
        loaded.setOrientation(Orientation::Landscape);
        ListSource rows({{QStringLiteral("no"), QStringLiteral("yes")}});
        const Pages pages = loaded.make(rows, GridMeter(), today);
        EXPECT_EQ(textsOf(pages.pages.at(0)),
                  (QStringList{QStringLiteral("za rok ") + year, QStringLiteral("yes")}));
        EXPECT_EQ(pages.paper, QSizeF(16838, 11906));
    }
    EXPECT_EQ(layout.reportHeader.controls.front().caption, QStringLiteral("za rok 2005/2006"));
}

} // namespace
