#pragma once

#include "store/Schema.h"

#include <QString>
#include <QStringView>

#include <functional>
#include <optional>
#include <vector>

namespace store {

/// A column of a query's result, in the order of the select list.
struct OutputColumn {
    /// Name to be asked for; `table.column` where two output columns would share a name.
    QString name;
    /// Type when it is known from the schema; nothing for a computed column whose values carry
    /// their type themselves.
    std::optional<ColumnType> type;
    /// Greatest number of characters of a Text column, 0 when free.
    int width = 0;
    /// Index into SelectPlan::sources and column there, when the column can be written; -1 if not.
    int source = -1;
    QString baseColumn;
};

/// A base table that a query reads, by its name in the query.
struct SourceTable {
    QString table;
    QString alias;
};

/// A select statement, taken apart so that a recordset can hold keys only and read rows when they
/// are looked at. All members are SQLite's SQL.
struct SelectPlan {
    std::vector<OutputColumn> columns;
    std::vector<SourceTable> sources;
    /// False for grouped, distinct and nested queries: rows have no keys, columns can't be written.
    bool updatable = false;
    /// The whole statement.
    QString rows;
    /// The same rows and order, selecting only the rowid of each source (updatable only).
    QString keys;
    /// The row of given keys, to be bound as ?1, ?2 … in the order of `sources` (updatable only).
    QString rowByKeys;
    /// Without an order of its own and of one table: `keys` begins with the rows of lowest rowid.
    bool inRowidOrder = false;
    /// The where clause without the word, empty if none.
    QString filter;
    /// From clause without the word.
    QString from;
    /// Order by clause without the words, empty if none.
    QString order;
};

/// How stored queries are found while a statement that names one is translated.
using QueryLookup = std::function<std::optional<QString>(QStringView name)>;

/// Translates a select statement, or the name of a table or stored query alone.
/// @throws EngineError 3075 with the place, 3078 for an unknown table, 3061 for an unknown name in
/// an expression, 3464 for a comparison of a number column with a text.
SelectPlan translateSelect(const QString& sql, const QueryLookup& storedQuery = {});

/// Translates an action statement: delete, update or insert. @throws as translateSelect.
QString translateAction(const QString& sql, const QueryLookup& storedQuery = {});

/// Translates a criterion over the output columns and sources of a plan; the result is a condition
/// that can be put into a where clause over `plan.from`. @throws as translateSelect.
QString translateCriterion(const QString& criterion, const SelectPlan& plan,
                           const QueryLookup& storedQuery = {});

/// A text as a literal of the engine's SQL: in apostrophes, those inside doubled.
QString quoted(const QString& text);

} // namespace store
