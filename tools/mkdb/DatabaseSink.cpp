#include "DatabaseSink.h"

namespace mkdb {

void DatabaseSink::add(const RowShape& shape, const std::vector<store::Value>& values) {
    auto found = inserts_.find(&shape);
    if (found == inserts_.end())
        found = inserts_.emplace(&shape, store::BulkInsert(database_, shape.table, shape.columns))
                    .first;
    found->second.add(values);
}

} // namespace mkdb
