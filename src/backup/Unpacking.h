#pragma once

#include "store/Progress.h"

#include <QByteArray>
#include <QString>

namespace backup {

/// Unpacks the register out of an archive into a new file, durable and readable by its owner only.
/// An entry that could not be a register by what it claims is not even begun. What was begun is for
/// the caller to remove.
/// @throws ZipEntry::Fault; store::EngineError, 3026 when there is no room for it; store::GivenUp
void unpackRegister(const QString& archive, const QByteArray& password, const QString& target,
                    const store::Share& share);

/// Removes a register that was unpacked, with what SQLite may have left beside it.
void removeRegister(const QString& path);

} // namespace backup
