#pragma once

#include "oldregister/ConversionReport.h"
#include "oldregister/OldValue.h"
#include "store/BulkInsert.h"
#include "store/Value.h"

namespace store {
struct ColumnDef;
struct TableDef;
} // namespace store

namespace oldregister {

/// Writes the rows of one table of the old file into the new register, and tells what of them did
/// not fit.
class TableWriter {
  public:
    /// Tells the columns that the file or the register lacks. @param findings outlive the writer
    TableWriter(store::Database& database, const OldTable& table, std::vector<Finding>& findings);

    /// @throws store::EngineError when the disk refuses
    void add(const std::vector<OldValue>& row);
    /// Adds the rows that were held back until their order is known.
    void finish();

    const TableCount& count() const { return count_; }

  private:
    struct Target {
        std::size_t source;
        const store::ColumnDef* column;
    };

    void mapColumns(const OldTable& table);
    void tellMissing(const OldTable& table);
    bool isHeldBack() const { return orderColumn_ >= 0; }
    void write(const std::vector<OldValue>& row);
    /// @return false when the row can't stand without the value
    bool take(const Target& target, const std::vector<OldValue>& row);
    void tell(const std::vector<OldValue>& row, const QString& what, const QString& content = {});
    QString wholeRow(const std::vector<OldValue>& row) const;

    const store::TableDef& definition_;
    std::vector<Finding>& findings_;
    TableCount count_;
    std::vector<OldColumn> columns_;
    std::vector<Target> targets_;
    std::optional<store::BulkInsert> insert_;
    std::vector<store::Value> values_;
    int keyColumn_ = -1;
    /// Of a table whose rows are sorted by a column when the file has lost their order.
    int orderColumn_ = -1;
    std::vector<std::vector<OldValue>> heldBack_;
};

} // namespace oldregister
