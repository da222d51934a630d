#include "report/Csv.h"

#include <QIODevice>
#include <QRegularExpression>

#include <algorithm>

namespace report {

namespace {

constexpr QChar separator = u';';
constexpr QStringView byteOrderMark = u"\uFEFF";

bool needsQuotes(const QString& text, QChar separatedBy) {
    const auto isSpecial = [separatedBy](QChar letter) {
        return letter == separatedBy || letter == u'"' || letter == u'\n' || letter == u'\r';
    };
    return std::ranges::any_of(text, isSpecial) || text.trimmed().size() != text.size();
}

/// A number may begin with its sign.
bool looksLikeFormula(const QString& text) {
    static const QRegularExpression formula(
        QStringLiteral("^\\s*[=+@\\-\uFF1D\uFF0B\uFF20\uFF0D]"));
    static const QRegularExpression number(QStringLiteral("^-\\d+(,\\d+)?$"));
    return formula.match(text).hasMatch() && !number.match(text).hasMatch();
}

QString spreadsheetCell(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    return csvCell(looksLikeFormula(text) ? u'\'' + text : text, separator);
}

bool writeRow(const QStringList& row, QIODevice& device) {
    QStringList cells;
    std::ranges::transform(row, std::back_inserter(cells), spreadsheetCell);
    const QByteArray line = cells.join(separator).toUtf8() + "\r\n";
    return device.write(line) == line.size();
}

} // namespace

QString csvCell(const QString& text, QChar separatedBy) {
    if (!needsQuotes(text, separatedBy))
        return text;
    return u'"' + QString(text).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

bool writeCsv(const Table& table, QIODevice& device) {
    const QByteArray mark = byteOrderMark.toUtf8();
    return device.write(mark) == mark.size() && writeRow(table.heads, device) &&
           std::ranges::all_of(table.rows,
                               [&device](const QStringList& row) { return writeRow(row, device); });
}

} // namespace report
