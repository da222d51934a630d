#include "store/Sql.h"

#include "store/EngineError.h"
#include "store/sql/Binder.h"
#include "store/sql/Messages.h"
#include "store/sql/Parser.h"
#include "store/sql/Planner.h"
#include "store/sql/SqliteText.h"

#include <QStringList>

namespace store {

namespace {

using namespace sql;

constexpr QLatin1String comma(", ");

/// Translates one action statement.
class ActionTranslator {
  public:
    ActionTranslator(const QString& sql, const QueryLookup& storedQuery)
        : sql_(sql), storedQuery_(storedQuery) {}

    QString translate() {
        const ActionStatement statement = Parser(sql_).actionStatement();
        QString result = std::visit([this](const auto& one) { return emit(one); }, statement);
        checkComplexity(result, sql_);
        return result;
    }

  private:
    Visible all() const { return {scope_, 0, static_cast<int>(scope_.sources.size())}; }

    void openTable(const TableName& name) {
        if (const TableDef* table = findTable(name.name)) {
            scope_.sources.push_back(tableSource(*table, name.alias));
            return;
        }
        const bool isStored = storedQuery_ && storedQuery_(name.name);
        throw isStored
            ? errorAt(sql_, name.place, messages::storedTarget)
            : errorAt(sql_, name.place, messages::unknownTable, ErrorNumber::UnknownTable);
    }

    QString tableSql() const {
        const Source& source = scope_.sources[0];
        return sqlName(source.table) + QStringLiteral(" AS ") + sqlName(source.alias);
    }

    QString where(const ExpressionPtr& condition) const {
        if (!condition)
            return {};
        Binder(sql_, all()).bindCondition(*condition);
        return QStringLiteral(" WHERE ") + Emitter(scope_).filter(*condition);
    }

    QString emit(const DeleteStatement& statement) {
        openTable(statement.table);
        return QStringLiteral("DELETE FROM ") + tableSql() + where(statement.where);
    }

    QString emit(const UpdateStatement& statement) {
        openTable(statement.table);
        QStringList terms;
        for (const Assignment& assignment : statement.assignments) {
            const SourceColumn& column = target(assignment, ErrorNumber::TooFewParameters);
            terms << sqlName(column.name) + QStringLiteral(" = ") +
                         value(assignment, column, all());
        }
        return QStringLiteral("UPDATE ") + tableSql() + QStringLiteral(" SET ") +
               terms.join(comma) + where(statement.where);
    }

    QString emit(const InsertStatement& statement) {
        openTable(statement.table);
        const std::vector<SourceColumn>& columns = scope_.sources[0].columns;
        const bool isListed = !statement.assignments[0].column.isEmpty();
        if (!isListed && statement.assignments.size() != columns.size())
            throw errorAt(sql_, statement.table.place, messages::valueCount);
        QStringList names;
        QStringList values;
        for (std::size_t i = 0; i < statement.assignments.size(); ++i) {
            const Assignment& assignment = statement.assignments[i];
            const SourceColumn& column =
                isListed ? target(assignment, ErrorNumber::UnknownInsertColumn) : columns[i];
            names << sqlName(column.name);
            // Values can't name columns.
            values << value(assignment, column, {scope_, 0, 0});
        }
        return QStringLiteral("INSERT INTO %1 (%2) VALUES (")
                   .arg(sqlName(scope_.sources[0].table), names.join(comma)) +
               values.join(comma) + u')';
    }

    const SourceColumn& target(const Assignment& assignment, ErrorNumber unknown) {
        const std::vector<Found> found = findName(all(), assignment.qualifier, assignment.column);
        if (found.empty())
            throw errorAt(sql_, assignment.place,
                          unknown == ErrorNumber::UnknownInsertColumn
                              ? messages::unknownInsertColumn
                              : messages::unknownName,
                          unknown);
        const SourceColumn& column =
            scope_.sources[0].columns[static_cast<std::size_t>(found[0].column)];
        if (written_.contains(column.name))
            throw errorAt(sql_, assignment.place, messages::columnTwice);
        written_ << column.name;
        return column;
    }

    QString value(const Assignment& assignment, const SourceColumn& column,
                  const Visible& visible) const {
        Binder(sql_, visible).bind(*assignment.value);
        return Emitter(scope_).forColumn(*assignment.value, column);
    }

    const QString& sql_;
    const QueryLookup& storedQuery_;
    Scope scope_;
    QStringList written_;
};

Scope scopeOf(const SelectPlan& plan) {
    Scope scope;
    scope.outputs = plan.columns;
    scope.outputsFirst = true;
    if (plan.updatable)
        for (const SourceTable& source : plan.sources)
            scope.sources.push_back(tableSource(*findTable(source.table), source.alias));
    else
        for (OutputColumn& output : scope.outputs)
            output.expression = sqlName(output.name);
    return scope;
}

} // namespace

SelectPlan translateSelect(const QString& sql, const QueryLookup& storedQuery) {
    Translation translation{storedQuery};
    return planSelect(sql, translation);
}

QString translateAction(const QString& sql, const QueryLookup& storedQuery) {
    return ActionTranslator(sql, storedQuery).translate();
}

QString translateCriterion(const QString& criterion, const SelectPlan& plan) {
    const Scope scope = scopeOf(plan);
    const ExpressionPtr condition = Parser(criterion).criterion();
    Binder(criterion, {scope, 0, static_cast<int>(scope.sources.size()), true})
        .bindCondition(*condition);
    QString result = Emitter(scope).filter(*condition);
    checkComplexity(result, criterion);
    return result;
}

QStringList expressionsOf(const SelectPlan& plan) {
    QStringList expressions;
    for (const OutputColumn& column : plan.columns)
        expressions << column.expression;
    return expressions;
}

QString selectKeys(const SelectPlan& plan, const QStringList& conditions,
                   const QStringList& columns) {
    QStringList terms;
    for (const QString& condition : QStringList(plan.filter) + conditions)
        if (!condition.isEmpty())
            terms << u'(' + condition + u')';
    const auto clause = [](const char16_t* words, const QString& sql) {
        return sql.isEmpty() ? sql : QString::fromUtf16(words) + sql;
    };
    return QStringLiteral("SELECT ") + (QStringList(plan.keyColumns) + columns).join(comma) +
           clause(u" FROM ", plan.from) + clause(u" WHERE ", terms.join(QStringLiteral(" AND "))) +
           clause(u" ORDER BY ", plan.order);
}

QString selectRow(const SelectPlan& plan, std::span<const int> columns) {
    QStringList expressions;
    for (const int column : columns)
        expressions << plan.columns[static_cast<std::size_t>(column)].expression;
    return QStringLiteral("SELECT ") +
           (columns.empty() ? expressionsOf(plan) : expressions).join(comma) + plan.rowByKeys;
}

QString quoted(const QString& text) {
    return sqlText(text);
}

} // namespace store
