#pragma once

#include "store/sql/Ast.h"
#include "store/sql/Lexer.h"

#include <initializer_list>
#include <optional>
#include <utility>
#include <variant>

namespace store::sql {

using ActionStatement = std::variant<DeleteStatement, UpdateStatement, InsertStatement>;

/// Reads one statement; a function a rule of the grammar. All public functions read to the end of
/// the text. @throws EngineError 3075 with the place
class Parser {
  public:
    /// @param sql must outlive the parser
    explicit Parser(const QString& sql) : sql_(sql), tokens_(lex(sql)) {}

    /// The name that the text consists of, if it is one.
    std::optional<QString> nameAlone() const;
    SelectStatement selectStatement();
    ActionStatement actionStatement();
    ExpressionPtr criterion();

  private:
    /// Counts the nesting as long as it lives. @throws EngineError 3360 when it is too deep.
    class Nesting;
    using Rule = ExpressionPtr (Parser::*)();
    using OperatorOf = std::pair<TokenKind, Operator>;

    const Token& here() const { return tokens_[next_]; }
    const Token& ahead(std::size_t count = 1) const;
    bool at(TokenKind kind) const { return here().kind == kind; }
    bool accept(TokenKind kind);
    Token expect(TokenKind kind);
    void expectEnd();
    EngineError unexpected() const;

    DeleteStatement deleteStatement();
    UpdateStatement updateStatement();
    InsertStatement insertStatement();
    std::vector<SelectItem> selectList();
    SelectItem selectItem();
    std::vector<FromPtr> fromList();
    FromPtr joined();
    FromPtr fromPrimary();
    std::optional<From::Kind> joinKind();
    TableName tableName();
    Assignment assignment();
    std::vector<Assignment> columnList();
    OrderTerm orderTerm();
    ExpressionPtr optionalWhere();

    ExpressionPtr expression();
    ExpressionPtr disjunction();
    ExpressionPtr conjunction();
    ExpressionPtr negation();
    ExpressionPtr comparison();
    ExpressionPtr predicate(ExpressionPtr left, bool negated);
    ExpressionPtr between(ExpressionPtr left);
    ExpressionPtr inList(ExpressionPtr left);
    ExpressionPtr isNull(ExpressionPtr left);
    ExpressionPtr join();
    ExpressionPtr sum();
    ExpressionPtr modulo();
    ExpressionPtr wholeQuotient();
    ExpressionPtr product();
    ExpressionPtr sign();
    ExpressionPtr power();
    ExpressionPtr primary();
    ExpressionPtr literal();
    ExpressionPtr dateLiteral();
    ExpressionPtr name();
    ExpressionPtr call();

    ExpressionPtr leftToRight(Rule operand, std::initializer_list<OperatorOf> operators);
    std::optional<Operator> acceptOperator(std::initializer_list<OperatorOf> operators);
    static ExpressionPtr leaf(Expression::Node kind, qsizetype place);
    template <class... Parts>
    ExpressionPtr node(Expression::Node kind, qsizetype place, Parts... parts);
    void adopt(Expression& parent, ExpressionPtr part);
    std::vector<ExpressionPtr> expressionList();

    const QString& sql_;
    std::vector<Token> tokens_;
    std::size_t next_ = 0;
    int nesting_ = 0;
};

} // namespace store::sql
