#include "report/PageFlow.h"

#include <gtest/gtest.h>

#include <ostream>

using report::PageFlow;
using report::Slice;

namespace report {

void PrintTo(const Slice& slice, std::ostream* out) {
    *out << "page " << slice.page << " at " << slice.top << ": " << slice.from << ".." << slice.to;
}

} // namespace report

namespace {

struct Strip {
    double height;
    std::vector<double> cuts = {};
};

/// Pages run from 100 to 1100; the first band is followed by a page header of that height.
struct FlowCase {
    const char* name;
    std::vector<Strip> bands;
    std::vector<Slice> slices;
    double header = 0;
};

TEST(PageFlow, PlacesBandsOnPages) {
    const FlowCase cases[] = {
        {"fills to the edge", {{600}, {400}}, {{0, 100, 0, 600}, {0, 700, 0, 400}}},
        {"one twip too many", {{600}, {401}}, {{0, 100, 0, 600}, {1, 100, 0, 401}}},
        {"stays together though it has cuts",
         {{600}, {500, {200, 400}}},
         {{0, 100, 0, 600}, {1, 100, 0, 500}}},
        {"leaves no page mostly blank",
         {{200}, {900, {300, 700}}, {201}},
         {{0, 100, 0, 200}, {0, 300, 0, 700}, {1, 100, 700, 900}, {1, 300, 0, 201}}},
        {"later pages leave room for the header",
         {{300}, {650}, {100}, {650}, {1}},
         {{0, 100, 0, 300}, {0, 400, 0, 650}, {1, 400, 0, 100}, {2, 400, 0, 650}, {2, 1050, 0, 1}},
         300},
        {"what overflows a page begins one",
         {{300}, {800}, {700}},
         {{0, 100, 0, 300}, {1, 400, 0, 800}, {2, 400, 0, 700}},
         300},
        {"cut exactly at the edge",
         {{600}, {1500, {400, 1400}}},
         {{0, 100, 0, 600}, {0, 700, 0, 400}, {1, 100, 400, 1400}, {2, 100, 1400, 1500}}},
        {"tall band's first line does not fit the rest",
         {{900}, {1500, {300, 900, 1200}}},
         {{0, 100, 0, 900}, {1, 100, 0, 900}, {2, 100, 900, 1500}}},
        {"line taller than a page overflows and the next goes on",
         {{2500, {200, 2200}}, {100}},
         {{0, 100, 0, 200}, {1, 100, 200, 2200}, {2, 100, 2200, 2500}, {2, 400, 0, 100}}},
        {"cuts beyond the end are of no use", {{2000, {2500}}}, {{0, 100, 0, 2000}}},
        {"band after a tall one stands right below it",
         {{1300, {500, 1000}}, {700}, {1}},
         {{0, 100, 0, 1000}, {1, 100, 1000, 1300}, {1, 400, 0, 700}, {2, 100, 0, 1}}}};
    for (const auto& [name, bands, expected, header] : cases) {
        PageFlow flow(100, 1100);
        std::vector<Slice> slices;
        for (const auto& [height, cuts] : bands) {
            for (const auto& slice : flow.place(height, cuts))
                slices.push_back(slice);
            if (slices.size() == 1)
                flow.repeatHeader(header);
        }
        EXPECT_EQ(slices, expected) << name;
    }
}

TEST(PageFlow, EndsAlsoWhenHeadersLeaveNoRoom) {
    PageFlow flow(100, 1100);
    flow.place(10);
    flow.repeatHeader(2000);
    const auto slices = flow.place(3000, {500, 1000, 1500});
    ASSERT_FALSE(slices.empty());
    EXPECT_EQ(slices.back().to, 3000);
}

} // namespace
