#pragma once

#include "KeyMaker.h"
#include "PeopleMaker.h"

namespace mkdb {

/// The employees of a centre: one director, all functions taken at least once.
std::vector<Employee> makeStaff(const PeopleMaker& people, Random& random);

} // namespace mkdb
