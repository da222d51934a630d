#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <span>

namespace store {

enum class ColumnType { Text, Memo, Date, Boolean, Whole, Number };

/// One column of a table. `width` is the greatest number of characters of a Text column.
struct ColumnDef {
    const char16_t* name = nullptr;
    ColumnType type = ColumnType::Text;
    int width = 0;
};

/// One table as the engine creates it and as the SQL translator knows it.
struct TableDef {
    const char16_t* name = nullptr;
    std::span<const ColumnDef> columns;
    /// Name of the column whose values are unique, or null.
    const char16_t* key = nullptr;

    /// The column of that name, whatever its case; null when there is none.
    const ColumnDef* column(QStringView wanted) const;
};

/// An index as the engine creates it.
struct IndexDef {
    const char16_t* name = nullptr;
    const char16_t* table = nullptr;
    /// What stands between the parentheses: columns or expressions in SQLite's SQL. Expressions
    /// must read as the translator emits them, or no query will use the index.
    const char16_t* terms = nullptr;
    bool unique = false;
};

/// All tables of a register.
std::span<const TableDef> schema();
/// All indexes of a register.
std::span<const IndexDef> indexes();
/// The table of that name, whatever its case; null when there is none.
const TableDef* findTable(QStringView name);

/// The column that SQLite numbers rows by. It is declared so that the number of a deleted row is
/// never given to another one; no statement of the program sees it.
inline constexpr QStringView rowNumber = u"rowid";

/// SQLite's statement that makes a table under a name.
QString createTable(const TableDef& table, QStringView name);
/// The statements that make all indexes.
QStringList createIndexes();
/// SQLite's statements that make all tables, then all indexes, of an empty register. The functions
/// and the collation of registerSqlFunctions() must be known to the connection.
///
/// Texts lie as they were given, without a collation on the column, so that other tools can read
/// the file; Booleans are -1 or 0; dates as dateToColumn() and nonDateToColumn() give them.
QStringList createStatements();

/// A name in SQLite's quotes.
QString sqlName(QStringView name);

} // namespace store
