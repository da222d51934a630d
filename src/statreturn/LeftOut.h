#pragma once

#include "statreturn/NumberGrid.h"

#include <QString>

#include <bitset>
#include <vector>

namespace statreturn {

/// Why somebody is left out of a table, or is not counted as one may think.
enum class Reason {
    NoCare,
    NoBirth,
    NoBirthDate,
    FutureBirth,
    NoImpairment,
    NoPlacement,
    TypeNotCounted,
    UnknownType,
    UnknownFunction,
    NoEmployment,
    // Who is counted all the same.
    CountedMoreThanOnce,
    UnknownSex,
    ExternalDirector,
};
inline constexpr std::size_t reasonCount = 13;

enum class ReturnTable { One, Two, Three };

/// What there is to say of somebody and a table.
struct Remark {
    ReturnTable table = ReturnTable::One;
    /// Place in the clients, in Table III in the employees.
    std::size_t who = 0;
    std::bitset<reasonCount> reasons;

    bool has(Reason reason) const { return reasons.test(std::size_t(reason)); }
    /// Whether the table does not count him at all.
    bool leavesOut() const;
};

/// Who is left out of Tables I to III, and who is not counted as one may think. A client without a
/// record of care in the year has no business in the return: what else is missing is not asked.
struct LeftOut {
    explicit LeftOut(const ReturnPeople& people);

    std::vector<Remark> remarks;
    /// A column for each table, a row for each reason below that of all who are left out. The
    /// numbers count places in `remarks`.
    NumberGrid numbers;
};

const Person& personOf(const ReturnPeople& people, const Remark& remark);

/// A reason of a remark in words.
QString wordsFor(const ReturnPeople& people, const Remark& remark, Reason reason);
/// All of them.
QString wordsFor(const ReturnPeople& people, const Remark& remark);

} // namespace statreturn
