#pragma once

#include "Random.h"
#include "Rows.h"

namespace mkdb {

/// The two tables of the return that are typed in by hand, with their rows and nothing typed yet.
void writeEmptyReturn(RowSink& sink);

/// The same with numbers whose sums agree.
void writeFilledReturn(Random& random, RowSink& sink);

} // namespace mkdb
