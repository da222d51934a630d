#pragma once

#include "store/Sql.h"

#include <QStringView>

#include <array>

namespace store::sql {

/// A function of the dialect by name and number of arguments, and what becomes of it.
struct FunctionRow {
    enum class Form {
        /// A call of `target` with the arguments made to be of the kinds given.
        Call,
        /// `target` as it stands.
        Constant,
        /// A call of an aggregate of SQLite's.
        Aggregate,
        IsNull,
        IsDate,
        Iif,
        Format,
    };

    const char16_t* name = nullptr;
    int arguments = 0;
    Form form = Form::Call;
    const char* target = nullptr;
    /// Null where it follows from the arguments.
    ValueKind result = ValueKind::Null;
    std::array<ValueKind, 3> kinds = {};
};

/// The row of a function; null when there is none with so many arguments.
const FunctionRow* findFunction(QStringView name, std::size_t arguments);
/// Whether there is a function of that name at all.
bool isFunctionName(QStringView name);

} // namespace store::sql
