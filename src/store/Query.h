#pragma once

#include <QByteArray>
#include <QString>

#include <sqlite3.h>

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace store {

/// What lies in a column of the file: Null, a whole number, a number, a text in UTF-8.
using Cell = std::variant<std::monostate, qint64, double, std::string>;

/// A prepared statement whose failures are engine errors. Ends before its connection.
///
/// It works on the statement itself, as rows are copied by the hundred thousand and errors need
/// SQLite's extended codes.
class Query {
  public:
    /// @throws EngineError when the statement can't be prepared
    Query(sqlite3* connection, const QString& sql);

    /// Parameters and columns are numbered as SQLite does: from 1 and from 0.
    void bind(int parameter, qint64 number);
    void bind(int parameter, const Cell& cell);
    void bindNull(int parameter);
    /// Goes to the next row; at the end, and after an error, the statement is ready to run again.
    /// @return false when there is no further row. @throws EngineError
    bool step();
    /// Runs to the end. @throws EngineError
    void run();
    void reset();

    int columnCount() const { return sqlite3_column_count(statement_.get()); }
    bool isNull(int column) const;
    qint64 integer(int column) const { return sqlite3_column_int64(statement_.get(), column); }
    QString text(int column) const;
    /// A column as text in UTF-8, valid until the next step.
    std::string_view bytes(int column) const;

  private:
    friend class RowBlock;
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

/// A row as it lies in the file, inside a block of rows; valid until the block changes. Columns
/// become values when they are asked for.
class RowView {
  public:
    Cell cell(int column) const;
    /// False for a column that was not read.
    bool has(int column) const { return slot(column).type != unread; }
    bool isText(int column) const { return slot(column).type == SQLITE_TEXT; }
    /// The bytes of a text column.
    std::string_view bytes(int column) const { return bytes(slot(column)); }
    bool equals(int column, const Cell& other) const;

  private:
    friend class RowBlock;
    /// Not a type of SQLite's.
    static constexpr int unread = 0;
    struct Slot {
        int type = SQLITE_NULL;
        int length = 0;
        union {
            qint64 integer = 0;
            double number;
            size_t offset;
        };
    };
    RowView(const Slot* slots, const std::string* bytes) : slots_(slots), bytes_(bytes) {}
    const Slot& slot(int column) const { return slots_[column]; }
    std::string_view bytes(const Slot& slot) const {
        return std::string_view(*bytes_).substr(slot.offset, static_cast<size_t>(slot.length));
    }
    const Slot* slots_;
    const std::string* bytes_;
};

/// Copies of rows, so that no statement stays open on them.
class RowBlock {
  public:
    /// Appends the row on which the query stands.
    /// @param firstColumn the query's columns before it are left out; the same for all rows
    /// @param repeats true for each column that is as in the row before; none when it is empty
    void append(const Query& query, int firstColumn = 0, const std::vector<bool>& repeats = {});
    /// Becomes the row on which the query stands, of whose columns it selects some.
    /// @param columns what the query's columns are in the row
    /// @param width number of columns of the row
    void assign(const Query& query, std::span<const int> columns, size_t width);
    /// Becomes a copy of one row of another block.
    void assign(const RowBlock& other, qint64 index);
    void clear();
    qint64 count() const { return rows_; }
    /// Bytes that it takes.
    size_t size() const { return slots_.size() * sizeof(Slot) + bytes_.size(); }
    RowView row(qint64 index) const { return {slotsOf(index), &bytes_}; }
    /// Puts another cell into a row.
    void set(qint64 index, int column, const Cell& cell);

  private:
    using Slot = RowView::Slot;
    Slot textSlot(std::string_view text);
    Slot slotFrom(const Query& query, int column);
    const Slot* slotsOf(qint64 index) const {
        return slots_.data() + static_cast<size_t>(index) * width_;
    }
    size_t width_ = 0;
    qint64 rows_ = 0;
    std::vector<Slot> slots_;
    std::string bytes_;
};

} // namespace store
