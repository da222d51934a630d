#include "store/StoredValue.h"

#include "store/Dates.h"
#include "store/EngineError.h"
#include "store/Utf8.h"
#include "store/sql/Numbers.h"

#include <cmath>

namespace store {

namespace {

[[noreturn]] void refuseConversion(const OutputColumn& column) {
    throw EngineError(ErrorNumber::TypeConversion,
                      QStringLiteral("Hodnota sa nedá previesť na typ stĺpca %1.").arg(column.name),
                      column.name);
}

Cell toTextCell(const Value& value, const OutputColumn& column) {
    const auto* date = std::get_if<DateTime>(&value.variant());
    const QString text = date ? dateToText(*date) : value.toText();
    if (column.width > 0 && text.size() > column.width)
        throw EngineError(ErrorNumber::DataTypeOverflow,
                          QStringLiteral("Text je pre stĺpec %1 priveľmi dlhý.").arg(column.name),
                          column.name);
    return text.toStdString();
}

Cell toDateCell(const Value& value, const OutputColumn& column) {
    if (const auto* date = std::get_if<DateTime>(&value.variant())) {
        if (!isCalendarDate(*date))
            refuseConversion(column);
        return dateToColumn(*date);
    }
    const auto* text = std::get_if<QString>(&value.variant());
    if (text == nullptr || text->trimmed().isEmpty())
        refuseConversion(column);
    return textToDateColumn(*text);
}

/// Reads a whole text as a number, with a decimal point or comma.
double numberOf(const Value& value, const OutputColumn& column) {
    const auto* text = std::get_if<QString>(&value.variant());
    if (text == nullptr) {
        if (value.isDate())
            refuseConversion(column);
        return value.toNumber();
    }
    const auto number = sql::wholeTextAsNumber(text->toStdString());
    if (!number || !std::isfinite(*number))
        refuseConversion(column);
    return *number;
}

Cell toWholeCell(const Value& value, const OutputColumn& column) {
    constexpr double limit = 2147483648.0;
    const double number = std::nearbyint(numberOf(value, column));
    if (!(number >= -limit && number < limit))
        refuseConversion(column);
    return static_cast<qint64>(number);
}

Cell toBooleanCell(const Value& value, const OutputColumn& column) {
    const bool flag = value.toText().compare(u"true", Qt::CaseInsensitive) == 0 ||
                      (value.toText().compare(u"false", Qt::CaseInsensitive) != 0 &&
                       numberOf(value, column) != 0);
    return flag ? qint64{-1} : qint64{0};
}

Value fromText(std::string_view text, std::optional<ColumnType> type) {
    return type == ColumnType::Date ? dateFromColumn(text) : Value(textOfUtf8(text));
}

Value fromInteger(qint64 number, std::optional<ColumnType> type) {
    return type == ColumnType::Boolean ? Value(number != 0) : Value(number);
}

} // namespace

Value toValue(const Cell& cell, std::optional<ColumnType> type) {
    if (const auto* number = std::get_if<qint64>(&cell))
        return fromInteger(*number, type);
    if (const auto* number = std::get_if<double>(&cell))
        return *number;
    if (const auto* text = std::get_if<std::string>(&cell))
        return fromText(*text, type);
    return {};
}

Value readValue(const RowView& row, int column, std::optional<ColumnType> type) {
    if (row.isText(column))
        return fromText(row.bytes(column), type);
    return toValue(row.cell(column), type);
}

Cell toCell(const Value& value, const OutputColumn& column) {
    if (value.isNull())
        return column.type == ColumnType::Boolean ? Cell(qint64{0}) : Cell();
    switch (column.type.value_or(ColumnType::Memo)) {
    case ColumnType::Text:
    case ColumnType::Memo:
        return toTextCell(value, column);
    case ColumnType::Date:
        return toDateCell(value, column);
    case ColumnType::Boolean:
        return toBooleanCell(value, column);
    case ColumnType::Whole:
        return toWholeCell(value, column);
    case ColumnType::Number:
        return numberOf(value, column);
    }
    return {};
}

} // namespace store
