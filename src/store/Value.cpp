#include "store/Value.h"

#include "store/Dates.h"
#include "store/sql/Numbers.h"

namespace store {

namespace {

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

} // namespace

QString Value::toText() const {
    return std::visit(
        Overloaded{
            [](std::monostate) { return QString(); },
            [](bool flag) { return flag ? QStringLiteral("-1") : QStringLiteral("0"); },
            [](qint64 number) { return QString::number(number); },
            [](double number) { return QString::number(number, 'g', 15); },
            [](const QString& text) { return text; },
            [](const DateTime& date) { return dateToText({date.date}); },
        },
        value_);
}

double Value::toNumber() const {
    return std::visit(
        Overloaded{
            [](std::monostate) { return 0.0; },
            [](bool flag) { return flag ? -1.0 : 0.0; },
            [](qint64 number) { return static_cast<double>(number); },
            [](double number) { return number; },
            [](const QString& text) { return sql::leadingNumber(text.toStdString()); },
            // Days since 30.12.1899, the engine's count.
            [](const DateTime& date) {
                return static_cast<double>(date.date.toJulianDay() - 2415019) +
                       date.time.msecsSinceStartOfDay() / 86'400'000.0;
            },
        },
        value_);
}

QDate Value::toDate() const {
    if (const auto* date = std::get_if<DateTime>(&value_))
        return date->date;
    if (const auto* text = std::get_if<QString>(&value_))
        if (const auto read = readDate(*text))
            return read->date;
    return {};
}

} // namespace store
