#pragma once

#include "Random.h"
#include "Rows.h"

namespace mkdb {

/// The two tables of the return that are typed in by hand, with numbers whose sums agree. In an
/// empty register they have no rows: the first saving of their screens makes them.
void writeFilledReturn(Random& random, RowSink& sink);

} // namespace mkdb
