#pragma once

#include "store/Keyset.h"
#include "store/Query.h"
#include "store/ReadAhead.h"
#include "store/Sql.h"

#include <QString>

#include <map>
#include <memory>
#include <optional>
#include <unordered_map>
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
    int columnIndex(QStringView name);

    /// A row; nothing when it has been deleted. The first one is read wholly, those behind it in
    /// the columns that were asked for so far.
    /// @param index where the row stands, if that is known
    /// @param room where a row is put that is not in memory yet
    std::optional<RowView> read(RowKeyView key, std::optional<qint64> index, RowBlock& room);
    /// Tells that a column is looked at. When it is a new one, the next row is read wholly.
    void ask(int column);
    /// True when a row is among the rows, deleted or not.
    bool holds(RowKeyView key);
    /// The first row that meets a criterion.
    std::optional<RowKey> find(const QString& criterion);
    /// The first row behind a position that meets a criterion.
    std::optional<RowKey> findBehind(const QString& criterion, qint64 position);

    /// All of them happen wholly or not at all. @throws EngineError 3164 for rows that can't be
    /// written, 3167 for a row that has been deleted, 3022 and others of SQLite.
    void update(RowKeyView key, const Changes& changes);
    RowKey insert(const Changes& changes);
    void erase(RowKeyView key);

  private:
    using Columns = std::vector<int>;
    struct NameHash {
        using is_transparent = void;
        size_t operator()(QStringView name) const { return qHash(name); }
    };

    void loadStoredRows();
    bool lookUp(RowKeyView key, RowBlock& row);
    void prepareRow(Columns columns);
    Columns askedColumns() const;
    std::optional<RowKey> firstOf(const QStringList& conditions);
    std::optional<RowKey> firstBehind(const QString& condition, qint64 position);
    std::optional<RowKey> findByNumber(const QString& condition, qint64 behind);
    std::optional<RowKey> findAdded(const QString& condition);
    const SourceTable& onlySource() const;
    void updateSource(int source, qint64 rowid, const Changes& changes);
    Query& updateQuery(int source, const Columns& columns);

    std::shared_ptr<Connection> connection_;
    SelectPlan plan_;
    /// Columns by the names as they were asked for.
    std::unordered_map<QString, int, NameHash, std::equal_to<>> columns_;
    ReadAhead ahead_;
    std::optional<Keyset> keys_;
    /// What the next look at a row reads: all columns, those asked for, or the same as before.
    enum class Reading { Whole, Asked, Same };
    Reading reading_ = Reading::Whole;
    /// Reads the columns `read_` of a row.
    std::optional<Query> row_;
    Columns read_;
    std::vector<bool> asked_;
    std::map<Columns, Query> updates_;
    /// The rows of a query that has no keys.
    RowBlock storedRows_;
    RowBlock scratch_;
};

} // namespace store
