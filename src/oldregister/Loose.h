#pragma once

#include "oldregister/ConversionReport.h"

namespace store {
class Database;
}

namespace oldregister {

/// Tells the rows of a register whose key is no client's. They are kept, but no screen shows them.
void tellLoose(store::Database& database, std::vector<Finding>& findings);

/// Puts the names of clients and employees behind the keys of findings.
void nameClients(store::Database& database, std::vector<Finding>& findings);

} // namespace oldregister
