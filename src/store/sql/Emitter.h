#pragma once

#include "store/sql/Ast.h"
#include "store/sql/Scope.h"

#include <QString>

#include <vector>

namespace store::sql {

/// Writes bound expressions in SQLite's SQL.
class Emitter {
  public:
    /// @param scope must outlive the emitter
    explicit Emitter(const Scope& scope) : scope_(scope) {}

    /// The value as it lies in a column of its kind: dates as texts, Booleans as -1 and 0.
    QString value(const Expression& expression) const;
    /// What SQLite takes for true and false, in the place of a where clause: a comparison with a
    /// date may be false there where it should be Null, so that an index can serve it.
    QString filter(const Expression& expression) const;
    /// A term to sort or group by.
    QString term(const Expression& expression) const;
    static QString term(const QString& sql, ValueKind kind);
    /// The value made fit for a column. @throws EngineError 3421 when it can't ever be.
    QString forColumn(const Expression& expression, const SourceColumn& column) const;

  private:
    using Chain = std::vector<const Expression*>;
    struct DateParts {
        std::size_t count = 0;
        QString date;
        QString format;
        QString separators;
    };

    QString condition(const Expression& expression) const;
    QString text(const Expression& expression) const;
    QString number(const Expression& expression) const;
    QString date(const Expression& expression) const;
    QString ofKind(const Expression& expression, ValueKind kind) const;
    QString operand(const Expression& expression) const;

    QString literal(const Expression& expression) const;
    QString name(const Expression& expression) const;
    QString binary(const Expression& expression) const;
    DateParts dateParts(const Chain& operands, std::size_t first) const;
    QString joined(const Expression& expression, bool nullIsEmpty) const;
    QString sum(const Expression& expression) const;
    QString arithmetic(const Expression& expression) const;
    QString logical(const Expression& expression, bool filters) const;
    QString comparison(const Expression& expression, bool filters) const;
    QString comparedWithBoolean(const Expression& expression) const;
    QString dateComparison(const Expression& expression, bool filters) const;
    QString compared(const Expression& expression) const;
    QString comparand(const Expression& expression, std::size_t part) const;
    QString properDate(const Expression& date) const;
    QString between(const Expression& expression, bool filters) const;
    QString in(const Expression& expression) const;
    QString like(const Expression& expression) const;
    QString test(const Expression& expression, bool filters) const;
    QString call(const Expression& expression) const;
    QString plainCall(const Expression& expression) const;
    QString aggregate(const Expression& expression) const;
    QString iif(const Expression& expression) const;
    QString isDate(const Expression& expression) const;
    QString format(const Expression& expression) const;

    const Scope& scope_;
};

} // namespace store::sql
