#pragma once

#include "store/Value.h"

#include <QDate>
#include <QString>
#include <QStringView>

#include <optional>

struct sqlite3;

namespace store {

/// Registers the functions that translated statements call, and the collation TVK, which both
/// compares and orders texts: case aside, trailing blanks aside, Czech order.
///
/// A function that must refuse a value fails with the message "TVK:<number>:<column or text>",
/// where number is one of ErrorNumber: 3163 text too long for its column, 3421 text that can't
/// become a value of its column, 3464 a value of the wrong type in an expression.
/// @throws EngineError when SQLite refuses.
void registerSqlFunctions(sqlite3* connection);

/// Compares as the collation TVK does; negative, zero (equal to the engine) or positive. Opens the
/// order anew at each call: for loops take sql::TextOrder.
int compareTexts(QStringView left, QStringView right);

/// Version of the order of texts; an index made under another version has to be made anew.
QString textOrderVersion();

/// How a date lies in a date column: "yyyy-MM-dd" or "yyyy-MM-dd HH:mm:ss".
QString dateToColumn(const DateTime& date);
/// How a text that is no calendar date lies in a date column: behind a mark that sorts after every
/// date, so that no comparison with a date selects it.
QString nonDateToColumn(const QString& typed);
/// What lies in a date column: a date, the text as it was typed, or Null (for a null string).
Value dateFromColumn(const QString& stored);

/// Reads "d.m.yyyy" with an optional time "h:mm[:ss]"; nothing when it is no calendar date.
/// Two-digit years are not read.
std::optional<DateTime> readDate(QStringView text);

} // namespace store
