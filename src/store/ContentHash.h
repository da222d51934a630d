#pragma once

#include "store/Progress.h"

#include <QByteArray>
#include <QString>

namespace store {

/// Tells by one short text whether two registers hold the same rows, whatever their files look
/// like. What a print-out leaves in its scratch tables doesn't count.
/// @param path of a closed register @throws EngineError; GivenUp
QByteArray contentHash(const QString& path, const TellProgress& tell = {});

} // namespace store
