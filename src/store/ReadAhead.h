#pragma once

#include "store/Query.h"
#include "store/Sql.h"

#include <optional>
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

    /// Takes the row on which the query stands, whose columns follow its key, as long as there is
    /// room.
    void add(const Query& query, std::span<const qint64> key);
    /// A row as it is now; nothing when it has to be read anew.
    /// @param stamp the connection's change stamp now
    /// @param changed where the row is made when something was written into it
    std::optional<RowView> read(qint64 index, std::span<const qint64> key, quint64 stamp,
                                RowBlock& changed) const;
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
    /// The key of the last row, and which columns of the one behind it show the same base row.
    std::vector<qint64> last_;
    std::vector<bool> repeats_;
    /// What was written since, by source and rowid.
    std::vector<Written> written_;
};

} // namespace store
