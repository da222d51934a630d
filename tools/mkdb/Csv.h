#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <stdexcept>
#include <vector>

namespace mkdb {

/// A table as it lies in a CSV file. Every row has as many cells as there are columns.
struct CsvTable {
    QStringList columns;
    std::vector<QStringList> rows;

    /// Index of a column, case aside. @throws CsvError when there is none.
    int column(const QString& name) const;
    /// Name of the file, for messages.
    QString source;
};

/// What is wrong with a CSV file, in Slovak, with the file and the line.
class CsvError : public std::runtime_error {
  public:
    explicit CsvError(const QString& message) : std::runtime_error(message.toStdString()) {}
};

/// Reads comma-separated text by RFC 4180: UTF-8 (a byte order mark is passed over), quoted cells
/// may hold commas, line ends and doubled quotes; lines end with LF or CRLF; the first line gives
/// the column names. Anything else is refused: a quote inside an unquoted cell, text behind a
/// closing quote, an unclosed quote, a line with more or fewer cells, an empty file, bytes that are
/// no UTF-8. Empty lines are passed over. An empty cell in quotes is the empty text, one without
/// them a null one.
/// @param source name of the file, for messages
/// @throws CsvError
CsvTable parseCsv(const QByteArray& bytes, const QString& source);

/// @throws CsvError also when the file can't be read
CsvTable readCsv(const QString& path);

} // namespace mkdb
