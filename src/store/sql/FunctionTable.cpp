#include "store/sql/FunctionTable.h"

#include <algorithm>

namespace store::sql {

namespace {

using enum FunctionRow::Form;

constexpr ValueKind text = ValueKind::Text;
constexpr ValueKind number = ValueKind::Number;
constexpr ValueKind date = ValueKind::Date;
constexpr ValueKind boolean = ValueKind::Boolean;
constexpr ValueKind asArguments = ValueKind::Null;

constexpr FunctionRow rows[] = {
    {u"trim", 1, Call, "trim", text, {text}},
    {u"ltrim", 1, Call, "ltrim", text, {text}},
    {u"rtrim", 1, Call, "rtrim", text, {text}},
    {u"left", 2, Call, "tvk_left", text, {text, number}},
    {u"right", 2, Call, "tvk_right", text, {text, number}},
    {u"mid", 2, Call, "tvk_mid", text, {text, number}},
    {u"mid", 3, Call, "tvk_mid", text, {text, number, number}},
    {u"ucase", 1, Call, "tvk_ucase", text, {text}},
    {u"lcase", 1, Call, "tvk_lcase", text, {text}},
    {u"space", 1, Call, "tvk_space", text, {number}},
    {u"chr", 1, Call, "tvk_chr", text, {number}},
    {u"len", 1, Call, "tvk_len", number, {text}},
    {u"instr", 2, Call, "tvk_instr", number, {text, text}},
    {u"instr", 3, Call, "tvk_instr", number, {number, text, text}},
    {u"val", 1, Call, "tvk_val", number, {text}},
    {u"datevalue", 1, Call, "tvk_date_value", date, {text}},
    {u"dateserial", 3, Call, "tvk_date_serial", date, {number, number, number}},
    {u"year", 1, Call, "tvk_year", number, {date}},
    {u"month", 1, Call, "tvk_month", number, {date}},
    {u"day", 1, Call, "tvk_day", number, {date}},
    {u"date", 0, Constant, "date('now', 'localtime')", date},
    {u"now", 0, Constant, "datetime('now', 'localtime')", date},
    {u"isnull", 1, IsNull, nullptr, boolean},
    {u"isdate", 1, IsDate, nullptr, boolean},
    {u"iif", 3, Iif, nullptr, asArguments},
    {u"format", 2, Format, nullptr, text},
    {u"count", 1, Aggregate, "count", number},
    {u"sum", 1, Aggregate, "sum", number, {number}},
    {u"avg", 1, Aggregate, "avg", number, {number}},
    {u"min", 1, Aggregate, "min", asArguments},
    {u"max", 1, Aggregate, "max", asArguments},
};

bool isNamed(const FunctionRow& row, QStringView name) {
    return QStringView(row.name).compare(name, Qt::CaseInsensitive) == 0;
}

} // namespace

const FunctionRow* findFunction(QStringView name, std::size_t arguments) {
    const auto found = std::ranges::find_if(rows, [&](const FunctionRow& row) {
        return static_cast<std::size_t>(row.arguments) == arguments && isNamed(row, name);
    });
    return found == std::end(rows) ? nullptr : found;
}

bool isFunctionName(QStringView name) {
    return std::ranges::any_of(rows, [&](const FunctionRow& row) { return isNamed(row, name); });
}

} // namespace store::sql
