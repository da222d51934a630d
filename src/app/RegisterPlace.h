#pragma once

#include "store/ProgramFolder.h"

namespace app {

/// Where the register lies: beside the program, when it lies there already or could; for a program
/// that was installed, into a folder that its user can't write, in `userFolder`, made at need.
/// @param programFolder without a trailing separator, as `userFolder`
store::ProgramFolder registerPlace(const QString& programFolder, const QString& userFolder);

/// The empty register with the code-lists that an installed program brings, the file's path.
QString emptyRegisterOf(const QString& programFolder);

/// Asks whether to begin with an empty register, when there is none, and makes it as a copy of
/// `empty`: whole, or not at all, which is told. Asks nothing when `empty` is missing.
void offerEmptyRegister(const store::ProgramFolder& place, const QString& empty);

} // namespace app
