#pragma once

#include "store/Value.h"

#include <QDate>
#include <QString>
#include <QStringView>

#include <functional>
#include <optional>

struct sqlite3;

namespace store {

/// Registers the functions that translated statements call, and the collation TVK, which both
/// compares and orders texts: case aside, trailing blanks aside, Czech order.
/// @throws EngineError when SQLite refuses.
void registerSqlFunctions(sqlite3* connection);

/// Compares as the collation TVK does; negative, zero (equal to the engine) or positive.
int compareTexts(QStringView left, QStringView right);

/// Version of the order of texts; an index made under another version has to be made anew.
QString textOrderVersion();

/// How a date lies in a date column: "yyyy-MM-dd" or "yyyy-MM-dd HH:mm:ss".
QString dateToColumn(const DateTime& date);
/// How a text that is no calendar date lies in a date column: behind a mark that sorts after every
/// date, so that no comparison with a date selects it.
QString nonDateToColumn(const QString& typed);
/// What lies in a date column: a date, the text as it was typed, or Null.
Value dateFromColumn(const QString& stored);

/// Reads "d.m.yyyy" with an optional time "h:mm[:ss]"; nothing when it is no calendar date.
/// Two-digit years are not read.
std::optional<DateTime> readDate(QStringView text);

} // namespace store
