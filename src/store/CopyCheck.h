#pragma once

#include "store/Progress.h"

#include <QString>

namespace store {

/// Checks a copy that was made without free space as strictly as checkPages does, its tables beside
/// one another. Nobody else may write it meanwhile.
/// @throws EngineError as verifyDatabase; GivenUp
void checkCopy(const QString& path, const TellProgress& tell = {});

} // namespace store
