#include "store/Dates.h"

#include "store/Utf8.h"

#include <QList>

namespace store {

namespace {

/// Sorts after all digits, with which every date begins.
constexpr char nonDateMark = '~';
constexpr int firstYear = 100;
constexpr int lastYear = 9999;
/// Years of two digits begin here.
constexpr int firstShortYear = 1930;

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// A number and how many digits it was written with.
struct Digits {
    int value = 0;
    qsizetype count = 0;
};

Digits takeDigits(QStringView& text) {
    Digits result;
    for (; result.count < text.size() && isDigit(text[result.count]); ++result.count)
        if (result.count < 4)
            result.value = result.value * 10 + (text[result.count].unicode() - u'0');
    text = text.sliced(result.count);
    return result;
}

bool takeSeparator(QStringView& text) {
    text = text.trimmed();
    if (text.isEmpty() || !QStringView(u"./-").contains(text[0]))
        return false;
    text = text.sliced(1).trimmed();
    return true;
}

/// The value of one or two digits and nothing else; -1 if it is something else.
int upToTwoDigits(QStringView text, qsizetype fewest) {
    const Digits digits = takeDigits(text);
    return text.isEmpty() && digits.count >= fewest && digits.count <= 2 ? digits.value : -1;
}

std::optional<QTime> readTime(QStringView text) {
    const QList<QStringView> parts = text.split(u':');
    if (parts.size() < 2 || parts.size() > 3)
        return {};
    const int second = parts.size() == 3 ? upToTwoDigits(parts[2], 2) : 0;
    const QTime time(upToTwoDigits(parts[0], 1), upToTwoDigits(parts[1], 2), second);
    return time.isValid() ? std::optional(time) : std::nullopt;
}

int wholeYear(const Digits& year) {
    if (year.count == 4)
        return year.value;
    const bool isNextCentury = year.value < firstShortYear % 100;
    return firstShortYear / 100 * 100 + (isNextCentury ? 100 : 0) + year.value;
}

std::optional<QDate> calendarDate(Digits day, Digits month, Digits year) {
    if (day.count == 4)
        std::swap(day, year);
    const auto isShort = [](const Digits& digits) {
        return digits.count == 1 || digits.count == 2;
    };
    if (!isShort(day) || !isShort(month) || (year.count != 2 && year.count != 4))
        return {};
    const QDate date(wholeYear(year), month.value, day.value);
    return date.isValid() && date.year() >= firstYear ? std::optional(date) : std::nullopt;
}

void appendDigits(std::string& text, int value, int width) {
    const std::size_t begin = text.size();
    text.resize(begin + static_cast<std::size_t>(width));
    for (std::size_t at = text.size(); at > begin; value /= 10)
        text[--at] = static_cast<char>('0' + value % 10);
}

void appendTime(std::string& text, const QTime& time) {
    if (time.msecsSinceStartOfDay() == 0)
        return;
    text += ' ';
    appendDigits(text, time.hour(), 2);
    text += ':';
    appendDigits(text, time.minute(), 2);
    text += ':';
    appendDigits(text, time.second(), 2);
}

/// The number of that many digits at a place; -1 when something else stands there.
int fixedDigits(std::string_view text, std::size_t at, std::size_t count) {
    int value = 0;
    for (std::size_t end = at + count; at < end; ++at) {
        if (at >= text.size() || text[at] < '0' || text[at] > '9')
            return -1;
        value = value * 10 + (text[at] - '0');
    }
    return value;
}

std::optional<DateTime> readStored(std::string_view text) {
    const bool isShaped = (text.size() == 10 || text.size() == 19) && text[4] == '-';
    if (!isShaped)
        return {};
    DateTime result{
        QDate(fixedDigits(text, 0, 4), fixedDigits(text, 5, 2), fixedDigits(text, 8, 2))};
    if (text.size() == 19)
        result.time =
            QTime(fixedDigits(text, 11, 2), fixedDigits(text, 14, 2), fixedDigits(text, 17, 2));
    return isCalendarDate(result) ? std::optional(result) : std::nullopt;
}

QString asTyped(std::string_view text) {
    return textOfUtf8(text);
}

} // namespace

bool isCalendarDate(const DateTime& date) {
    return date.date.isValid() && date.time.isValid() && date.date.year() >= firstYear &&
           date.date.year() <= lastYear;
}

std::optional<DateTime> readDate(QStringView text) {
    text = text.trimmed();
    const Digits day = takeDigits(text);
    const Digits month = takeSeparator(text) ? takeDigits(text) : Digits();
    const Digits year = takeSeparator(text) ? takeDigits(text) : Digits();
    const auto date = calendarDate(day, month, year);
    if (!date || text.isEmpty())
        return date ? std::optional(DateTime{*date}) : std::nullopt;
    const auto time = text[0].isSpace() ? readTime(text.trimmed()) : std::nullopt;
    return time ? std::optional(DateTime{*date, *time}) : std::nullopt;
}

QString dateToText(const DateTime& date) {
    std::string text;
    appendDigits(text, date.date.day(), 2);
    text += '.';
    appendDigits(text, date.date.month(), 2);
    text += '.';
    appendDigits(text, date.date.year(), 4);
    appendTime(text, date.time);
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

std::string dateToColumn(const DateTime& date) {
    std::string text;
    appendDigits(text, date.date.year(), 4);
    text += '-';
    appendDigits(text, date.date.month(), 2);
    text += '-';
    appendDigits(text, date.date.day(), 2);
    appendTime(text, date.time);
    return text;
}

std::string nonDateToColumn(QStringView typed) {
    return nonDateMark + typed.toUtf8().toStdString();
}

std::string textToDateColumn(QStringView typed) {
    const auto date = readDate(typed);
    return date ? dateToColumn(*date) : nonDateToColumn(typed);
}

Value dateFromColumn(std::string_view stored) {
    if (stored.starts_with(nonDateMark))
        return asTyped(stored.substr(1));
    const auto date = readStored(stored);
    return date ? Value(*date) : Value(asTyped(stored));
}

} // namespace store
