#pragma once

#include <QString>
#include <QStringView>

#include <span>

namespace store {

enum class ColumnType { Text, Memo, Date, Boolean, Whole, Number };

/// One column of a table. `width` is the greatest number of characters of a Text column.
struct ColumnDef {
    const char16_t* name;
    ColumnType type;
    int width = 0;
};

/// One table as the engine creates it and as the SQL translator knows it.
struct TableDef {
    const char16_t* name;
    std::span<const ColumnDef> columns;
    /// Name of the column whose values are unique, or null.
    const char16_t* key = nullptr;

    /// The column of that name, whatever its case; null when there is none.
    const ColumnDef* column(QStringView wanted) const;
};

/// All tables of a register.
std::span<const TableDef> schema();
/// The table of that name, whatever its case; null when there is none.
const TableDef* findTable(QStringView name);

} // namespace store
