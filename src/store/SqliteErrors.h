#pragma once

#include "store/EngineError.h"

#include <QString>

struct sqlite3;

namespace store {

/// The engine's error for a result code of SQLite, which may be an extended one.
/// @param connection whose last message is read; may be null
/// @param place the statement or file that failed
EngineError sqliteError(int code, sqlite3* connection, const QString& place);

} // namespace store
