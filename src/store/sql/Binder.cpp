#include "store/sql/Binder.h"

#include "store/sql/Format.h"
#include "store/sql/FunctionTable.h"
#include "store/sql/Lexer.h"
#include "store/sql/Like.h"
#include "store/sql/Messages.h"

namespace store::sql {

namespace {

using Node = Expression::Node;

bool isNumeric(ValueKind kind) {
    return kind == ValueKind::Number || kind == ValueKind::Boolean;
}

/// The one kind of two alternatives; a text where nothing else can hold both.
ValueKind common(ValueKind left, ValueKind right) {
    if (left == right || right == ValueKind::Null)
        return left;
    if (left == ValueKind::Null)
        return right;
    return isNumeric(left) && isNumeric(right) ? ValueKind::Number : ValueKind::Text;
}

} // namespace

EngineError Binder::error(const Expression& expression, const char16_t* message,
                          ErrorNumber number) const {
    return errorAt(sql_, expression.place, message, number);
}

EngineError Binder::mismatch(const Expression& expression) const {
    return error(expression, messages::typeMismatch, ErrorNumber::TypeMismatch);
}

void Binder::bind(Expression& expression) {
    expression.kind = kindOfNode(expression);
}

void Binder::bindCondition(Expression& expression) {
    bind(expression);
    checkCondition(expression);
}

void Binder::bindParts(Expression& expression) {
    for (const ExpressionPtr& part : expression.parts)
        bind(*part);
}

ValueKind Binder::kindOfNode(Expression& expression) {
    if (expression.node == Node::Call)
        return bindCall(expression);
    bindParts(expression);
    switch (expression.node) {
    case Node::Literal:
    case Node::Call:
        return expression.kind;
    case Node::Name:
        return bindName(expression);
    case Node::Negate:
        checkKind(*expression.parts[0], ValueKind::Number);
        return ValueKind::Number;
    case Node::Not:
        checkCondition(*expression.parts[0]);
        return ValueKind::Boolean;
    case Node::Binary:
        return bindBinary(expression);
    case Node::Like:
        checkPattern(*expression.parts[1]);
        return ValueKind::Boolean;
    case Node::Between:
    case Node::In:
        for (std::size_t i = 1; i < expression.parts.size(); ++i)
            checkComparable(*expression.parts[0], *expression.parts[i]);
        return ValueKind::Boolean;
    case Node::IsNull:
        return ValueKind::Boolean;
    }
    return ValueKind::Null;
}

ValueKind Binder::kindOfFound(const Found& found) const {
    const auto column = static_cast<std::size_t>(found.column);
    return found.source < 0 ? visible_.scope.outputs[column].kind
                            : visible_.scope.sources[static_cast<std::size_t>(found.source)]
                                  .columns[column]
                                  .kind;
}

ValueKind Binder::bindName(Expression& expression) {
    const std::vector<Found> found = findName(visible_, expression.qualifier, expression.text);
    if (found.empty())
        throw error(expression, messages::unknownName, ErrorNumber::TooFewParameters);
    if (found.size() > 1)
        throw error(expression, messages::ambiguousName, ErrorNumber::AmbiguousName);
    expression.source = found[0].source;
    expression.column = found[0].column;
    return kindOfFound(found[0]);
}

ValueKind Binder::bindBinary(const Expression& expression) {
    const Expression& left = *expression.parts[0];
    const Expression& right = *expression.parts[1];
    switch (expression.op) {
    case Operator::And:
    case Operator::Or:
        checkCondition(left);
        checkCondition(right);
        return ValueKind::Boolean;
    case Operator::Equal:
    case Operator::NotEqual:
    case Operator::Less:
    case Operator::LessEqual:
    case Operator::Greater:
    case Operator::GreaterEqual:
        checkComparable(left, right);
        return ValueKind::Boolean;
    case Operator::Join:
        return ValueKind::Text;
    case Operator::Add:
        return bindSum(expression);
    default:
        checkKind(left, ValueKind::Number);
        checkKind(right, ValueKind::Number);
        return ValueKind::Number;
    }
}

/// Texts are joined, all else is added; a sum of dates is not known.
ValueKind Binder::bindSum(const Expression& expression) {
    const ValueKind left = expression.parts[0]->kind;
    const ValueKind right = expression.parts[1]->kind;
    if (left == ValueKind::Date || right == ValueKind::Date)
        throw mismatch(expression);
    return isNumeric(left) || isNumeric(right) ? ValueKind::Number : common(left, right);
}

void Binder::checkComparable(const Expression& left, const Expression& right) const {
    const bool isSame = left.kind == right.kind || (isNumeric(left.kind) && isNumeric(right.kind));
    if (!isSame && left.kind != ValueKind::Null && right.kind != ValueKind::Null)
        throw mismatch(left);
}

void Binder::checkCondition(const Expression& expression) const {
    if (!isNumeric(expression.kind) && expression.kind != ValueKind::Null)
        throw mismatch(expression);
}

/// All becomes a text, texts become what is asked for when it runs.
void Binder::checkKind(const Expression& argument, ValueKind wanted) const {
    const bool isDate = argument.kind == ValueKind::Date;
    if ((wanted == ValueKind::Number && isDate) ||
        (wanted == ValueKind::Date && isNumeric(argument.kind)))
        throw mismatch(argument);
}

void Binder::checkPattern(const Expression& pattern) const {
    if (pattern.node != Node::Literal)
        return;
    if (!LikePattern(pattern.text.toStdString()).isValid())
        throw error(pattern, messages::badPattern);
}

ValueKind Binder::bindCall(Expression& expression) {
    const std::size_t count = expression.star ? 1 : expression.parts.size();
    expression.function = findFunction(expression.text, count);
    if (!expression.function)
        throw isFunctionName(expression.text)
            ? error(expression, messages::argumentCount)
            : error(expression, messages::unknownFunction, ErrorNumber::UnknownFunction);
    const FunctionRow& function = *expression.function;
    if (expression.star && !sameName(expression.text, u"count"))
        throw error(expression, messages::unexpected);
    const bool isAggregate = function.form == FunctionRow::Form::Aggregate;
    if (isAggregate && aggregates_ == Aggregates::Forbidden)
        throw error(expression, messages::aggregatePlace);
    const Aggregates outside = aggregates_;
    if (isAggregate)
        aggregates_ = Aggregates::Forbidden;
    bindParts(expression);
    aggregates_ = outside;
    hasAggregates_ = hasAggregates_ || isAggregate;
    for (std::size_t i = 0; i < expression.parts.size(); ++i)
        checkKind(*expression.parts[i], function.kinds[i]);
    if (function.form == FunctionRow::Form::Format)
        return bindFormat(expression);
    if (function.form == FunctionRow::Form::Iif) {
        checkCondition(*expression.parts[0]);
        return common(expression.parts[1]->kind, expression.parts[2]->kind);
    }
    return function.result == ValueKind::Null ? expression.parts[0]->kind : function.result;
}

ValueKind Binder::bindFormat(const Expression& expression) {
    const Expression& value = *expression.parts[0];
    const Expression& format = *expression.parts[1];
    const bool isText = format.node == Node::Literal && format.kind == ValueKind::Text;
    const FormatKind kind = isText ? formatKind(format.text) : FormatKind::Unknown;
    if (kind == FormatKind::Unknown)
        throw error(format, messages::badFormat);
    if (kind == FormatKind::Date)
        checkKind(value, ValueKind::Date);
    if (kind == FormatKind::Number)
        checkKind(value, ValueKind::Number);
    return ValueKind::Text;
}

} // namespace store::sql
