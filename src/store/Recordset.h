#pragma once

#include "store/Sql.h"
#include "store/Value.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace store {

class Connection;
class Rowset;

enum class EditState { None = 0, Edit = 1, Add = 2 };

/// An opaque position, valid for the recordset that gave it and for its clones.
class RowMark {
  public:
    bool isValid() const { return !keys_.empty(); }
    bool operator==(const RowMark& other) const = default;

  private:
    friend class Recordset;
    std::vector<qint64> keys_;
};

/// Told of what happens to a recordset, and must not throw. Bound fields listen to it. Does nothing
/// by default.
class RecordsetObserver {
  public:
    virtual ~RecordsetObserver() = default;
    /// Update was called; what the observers put into fields now is written with the row.
    virtual void aboutToWrite() {}
    /// A move, a refresh or the end is about to leave the row. An observer may complete or drop an
    /// open edit here; one still open afterwards is dropped.
    virtual void aboutToLeave() {}
    /// Another row is current now, or the edit buffer was opened, written or dropped.
    virtual void repositioned() {}
};

class Recordset;

/// A column of the current row, or of the edit buffer while that is open.
class Field {
  public:
    /// @throws EngineError 3021 without a current row, 3167 when the row has been deleted.
    store::Value Value() const;
    /// @throws EngineError 3020 when no edit is open, 3163 when a text is longer than its column,
    /// 3164 for a computed column, 3421 for what can't become a value of its column, as the empty
    /// text in a date or number column. A text in a date column that is no calendar date is kept as
    /// it was typed.
    void setValue(const store::Value& value);
    const OutputColumn& column() const;

  private:
    friend class Recordset;
    Field(Recordset& owner, int column) : owner_(&owner), column_(column) {}
    Recordset* owner_;
    int column_;
};

/// A cursor over a query's rows: it holds keys and reads a row when it is looked at, so that
/// opening a whole table costs its keys at most. Rows that others delete stay as holes (3167), rows
/// that others add are seen after a refresh; rows added here stand at the end.
///
/// The names are those of the engine's interface.
class Recordset {
  public:
    /// @param source a table's name, a stored query's name or a select statement
    /// @throws EngineError 3061, 3075, 3078, 3464
    Recordset(std::shared_ptr<Connection> connection, const QString& source);
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    /// No rows, or past the last one. (Not EOF: that is a macro of <cstdio>.)
    bool Eof() const;
    /// @throws EngineError 3021 when there are no rows.
    void MoveFirst();
    /// @throws EngineError 3021 when already past the end.
    void MoveNext();

    /// @throws EngineError 3265 when no column has that name (case aside).
    Field Fields(QStringView name);
    const std::vector<OutputColumn>& columns() const;

    /// Opens the edit buffer for a new row; Update leaves the row that was current before it.
    void AddNew();
    /// Opens the edit buffer for the current row. @throws EngineError 3021, 3167
    void Edit();
    /// Writes the open edit. @throws EngineError 3020 when none is open, 3022 when the key is taken
    /// (the edit stays open), and others that the engine raises.
    void Update();
    /// Drops the open edit; without one it does nothing.
    void CancelUpdate();
    EditState EditMode() const;
    /// True when the open edit would change the row; a new row always does.
    bool dataChanged() const;
    /// Deletes the current row; an open edit is dropped. There is no current row afterwards until a
    /// move. @throws EngineError 3021, 3164 for a row of a join, 3167
    void Delete();

    /// Moves to the first row that meets the criterion; NoMatch tells. After a failed find the
    /// position is unchanged. @throws EngineError 3061, 3075, 3464 for a criterion that is no
    /// condition
    void FindFirst(const QString& criterion);
    /// As FindFirst(), among the rows behind the current one; without one among all.
    void FindNext(const QString& criterion);
    bool NoMatch() const;

    RowMark Bookmark() const;
    /// @throws EngineError 3021 when the row is not in this recordset.
    void setBookmark(const RowMark& mark);
    /// Row number from 0; -1 when there is no current row. Counts the rows before it after a find:
    /// to know whether two cursors are on the same row, compare their bookmarks.
    qint64 AbsolutePosition() const;
    /// @throws EngineError 3021 when there is no such row
    void setAbsolutePosition(qint64 position);
    /// Number of rows, those that others deleted included. Reads all keys.
    qint64 RecordCount() const;

    /// A second cursor over the same rows, on no row until it is moved.
    std::unique_ptr<Recordset> Clone() const;

    /// Leaves the row and gives up the rows; all that follows throws 3021. The end of a recordset
    /// does the same.
    void Close();

    /// Observers are not owned and must outlive the recordset.
    void addObserver(RecordsetObserver* observer);

  private:
    friend class Field;
    friend class RowTexts;
    class Impl;
    const std::shared_ptr<Rowset>& rowset() const;
    void takeFound(std::optional<std::vector<qint64>> key);
    explicit Recordset(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};

} // namespace store
