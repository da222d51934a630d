#pragma once

#include <QString>

/// What is known of SQLite's own texts.
namespace store::sql {

/// A text as a literal of SQLite's.
QString sqlText(const QString& text);
/// Whether SQLite could take a term to sort by for the number of a column.
bool isConstantNumber(const QString& term);
/// About how much of the stack of SQLite's parser a statement takes; it has 100.
int parserLoad(const QString& sql);

} // namespace store::sql
