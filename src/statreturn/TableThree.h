#pragma once

#include "store/Value.h"

#include <cstddef>
#include <optional>

namespace store {
class Database;
class DataSource;
} // namespace store

namespace statreturn {

/// The place of a function's row, from 0; nothing for a function that the form does not have.
std::optional<std::size_t> staffRowOf(const store::Value& function);

enum class Employment { Internal, External };
/// Nothing when the employee's card does not say.
std::optional<Employment> employmentOf(const store::Value& kind);
/// Whether the employee is counted as a woman.
bool isWoman(const store::Value& sex);

/// A director has a row without external columns.
inline constexpr std::size_t directorRow = 0;

/// Makes Table III: counts the employees by function and appends its eight rows and their total to
/// z_zam.
/// @param datTlac runs the selection
/// @param database executes the inserts
/// @throws store::EngineError
void makeTableThree(store::DataSource& datTlac, store::Database& database);

} // namespace statreturn
