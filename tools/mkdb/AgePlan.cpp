#include "AgePlan.h"

#include <array>

namespace mkdb {

namespace {

/// Ages that have a row of their own in the return; the last stands for all above.
constexpr int ageRows = 19;
constexpr int boysPercent = 61;
// Shares of the ages 0 to 19.
constexpr std::array<int, 20> shares{1,  2,  3, 5, 7, 9, 11, 13, 13, 12,
                                     11, 10, 9, 8, 7, 6, 4,  3,  2,  1};

AgeSlot sureSlot(int index) {
    return {index % ageRows, index >= ageRows, true};
}

AgeSlot drawnSlot(Random& random) {
    return {random.weighted(shares), !random.percent(boysPercent), false};
}

} // namespace

std::vector<AgeSlot> planAges(int clients, Random& random) {
    std::vector<AgeSlot> plan;
    for (int index = 0; index < clients; ++index)
        plan.push_back(index < 2 * ageRows ? sureSlot(index) : drawnSlot(random));
    random.shuffle(plan);
    return plan;
}

} // namespace mkdb
