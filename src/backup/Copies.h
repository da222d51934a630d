#pragma once

#include "store/Database.h"
#include "store/ProgramFolder.h"

#include <QDateTime>

#include <vector>

namespace backup {

/// A copy of the register that the program has made by itself: an archive named by its time.
struct Copy {
    QString path;
    QDateTime made;
    qint64 size = 0;
};

/// The folder of the copies, "zalohy" beside the register.
QString copiesFolder(const store::ProgramFolder& folder);

/// The copies that there are, the newest first.
std::vector<Copy> copies(const store::ProgramFolder& folder);

/// Copies the closed register unless its content is that of the last copy, which must be whole, and
/// then removes what is not kept any more. Where the disk is full, the oldest copies make room, but
/// never the newest whole one.
/// @param isChecked whether the register has just been found sound; a damaged one is not copied
/// @return false when there was nothing to copy
/// @throws store::EngineError; store::GivenUp
bool makeCopy(store::DBEngine& engine, const store::ProgramFolder& folder, const QDateTime& now,
              bool isChecked, const store::TellProgress& tell = {});

} // namespace backup
