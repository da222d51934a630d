#pragma once

#include "Model.h"
#include "Rows.h"

namespace mkdb {

/// Writes the employee's row.
void writeEmployee(const Employee& employee, RowSink& sink);

/// Writes the client's row and the rows of all tables that belong to the client.
void writeClient(const Client& client, RowSink& sink);

} // namespace mkdb
