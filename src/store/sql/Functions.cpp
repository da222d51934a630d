#include "store/sql/Functions.h"

#include "store/Dates.h"
#include "store/EngineError.h"
#include "store/StoredValue.h"
#include "store/Utf8.h"
#include "store/sql/Format.h"
#include "store/sql/Like.h"
#include "store/sql/Numbers.h"

#include <sqlite3.h>
#include <unicode/ucnv.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace store::sql {

namespace {

/// Longest text that space() makes.
constexpr double longestSpace = 65535;

/// Raised by a function that refuses a value.
struct Refusal {
    ErrorNumber number;
    std::string place;
};

[[noreturn]] void refuse(std::string_view place, ErrorNumber number = ErrorNumber::TypeMismatch) {
    throw Refusal{number, std::string(place)};
}

/// The arguments and the result of one call.
class Call {
  public:
    Call(sqlite3_context* context, int count, sqlite3_value** arguments)
        : context_(context), count_(count), arguments_(arguments) {}

    int count() const { return count_; }
    bool isText(int i) const { return sqlite3_value_type(arguments_[i]) == SQLITE_TEXT; }
    bool isWhole(int i) const { return sqlite3_value_type(arguments_[i]) == SQLITE_INTEGER; }

    /// A number as the engine writes it.
    std::string_view text(int i) {
        if (sqlite3_value_type(arguments_[i]) == SQLITE_FLOAT)
            return written_ = numberText(sqlite3_value_double(arguments_[i]));
        const auto* bytes = sqlite3_value_text(arguments_[i]);
        const int size = sqlite3_value_bytes(arguments_[i]);
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
        return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size)};
    }
    QString string(int i) { return textOfUtf8(text(i)); }
    /// A text must be a number from end to end.
    double number(int i) {
        if (!isText(i))
            return sqlite3_value_double(arguments_[i]);
        const auto number = wholeTextAsNumber(text(i));
        return number ? *number : (refuse(text(i)), 0);
    }
    qint64 whole(int i) {
        if (isWhole(i))
            return sqlite3_value_int64(arguments_[i]);
        const double rounded = std::nearbyint(number(i));
        if (!(std::abs(rounded) < 9e18))
            refuse(text(i));
        return static_cast<qint64>(rounded);
    }
    /// A number that counts characters.
    std::size_t size(int i, qint64 least = 0) {
        const qint64 wanted = whole(i);
        return wanted < least ? (refuse(text(i)), 0) : static_cast<std::size_t>(wanted);
    }
    Value date(int i) { return dateFromColumn(text(i)); }
    Value value(int i) {
        switch (sqlite3_value_type(arguments_[i])) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER:
            return qint64{sqlite3_value_int64(arguments_[i])};
        case SQLITE_FLOAT:
            return sqlite3_value_double(arguments_[i]);
        default:
            return string(i);
        }
    }

    void give(std::string_view text) {
        sqlite3_result_text64(context_, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    void give(const QString& text) {
        const QByteArray bytes = text.toUtf8();
        give(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    }
    void give(qint64 number) { sqlite3_result_int64(context_, number); }
    void give(double number) { sqlite3_result_double(context_, number); }
    void giveCell(const Cell& cell) {
        if (const auto* text = std::get_if<std::string>(&cell))
            give(*text);
        else if (const auto* number = std::get_if<double>(&cell))
            give(*number);
        else
            std::holds_alternative<qint64>(cell) ? give(std::get<qint64>(cell)) : giveNull();
    }
    void giveArgument(int i) { sqlite3_result_value(context_, arguments_[i]); }
    void giveNull() { sqlite3_result_null(context_); }

    sqlite3_context* context() const { return context_; }
    const TextOrder& order() const {
        return *static_cast<const TextOrder*>(sqlite3_user_data(context_));
    }

  private:
    sqlite3_context* context_;
    int count_;
    sqlite3_value** arguments_;
    std::string written_;
};

/// Place of the character that many characters on; the text's size when it has fewer.
std::size_t offsetOf(std::string_view text, std::size_t characters) {
    std::size_t at = 0;
    for (; at < text.size() && characters > 0; --characters)
        for (++at; at < text.size() && (text[at] & 0xC0) == 0x80;)
            ++at;
    return at;
}

std::size_t lengthOf(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

void left(Call& call) {
    const std::size_t length = call.size(1);
    const std::string_view text = call.text(0);
    call.give(text.substr(0, offsetOf(text, length)));
}

void right(Call& call) {
    const std::size_t length = call.size(1);
    const std::string_view text = call.text(0);
    const std::size_t all = lengthOf(text);
    call.give(text.substr(offsetOf(text, all - std::min(all, length))));
}

void mid(Call& call) {
    const std::size_t start = call.size(1, 1);
    const std::size_t length =
        call.count() > 2 ? call.size(2) : std::numeric_limits<std::size_t>::max();
    std::string_view text = call.text(0);
    text = text.substr(offsetOf(text, start - 1));
    call.give(text.substr(0, offsetOf(text, length)));
}

void length(Call& call) {
    call.give(static_cast<qint64>(lengthOf(call.text(0))));
}

void space(Call& call) {
    const double length = std::nearbyint(call.number(0));
    if (!(length >= 0 && length <= longestSpace))
        refuse(call.text(0));
    call.give(std::string(static_cast<std::size_t>(length), ' '));
}

/// A character of the engine's code page.
void chr(Call& call) {
    const qint64 code = call.whole(0);
    if (code < 1 || code > 255)
        refuse(call.text(0));
    const char sign = static_cast<char>(code);
    char bytes[8];
    UErrorCode status = U_ZERO_ERROR;
    const int32_t size =
        ucnv_convert("UTF-8", "windows-1250", bytes, sizeof bytes, &sign, 1, &status);
    if (U_FAILURE(status))
        refuse(call.text(0));
    call.give(std::string_view(bytes, static_cast<std::size_t>(size)));
}

void upper(Call& call) {
    call.give(call.string(0).toUpper());
}
void lower(Call& call) {
    call.give(call.string(0).toLower());
}

/// Place of a text in another one, case aside: (text, part) or (start, text, part).
void instr(Call& call) {
    const int first = call.count() - 2;
    const std::size_t start = first > 0 ? call.size(0, 1) : 1;
    const QString text = call.string(first);
    if (start > static_cast<std::size_t>(text.size()))
        return call.give(qint64{0});
    const auto from = static_cast<qsizetype>(start - 1);
    call.give(qint64{text.indexOf(call.string(first + 1), from, Qt::CaseInsensitive) + 1});
}

void endPattern(void* pattern) {
    delete static_cast<LikePattern*>(pattern);
}

/// (pattern, text)
void like(Call& call) {
    auto* kept = static_cast<LikePattern*>(sqlite3_get_auxdata(call.context(), 0));
    std::unique_ptr<LikePattern> fresh;
    if (!kept)
        fresh = std::make_unique<LikePattern>(call.text(0));
    const LikePattern& pattern = kept ? *kept : *fresh;
    if (!pattern.isValid())
        refuse(call.text(0), ErrorNumber::SyntaxError);
    call.give(qint64{pattern.matches(call.text(1), call.order())});
    if (fresh)
        sqlite3_set_auxdata(call.context(), 0, fresh.release(), endPattern);
}

void val(Call& call) {
    call.give(call.isText(0) ? leadingNumber(call.text(0)) : call.number(0));
}

void number(Call& call) {
    if (!call.isText(0))
        return call.giveArgument(0);
    call.give(call.number(0));
}

void text(Call& call) {
    call.give(call.text(0));
}

/// Joins two texts, adds all else.
void plus(Call& call) {
    if (call.isText(0) && call.isText(1))
        return call.give(std::string(call.text(0)).append(call.text(1)));
    call.give(call.number(0) + call.number(1));
}

double divisor(Call& call, double number) {
    return number != 0 ? number : (refuse(call.text(1)), 1);
}

void divide(Call& call) {
    call.give(call.number(0) / divisor(call, call.number(1)));
}

/// The quotient or the rest of whole numbers; by -1 it is reckoned apart, as it may overflow.
template <bool rest>
void divideWhole(Call& call) {
    const qint64 by = call.whole(1);
    divisor(call, static_cast<double>(by));
    if (by == -1)
        return rest ? call.give(qint64{0}) : call.give(-static_cast<double>(call.whole(0)));
    call.give(rest ? call.whole(0) % by : call.whole(0) / by);
}

void power(Call& call) {
    call.give(std::pow(call.number(0), call.number(1)));
}

void giveDate(Call& call, const std::optional<DateTime>& date) {
    date ? call.give(dateToColumn(*date)) : call.giveNull();
}

/// A date of a date column; Null for a text that is none.
void date(Call& call) {
    call.date(0).isDate() ? call.giveArgument(0) : call.giveNull();
}

void dateValue(Call& call) {
    auto date = readDate(call.string(0));
    if (date)
        date->time = QTime(0, 0);
    giveDate(call, date);
}

/// What a date column holds as it is shown.
void dateText(Call& call) {
    const Value value = call.date(0);
    const auto* date = std::get_if<DateTime>(&value.variant());
    call.give(date ? dateToText(*date) : value.toText());
}

/// A text as a date column would hold it, the empty one included.
void asDate(Call& call) {
    call.give(textToDateColumn(call.string(0)));
}

/// Months and days may lie outside their bounds, two-digit years are of 1930 to 2029.
void dateSerial(Call& call) {
    const auto bounded = [&](int i) {
        const qint64 value = call.whole(i);
        return std::abs(value) > 1'000'000 ? (refuse(call.text(i)), 0) : static_cast<int>(value);
    };
    int year = bounded(0);
    if (year >= 0 && year < 100)
        year += year < 30 ? 2000 : 1900;
    const QDate date =
        QDate(2000, 1, 1).addYears(year - 2000).addMonths(bounded(1) - 1).addDays(bounded(2) - 1);
    if (!date.isValid() || date.year() < 100 || date.year() > 9999)
        refuse(call.text(0));
    giveDate(call, DateTime{date});
}

template <int (QDate::*part)() const>
void datePart(Call& call) {
    const QDate date = call.date(0).isDate() ? call.date(0).toDate() : QDate();
    date.isValid() ? call.give(qint64{(date.*part)()}) : call.giveNull();
}

void formatTextCall(Call& call) {
    call.give(formatText(call.string(0), call.string(1)));
}

void formatNumberCall(Call& call) {
    const auto number =
        call.isText(0) ? wholeTextAsNumber(call.text(0)) : std::optional(call.number(0));
    number ? call.give(formatNumber(*number, call.string(1))) : call.giveArgument(0);
}

void formatDateCall(Call& call) {
    call.give(formatDate(call.date(0), call.string(1)));
}

/// A value as its column takes it: (value, type, width, name of the column).
void toColumn(Call& call) {
    OutputColumn column;
    column.type = static_cast<ColumnType>(call.whole(1));
    column.width = static_cast<int>(call.whole(2));
    column.name = call.string(3);
    call.giveCell(toCell(call.value(0), column));
}

std::string refusalText(const Refusal& refusal) {
    return "TVK:" + std::to_string(static_cast<int>(refusal.number)) + ":" + refusal.place;
}

template <void (*function)(Call&), bool takesNull = false>
void run(sqlite3_context* context, int count, sqlite3_value** arguments) {
    for (int i = 0; i < count && !takesNull; ++i)
        if (sqlite3_value_type(arguments[i]) == SQLITE_NULL)
            return sqlite3_result_null(context);
    try {
        Call call(context, count, arguments);
        function(call);
    } catch (const Refusal& refusal) {
        sqlite3_result_error(context, refusalText(refusal).c_str(), -1);
    } catch (const EngineError& error) {
        const Refusal refusal{error.number(), error.place().toStdString()};
        sqlite3_result_error(context, refusalText(refusal).c_str(), -1);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

constexpr RuntimeFunction functions[] = {
    {"tvk_left", 2, run<left>},
    {"tvk_right", 2, run<right>},
    {"tvk_mid", 2, run<mid>},
    {"tvk_mid", 3, run<mid>},
    {"tvk_len", 1, run<length>},
    {"tvk_space", 1, run<space>},
    {"tvk_chr", 1, run<chr>},
    {"tvk_ucase", 1, run<upper>},
    {"tvk_lcase", 1, run<lower>},
    {"tvk_instr", 2, run<instr>},
    {"tvk_instr", 3, run<instr>},
    {"tvk_like", 2, run<like>},
    {"tvk_val", 1, run<val>},
    {"tvk_number", 1, run<number>},
    {"tvk_text", 1, run<text>},
    {"tvk_plus", 2, run<plus>},
    {"tvk_divide", 2, run<divide>},
    {"tvk_divide_whole", 2, run<divideWhole<false>>},
    {"tvk_mod", 2, run<divideWhole<true>>},
    {"tvk_power", 2, run<power>},
    {"tvk_date", 1, run<date>},
    {"tvk_date_value", 1, run<dateValue>},
    {"tvk_date_text", 1, run<dateText>},
    {"tvk_as_date", 1, run<asDate>},
    {"tvk_date_serial", 3, run<dateSerial>},
    {"tvk_year", 1, run<datePart<&QDate::year>>},
    {"tvk_month", 1, run<datePart<&QDate::month>>},
    {"tvk_day", 1, run<datePart<&QDate::day>>},
    {"tvk_format_text", 2, run<formatTextCall>},
    {"tvk_format_number", 2, run<formatNumberCall>},
    {"tvk_format_date", 2, run<formatDateCall>},
    {"tvk_to_column", 4, run<toColumn, true>},
};

} // namespace

std::span<const RuntimeFunction> runtimeFunctions() {
    return functions;
}

} // namespace store::sql
