#pragma once

#include "store/EngineError.h"
#include "store/sql/Token.h"

#include <vector>

namespace store::sql {

/// Cuts a statement into tokens, the end among them. @throws EngineError 3075
std::vector<Token> lex(const QString& sql);

/// The error of a place in a statement; the error's place is its number, from 1, and what stands
/// there.
EngineError errorAt(const QString& sql, qsizetype place, const char16_t* message,
                    ErrorNumber number = ErrorNumber::SyntaxError);

} // namespace store::sql
