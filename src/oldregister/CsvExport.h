#pragma once

#include <QString>

namespace store {
class Database;
}

namespace oldregister {

/// Writes every table of a register into a folder of its own, one file a table: "TABLE.csv", UTF-8,
/// commas, the columns in the first line. Null is nothing and an empty text is `""`; dates are
/// "yyyy-mm-dd", with " hh:mm:ss" when they have a time; rich texts are their HTML. The folder gets
/// its name when it is complete, and only its owner can read it.
/// @return the number of rows
/// @throws store::EngineError 3204 when the folder exists and is not empty, those of a full disk
qint64 exportCsv(store::Database& database, const QString& folder);

} // namespace oldregister
