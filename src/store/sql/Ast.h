#pragma once

#include "store/Sql.h"

#include <QString>

#include <memory>
#include <vector>

namespace store::sql {

struct FunctionRow;

enum class Operator {
    And,
    Or,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    Join,
    Add,
    Subtract,
    Multiply,
    Divide,
    DivideWhole,
    Modulo,
    Power,
};

struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;

/// A node of an expression: what was read, and what the binder found out of it.
struct Expression {
    enum class Node { Literal, Name, Negate, Not, Binary, Like, Between, In, IsNull, Call };

    Node node = Node::Literal;
    qsizetype place = 0;
    /// Height of the tree under it.
    int height = 1;
    /// Of a literal the value (a date as it lies in a column), of a name the column, of a call the
    /// function.
    QString text;
    /// Of a name the table, empty if none was given.
    QString qualifier;
    Operator op = Operator::And;
    /// not like, not between, not in, is not null
    bool negated = false;
    /// count(*)
    bool star = false;
    std::vector<ExpressionPtr> parts;

    /// What the values are; of a literal set by the parser.
    ValueKind kind = ValueKind::Null;
    /// Of a name: index of its source and of its column there; a source of -1 is the output of the
    /// query itself.
    int source = -1;
    int column = -1;
    /// Of a call.
    const FunctionRow* function = nullptr;
};

struct TableName {
    QString name;
    QString alias;
    qsizetype place = 0;
};

struct From;
using FromPtr = std::unique_ptr<From>;

/// A table, or two parts of a from clause joined.
struct From {
    enum class Kind { Table, Inner, Left, Right };
    Kind kind = Kind::Table;
    TableName table;
    FromPtr left;
    FromPtr right;
    ExpressionPtr on;
    /// Of a table: index of its source, set by the binder.
    int source = -1;
};

/// An expression, or all columns (of one source, if `starOf` names it).
struct SelectItem {
    ExpressionPtr expression;
    QString starOf;
    QString alias;
    qsizetype place = 0;
};

struct OrderTerm {
    ExpressionPtr expression;
    bool descending = false;
};

struct SelectStatement {
    bool distinct = false;
    std::vector<SelectItem> items;
    std::vector<FromPtr> from;
    ExpressionPtr where;
    std::vector<ExpressionPtr> groupBy;
    ExpressionPtr having;
    std::vector<OrderTerm> orderBy;
};

struct DeleteStatement {
    TableName table;
    ExpressionPtr where;
};

struct Assignment {
    QString qualifier;
    QString column;
    qsizetype place = 0;
    ExpressionPtr value;
};

struct UpdateStatement {
    TableName table;
    std::vector<Assignment> assignments;
    ExpressionPtr where;
};

struct InsertStatement {
    TableName table;
    /// Columns with their values; the columns' names are empty when no list was given.
    std::vector<Assignment> assignments;
};

} // namespace store::sql
