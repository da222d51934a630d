#pragma once

#include "Rows.h"
#include "store/BulkInsert.h"
#include "store/Database.h"

#include <map>

namespace mkdb {

/// Writes rows into a register, without making them durable.
class DatabaseSink : public RowSink {
  public:
    /// @param database must outlive the sink
    explicit DatabaseSink(store::Database& database) : database_(database) {}

    void add(const RowShape& shape, const std::vector<store::Value>& values) override;

  private:
    store::Database& database_;
    std::map<const RowShape*, store::BulkInsert> inserts_;
};

} // namespace mkdb
