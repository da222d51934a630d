#pragma once

#include "report/Table.h"

#include <QString>
#include <QStringView>

class QIODevice;

namespace report {

/// A text as a cell of a CSV file: in quotes where separator, quotes, line ends or blanks at its
/// ends ask for them. The empty text is nothing.
QString csvCell(const QString& text, QChar separator);

/// Writes a table as CSV that a Slovak spreadsheet opens as it is: semicolons, UTF-8 with its byte
/// order mark, CRLF. A text that a spreadsheet would take for a formula gets an apostrophe before
/// it; a line end within a cell is LF. @return false when the device failed
bool writeCsv(const Table& table, QIODevice& device);

} // namespace report
