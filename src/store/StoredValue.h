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

/// How a value lies in a column of the file. @throws EngineError 3163, 3421
Cell toCell(const Value& value, const OutputColumn& column);

} // namespace store
