#pragma once

#include <span>

struct sqlite3_context;
struct sqlite3_value;

namespace store::sql {

/// A function of SQLite's that translated statements call. Its user data is the TextOrder of the
/// connection. All give Null when an argument is Null, and the same result for the same arguments.
struct RuntimeFunction {
    const char* name;
    int arguments;
    void (*call)(sqlite3_context* context, int count, sqlite3_value** arguments);
};

std::span<const RuntimeFunction> runtimeFunctions();

} // namespace store::sql
