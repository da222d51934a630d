#pragma once

#include "store/Database.h"
#include "store/ProgramFolder.h"
#include "store/Progress.h"

namespace backup {

/// Packs the closed register into "arch_tmp.zip", durable and readable by its owner only, and reads
/// it back: its one entry has been equal to the register to the byte. One that was left there is
/// replaced; nothing stays of one that fails.
/// @throws store::EngineError; store::GivenUp
void makeArchive(store::DBEngine& engine, const store::ProgramFolder& folder,
                 const store::TellProgress& tell = {});

/// Gives the made archive its place: "arch_tmp.zip" takes the name when that is the default one in
/// the program's folder, and is copied elsewhere. A file under that name is replaced in one step,
/// after the copy is complete, durable and compared.
/// @throws store::EngineError, also for the name of a file that the program works with;
/// store::GivenUp
void placeArchive(const store::ProgramFolder& folder, const QString& target,
                  const store::TellProgress& tell = {});

} // namespace backup
