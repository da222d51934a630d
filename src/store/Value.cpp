#include "store/Value.h"

#include "store/SqlFunctions.h"

namespace store {

namespace {

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};

/// Reads the longest beginning that is a number.
double leadingNumber(const QString& text) {
    const QString trimmed = text.trimmed();
    static constexpr QStringView numeric = u"0123456789+-.eE";
    qsizetype length = 0;
    while (length < trimmed.size() && numeric.contains(trimmed[length]))
        ++length;
    bool isNumber = false;
    double number = 0;
    for (; length > 0 && !isNumber; --length)
        number = QStringView(trimmed).first(length).toDouble(&isNumber);
    return isNumber ? number : 0;
}

} // namespace

QString Value::toText() const {
    return std::visit(
        Overloaded{
            [](std::monostate) { return QString(); },
            [](bool flag) { return flag ? QStringLiteral("-1") : QStringLiteral("0"); },
            [](qint64 number) { return QString::number(number); },
            [](double number) { return QString::number(number, 'g', 15); },
            [](const QString& text) { return text; },
            [](const DateTime& date) { return date.date.toString(u"dd.MM.yyyy"); },
        },
        value_);
}

double Value::toNumber() const {
    return std::visit(Overloaded{
                          [](std::monostate) { return 0.0; },
                          [](bool flag) { return flag ? -1.0 : 0.0; },
                          [](qint64 number) { return static_cast<double>(number); },
                          [](double number) { return number; },
                          [](const QString& text) { return leadingNumber(text); },
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
