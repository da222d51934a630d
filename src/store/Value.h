#pragma once

#include <QDate>
#include <QString>
#include <QTime>

#include <compare>
#include <variant>

namespace store {

/// A calendar date with a time of day, free of time zones; years 100 to 9999.
struct DateTime {
    QDate date;
    QTime time = QTime(0, 0);
    auto operator<=>(const DateTime& other) const {
        const auto day = date.toJulianDay() <=> other.date.toJulianDay();
        return std::is_neq(day) ? day
                                : time.msecsSinceStartOfDay() <=> other.time.msecsSinceStartOfDay();
    }
    bool operator==(const DateTime& other) const = default;
};

/// What a column or an expression of the engine holds.
class Value {
  public:
    using Variant = std::variant<std::monostate, bool, qint64, double, QString, DateTime>;

    Value() = default;
    Value(bool flag) : value_(flag) {}
    Value(int number) : value_(qint64{number}) {}
    Value(qint64 number) : value_(number) {}
    Value(double number) : value_(number) {}
    Value(QString text) : value_(std::move(text)) {}
    Value(const QDate& date) : value_(DateTime{date}) {}
    Value(const DateTime& date) : value_(date) {}

    bool isNull() const { return std::holds_alternative<std::monostate>(value_); }
    bool isDate() const { return std::holds_alternative<DateTime>(value_); }

    /// As a text field shows it: Null is empty, a date is "dd.MM.yyyy", True is "-1", False "0".
    QString toText() const;
    /// Numeric reading; a text is read as far as it is a number, Null is 0, True is -1.
    double toNumber() const;
    bool toBool() const { return toNumber() != 0; }
    /// The date, or an invalid one when the value is no calendar date.
    QDate toDate() const;

    const Variant& variant() const { return value_; }
    bool operator==(const Value& other) const = default;

  private:
    Variant value_;
};

} // namespace store
