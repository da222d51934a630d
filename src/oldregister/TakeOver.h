#pragma once

#include "oldregister/Conversion.h"

namespace oldregister {

/// Puts a new register in the place of one of the old format, under the same name. The old file is
/// kept beside it, to the byte, as "NAME_povodny.mdb" (or "_povodny_2" and so on: an older one is
/// never overwritten), the report as "NAME_prevod.txt". Killed at any moment, the old file is where
/// it was or both stand complete; what was begun is removed by the next run.
/// @throws as convert; 3218 when another program has changed the old file meanwhile
ConversionReport takeOver(const QString& path, const store::TellProgress& progress = {});

/// The name under which takeOver would keep that file now.
QString keptNameOf(const QString& path);

/// Writes a report beside a register, as takeOver does. @return the path of the text file
/// @throws store::EngineError of a full or unwritable disk
QString writeReport(const QString& path, const ConversionReport& report);

} // namespace oldregister
