#pragma once

#include "store/Query.h"
#include "store/Sql.h"

#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

namespace store {

/// Columns of one row with what is to be written into them.
using Changes = std::vector<std::pair<int, Cell>>;

/// The rows of a join, read together with their keys, so that a walk need not look up each. They
/// count as long as nobody but the recordset itself has written since.
class ReadAhead {
  public:
    /// @param plan outlives the rows
    /// @param stamp the connection's change stamp when the rows are read
    ReadAhead(const SelectPlan& plan, quint64 stamp);

    /// Takes the row on which the query stands, as long as there is room.
    /// @param firstColumn where the columns begin behind the keys
    void add(const Query& query, int firstColumn);
    /// Copies a row as it is now; false when it has to be read anew.
    /// @param stamp the connection's change stamp now
    bool read(qint64 index, std::span<const qint64> key, quint64 stamp, RowBlock& row) const;
    /// Tells that the recordset itself has written into a row.
    /// @param before,after the change stamps around the write
    void noteWrite(int source, qint64 rowid, const Changes& changes, quint64 before, quint64 after);

  private:
    using Written = std::unordered_map<qint64, Changes>;

    Changes outputsOf(const Changes& changes) const;

    const SelectPlan& plan_;
    quint64 stamp_;
    /// A computed column may depend on any other, so that a written row has to be read anew.
    bool isPlain_;
    RowBlock rows_;
    /// What was written since, by source and rowid.
    std::vector<Written> written_;
};

} // namespace store
