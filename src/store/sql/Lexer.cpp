#include "store/sql/Lexer.h"

#include "store/sql/Messages.h"

#include <algorithm>

namespace store::sql {

namespace {

struct Written {
    TokenKind kind = TokenKind::End;
    QStringView text;
};

#define TVK_SQL_ROW(name, written) {TokenKind::name, u"" written},
constexpr Written words[] = {TVK_SQL_WORDS(TVK_SQL_ROW)};
constexpr Written signs[] = {TVK_SQL_SIGNS(TVK_SQL_ROW)};
#undef TVK_SQL_ROW

/// The engine's longest statement.
constexpr qsizetype longestStatement = 64000;
/// How much of the statement an error shows.
constexpr qsizetype shownLength = 30;

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}
bool isNameStart(QChar c) {
    return c.isLetter() || c == u'_';
}
bool isNamePart(QChar c) {
    return c.isLetterOrNumber() || c == u'_';
}
bool isBlank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

class Lexer {
  public:
    explicit Lexer(const QString& sql) : sql_(sql), rest_(sql) {}

    std::vector<Token> tokens() {
        std::vector<Token> result;
        do {
            skip(isBlank);
            result.push_back(next());
        } while (result.back().kind != TokenKind::End);
        return result;
    }

  private:
    qsizetype place() const { return sql_.size() - rest_.size(); }
    Token token(TokenKind kind, const QString& text, qsizetype at) const {
        return {kind, text, at};
    }
    QStringView take(qsizetype length) {
        const QStringView taken = rest_.first(length);
        rest_ = rest_.sliced(length);
        return taken;
    }
    template <class Test>
    QStringView skip(Test test) {
        const auto end = std::ranges::find_if_not(rest_, test);
        return take(end - rest_.begin());
    }

    Token next() {
        if (rest_.isEmpty())
            return token(TokenKind::End, {}, place());
        const QChar first = rest_[0];
        if (isNameStart(first))
            return word();
        if (isDigit(first) || (first == u'.' && rest_.size() > 1 && isDigit(rest_[1])))
            return number();
        if (first == u'\'' || first == u'"')
            return text(first);
        if (first == u'[')
            return bracketedName();
        if (first == u'#')
            return date();
        return sign();
    }

    Token word() {
        const qsizetype at = place();
        const QStringView name = skip(isNamePart);
        const auto found = std::ranges::find_if(words, [&](const Written& word) {
            return word.text.compare(name, Qt::CaseInsensitive) == 0;
        });
        return token(found == std::end(words) ? TokenKind::Name : found->kind, name.toString(), at);
    }

    Token number() {
        const qsizetype at = place();
        QString digits = skip(isDigit).toString();
        if (rest_.startsWith(u'.')) {
            take(1);
            digits += u'.' + skip(isDigit).toString();
        }
        digits += exponent();
        return token(TokenKind::Number, digits, at);
    }

    QString exponent() {
        if (!rest_.startsWith(u'e', Qt::CaseInsensitive))
            return {};
        const bool hasSign = rest_.size() > 1 && (rest_[1] == u'+' || rest_[1] == u'-');
        const qsizetype digits = hasSign ? 2 : 1;
        if (rest_.size() <= digits || !isDigit(rest_[digits]))
            return {};
        QString exponent = take(digits).toString();
        exponent += skip(isDigit);
        return exponent;
    }

    Token text(QChar quote) {
        const qsizetype at = place();
        QString value;
        do {
            value += upTo(quote, messages::openText);
            if (rest_.startsWith(quote))
                value += quote;
        } while (rest_.startsWith(quote));
        return token(TokenKind::Text, value, at);
    }

    Token bracketedName() {
        const qsizetype at = place();
        Token name = token(TokenKind::Name, upTo(u']', messages::openName), at);
        name.bracketed = true;
        return name;
    }

    Token date() {
        const qsizetype at = place();
        return token(TokenKind::Date, upTo(u'#', messages::badDate), at);
    }

    /// What stands between the sign at hand and the next `end`; both are taken.
    QString upTo(QChar end, const char16_t* message) {
        const qsizetype at = place();
        take(1);
        const qsizetype length = rest_.indexOf(end);
        if (length < 0)
            throw errorAt(sql_, at, message);
        QString inner = take(length).toString();
        take(1);
        return inner;
    }

    Token sign() {
        const qsizetype at = place();
        const auto found = std::ranges::find_if(
            signs, [&](const Written& sign) { return rest_.startsWith(sign.text); });
        if (found == std::end(signs))
            throw errorAt(sql_, at, messages::unknownSign);
        return token(found->kind, take(found->text.size()).toString(), at);
    }

    const QString& sql_;
    QStringView rest_;
};

} // namespace

std::vector<Token> lex(const QString& sql) {
    if (sql.size() > longestStatement)
        throw errorAt(sql, 0, messages::tooLong);
    const qsizetype null = sql.indexOf(QChar(0));
    if (null >= 0)
        throw errorAt(sql, null, messages::unknownSign);
    return Lexer(sql).tokens();
}

EngineError errorAt(const QString& sql, qsizetype place, const char16_t* message,
                    ErrorNumber number) {
    QString shown = sql.mid(place, shownLength);
    shown.replace(QChar(0), u' ');
    return {number, QString::fromUtf16(message),
            QStringLiteral("znak %1: %2").arg(place + 1).arg(shown)};
}

} // namespace store::sql
