#pragma once

#include "store/Query.h"
#include "store/Sql.h"

#include <limits>
#include <optional>
#include <span>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace store {

class Connection;
class ReadAhead;

/// The rowids of one row's sources; `noRow` where an outer join found none.
using RowKey = std::vector<qint64>;
using RowKeyView = std::span<const qint64>;
inline constexpr qint64 noRow = std::numeric_limits<qint64>::min();

/// Binds a key to the parameters ?1, ?2 …
void bindKey(Query& query, RowKeyView key);
/// Reads a key from the first columns of a row.
void readKey(const Query& query, RowKey& key);
/// The keys of a query's rows in the query's order. Of a single table it reads a few at first and
/// the others when they are needed; rows that others add later don't enter it.
class Keyset {
  public:
    /// @param connection,plan an updatable plan; both outlive the keyset
    /// @param ahead takes the rows of a join, which are all read at once; outlives the keyset
    Keyset(Connection& connection, const SelectPlan& plan, ReadAhead& ahead);
    /// A keyset of rows that have no keys: they are counted from 0.
    explicit Keyset(qint64 count);

    /// True when there is a row of that index.
    bool has(qint64 index);
    /// The key of a row of which has() was true.
    RowKeyView at(qint64 index) const;
    qint64 size();
    /// Where a row stands; nothing when it is not among the rows.
    std::optional<qint64> indexOf(RowKeyView key);
    void append(RowKeyView key);
    void remove(qint64 index);
    /// Highest rowid of a single table when the keyset was made.
    qint64 bound() const { return bound_; }
    /// False for a row that was added by others since the keyset was made.
    bool isOld(RowKeyView key) const { return width_ > 1 || key[0] <= bound_; }
    /// Rows that were appended and stand behind all others.
    const std::vector<qint64>& added() const { return added_; }
    /// Grows when rows change their index.
    quint64 version() const { return version_; }

  private:
    void loadMore();
    void loadByRowid();
    void loadFirst();
    void loadRest();
    void loadJoin();
    void take(Query& query, const std::unordered_set<qint64>& known);
    qint64 loaded() const { return static_cast<qint64>(keys_.size() / width_); }
    bool isAdded(RowKeyView key) const;
    std::optional<qint64> search(RowKeyView key);
    std::optional<qint64> searchSorted(qint64 rowid);
    void buildPositions();

    Connection* connection_ = nullptr;
    const SelectPlan* plan_ = nullptr;
    ReadAhead* ahead_ = nullptr;
    size_t width_ = 1;
    std::vector<qint64> keys_;
    std::vector<qint64> added_;
    bool complete_ = false;
    qint64 bound_ = std::numeric_limits<qint64>::max();
    qint64 nextLimit_;
    quint64 version_ = 0;
    /// Index by the first rowid of a key; empty until it is needed.
    std::unordered_multimap<qint64, qint64> positions_;
};

} // namespace store
