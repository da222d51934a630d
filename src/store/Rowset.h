#pragma once

#include "store/Keyset.h"
#include "store/Query.h"
#include "store/ReadAhead.h"
#include "store/Sql.h"

#include <QString>

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace store {

class Connection;

/// @throws EngineError 3167, always
[[noreturn]] void refuseDeleted();

/// The rows of a query, which a recordset shares with its clones.
class Rowset {
  public:
    /// @throws EngineError as Recordset
    Rowset(std::shared_ptr<Connection> connection, const QString& source);
    // Its parts refer to one another.
    Rowset(const Rowset&) = delete;
    Rowset& operator=(const Rowset&) = delete;

    Connection& connection() { return *connection_; }
    const SelectPlan& plan() const { return plan_; }
    Keyset& keys() { return *keys_; }
    /// The output column of that name, whatever its case. @throws EngineError 3265
    int columnIndex(QStringView name) const;

    /// Reads a row; false when it has been deleted.
    /// @param index where the row stands, if that is known
    bool read(RowKeyView key, std::optional<qint64> index, RowBlock& row);
    /// True when a row is among the rows, deleted or not.
    bool holds(RowKeyView key);
    /// The first row that meets a criterion.
    std::optional<RowKey> find(const QString& criterion);

    /// All of them happen wholly or not at all. @throws EngineError 3164 for rows that can't be
    /// written, 3167 for a row that has been deleted, 3022 and others of SQLite.
    void update(RowKeyView key, const Changes& changes);
    RowKey insert(const Changes& changes);
    void erase(RowKeyView key);

  private:
    using Columns = std::vector<int>;

    void nameColumns();
    void loadStoredRows();
    bool lookUp(RowKeyView key, RowBlock& row);
    std::optional<RowKey> firstOf(const QStringList& conditions);
    std::optional<RowKey> findInJoin(const QString& condition);
    std::optional<RowKey> findByNumber(const QString& condition);
    std::optional<RowKey> findAdded(const QString& condition);
    const SourceTable& onlySource() const;
    void updateSource(int source, qint64 rowid, const Changes& changes);
    Query& updateQuery(int source, const Columns& columns);

    std::shared_ptr<Connection> connection_;
    SelectPlan plan_;
    std::map<QString, int, std::less<>> columns_;
    ReadAhead ahead_;
    std::optional<Keyset> keys_;
    std::optional<Query> row_;
    std::map<Columns, Query> updates_;
    /// The rows of a query that has no keys.
    RowBlock storedRows_;
    RowBlock scratch_;
};

} // namespace store
