#pragma once

namespace store {
class Database;
class DataSource;
} // namespace store

namespace statreturn {

/// Makes Table III: counts the employees by function and appends its eight rows and their total to
/// z_zam.
/// @param datTlac runs the selection
/// @param database executes the inserts
/// @throws store::EngineError
void makeTableThree(store::DataSource& datTlac, store::Database& database);

} // namespace statreturn
