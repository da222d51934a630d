#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace store::sql {

// Nothing here depends on the locale.

/// The engine's Val: blanks anywhere are skipped, reading stops at the first sign that can't be
/// part of a number; 0 when there is none.
double leadingNumber(std::string_view text);
/// The number that a text is from end to end, blanks around it aside; with a point or a comma.
std::optional<double> wholeTextAsNumber(std::string_view text);
/// A number in at most 15 digits, without a point when it is whole.
std::string numberText(double number);

} // namespace store::sql
