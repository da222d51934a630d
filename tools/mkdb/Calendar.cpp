#include "Calendar.h"

#include <algorithm>

namespace mkdb {

namespace {

constexpr int tries = 12;

bool isWorkingDay(const QDate& day) {
    return day.dayOfWeek() <= 5 && day.month() != 7 && day.month() != 8;
}

} // namespace

QDate schoolYearStart(const QDate& day) {
    return QDate(day.month() >= 9 ? day.year() : day.year() - 1, 9, 1);
}

QDate schoolYearEnd(const QDate& day) {
    return schoolYearStart(day).addYears(1).addDays(-1);
}

int ageAt(const QDate& born, const QDate& day) {
    const bool birthdayAhead =
        std::pair(day.month(), day.day()) < std::pair(born.month(), born.day());
    return day.year() - born.year() - (birthdayAhead ? 1 : 0);
}

QDate Span::draw(Random& random) const {
    return first.addDays(random.below(static_cast<int>(first.daysTo(last)) + 1));
}

QDate Span::drawWorkingDay(Random& random) const {
    QDate day = draw(random);
    for (int left = tries; left > 0 && !isWorkingDay(day); --left)
        day = draw(random);
    return day;
}

Span birthdays(int age, const QDate& day) {
    return {day.addYears(-age - 1).addDays(1), day.addYears(-age)};
}

std::vector<QDate> drawDays(const Span& span, int count, Random& random) {
    std::set<QDate> days;
    for (int left = span.isEmpty() ? 0 : 2 * count;
         left > 0 && static_cast<int>(days.size()) < count; --left)
        days.insert(span.drawWorkingDay(random));
    return {days.begin(), days.end()};
}

} // namespace mkdb
