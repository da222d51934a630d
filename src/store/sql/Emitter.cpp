#include "store/sql/Emitter.h"

#include "store/EngineError.h"
#include "store/sql/Format.h"
#include "store/sql/FunctionTable.h"
#include "store/sql/Messages.h"
#include "store/sql/SqliteText.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace store::sql {

namespace {

using Node = Expression::Node;
using Form = FunctionRow::Form;

constexpr QLatin1String collation(" COLLATE TVK");

QString enclosed(const QString& sql) {
    return u'(' + sql + u')';
}

QString callOf(const char* function, const QStringList& arguments) {
    return QLatin1String(function) + enclosed(arguments.join(QStringLiteral(", ")));
}

/// Every date of a date column is less, every text that is no date is not.
QString isProperDate(const QString& column) {
    return u'+' + column + QStringLiteral(" < ':'");
}

QString signOf(Operator op) {
    static constexpr std::pair<Operator, const char16_t*> signs[] = {
        {Operator::And, u" AND "},    {Operator::Or, u" OR "},
        {Operator::Equal, u" = "},    {Operator::NotEqual, u" <> "},
        {Operator::Less, u" < "},     {Operator::LessEqual, u" <= "},
        {Operator::Greater, u" > "},  {Operator::GreaterEqual, u" >= "},
        {Operator::Join, u" || "},    {Operator::Add, u" + "},
        {Operator::Subtract, u" - "}, {Operator::Multiply, u" * "},
    };
    const auto found = std::ranges::find(signs, op, &std::pair<Operator, const char16_t*>::first);
    return QString::fromUtf16(found->second);
}

const char* functionOf(Operator op) {
    switch (op) {
    case Operator::Divide:
        return "tvk_divide";
    case Operator::DivideWhole:
        return "tvk_divide_whole";
    case Operator::Modulo:
        return "tvk_mod";
    case Operator::Power:
        return "tvk_power";
    default:
        return nullptr;
    }
}

bool isLogical(Operator op) {
    return op == Operator::And || op == Operator::Or;
}
bool isComparison(Operator op) {
    return op >= Operator::Equal && op <= Operator::GreaterEqual;
}

bool hasForm(const Expression& expression, Form form) {
    return expression.node == Node::Call && expression.function->form == form;
}

/// Whether SQLite gives 1 and 0 for a node, which are the engine's -1 and 0.
bool isTest(const Expression& expression) {
    switch (expression.node) {
    case Node::Not:
    case Node::Like:
    case Node::Between:
    case Node::In:
    case Node::IsNull:
        return true;
    case Node::Binary:
        return isLogical(expression.op) || isComparison(expression.op);
    case Node::Call:
        return hasForm(expression, Form::IsNull) || hasForm(expression, Form::IsDate);
    default:
        return false;
    }
}

bool isAtom(const Expression& expression) {
    if (expression.node == Node::Name)
        return expression.source >= 0;
    const bool isCall =
        expression.node == Node::Call && !isTest(expression) && !hasForm(expression, Form::Format);
    return expression.node == Node::Literal || isCall;
}

bool isBooleanLiteral(const Expression& expression) {
    return expression.node == Node::Literal && expression.kind == ValueKind::Boolean;
}

bool isTextLiteral(const Expression& expression) {
    return expression.node == Node::Literal && expression.kind == ValueKind::Text;
}

bool isSeparatorLiteral(const Expression& expression) {
    return isTextLiteral(expression) && isDateSeparator(expression.text);
}

bool isDateFormat(const Expression& expression) {
    return hasForm(expression, Form::Format) &&
           formatKind(expression.parts[1]->text) == FormatKind::Date;
}

/// A sum of a text and a number, which is known only when it runs.
bool isMixedSum(const Expression& expression) {
    const ValueKind left = expression.parts[0]->kind;
    const ValueKind right = expression.parts[1]->kind;
    return expression.op == Operator::Add && expression.kind == ValueKind::Number &&
           left != right && (left == ValueKind::Text || right == ValueKind::Text);
}

/// The operands of one operator from left to right. They are written without parentheses, so that
/// long chains stay flat, and each of them once.
std::vector<const Expression*> chainOf(const Expression& expression) {
    std::vector<const Expression*> operands;
    const auto goesOn = [&](const Expression& first) {
        const bool isSame = first.node == Node::Binary && first.op == expression.op;
        return isSame &&
               (first.op != Operator::Add || (first.kind == expression.kind && !isMixedSum(first)));
    };
    const Expression* first = &expression;
    do {
        operands.push_back(first->parts[1].get());
        first = first->parts[0].get();
    } while (goesOn(*first));
    operands.push_back(first);
    std::ranges::reverse(operands);
    return operands;
}

/// A date expression that never holds a text that is no date.
bool isProper(const Expression& expression) {
    return expression.node == Node::Literal ||
           (expression.node == Node::Call && !hasForm(expression, Form::Iif));
}

/// The kind in which values are compared.
ValueKind comparedKind(const Expression& expression) {
    for (const ExpressionPtr& part : expression.parts)
        if (part->kind != ValueKind::Null)
            return part->kind;
    return ValueKind::Null;
}

/// Whether a name on the left may lie behind the mark of a text that is no date.
bool needsGuard(Operator op, const Expression& other) {
    const bool isBounded =
        op == Operator::Equal || op == Operator::Less || op == Operator::LessEqual;
    return !isBounded || !isProper(other);
}

Operator mirrored(Operator op) {
    switch (op) {
    case Operator::Less:
        return Operator::Greater;
    case Operator::LessEqual:
        return Operator::GreaterEqual;
    case Operator::Greater:
        return Operator::Less;
    case Operator::GreaterEqual:
        return Operator::LessEqual;
    default:
        return op;
    }
}

} // namespace

// The three readings of an expression: value, condition, filter

QString Emitter::value(const Expression& expression) const {
    if (isTest(expression))
        return u'-' + enclosed(test(expression, false));
    switch (expression.node) {
    case Node::Literal:
        return literal(expression);
    case Node::Name:
        return name(expression);
    case Node::Negate:
        return u'-' + enclosed(number(*expression.parts[0]));
    case Node::Binary:
        return binary(expression);
    default:
        return call(expression);
    }
}

QString Emitter::condition(const Expression& expression) const {
    return isTest(expression) ? test(expression, false) : value(expression);
}

QString Emitter::filter(const Expression& expression) const {
    return isTest(expression) ? test(expression, true) : value(expression);
}

QString Emitter::test(const Expression& expression, bool filters) const {
    const QString negation = expression.negated ? QStringLiteral("NOT ") : QString();
    switch (expression.node) {
    case Node::Not:
        return QStringLiteral("NOT ") + enclosed(condition(*expression.parts[0]));
    case Node::Like:
        return negation + like(expression);
    case Node::Between:
        return between(expression, filters);
    case Node::In:
        return in(expression);
    case Node::IsNull:
        return operand(*expression.parts[0]) + QStringLiteral(" IS ") + negation +
               QStringLiteral("NULL");
    case Node::Call:
        return hasForm(expression, Form::IsDate)
                   ? isDate(expression)
                   : operand(*expression.parts[0]) + QStringLiteral(" IS NULL");
    default:
        return isLogical(expression.op) ? logical(expression, filters)
                                        : comparison(expression, filters);
    }
}

// Values of a kind asked for

QString Emitter::text(const Expression& expression) const {
    switch (expression.kind) {
    case ValueKind::Number:
    case ValueKind::Boolean:
        return callOf("tvk_text", {value(expression)});
    case ValueKind::Date:
        return callOf("tvk_date_text", {value(expression)});
    default:
        return value(expression);
    }
}

QString Emitter::number(const Expression& expression) const {
    return expression.kind == ValueKind::Text ? callOf("tvk_number", {value(expression)})
                                              : value(expression);
}

QString Emitter::date(const Expression& expression) const {
    return expression.kind == ValueKind::Text ? callOf("tvk_as_date", {value(expression)})
                                              : value(expression);
}

QString Emitter::ofKind(const Expression& expression, ValueKind kind) const {
    switch (kind) {
    case ValueKind::Text:
        return text(expression);
    case ValueKind::Number:
        return number(expression);
    case ValueKind::Date:
        return date(expression);
    default:
        return value(expression);
    }
}

QString Emitter::operand(const Expression& expression) const {
    return isAtom(expression) ? value(expression) : enclosed(value(expression));
}

QString Emitter::term(const Expression& expression) const {
    return expression.kind == ValueKind::Text ? operand(expression) + collation : value(expression);
}

QString Emitter::term(const QString& sql, ValueKind kind) {
    return kind == ValueKind::Text ? enclosed(sql) + collation : sql;
}

// Leaves

QString Emitter::literal(const Expression& expression) const {
    switch (expression.kind) {
    case ValueKind::Text:
    case ValueKind::Date:
        return sqlText(expression.text);
    case ValueKind::Null:
        return QStringLiteral("NULL");
    default:
        return expression.text;
    }
}

QString Emitter::name(const Expression& expression) const {
    if (expression.source < 0)
        return scope_.outputs[static_cast<std::size_t>(expression.column)].expression;
    return scope_.sources[static_cast<std::size_t>(expression.source)].columnSql(expression.column);
}

// Operators

QString Emitter::binary(const Expression& expression) const {
    if (expression.op == Operator::Join)
        return joined(expression, true);
    if (expression.op == Operator::Add)
        return sum(expression);
    return arithmetic(expression);
}

/// How many operands from one on show parts of one date with separators between them, as in
/// format(x,'dd') + '.' + format(x,'mm'), and what they are together.
Emitter::DateParts Emitter::dateParts(const Chain& operands, std::size_t first) const {
    DateParts parts;
    const auto date = [&](std::size_t at) {
        return this->date(*operands[at]->parts[0]);
    };
    if (!isDateFormat(*operands[first]))
        return parts;
    parts.format = operands[first]->parts[1]->text;
    parts.date = date(first);
    std::size_t last = first;
    while (last + 2 < operands.size() && isSeparatorLiteral(*operands[last + 1]) &&
           isDateFormat(*operands[last + 2]) && date(last + 2) == parts.date) {
        parts.separators += operands[last + 1]->text;
        parts.format += operands[last + 1]->text + operands[last + 2]->parts[1]->text;
        last += 2;
    }
    parts.count = last - first + 1;
    return parts;
}

/// Parts of one date are shown by one call, so that a text that is no date is shown once.
/// @param nullIsEmpty whether a Null counts as an empty text
QString Emitter::joined(const Expression& expression, bool nullIsEmpty) const {
    const Chain operands = chainOf(expression);
    const auto term = [&](const QString& sql, const QString& instead) {
        return nullIsEmpty ? callOf("coalesce", {sql, sqlText(instead)}) : sql;
    };
    QStringList terms;
    for (std::size_t at = 0; at < operands.size();) {
        const Expression& operand = *operands[at];
        const DateParts date = dateParts(operands, at);
        if (date.count > 1)
            terms << term(callOf("tvk_format_date", {date.date, sqlText(date.format)}),
                          date.separators);
        else if (isTextLiteral(operand))
            terms << value(operand);
        else
            terms << term(nullIsEmpty ? text(operand) : this->operand(operand), {});
        at += std::max<std::size_t>(date.count, 1);
    }
    return terms.join(signOf(Operator::Join));
}

QString Emitter::sum(const Expression& expression) const {
    if (isMixedSum(expression))
        return callOf("tvk_plus", {value(*expression.parts[0]), value(*expression.parts[1])});
    return expression.kind == ValueKind::Text ? joined(expression, false) : arithmetic(expression);
}

QString Emitter::arithmetic(const Expression& expression) const {
    if (const char* function = functionOf(expression.op))
        return callOf(function, {number(*expression.parts[0]), number(*expression.parts[1])});
    QStringList terms;
    for (const Expression* part : chainOf(expression))
        terms << (part->kind == ValueKind::Text ? number(*part) : operand(*part));
    return terms.join(signOf(expression.op));
}

QString Emitter::logical(const Expression& expression, bool filters) const {
    const auto part = [&](const Expression& side) {
        const QString sql = filters ? filter(side) : condition(side);
        const bool goesOn = side.node == Node::Binary && side.op == expression.op;
        return isAtom(side) || (goesOn && &side == expression.parts[0].get()) ? sql : enclosed(sql);
    };
    return part(*expression.parts[0]) + signOf(expression.op) + part(*expression.parts[1]);
}

// Comparisons

QString Emitter::comparison(const Expression& expression, bool filters) const {
    const ValueKind kind = comparedKind(expression);
    if (kind == ValueKind::Date)
        return dateComparison(expression, filters);
    if (kind == ValueKind::Boolean) {
        QString sql = comparedWithBoolean(expression);
        if (!sql.isEmpty())
            return sql;
    }
    return compared(expression) + signOf(expression.op) + operand(*expression.parts[1]);
}

/// A test compared with True or False is the test or its opposite; empty for all else.
QString Emitter::comparedWithBoolean(const Expression& expression) const {
    const Expression* tested = expression.parts[0].get();
    const Expression* wanted = expression.parts[1].get();
    if (isBooleanLiteral(*tested))
        std::swap(tested, wanted);
    const bool isEquality = expression.op == Operator::Equal || expression.op == Operator::NotEqual;
    if (!isEquality || !isTest(*tested) || !isBooleanLiteral(*wanted))
        return {};
    const bool isTrue = wanted->text != QStringLiteral("0");
    const QString sql = test(*tested, false);
    return isTrue == (expression.op == Operator::Equal) ? sql
                                                        : QStringLiteral("NOT ") + enclosed(sql);
}

/// In a filter a column stands bare, for its index, and what is no date is kept out by a condition
/// beside it; elsewhere what is no date becomes Null.
QString Emitter::dateComparison(const Expression& expression, bool filters) const {
    const Expression& left = *expression.parts[0];
    const Expression& right = *expression.parts[1];
    const auto side = [&](const Expression& date) {
        return filters && date.node == Node::Name ? operand(date) : properDate(date);
    };
    QString sql = side(left) + signOf(expression.op) + side(right);
    if (!filters)
        return sql;
    if (left.node == Node::Name && needsGuard(expression.op, right))
        sql += signOf(Operator::And) + isProperDate(operand(left));
    if (right.node == Node::Name && needsGuard(mirrored(expression.op), left))
        sql += signOf(Operator::And) + isProperDate(operand(right));
    return sql;
}

/// The first operand as the others are compared with it.
QString Emitter::compared(const Expression& expression) const {
    const Expression& first = *expression.parts[0];
    switch (comparedKind(expression)) {
    case ValueKind::Text:
        return operand(first) + collation;
    case ValueKind::Date:
        return properDate(first);
    default:
        return operand(first);
    }
}

/// A date that is Null where a text lies in its column that is none.
QString Emitter::properDate(const Expression& date) const {
    return isProper(date) ? operand(date) : callOf("tvk_date", {value(date)});
}

/// One of the operands that the first one is compared with.
QString Emitter::comparand(const Expression& expression, std::size_t part) const {
    const Expression& other = *expression.parts[part];
    return comparedKind(expression) == ValueKind::Date ? properDate(other) : operand(other);
}

QString Emitter::between(const Expression& expression, bool filters) const {
    const Expression& low = *expression.parts[1];
    const Expression& high = *expression.parts[2];
    const bool isBare = filters && !expression.negated && isProper(low) && isProper(high) &&
                        expression.parts[0]->node == Node::Name;
    return (isBare && comparedKind(expression) == ValueKind::Date ? operand(*expression.parts[0])
                                                                  : compared(expression)) +
           (expression.negated ? QStringLiteral(" NOT BETWEEN ") : QStringLiteral(" BETWEEN ")) +
           comparand(expression, 1) + signOf(Operator::And) + comparand(expression, 2);
}

QString Emitter::in(const Expression& expression) const {
    QStringList values;
    for (std::size_t i = 1; i < expression.parts.size(); ++i)
        values << comparand(expression, i);
    return compared(expression) +
           (expression.negated ? QStringLiteral(" NOT IN ") : QStringLiteral(" IN ")) +
           enclosed(values.join(QStringLiteral(", ")));
}

QString Emitter::like(const Expression& expression) const {
    return callOf("tvk_like", {text(*expression.parts[1]), text(*expression.parts[0])});
}

// Functions

QString Emitter::call(const Expression& expression) const {
    switch (expression.function->form) {
    case Form::Constant:
        return QLatin1String(expression.function->target);
    case Form::Aggregate:
        return aggregate(expression);
    case Form::Iif:
        return iif(expression);
    case Form::Format:
        return format(expression);
    default:
        return plainCall(expression);
    }
}

QString Emitter::plainCall(const Expression& expression) const {
    QStringList arguments;
    for (std::size_t i = 0; i < expression.parts.size(); ++i)
        arguments << ofKind(*expression.parts[i], expression.function->kinds[i]);
    return callOf(expression.function->target, arguments);
}

QString Emitter::aggregate(const Expression& expression) const {
    const FunctionRow& function = *expression.function;
    if (expression.star)
        return QStringLiteral("count(*)");
    const Expression& argument = *expression.parts[0];
    const bool ranks = function.result == ValueKind::Null;
    if (ranks && argument.kind == ValueKind::Date)
        return callOf(function.target, {callOf("tvk_date", {value(argument)})});
    if (ranks && argument.kind == ValueKind::Text)
        return callOf(function.target, {operand(argument) + collation});
    return plainCall(expression);
}

/// A condition that is Null takes the second way. Ways within the second way lie flat.
QString Emitter::iif(const Expression& expression) const {
    QString sql = QStringLiteral("CASE");
    const Expression* rest = &expression;
    do {
        sql += QStringLiteral(" WHEN ") + condition(*rest->parts[0]) + QStringLiteral(" THEN ") +
               ofKind(*rest->parts[1], expression.kind);
        rest = rest->parts[2].get();
    } while (hasForm(*rest, Form::Iif) && rest->kind == expression.kind);
    return sql + QStringLiteral(" ELSE ") + ofKind(*rest, expression.kind) + QStringLiteral(" END");
}

QString Emitter::isDate(const Expression& expression) const {
    const Expression& argument = *expression.parts[0];
    if (argument.kind == ValueKind::Date)
        return callOf("coalesce",
                      {operand(argument) + QStringLiteral(" < ':'"), QStringLiteral("0")});
    if (argument.kind == ValueKind::Text)
        return callOf("tvk_date_value", {value(argument)}) + QStringLiteral(" IS NOT NULL");
    return QStringLiteral("0");
}

QString Emitter::format(const Expression& expression) const {
    const Expression& argument = *expression.parts[0];
    const QString format = sqlText(expression.parts[1]->text);
    switch (formatKind(expression.parts[1]->text)) {
    case FormatKind::Text:
        return callOf("tvk_format_text", {text(argument), format});
    case FormatKind::Number:
        return callOf("tvk_format_number", {value(argument), format});
    case FormatKind::Date:
        return callOf("tvk_format_date", {date(argument), format});
    default:
        return text(argument);
    }
}

// Writing to columns

QString Emitter::forColumn(const Expression& expression, const SourceColumn& column) const {
    const bool isDateValue = expression.kind == ValueKind::Date;
    const bool takesDate = column.kind == ValueKind::Date;
    const bool isNumeric =
        expression.kind == ValueKind::Number || expression.kind == ValueKind::Boolean;
    if ((takesDate && isNumeric) || (isDateValue && !takesDate && column.kind != ValueKind::Text))
        throw EngineError(ErrorNumber::TypeConversion, QString::fromUtf16(messages::typeMismatch),
                          column.name);
    if (isDateValue && takesDate)
        return value(expression);
    return callOf("tvk_to_column", {isDateValue ? text(expression) : value(expression),
                                    QString::number(static_cast<int>(*column.type)),
                                    QString::number(column.width), sqlText(column.name)});
}

} // namespace store::sql
