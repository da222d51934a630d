#pragma once

#include "report/Pages.h"

namespace report {

/// Puts "Strana 1 z 5" at the foot of every page, in the middle of its lower margin.
void numberPages(Pages& pages, const TextMeter& meter);

} // namespace report
