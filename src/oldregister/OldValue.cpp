#include "oldregister/OldValue.h"

#include "store/Value.h"

#include <cmath>

namespace oldregister {

namespace {

constexpr qint64 julianDayZero = 2415019; // 30.12.1899
constexpr qint64 secondsOfDay = 86400;
constexpr double firstDay = -657434; // 1.1.100
constexpr double lastDay = 2958465;  // 31.12.9999

} // namespace

std::optional<store::DateTime> toDateTime(RawDate date) {
    const double whole = std::trunc(date.days);
    if (!(whole >= firstDay && whole <= lastDay))
        return std::nullopt;
    const auto seconds = std::llround(std::fabs(date.days - whole) * secondsOfDay);
    const QDate day =
        QDate::fromJulianDay(julianDayZero + std::llround(whole) + seconds / secondsOfDay);
    if (day.year() > 9999)
        return std::nullopt;
    const auto ofDay = static_cast<int>(seconds % secondsOfDay);
    return store::DateTime{day, QTime(0, 0).addSecs(ofDay)};
}

} // namespace oldregister
