#pragma once

#include "store/EngineError.h"
#include "store/sql/Ast.h"
#include "store/sql/Scope.h"

namespace store::sql {

/// Finds the columns and functions that an expression names, works out the kinds of its values and
/// refuses what does not fit together.
class Binder {
  public:
    enum class Aggregates { Forbidden, Allowed };

    /// @param sql and what is visible must outlive the binder
    Binder(const QString& sql, const Visible& visible,
           Aggregates aggregates = Aggregates::Forbidden)
        : sql_(sql), visible_(visible), aggregates_(aggregates) {}

    /// @throws EngineError 3061, 3075, 3079, 3085, 3464
    void bind(Expression& expression);
    /// The same for a condition, which must be no text and no date.
    void bindCondition(Expression& expression);
    /// True once an aggregate was bound.
    bool hasAggregates() const { return hasAggregates_; }

  private:
    ValueKind kindOfNode(Expression& expression);
    ValueKind bindName(Expression& expression);
    ValueKind bindBinary(const Expression& expression);
    ValueKind bindSum(const Expression& expression);
    ValueKind bindCall(Expression& expression);
    ValueKind bindFormat(const Expression& expression);
    void bindParts(Expression& expression);
    void checkComparable(const Expression& left, const Expression& right) const;
    void checkCondition(const Expression& expression) const;
    void checkKind(const Expression& argument, ValueKind wanted) const;
    void checkPattern(const Expression& pattern) const;
    ValueKind kindOfFound(const Found& found) const;
    EngineError error(const Expression& expression, const char16_t* message,
                      ErrorNumber number = ErrorNumber::SyntaxError) const;
    EngineError mismatch(const Expression& expression) const;

    const QString& sql_;
    Visible visible_;
    Aggregates aggregates_;
    bool hasAggregates_ = false;
};

} // namespace store::sql
