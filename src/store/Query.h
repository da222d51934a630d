#pragma once

#include <QByteArray>
#include <QString>

#include <sqlite3.h>

#include <memory>
#include <string>
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
    QString columnName(int column) const;
    bool isNull(int column) const;
    qint64 integer(int column) const { return sqlite3_column_int64(statement_.get(), column); }
    QString text(int column) const;

  private:
    friend class RowCells;
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

/// A copy of one row as it lies in the file, so that no statement stays open on it. Columns become
/// values when they are asked for.
class RowCells {
  public:
    /// Copies the row on which the query stands.
    void read(const Query& query);
    bool isEmpty() const { return slots_.empty(); }
    Cell cell(int column) const;
    bool isText(int column) const {
        return slots_[static_cast<size_t>(column)].type == SQLITE_TEXT;
    }
    /// A text column; empty for Null.
    QString text(int column) const;
    bool equals(int column, const Cell& cell) const;

  private:
    struct Slot {
        int type = SQLITE_NULL;
        int length = 0;
        union {
            qint64 integer = 0;
            double number;
            size_t offset;
        };
    };
    std::string_view bytes(const Slot& slot) const {
        return std::string_view(bytes_).substr(slot.offset, static_cast<size_t>(slot.length));
    }
    std::vector<Slot> slots_;
    std::string bytes_;
};

} // namespace store
