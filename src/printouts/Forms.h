#pragma once

#include "report/Layout.h"

/// The forms of the print-outs; what changes from client to client is set by whoever prints them.
namespace printouts {

report::Layout rptZakUdaj();
report::Layout rptRodicia();
report::Layout rptSurodenci();
/// A text of the client: `lblNadpis` and the column of `txtPolozka` say which.
report::Layout rptDemo();
report::Layout rptUdajVV();
report::Layout rptVysetrenie();
report::Layout rptZaz_spc();
report::Layout rptZaz_zmeny();
report::Layout rptNavstevy();
report::Layout rptZozKlient();

} // namespace printouts
