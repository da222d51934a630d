#pragma once

#include <QString>

namespace store {

/// Checks a copy that was made without free space as strictly as checkPages does, its tables beside
/// one another. Nobody else may write it meanwhile. @throws EngineError as verifyDatabase
void checkCopy(const QString& path);

} // namespace store
