#pragma once

#include "Samples.h"
#include "common/Figures.h"

#include <array>

namespace bench {

/// Numbers of clients at which growth is looked at.
inline constexpr std::array sizes{1000, 10000, 100000};

/// Opens all clients and reads the first fifty.
void measureOpening(Samples& samples, Figures& figures);
/// Finds clients by key.
void measureFinding(Samples& samples, Figures& figures);
/// Shows the list of clients in the order of names, and walks through it.
void measureList(Samples& samples, Figures& figures);
/// Compacts a register with free space.
void measureCompaction(Samples& samples, Figures& figures);

} // namespace bench
