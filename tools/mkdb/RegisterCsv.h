#pragma once

#include <QString>

namespace store {
class Database;
}

namespace mkdb {

/// Fills an empty register with the tables that oldregister::exportCsv wrote. All of them must be
/// in the folder, with all their columns.
/// @throws CsvError with file and row when a value can't be read; store::EngineError
void importCsv(store::Database& database, const QString& folder);

} // namespace mkdb
