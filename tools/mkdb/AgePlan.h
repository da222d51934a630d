#pragma once

#include "Random.h"

#include <vector>

namespace mkdb {

/// What is settled of a client before anything else is drawn.
struct AgeSlot {
    int age = 0;
    bool girl = false;
    /// Surely counted in the return: has a date of birth, an impairment and care this year.
    bool counted = false;
};

/// Ages and sexes of a register, in no order. As far as the number allows, every age from 0 to 18
/// has a boy and a girl who are counted; the others follow what such a centre's clients are like.
std::vector<AgeSlot> planAges(int clients, Random& random);

} // namespace mkdb
