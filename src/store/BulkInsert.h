#pragma once

#include "store/Sql.h"
#include "store/Value.h"

#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace store {

class Connection;
class Database;
class Query;

/// Adds many rows to one table with one prepared statement. Values are checked and kept as an edit
/// of a recordset would keep them. Ends before its database is closed.
class BulkInsert {
  public:
    /// @param columns those that each row fills; the others stay Null
    /// @throws EngineError 3078 for an unknown table, 3265 for an unknown column
    BulkInsert(Database& database, QStringView table, std::span<const char16_t* const> columns);
    ~BulkInsert();
    BulkInsert(BulkInsert&&) noexcept;
    BulkInsert& operator=(BulkInsert&&) noexcept;

    /// Writes one row. @param values in the order of the columns
    /// @throws EngineError 3022, 3163, 3421 and those of a full or unwritable disk
    void add(std::span<const Value> values);

    /// Runs writes that happen wholly or not at all: what `writes` has done is undone when it
    /// throws. Other writes of the unit of work stay.
    static void wholly(Database& database, const std::function<void()>& writes);

  private:
    std::shared_ptr<Connection> connection_;
    std::vector<OutputColumn> columns_;
    std::unique_ptr<Query> insert_;
};

} // namespace store
