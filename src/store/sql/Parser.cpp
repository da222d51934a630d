#include "store/sql/Parser.h"

#include "store/Dates.h"
#include "store/sql/Messages.h"

#include <algorithm>

namespace store::sql {

namespace {

/// How deep parentheses, calls, "not" and signs may lie in one another.
constexpr int deepestNesting = 60;
/// How high the tree of one expression may grow; SQLite refuses trees of 1,000.
constexpr int greatestHeight = 200;

} // namespace

class Parser::Nesting {
  public:
    explicit Nesting(Parser& parser) : depth_(parser.nesting_) {
        if (depth_ >= deepestNesting)
            throw errorAt(parser.sql_, parser.here().place, messages::tooComplex,
                          ErrorNumber::TooComplex);
        ++depth_;
    }
    ~Nesting() { --depth_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

  private:
    int& depth_;
};

const Token& Parser::ahead(std::size_t count) const {
    return tokens_[std::min(next_ + count, tokens_.size() - 1)];
}

bool Parser::accept(TokenKind kind) {
    if (!at(kind))
        return false;
    if (kind != TokenKind::End)
        ++next_;
    return true;
}

Token Parser::expect(TokenKind kind) {
    Token token = here();
    if (!accept(kind))
        throw unexpected();
    return token;
}

void Parser::expectEnd() {
    accept(TokenKind::Semicolon);
    expect(TokenKind::End);
}

EngineError Parser::unexpected() const {
    return errorAt(sql_, here().place, messages::unexpected);
}

std::optional<QString> Parser::nameAlone() const {
    const bool isName = at(TokenKind::Name) && ahead().kind == TokenKind::End;
    return isName ? std::optional(here().text) : std::nullopt;
}

// Statements

SelectStatement Parser::selectStatement() {
    SelectStatement statement;
    if (!accept(TokenKind::Select))
        throw errorAt(sql_, here().place, messages::notSelect);
    statement.distinct = accept(TokenKind::Distinct);
    statement.items = selectList();
    expect(TokenKind::From);
    statement.from = fromList();
    statement.where = optionalWhere();
    if (accept(TokenKind::Group)) {
        expect(TokenKind::By);
        statement.groupBy = expressionList();
    }
    if (accept(TokenKind::Having))
        statement.having = expression();
    if (accept(TokenKind::Order)) {
        expect(TokenKind::By);
        do
            statement.orderBy.push_back(orderTerm());
        while (accept(TokenKind::Comma));
    }
    expectEnd();
    return statement;
}

ActionStatement Parser::actionStatement() {
    if (accept(TokenKind::Delete))
        return deleteStatement();
    if (accept(TokenKind::Update))
        return updateStatement();
    if (accept(TokenKind::Insert))
        return insertStatement();
    throw errorAt(sql_, here().place, messages::notAction);
}

ExpressionPtr Parser::criterion() {
    ExpressionPtr condition = expression();
    expectEnd();
    return condition;
}

DeleteStatement Parser::deleteStatement() {
    DeleteStatement statement;
    const Token starOf = here();
    const bool isQualified = accept(TokenKind::Name);
    if (isQualified) {
        expect(TokenKind::Point);
        expect(TokenKind::Star);
    } else {
        accept(TokenKind::Star);
    }
    expect(TokenKind::From);
    statement.table = tableName();
    if (isQualified && starOf.text.compare(statement.table.alias, Qt::CaseInsensitive) != 0)
        throw errorAt(sql_, starOf.place, messages::unknownName, ErrorNumber::TooFewParameters);
    statement.where = optionalWhere();
    expectEnd();
    return statement;
}

UpdateStatement Parser::updateStatement() {
    UpdateStatement statement;
    statement.table = tableName();
    expect(TokenKind::Set);
    do {
        statement.assignments.push_back(assignment());
        expect(TokenKind::Equal);
        statement.assignments.back().value = expression();
    } while (accept(TokenKind::Comma));
    statement.where = optionalWhere();
    expectEnd();
    return statement;
}

InsertStatement Parser::insertStatement() {
    InsertStatement statement;
    expect(TokenKind::Into);
    const Token table = expect(TokenKind::Name);
    statement.table = {table.text, table.text, table.place};
    const bool hasColumns = at(TokenKind::Open);
    if (hasColumns)
        statement.assignments = columnList();
    expect(TokenKind::Values);
    const qsizetype place = expect(TokenKind::Open).place;
    std::vector<ExpressionPtr> values = expressionList();
    expect(TokenKind::Close);
    expectEnd();
    if (!hasColumns)
        statement.assignments.resize(values.size());
    if (statement.assignments.size() != values.size())
        throw errorAt(sql_, place, messages::valueCount);
    for (std::size_t i = 0; i < values.size(); ++i)
        statement.assignments[i].value = std::move(values[i]);
    return statement;
}

Assignment Parser::assignment() {
    Token name = expect(TokenKind::Name);
    Assignment result;
    result.place = name.place;
    if (accept(TokenKind::Point) || accept(TokenKind::Bang)) {
        result.qualifier = name.text;
        name = expect(TokenKind::Name);
    }
    result.column = name.text;
    return result;
}

std::vector<Assignment> Parser::columnList() {
    std::vector<Assignment> columns;
    expect(TokenKind::Open);
    do
        columns.push_back(assignment());
    while (accept(TokenKind::Comma));
    expect(TokenKind::Close);
    return columns;
}

std::vector<SelectItem> Parser::selectList() {
    std::vector<SelectItem> items;
    do
        items.push_back(selectItem());
    while (accept(TokenKind::Comma));
    return items;
}

SelectItem Parser::selectItem() {
    SelectItem item;
    item.place = here().place;
    if (accept(TokenKind::Star))
        return item;
    const bool hasPoint = ahead().kind == TokenKind::Point || ahead().kind == TokenKind::Bang;
    if (at(TokenKind::Name) && hasPoint && ahead(2).kind == TokenKind::Star) {
        item.starOf = here().text;
        next_ += 3;
        return item;
    }
    item.expression = expression();
    if (accept(TokenKind::As))
        item.alias = expect(TokenKind::Name).text;
    return item;
}

OrderTerm Parser::orderTerm() {
    OrderTerm term;
    term.expression = expression();
    term.descending = accept(TokenKind::Desc);
    if (!term.descending)
        accept(TokenKind::Asc);
    return term;
}

ExpressionPtr Parser::optionalWhere() {
    return accept(TokenKind::Where) ? expression() : ExpressionPtr();
}

// The from clause

std::vector<FromPtr> Parser::fromList() {
    std::vector<FromPtr> items;
    do
        items.push_back(joined());
    while (accept(TokenKind::Comma));
    return items;
}

FromPtr Parser::joined() {
    FromPtr left = fromPrimary();
    while (const auto kind = joinKind()) {
        auto join = std::make_unique<From>();
        join->kind = *kind;
        join->left = std::move(left);
        join->right = fromPrimary();
        expect(TokenKind::On);
        join->on = expression();
        left = std::move(join);
    }
    return left;
}

std::optional<From::Kind> Parser::joinKind() {
    std::optional<From::Kind> kind;
    if (accept(TokenKind::Inner))
        kind = From::Kind::Inner;
    else if (accept(TokenKind::Left))
        kind = From::Kind::Left;
    else if (accept(TokenKind::Right))
        kind = From::Kind::Right;
    if (!kind)
        return kind;
    if (*kind != From::Kind::Inner)
        accept(TokenKind::Outer);
    expect(TokenKind::Join);
    return kind;
}

FromPtr Parser::fromPrimary() {
    const Nesting nesting(*this);
    if (accept(TokenKind::Open)) {
        FromPtr inner = joined();
        expect(TokenKind::Close);
        return inner;
    }
    auto table = std::make_unique<From>();
    table->table = tableName();
    return table;
}

TableName Parser::tableName() {
    const Token name = expect(TokenKind::Name);
    TableName table{name.text, name.text, name.place};
    if (accept(TokenKind::As) || at(TokenKind::Name))
        table.alias = expect(TokenKind::Name).text;
    return table;
}

// Expressions, from what binds least to what binds most

ExpressionPtr Parser::leaf(Expression::Node kind, qsizetype place) {
    auto result = std::make_unique<Expression>();
    result->node = kind;
    result->place = place;
    return result;
}

template <class... Parts>
ExpressionPtr Parser::node(Expression::Node kind, qsizetype place, Parts... parts) {
    ExpressionPtr result = leaf(kind, place);
    (adopt(*result, std::move(parts)), ...);
    return result;
}

void Parser::adopt(Expression& parent, ExpressionPtr part) {
    parent.height = std::max(parent.height, part->height + 1);
    if (parent.height > greatestHeight)
        throw errorAt(sql_, part->place, messages::tooComplex, ErrorNumber::TooComplex);
    parent.parts.push_back(std::move(part));
}

std::optional<Operator> Parser::acceptOperator(std::initializer_list<OperatorOf> operators) {
    for (const auto& [token, op] : operators)
        if (accept(token))
            return op;
    return {};
}

ExpressionPtr Parser::leftToRight(Rule operand, std::initializer_list<OperatorOf> operators) {
    ExpressionPtr left = (this->*operand)();
    qsizetype place = here().place;
    while (const auto op = acceptOperator(operators)) {
        left = node(Expression::Node::Binary, place, std::move(left), (this->*operand)());
        left->op = *op;
        place = here().place;
    }
    return left;
}

std::vector<ExpressionPtr> Parser::expressionList() {
    std::vector<ExpressionPtr> list;
    do
        list.push_back(expression());
    while (accept(TokenKind::Comma));
    return list;
}

ExpressionPtr Parser::expression() {
    const Nesting nesting(*this);
    return disjunction();
}

ExpressionPtr Parser::disjunction() {
    return leftToRight(&Parser::conjunction, {{TokenKind::Or, Operator::Or}});
}

ExpressionPtr Parser::conjunction() {
    return leftToRight(&Parser::negation, {{TokenKind::And, Operator::And}});
}

ExpressionPtr Parser::negation() {
    const Nesting nesting(*this);
    const qsizetype place = here().place;
    if (accept(TokenKind::Not))
        return node(Expression::Node::Not, place, negation());
    return comparison();
}

ExpressionPtr Parser::comparison() {
    static constexpr std::initializer_list<OperatorOf> operators = {
        {TokenKind::Equal, Operator::Equal},
        {TokenKind::NotEqual, Operator::NotEqual},
        {TokenKind::LessEqual, Operator::LessEqual},
        {TokenKind::GreaterEqual, Operator::GreaterEqual},
        {TokenKind::Less, Operator::Less},
        {TokenKind::Greater, Operator::Greater},
    };
    ExpressionPtr left = leftToRight(&Parser::join, operators);
    if (accept(TokenKind::Is))
        return isNull(std::move(left));
    const bool negated = accept(TokenKind::Not);
    return predicate(std::move(left), negated);
}

/// like, between or in, if one of them follows; after a "not" one must.
ExpressionPtr Parser::predicate(ExpressionPtr left, bool negated) {
    const qsizetype place = here().place;
    if (accept(TokenKind::Like))
        left = node(Expression::Node::Like, place, std::move(left), join());
    else if (accept(TokenKind::Between))
        left = between(std::move(left));
    else if (accept(TokenKind::In))
        left = inList(std::move(left));
    else if (negated)
        throw unexpected();
    else
        return left;
    left->negated = negated;
    return left;
}

ExpressionPtr Parser::between(ExpressionPtr left) {
    const qsizetype place = here().place;
    ExpressionPtr low = join();
    expect(TokenKind::And);
    return node(Expression::Node::Between, place, std::move(left), std::move(low), join());
}

ExpressionPtr Parser::inList(ExpressionPtr left) {
    ExpressionPtr list = node(Expression::Node::In, here().place, std::move(left));
    expect(TokenKind::Open);
    for (ExpressionPtr& value : expressionList())
        adopt(*list, std::move(value));
    expect(TokenKind::Close);
    return list;
}

ExpressionPtr Parser::isNull(ExpressionPtr left) {
    ExpressionPtr test = node(Expression::Node::IsNull, here().place, std::move(left));
    test->negated = accept(TokenKind::Not);
    expect(TokenKind::Null);
    return test;
}

ExpressionPtr Parser::join() {
    return leftToRight(&Parser::sum, {{TokenKind::Ampersand, Operator::Join}});
}

ExpressionPtr Parser::sum() {
    return leftToRight(&Parser::modulo,
                       {{TokenKind::Plus, Operator::Add}, {TokenKind::Minus, Operator::Subtract}});
}

ExpressionPtr Parser::modulo() {
    return leftToRight(&Parser::wholeQuotient, {{TokenKind::Mod, Operator::Modulo}});
}

ExpressionPtr Parser::wholeQuotient() {
    return leftToRight(&Parser::product, {{TokenKind::Backslash, Operator::DivideWhole}});
}

ExpressionPtr Parser::product() {
    return leftToRight(&Parser::sign, {{TokenKind::Star, Operator::Multiply},
                                       {TokenKind::Slash, Operator::Divide}});
}

ExpressionPtr Parser::sign() {
    const Nesting nesting(*this);
    const qsizetype place = here().place;
    if (accept(TokenKind::Minus))
        return node(Expression::Node::Negate, place, sign());
    if (accept(TokenKind::Plus))
        return sign();
    return power();
}

ExpressionPtr Parser::power() {
    ExpressionPtr base = primary();
    while (at(TokenKind::Caret)) {
        const qsizetype place = expect(TokenKind::Caret).place;
        ExpressionPtr exponent = at(TokenKind::Minus) ? sign() : primary();
        base = node(Expression::Node::Binary, place, std::move(base), std::move(exponent));
        base->op = Operator::Power;
    }
    return base;
}

ExpressionPtr Parser::primary() {
    if (accept(TokenKind::Open)) {
        ExpressionPtr inner = expression();
        expect(TokenKind::Close);
        return inner;
    }
    const bool isWord = at(TokenKind::Name) || at(TokenKind::Left) || at(TokenKind::Right);
    if (isWord && !here().bracketed && ahead().kind == TokenKind::Open)
        return call();
    return at(TokenKind::Name) ? name() : literal();
}

ExpressionPtr Parser::literal() {
    static constexpr std::pair<TokenKind, ValueKind> kinds[] = {
        {TokenKind::Text, ValueKind::Text},     {TokenKind::Number, ValueKind::Number},
        {TokenKind::Date, ValueKind::Date},     {TokenKind::True, ValueKind::Boolean},
        {TokenKind::False, ValueKind::Boolean}, {TokenKind::Null, ValueKind::Null},
    };
    const auto found =
        std::ranges::find(kinds, here().kind, &std::pair<TokenKind, ValueKind>::first);
    if (found == std::end(kinds))
        throw unexpected();
    if (found->second == ValueKind::Date)
        return dateLiteral();
    ExpressionPtr result = leaf(Expression::Node::Literal, here().place);
    result->kind = found->second;
    result->text = at(TokenKind::True)    ? QStringLiteral("-1")
                   : at(TokenKind::False) ? QStringLiteral("0")
                                          : here().text;
    ++next_;
    return result;
}

ExpressionPtr Parser::dateLiteral() {
    const Token token = expect(TokenKind::Date);
    const auto date = readDate(token.text);
    if (!date)
        throw errorAt(sql_, token.place, messages::badDate);
    ExpressionPtr result = leaf(Expression::Node::Literal, token.place);
    result->kind = ValueKind::Date;
    result->text = QString::fromStdString(dateToColumn(*date));
    return result;
}

ExpressionPtr Parser::name() {
    const Token first = expect(TokenKind::Name);
    ExpressionPtr result = leaf(Expression::Node::Name, first.place);
    result->text = first.text;
    if (accept(TokenKind::Point) || accept(TokenKind::Bang)) {
        result->qualifier = first.text;
        result->text = expect(TokenKind::Name).text;
    }
    return result;
}

ExpressionPtr Parser::call() {
    ExpressionPtr result = leaf(Expression::Node::Call, here().place);
    result->text = here().text;
    ++next_;
    expect(TokenKind::Open);
    if (accept(TokenKind::Close))
        return result;
    result->star = accept(TokenKind::Star);
    if (!result->star)
        for (ExpressionPtr& argument : expressionList())
            adopt(*result, std::move(argument));
    expect(TokenKind::Close);
    return result;
}

} // namespace store::sql
