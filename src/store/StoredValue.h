#pragma once

#include "store/Query.h"
#include "store/Sql.h"
#include "store/Value.h"

#include <optional>

namespace store {

/// What a column of a row that was read holds.
Value readValue(const RowView& row, int column, std::optional<ColumnType> type);
/// What a column holds whose cell is at hand.
Value toValue(const Cell& cell, std::optional<ColumnType> type);

/// How a value lies in a column of the file, whichever way it comes there: by the edit of a
/// recordset, an action statement or a bulk insert. Numbers are read with a point or a comma,
/// "true" and "false" are Booleans, Null is False; an empty text is neither a number nor a date.
/// @param column its name, type and width count
/// @throws EngineError 3163, 3421 with the column's name as place
Cell toCell(const Value& value, const OutputColumn& column);

} // namespace store
