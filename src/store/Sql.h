#pragma once

#include "store/Schema.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace store {

/// What the values of an expression are, Null aside.
enum class ValueKind { Null, Text, Number, Date, Boolean };

/// A column of a query's result, in the order of the select list.
struct OutputColumn {
    /// Name to be asked for; `table.column` where two output columns would share a name.
    QString name;
    /// Type when it is known from the schema, and of computed dates and Booleans, which lie as in a
    /// column of their type; nothing for a computed column whose values carry their type
    /// themselves.
    std::optional<ColumnType> type;
    /// Greatest number of characters of a Text column, 0 when free.
    int width = 0;
    /// Index into SelectPlan::sources and column there, when the column can be written; -1 if not.
    int source = -1;
    QString baseColumn;
    ValueKind kind = ValueKind::Null;
    /// The column in SQLite's SQL, over the plan's `from`.
    QString expression;
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
    /// The whole statement. Its columns bear the names of `columns`, so that it can stand as
    /// "(rows)" in a from clause.
    QString rows;
    /// From and where clause of the row of given keys, to be bound as ?1, ?2 … in the order of
    /// `sources` (updatable only). A Null key is bound as Null and gives Null columns; a key whose
    /// row has been deleted gives no row at all. Neither the filter nor the conditions of joins are
    /// asked again: a row stays in the keyset that it once came into.
    QString rowByKeys;
    /// The rowid of each source (updatable only). The key of a source that gave no row to an outer
    /// join is Null.
    QString keyColumns;
    /// Without an order of its own and of one table: the rows of lowest rowid come first.
    bool inRowidOrder = false;
    /// The where clause without the word, empty if none.
    QString filter;
    /// From clause without the word.
    QString from;
    /// Order by clause without the words, empty if none. Rows of one table that it leaves equal
    /// stand in the order of insertion, so that every statement over them gives them alike.
    QString order;
};

/// How stored queries are found while a statement that names one is translated.
using QueryLookup = std::function<std::optional<QString>(QStringView name)>;

/// Translates a select statement, or the name of a table or stored query alone.
/// @throws EngineError 3075 with the place, 3078 for an unknown table, 3061 for an unknown name in
/// an expression, 3079 for one that two tables know, 3085 for an unknown function, 3464 for values
/// of two types that can't be compared, 3122 for a column that is not grouped, 3360 for a statement
/// that is too complex, 3102 for a stored query that reads itself.
SelectPlan translateSelect(const QString& sql, const QueryLookup& storedQuery = {});

/// Translates an action statement: delete, update or insert. @throws as translateSelect, and 3127
/// for an unknown column in the list of an insert. Values that do not fit their column are told
/// when the statement runs, see registerSqlFunctions().
QString translateAction(const QString& sql, const QueryLookup& storedQuery = {});

/// Translates a criterion over the output columns and sources of a plan. The result is a condition
/// that can be put into a where clause over `plan.from` when the plan is updatable, over
/// "(plan.rows)" when it is not. @throws as translateSelect.
QString translateCriterion(const QString& criterion, const SelectPlan& plan);

/// What the columns of a plan are in SQLite's SQL.
QStringList expressionsOf(const SelectPlan& plan);

/// The statement that selects the keys of an updatable plan's rows in their order.
/// @param conditions beside the plan's own
/// @param columns other than the keys; they stand behind them
QString selectKeys(const SelectPlan& plan, const QStringList& conditions = {},
                   const QStringList& columns = {});

/// The statement that selects columns of the row of given keys, see SelectPlan::rowByKeys.
/// @param columns their indexes in `plan.columns`; none for all of them
QString selectRow(const SelectPlan& plan, std::span<const int> columns = {});

/// A text as a literal of the engine's SQL: in apostrophes, those inside doubled.
QString quoted(const QString& text);

} // namespace store
