#pragma once

#include "oldregister/ConversionReport.h"
#include "store/Progress.h"

namespace oldregister {

/// Makes a new register of a file of the old format, which is only read. The new file is complete,
/// checked and durable when it gets its name; until then it lies under another one, and nothing of
/// it stays when the conversion fails or is given up. A kill may leave "NAME.prevod" behind, which
/// the next conversion replaces.
/// @throws store::EngineError 3343 with the reason when the old file is none, is damaged as a whole
/// or of another version, 3024, 3204 when the new one exists, those of a full disk; store::GivenUp
ConversionReport convert(const QString& oldFile, const QString& newFile,
                         const store::TellProgress& progress = {});

/// Reads a file of the old format from end to end, as a conversion would.
/// @throws store::EngineError as convert does when the file can't be converted at all;
/// store::GivenUp
void readThrough(const QString& path, const store::TellProgress& progress = {});

} // namespace oldregister
