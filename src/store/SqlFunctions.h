#pragma once

#include <QString>

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

/// Version of the order of texts; an index made under another version has to be made anew.
QString textOrderVersion();

} // namespace store
