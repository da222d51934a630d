#pragma once

#include "Random.h"

#include <QDate>

#include <set>
#include <vector>

namespace mkdb {

/// First day of the school year in which a day lies: 1 September.
QDate schoolYearStart(const QDate& day);
/// Last day of that school year: 31 August.
QDate schoolYearEnd(const QDate& day);
/// Age in completed years at which school begins.
inline constexpr int schoolAge = 6;
/// Completed years at a day.
int ageAt(const QDate& born, const QDate& day);

/// A span of days, both ends included.
struct Span {
    QDate first;
    QDate last;

    bool isEmpty() const { return first > last; }
    QDate draw(Random& random) const;
    /// A day of lessons (Monday to Friday, September to June) if the span holds some; any day of it
    /// otherwise.
    QDate drawWorkingDay(Random& random) const;
};

/// Birthdays of those who are `age` years old at a day.
Span birthdays(int age, const QDate& day);

/// At most `count` different working days of a span, in order. Fewer when the span is short.
std::vector<QDate> drawDays(const Span& span, int count, Random& random);

} // namespace mkdb
