#pragma once

#include "oldregister/ConversionReport.h"

namespace store {
class Database;
}

namespace oldregister {

/// Adds the row of texts that a client lacks, and tells it; tells the clients without a key, and
/// the rows whose key is no client's. All of them are kept, but no card shows those rows.
void mendLoose(store::Database& database, std::vector<Finding>& findings);

/// Puts the names of clients and employees behind the keys of findings.
void nameClients(store::Database& database, std::vector<Finding>& findings);

} // namespace oldregister
