#pragma once

#include "statreturn/LeftOut.h"
#include "statreturn/PeopleList.h"

namespace statreturn {

/// The columns in which clients stand behind a number of Tables I and II.
std::vector<PeopleColumn> clientColumns();
QStringList clientTexts(const ReturnPeople& people, const NumberGrid& numbers,
                        const Counted& counted);

/// The columns in which those stand who are left out.
std::vector<PeopleColumn> remarkColumns();
/// @param row of the numbers: in that of all who are left out, every reason is told
QStringList remarkTexts(const ReturnPeople& people, const LeftOut& leftOut, std::size_t row,
                        const Counted& counted);

} // namespace statreturn
