#pragma once

#include "store/Database.h"
#include "store/ProgramFolder.h"

namespace mainwindow {

/// Puts a compact copy in the place of the closed database and removes the archive that an
/// archiving has left. The copy is made and checked under a name of its own, where a killed exit
/// leaves nothing that stops the next one, and the exchange is one step: at every moment one whole
/// database stands under its name, with the owner and the rights it had. A database behind a link
/// stays there. One that belongs to another user stays as it is.
/// @return false when it was given up: the database is as it was
/// @throws store::EngineError 3204 when there is a tmp.mdb; the live file is not touched then, nor
/// by any other failure
bool compactAndReplace(store::DBEngine& engine, const store::ProgramFolder& folder,
                       const store::TellProgress& tell = {});

} // namespace mainwindow
