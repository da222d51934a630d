#pragma once

#include "store/Sql.h"
#include "store/sql/Ast.h"

#include <QString>

#include <optional>
#include <vector>

namespace store::sql {

struct SourceColumn {
    QString name;
    std::optional<ColumnType> type;
    int width = 0;
    ValueKind kind = ValueKind::Null;
};

/// A table or stored query of a from clause.
struct Source {
    QString alias;
    /// Name of the base table; empty for a stored query.
    QString table;
    /// Statement of the stored query in SQLite's SQL.
    QString nested;
    std::vector<SourceColumn> columns;

    QString columnSql(int column) const;
};

/// A source over a base table.
Source tableSource(const TableDef& table, const QString& alias);

ValueKind kindOf(ColumnType type);
bool sameName(QStringView left, QStringView right);

/// The names that an expression may use.
struct Scope {
    std::vector<Source> sources;
    /// Output columns of the query, that a criterion or an order may name.
    std::vector<OutputColumn> outputs = {};
    /// Output columns hide columns of sources with the same name, or are hidden by them.
    bool outputsFirst = false;
};

/// Where a name was found; a source of -1 is the output of the query itself.
struct Found {
    int source;
    int column;
};

/// What the binder may read: the sources from `first` up to but without `last`, and the output
/// columns if so said.
struct Visible {
    const Scope& scope;
    int first = 0;
    int last = 0;
    bool outputs = false;
};

/// All places that a name may mean; an output column hides the others, or is hidden by them.
std::vector<Found> findName(const Visible& visible, const QString& qualifier, const QString& name);

} // namespace store::sql
