#include "report/TestReport.h"

#include <gtest/gtest.h>

using namespace report;
using namespace report::test;
using namespace Qt::StringLiterals;

namespace {

TEST(Layout, FindsSectionsAndControlsWhateverTheCase) {
    Layout layout;
    layout.reportHeader.controls = {label(u"Label105"_s, 0, 0, 3000, {})};
    const std::pair<QString, Section*> names[] = {
        {u"SECTION4"_s, &layout.reportHeader}, {u"Section2"_s, &layout.pageHeader},
        {u"section1"_s, &layout.detail},       {u"section3"_s, &layout.pageFooter},
        {u"section5"_s, &layout.reportFooter},
    };
    for (const auto& [name, section] : names)
        EXPECT_EQ(&layout.section(name), section);
    EXPECT_EQ(layout.reportHeader.control(u"LABEL105").width, 3000);
    EXPECT_THROW(layout.section(u"section6"), std::out_of_range);
    EXPECT_THROW(layout.reportHeader.control(u"label10"), std::out_of_range);
}

} // namespace
