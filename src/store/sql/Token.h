#pragma once

#include <QString>
#include <QStringView>

namespace store::sql {

/// All tokens: name in the program, how it is written. Words come first, then signs; of signs that
/// begin alike the longer one comes first.
// clang-format off
#define TVK_SQL_WORDS(X)                                                                           \
    X(And, "and") X(As, "as") X(Asc, "asc") X(Between, "between") X(By, "by") X(Delete, "delete")  \
    X(Desc, "desc") X(Distinct, "distinct") X(False, "false") X(From, "from") X(Group, "group")    \
    X(Having, "having") X(In, "in") X(Inner, "inner") X(Insert, "insert") X(Into, "into")          \
    X(Is, "is") X(Join, "join") X(Left, "left") X(Like, "like") X(Mod, "mod") X(Not, "not")        \
    X(Null, "null") X(On, "on") X(Or, "or") X(Order, "order") X(Outer, "outer")                    \
    X(Right, "right") X(Select, "select") X(Set, "set") X(True, "true") X(Update, "update")        \
    X(Values, "values") X(Where, "where")
#define TVK_SQL_SIGNS(X)                                                                           \
    X(LessEqual, "<=") X(GreaterEqual, ">=") X(NotEqual, "<>") X(Less, "<") X(Greater, ">")        \
    X(Equal, "=") X(Plus, "+") X(Minus, "-") X(Star, "*") X(Slash, "/") X(Backslash, "\\")         \
    X(Caret, "^") X(Ampersand, "&") X(Open, "(") X(Close, ")") X(Comma, ",") X(Point, ".")         \
    X(Bang, "!") X(Semicolon, ";")
// clang-format on

enum class TokenKind {
    /// The end of the text.
    End,
    /// A name; its text is as it was typed, without brackets.
    Name,
    /// A text in quotes; its text is what it stands for.
    Text,
    /// Digits with an optional point and exponent.
    Number,
    /// A date between crosses; its text is what stands between them.
    Date,
#define TVK_SQL_ENUM(name, written) name,
    TVK_SQL_WORDS(TVK_SQL_ENUM) TVK_SQL_SIGNS(TVK_SQL_ENUM)
#undef TVK_SQL_ENUM
};

struct Token {
    TokenKind kind = TokenKind::End;
    QString text;
    /// Place of its first character, from 0.
    qsizetype place = 0;
    /// A name in brackets: never a word of the language, never a function.
    bool bracketed = false;
};

} // namespace store::sql
