#include "store/SqlFunctions.h"

#include <QList>

namespace store {

namespace {

/// Sorts after all digits, with which every date begins.
constexpr QChar nonDateMark = u'~';
constexpr int firstYear = 100;
constexpr int lastYear = 9999;

/// The value of one or more digits and nothing else; -1 if it is something else.
int digits(QStringView text, qsizetype shortest, qsizetype longest) {
    if (text.size() < shortest || text.size() > longest)
        return -1;
    int value = 0;
    for (const QChar c : text) {
        if (c < u'0' || c > u'9')
            return -1;
        value = value * 10 + (c.unicode() - u'0');
    }
    return value;
}

std::optional<QTime> readTime(QStringView text) {
    const QList<QStringView> parts = text.split(u':');
    if (parts.size() < 2 || parts.size() > 3)
        return {};
    const int second = parts.size() == 3 ? digits(parts[2], 2, 2) : 0;
    const QTime time(digits(parts[0], 1, 2), digits(parts[1], 2, 2), second);
    return time.isValid() ? std::optional(time) : std::nullopt;
}

std::optional<DateTime> dateTime(int year, int month, int day, QStringView time) {
    DateTime result{QDate(year, month, day)};
    if (!result.date.isValid() || year < firstYear || year > lastYear)
        return {};
    if (time.isEmpty())
        return result;
    const auto clock = readTime(time);
    if (!clock)
        return {};
    result.time = *clock;
    return result;
}

/// Cuts a text at its first blank: date and time.
std::pair<QStringView, QStringView> atBlank(QStringView text) {
    const qsizetype blank = text.indexOf(u' ');
    if (blank < 0)
        return {text, {}};
    return {text.first(blank), text.sliced(blank).trimmed()};
}

std::optional<DateTime> readStored(QStringView text) {
    const auto [date, time] = atBlank(text);
    const QList<QStringView> parts = date.split(u'-');
    if (parts.size() != 3)
        return {};
    return dateTime(digits(parts[0], 4, 4), digits(parts[1], 2, 2), digits(parts[2], 2, 2), time);
}

} // namespace

std::optional<DateTime> readDate(QStringView text) {
    const auto [date, time] = atBlank(text.trimmed());
    const QList<QStringView> parts = date.split(u'.');
    if (parts.size() != 3)
        return {};
    return dateTime(digits(parts[2], 4, 4), digits(parts[1], 1, 2), digits(parts[0], 1, 2), time);
}

QString dateToColumn(const DateTime& date) {
    const QString day = QStringLiteral("%1-%2-%3")
                            .arg(date.date.year(), 4, 10, QLatin1Char('0'))
                            .arg(date.date.month(), 2, 10, QLatin1Char('0'))
                            .arg(date.date.day(), 2, 10, QLatin1Char('0'));
    return date.time.msecsSinceStartOfDay() == 0 ? day : day + date.time.toString(u" HH:mm:ss");
}

QString nonDateToColumn(const QString& typed) {
    return nonDateMark + typed;
}

Value dateFromColumn(const QString& stored) {
    if (stored.isNull())
        return {};
    if (stored.startsWith(nonDateMark))
        return stored.sliced(1);
    const auto date = readStored(stored);
    return date ? Value(*date) : Value(stored);
}

} // namespace store
