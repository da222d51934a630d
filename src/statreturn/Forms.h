#pragma once

#include "report/Layout.h"

/// The printed forms of the return, "Škol (MŠ SR) 5 - 01": the texts and their places are the
/// ministry's.
namespace statreturn {

/// Table I with the return's head, one page of A4 landscape.
report::Layout rptVek();
/// Table II with the block of signatures, one page of A4 landscape.
report::Layout rptVzd();
/// Table III, A4 landscape.
report::Layout rptZam();
/// Table IV, A4 portrait.
report::Layout rptDopUkaz();
/// Table V, A4 landscape.
report::Layout rptOdbStar();

} // namespace statreturn
