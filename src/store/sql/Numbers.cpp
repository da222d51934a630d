#include "store/sql/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace store::sql {

namespace {

constexpr std::string_view blanks = " \t\r\n";

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isSign(char c) {
    return c == '+' || c == '-';
}
bool isExponent(char c) {
    return (c | ' ') == 'e' || (c | ' ') == 'd';
}

std::size_t skipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && isDigit(text[at]))
        ++at;
    return at;
}

/// Length of the number that a text without blanks begins with, an unfinished exponent left out.
std::size_t numberLength(std::string_view text) {
    std::size_t at = !text.empty() && isSign(text[0]) ? 1 : 0;
    const std::size_t whole = at;
    at = skipDigits(text, at);
    std::size_t digits = at - whole;
    if (at < text.size() && text[at] == '.') {
        const std::size_t end = skipDigits(text, at + 1);
        digits += end - at - 1;
        at = end;
    }
    if (digits == 0)
        return 0;
    std::size_t exponent = at;
    if (exponent < text.size() && isExponent(text[exponent]))
        ++exponent;
    if (exponent == at)
        return at;
    if (exponent < text.size() && isSign(text[exponent]))
        ++exponent;
    const std::size_t end = skipDigits(text, exponent);
    return end > exponent ? end : at;
}

/// Reads a text that numberLength() found to be a number.
double readNumber(std::string text) {
    for (char& c : text)
        c = isExponent(c) ? 'e' : c;
    const char* first = text.data() + (text[0] == '+' ? 1 : 0);
    double number = 0;
    const auto result = std::from_chars(first, text.data() + text.size(), number);
    if (result.ec != std::errc::result_out_of_range)
        return number;
    const bool isTiny = text.find("e-") != std::string::npos;
    return isTiny ? 0
                  : std::copysign(std::numeric_limits<double>::infinity(), *first == '-' ? -1 : 1);
}

} // namespace

double leadingNumber(std::string_view text) {
    std::string dense;
    for (const char c : text)
        if (blanks.find(c) == std::string_view::npos)
            dense += c;
    const std::size_t length = numberLength(dense);
    return length == 0 ? 0 : readNumber(dense.substr(0, length));
}

std::optional<double> wholeTextAsNumber(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    std::string pointed(text.substr(first, text.find_last_not_of(blanks) + 1 - first));
    std::ranges::replace(pointed, ',', '.');
    if (numberLength(pointed) != pointed.size())
        return {};
    return readNumber(std::move(pointed));
}

std::string numberText(double number) {
    char text[40];
    const auto end =
        std::to_chars(std::begin(text), std::end(text), number, std::chars_format::general, 15);
    return {std::begin(text), end.ptr};
}

} // namespace store::sql
