#include "store/sql/Planner.h"

#include "store/EngineError.h"
#include "store/sql/Binder.h"
#include "store/sql/FunctionTable.h"
#include "store/sql/Messages.h"
#include "store/sql/Parser.h"
#include "store/sql/SqliteText.h"

#include <algorithm>

namespace store::sql {

namespace {

constexpr int mostTables = 32;
constexpr std::size_t mostColumns = 255;
constexpr qsizetype deepestQueries = 8;
constexpr qsizetype longestTranslation = 1'000'000;
/// SQLite's parser has a stack of 100.
constexpr int greatestLoad = 90;
/// Names of columns without a name are numbered from here.
constexpr int firstExpressionNumber = 1000;

constexpr QLatin1String comma(", ");

QString clause(const char16_t* words, const QString& sql) {
    return sql.isEmpty() ? QString() : QString::fromUtf16(words) + sql;
}

/// Plans one select statement.
class Planner {
  public:
    Planner(const QString& sql, Translation& translation) : sql_(sql), translation_(translation) {}

    SelectPlan plan() {
        statement_ = Parser(sql_).selectStatement();
        addFrom();
        bindWhere();
        addColumns();
        nameColumns();
        bindGroups();
        const QString having = bindHaving();
        plan_.updatable = isUpdatable();
        addOrder();
        checkGrouping();
        plan_.columns = scope_.outputs;
        write(having);
        return std::move(plan_);
    }

  private:
    Visible sources() const { return {scope_, 0, static_cast<int>(scope_.sources.size())}; }
    Visible sourcesAndOutputs() const {
        return {scope_, 0, static_cast<int>(scope_.sources.size()), true};
    }
    EngineError error(qsizetype place, const char16_t* message,
                      ErrorNumber number = ErrorNumber::SyntaxError) const {
        return errorAt(sql_, place, message, number);
    }
    // From

    void addFrom() {
        QStringList items;
        for (std::size_t i = 0; i < statement_.from.size(); ++i) {
            const QString item = fromSql(*statement_.from[i]);
            const bool standsApart = i > 0 && containsRightJoin(*statement_.from[i]);
            isFlat_ = isFlat_ && !standsApart;
            items << (standsApart ? u'(' + item + u')' : item);
        }
        plan_.from = items.join(comma);
        for (const Source& source : scope_.sources)
            plan_.sources.push_back({source.table, source.alias});
    }

    static bool containsRightJoin(const From& from) {
        return from.kind != From::Kind::Table &&
               (from.kind == From::Kind::Right || containsRightJoin(*from.left) ||
                containsRightJoin(*from.right));
    }

    QString fromSql(const From& from) {
        if (from.kind == From::Kind::Table)
            return addSource(from.table);
        const int first = static_cast<int>(scope_.sources.size());
        const QString left = fromSql(*from.left);
        QString right = fromSql(*from.right);
        if (from.right->kind != From::Kind::Table) {
            right = u'(' + right + u')';
            isFlat_ = false;
        }
        const Visible inside{scope_, first, static_cast<int>(scope_.sources.size())};
        Binder(sql_, inside).bindCondition(*from.on);
        return left + joinWords(from.kind) + right + QStringLiteral(" ON ") +
               Emitter(scope_).filter(*from.on);
    }

    static QString joinWords(From::Kind kind) {
        switch (kind) {
        case From::Kind::Left:
            return QStringLiteral(" LEFT JOIN ");
        case From::Kind::Right:
            return QStringLiteral(" RIGHT JOIN ");
        default:
            return QStringLiteral(" INNER JOIN ");
        }
    }

    QString addSource(const TableName& name) {
        for (const Source& source : scope_.sources)
            if (sameName(source.alias, name.alias))
                throw error(name.place, messages::sameAlias);
        if (++translation_.tables > mostTables)
            throw error(name.place, messages::tooComplex, ErrorNumber::TooComplex);
        const TableDef* table = findTable(name.name);
        scope_.sources.push_back(table ? tableSource(*table, name.alias) : storedSource(name));
        const Source& source = scope_.sources.back();
        return (table ? sqlName(source.table) : u'(' + source.nested + u')') +
               QStringLiteral(" AS ") + sqlName(source.alias);
    }

    Source storedSource(const TableName& name) {
        const auto stored =
            translation_.storedQuery ? translation_.storedQuery(name.name) : std::nullopt;
        if (!stored)
            throw error(name.place, messages::unknownTable, ErrorNumber::UnknownTable);
        if (translation_.open.contains(name.name, Qt::CaseInsensitive) ||
            translation_.open.size() >= deepestQueries)
            throw error(name.place, messages::circularQuery, ErrorNumber::CircularQuery);
        translation_.open << name.name;
        const SelectPlan nested = planSelect(*stored, translation_);
        translation_.open.removeLast();
        Source source{name.alias, {}, nested.rows, {}};
        for (const OutputColumn& column : nested.columns)
            source.columns.push_back({column.name, column.type, column.width, column.kind});
        return source;
    }

    void bindWhere() {
        if (!statement_.where)
            return;
        Binder(sql_, sources()).bindCondition(*statement_.where);
        plan_.filter = Emitter(scope_).filter(*statement_.where);
    }

    // Output columns

    void addColumns() {
        for (const SelectItem& item : statement_.items) {
            item.expression ? addExpression(item) : addStar(item);
            if (scope_.outputs.size() > mostColumns)
                throw error(item.place, messages::tooManyColumns);
        }
    }

    void addStar(const SelectItem& item) {
        hasStar_ = true;
        starPlace_ = item.place;
        bool isKnown = item.starOf.isEmpty();
        for (std::size_t i = 0; i < scope_.sources.size(); ++i) {
            if (!item.starOf.isEmpty() && !sameName(scope_.sources[i].alias, item.starOf))
                continue;
            isKnown = true;
            for (std::size_t column = 0; column < scope_.sources[i].columns.size(); ++column)
                addColumn(static_cast<int>(i), static_cast<int>(column), {});
        }
        if (!isKnown)
            throw error(item.place, messages::unknownName, ErrorNumber::TooFewParameters);
    }

    /// @param shownName as the statement writes it; empty for the name of the schema
    void addColumn(int sourceIndex, int columnIndex, const QString& shownName) {
        const Source& source = scope_.sources[static_cast<std::size_t>(sourceIndex)];
        const SourceColumn& column = source.columns[static_cast<std::size_t>(columnIndex)];
        OutputColumn output;
        output.name = shownName.isEmpty() ? column.name : shownName;
        output.type = column.type;
        output.width = column.width;
        output.kind = column.kind;
        output.expression = source.columnSql(columnIndex);
        if (!source.table.isEmpty()) {
            output.source = sourceIndex;
            output.baseColumn = column.name;
        }
        aliasNames_ << source.alias + u'.' + output.name;
        scope_.outputs.push_back(output);
    }

    void addExpression(const SelectItem& item) {
        Expression& expression = *item.expression;
        Binder binder(sql_, sources(), Binder::Aggregates::Allowed);
        binder.bind(expression);
        isAggregated_ = isAggregated_ || binder.hasAggregates();
        if (expression.node == Expression::Node::Name) {
            addColumn(expression.source, expression.column,
                      item.alias.isEmpty() ? expression.text : item.alias);
            if (!item.alias.isEmpty())
                aliasNames_.last().clear();
            return;
        }
        OutputColumn output;
        output.name = item.alias;
        output.kind = expression.kind;
        output.expression = Emitter(scope_).value(expression);
        if (expression.kind == ValueKind::Date)
            output.type = ColumnType::Date;
        if (expression.kind == ValueKind::Boolean)
            output.type = ColumnType::Boolean;
        aliasNames_ << QString();
        scope_.outputs.push_back(output);
    }

    bool isTaken(const QString& name, std::size_t before) const {
        return std::any_of(scope_.outputs.begin(),
                           scope_.outputs.begin() + static_cast<std::ptrdiff_t>(before),
                           [&](const OutputColumn& output) { return sameName(output.name, name); });
    }

    /// Columns that would share a name are named by their tables; what still has none or a taken
    /// one is numbered.
    void nameColumns() {
        std::vector<OutputColumn>& outputs = scope_.outputs;
        QStringList names;
        for (const OutputColumn& output : outputs)
            names << output.name.toCaseFolded();
        for (std::size_t i = 0; i < outputs.size(); ++i) {
            const auto at = static_cast<qsizetype>(i);
            if (!aliasNames_[at].isEmpty() && names.count(names[at]) > 1)
                outputs[i].name = aliasNames_[at];
        }
        int number = firstExpressionNumber;
        for (std::size_t i = 0; i < outputs.size(); ++i)
            while (outputs[i].name.isEmpty() || isTaken(outputs[i].name, i))
                outputs[i].name = QStringLiteral("Expr%1").arg(number++);
    }

    // Groups

    void bindGroups() {
        if (statement_.groupBy.size() > mostColumns)
            throw error(0, messages::tooComplex, ErrorNumber::TooComplex);
        for (const ExpressionPtr& group : statement_.groupBy) {
            Binder(sql_, sources()).bind(*group);
            const QString sql = Emitter(scope_).value(*group);
            if (isConstantNumber(sql))
                throw error(group->place, messages::constantGroup);
            groupValues_ << sql;
            groupTerms_ << Emitter(scope_).term(*group);
        }
    }

    QString bindHaving() {
        if (!statement_.having)
            return {};
        Binder binder(sql_, sources(), Binder::Aggregates::Allowed);
        binder.bindCondition(*statement_.having);
        if (!isGrouped())
            throw error(statement_.having->place, messages::havingWithoutGroup);
        return Emitter(scope_).filter(*statement_.having);
    }

    bool isGrouped() const { return isAggregated_ || !groupTerms_.isEmpty(); }

    void checkGrouping() const {
        if (!isGrouped())
            return;
        if (hasStar_)
            throw error(starPlace_, messages::groupedStar);
        for (const SelectItem& item : statement_.items)
            checkGrouped(*item.expression);
        if (statement_.having)
            checkGrouped(*statement_.having);
        for (const OrderTerm& term : statement_.orderBy)
            checkGrouped(*term.expression);
    }

    void checkGrouped(const Expression& expression) const {
        const bool isAggregate =
            expression.function && expression.function->form == FunctionRow::Form::Aggregate;
        if (isAggregate || groupValues_.contains(Emitter(scope_).value(expression)))
            return;
        if (expression.node == Expression::Node::Name && expression.source >= 0)
            throw error(expression.place, messages::notGrouped, ErrorNumber::NotGrouped);
        for (const ExpressionPtr& part : expression.parts)
            checkGrouped(*part);
    }

    // Order

    void addOrder() {
        QStringList terms;
        if (statement_.orderBy.size() > mostColumns)
            throw error(0, messages::tooComplex, ErrorNumber::TooComplex);
        for (const OrderTerm& order : statement_.orderBy) {
            const QString term = orderTerm(*order.expression);
            if (!isConstantNumber(term))
                terms << (order.descending ? term + QStringLiteral(" DESC") : term);
        }
        plan_.inRowidOrder = plan_.updatable && terms.isEmpty() && scope_.sources.size() == 1;
        if (plan_.updatable && scope_.sources.size() == 1)
            terms << sqlName(scope_.sources[0].alias) + QStringLiteral(".rowid");
        plan_.order = terms.join(comma);
    }

    QString orderTerm(Expression& expression) {
        const bool isPlace =
            expression.node == Expression::Node::Literal && expression.kind == ValueKind::Number;
        if (isPlace)
            return orderTermOfPlace(expression);
        Binder binder(sql_, sourcesAndOutputs(),
                      isGrouped() ? Binder::Aggregates::Allowed : Binder::Aggregates::Forbidden);
        binder.bind(expression);
        const QString value = Emitter(scope_).value(expression);
        const auto isSelected = [&](const OutputColumn& output) {
            return output.expression == value;
        };
        if (statement_.distinct && std::ranges::none_of(scope_.outputs, isSelected))
            throw error(expression.place, messages::orderNotSelected);
        return isConstantNumber(value) ? value : Emitter(scope_).term(expression);
    }

    QString orderTermOfPlace(const Expression& expression) const {
        bool isWhole = false;
        const auto place = static_cast<std::size_t>(expression.text.toUInt(&isWhole));
        if (!isWhole || place < 1 || place > scope_.outputs.size())
            throw error(expression.place, messages::orderPlace);
        const OutputColumn& output = scope_.outputs[place - 1];
        return isConstantNumber(output.expression) ? output.expression
                                                   : Emitter::term(output.expression, output.kind);
    }

    // The result

    bool isUpdatable() const {
        const bool isBase = std::ranges::none_of(
            scope_.sources, [](const Source& source) { return source.table.isEmpty(); });
        return isBase && isFlat_ && !statement_.distinct && !isGrouped();
    }

    QString selectList(bool named) const {
        QStringList list;
        for (const OutputColumn& output : scope_.outputs) {
            const QString value = statement_.distinct && output.kind == ValueKind::Text
                                      ? Emitter::term(output.expression, output.kind)
                                      : output.expression;
            list << (named ? value + QStringLiteral(" AS ") + sqlName(output.name) : value);
        }
        return list.join(comma);
    }

    void write(const QString& having) {
        const QString where = clause(u" WHERE ", plan_.filter);
        const QString order = clause(u" ORDER BY ", plan_.order);
        const QString from = clause(u" FROM ", plan_.from);
        plan_.rows =
            (statement_.distinct ? QStringLiteral("SELECT DISTINCT ") : QStringLiteral("SELECT ")) +
            selectList(true) + from + where + clause(u" GROUP BY ", groupTerms_.join(comma)) +
            clause(u" HAVING ", having) + order;
        checkComplexity(plan_.rows, sql_);
        if (plan_.updatable)
            writeKeys();
    }

    void writeKeys() {
        QStringList keys;
        QStringList tables;
        QStringList conditions;
        for (std::size_t i = 0; i < scope_.sources.size(); ++i) {
            const Source& source = scope_.sources[i];
            const QString rowid = sqlName(source.alias) + QStringLiteral(".rowid");
            const QString parameter = QStringLiteral("?%1").arg(i + 1);
            keys << rowid;
            tables << QStringLiteral(" LEFT JOIN ") + sqlName(source.table) +
                          QStringLiteral(" AS ") + sqlName(source.alias) + QStringLiteral(" ON ") +
                          rowid + QStringLiteral(" = ") + parameter;
            conditions << rowid + QStringLiteral(" IS ") + parameter;
        }
        plan_.keyColumns = keys.join(comma);
        const bool isOne = scope_.sources.size() == 1;
        plan_.rowByKeys =
            QStringLiteral(" FROM ") +
            (isOne ? plan_.from : QStringLiteral("(SELECT 1)") + tables.join(QString())) +
            QStringLiteral(" WHERE ") + conditions.join(QStringLiteral(" AND "));
        checkComplexity(QStringLiteral("SELECT ") + selectList(false) + plan_.rowByKeys, sql_);
    }

    const QString& sql_;
    Translation& translation_;
    SelectStatement statement_;
    Scope scope_;
    SelectPlan plan_;
    /// For each output column the name by its table; empty when it has a name of its own.
    QStringList aliasNames_;
    QStringList groupValues_;
    QStringList groupTerms_;
    bool isAggregated_ = false;
    bool hasStar_ = false;
    qsizetype starPlace_ = 0;
    /// No join stands in parentheses, where SQLite would hide rowids.
    bool isFlat_ = true;
};

SelectPlan planName(const QString& name, Translation& translation) {
    const TableDef* table = findTable(name);
    const auto stored =
        !table && translation.storedQuery ? translation.storedQuery(name) : std::nullopt;
    if (!table && !stored)
        throw EngineError(ErrorNumber::UnknownTable, QString::fromUtf16(messages::unknownTable),
                          name);
    if (!stored)
        return planSelect(QStringLiteral("select * from [%1]").arg(name), translation);
    translation.open << name;
    return planSelect(*stored, translation);
}

} // namespace

SelectPlan planSelect(const QString& sql, Translation& translation) {
    if (const auto name = Parser(sql).nameAlone(); name && translation.open.isEmpty())
        return planName(*name, translation);
    return Planner(sql, translation).plan();
}

void checkComplexity(const QString& sqlite, const QString& sql) {
    if (sqlite.size() > longestTranslation || parserLoad(sqlite) > greatestLoad)
        throw errorAt(sql, 0, messages::tooComplex, ErrorNumber::TooComplex);
}

} // namespace store::sql
