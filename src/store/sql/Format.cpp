#include "store/sql/Format.h"

#include <algorithm>
#include <cmath>

namespace store::sql {

namespace {

/// What a token of a date format shows of a date.
struct DateToken {
    QStringView token;
    int (*part)(const DateTime& date) = nullptr;
    int width = 0;
};

constexpr DateToken dateTokens[] = {
    {u"yyyy", [](const DateTime& d) { return d.date.year(); }, 4},
    {u"yy", [](const DateTime& d) { return d.date.year() % 100; }, 2},
    {u"mm", [](const DateTime& d) { return d.date.month(); }, 2},
    {u"m", [](const DateTime& d) { return d.date.month(); }, 1},
    {u"dd", [](const DateTime& d) { return d.date.day(); }, 2},
    {u"d", [](const DateTime& d) { return d.date.day(); }, 1},
};

bool consistsOf(QStringView text, QStringView signs) {
    return std::ranges::all_of(text, [&](QChar c) { return signs.contains(c); });
}

bool containsAny(QStringView text, QStringView signs) {
    return std::ranges::any_of(text, [&](QChar c) { return signs.contains(c); });
}

bool isSeparator(QChar c) {
    return QStringView(u" .,/-:").contains(c);
}

/// The token that a run of one letter is; null when there is none of that length.
const DateToken* tokenAt(QStringView format) {
    qsizetype length = 1;
    while (length < format.size() && format[length].toLower() == format[0].toLower())
        ++length;
    const auto found = std::ranges::find_if(dateTokens, [&](const DateToken& token) {
        return token.token.compare(format.first(length), Qt::CaseInsensitive) == 0;
    });
    return found == std::end(dateTokens) ? nullptr : found;
}

bool isDateFormat(QStringView format) {
    bool hasToken = false;
    while (!format.isEmpty()) {
        const bool separates = isSeparator(format[0]);
        const DateToken* token = separates ? nullptr : tokenAt(format);
        if (!separates && !token)
            return false;
        hasToken = hasToken || token;
        format = format.sliced(token ? token->token.size() : 1);
    }
    return hasToken;
}

QString padded(const QString& digits, int width) {
    return digits.rightJustified(width, u'0');
}

QString inCase(const QString& text, QStringView format) {
    if (format.contains(u'<'))
        return text.toLower();
    return format.contains(u'>') ? text.toUpper() : text;
}

bool isPlaceholder(QChar c) {
    return c == u'@' || c == u'&';
}
bool isTextControl(QChar c) {
    return c == u'!' || c == u'<' || c == u'>';
}

} // namespace

FormatKind formatKind(QStringView format) {
    if (consistsOf(format, u" "))
        return FormatKind::Blank;
    if (consistsOf(format, u"@&!<> .,/-:") && containsAny(format, u"@&"))
        return FormatKind::Text;
    if (consistsOf(format, u"0#.") && containsAny(format, u"0#") && format.count(u'.') <= 1)
        return FormatKind::Number;
    return isDateFormat(format) ? FormatKind::Date : FormatKind::Unknown;
}

bool isDateSeparator(QStringView text) {
    return !text.isEmpty() && std::ranges::all_of(text, isSeparator);
}

QString formatText(const QString& text, QStringView format) {
    const auto places = std::ranges::count_if(format, isPlaceholder);
    const bool fromLeft = format.contains(u'!');
    const qsizetype surplus = std::max<qsizetype>(0, text.size() - places);
    const qsizetype missing = std::max<qsizetype>(0, places - text.size());
    qsizetype next = fromLeft ? 0 : surplus;
    qsizetype toSkip = fromLeft ? 0 : missing;
    // What has no place stands before the first place, or behind the last when filled from the
    // left.
    QString result = fromLeft ? QString() : text.first(surplus);
    for (const QChar c : format) {
        if (isTextControl(c))
            continue;
        if (!isPlaceholder(c)) {
            result += c;
        } else if (toSkip > 0 || next >= text.size()) {
            --toSkip;
            result += c == u'@' ? QStringLiteral(" ") : QString();
        } else {
            result += text[next++];
        }
    }
    return inCase(result + text.sliced(next), format);
}

QString formatNumber(double number, QStringView format) {
    const qsizetype point = format.indexOf(u'.');
    const QStringView whole = point < 0 ? format : format.first(point);
    const QStringView fraction = point < 0 ? QStringView() : format.sliced(point + 1);
    QString digits = QString::number(std::abs(number), 'f', static_cast<int>(fraction.size()));
    QString decimals = point < 0 ? QString() : digits.sliced(digits.size() - fraction.size());
    const qsizetype cut = digits.indexOf(u'.');
    digits = cut < 0 ? digits : digits.first(cut);
    while (decimals.size() > fraction.count(u'0') && decimals.endsWith(u'0'))
        decimals.chop(1);
    if (digits == QStringLiteral("0"))
        digits.clear();
    const QString shown = padded(digits, static_cast<int>(whole.count(u'0')));
    const bool isNegative = number < 0 && containsAny(digits + decimals, u"123456789");
    return (isNegative ? QStringLiteral("-") : QString()) + shown +
           (point < 0 ? QString() : u'.' + decimals);
}

QString formatDate(const Value& value, QStringView format) {
    const auto* date = std::get_if<DateTime>(&value.variant());
    if (!date)
        return value.toText();
    QString result;
    while (!format.isEmpty()) {
        const DateToken* token = isSeparator(format[0]) ? nullptr : tokenAt(format);
        result +=
            token ? padded(QString::number(token->part(*date)), token->width) : QString(format[0]);
        format = format.sliced(token ? token->token.size() : 1);
    }
    return result;
}

} // namespace store::sql
