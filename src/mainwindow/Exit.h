#pragma once

#include "store/Database.h"
#include "store/ProgramFolder.h"

namespace mainwindow {

/// Puts a compact copy in the place of the closed database and removes the archive that an
/// archiving has left. The copy is checked first, and the exchange is one step: at every moment one
/// whole database stands under its name.
/// @throws store::EngineError 3204 when a copy of an earlier exit is left; the live file is not
/// touched then, nor by any other failure
void compactAndReplace(store::DBEngine& engine, const store::ProgramFolder& folder);

} // namespace mainwindow
