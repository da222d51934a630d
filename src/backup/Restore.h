#pragma once

#include "store/Database.h"
#include "store/ProgramFolder.h"
#include "store/Progress.h"

namespace backup {

/// Whether the file at a path is a register that the program can work with or take over.
using IsRegister = std::function<bool(const QString& path, const store::TellProgress& tell)>;

/// What a chosen file turned out to be.
enum class Finding {
    /// No ZIP archive at all.
    NoArchive,
    /// An archive with no register in it, a damaged one or more than one.
    NoRegister,
    Sound
};

/// The register out of an archive, beside the live one under a name of its own until it takes its
/// place. What has not taken its place goes with this object.
class Restore {
  public:
    Restore(store::DBEngine& engine, const store::ProgramFolder& folder, IsRegister isRegister);
    ~Restore();
    Restore(const Restore&) = delete;
    Restore& operator=(const Restore&) = delete;

    /// Extracts and checks; nothing else is touched. An entry that could not be a register by what
    /// it claims is not even begun.
    /// @throws store::EngineError, 3026 when there is no room for it; store::GivenUp
    Finding extract(const QString& archive, const store::TellProgress& tell = {});
    /// Keeps the closed live register as "tvk_ren.mdb", in the place of an older one, and puts the
    /// sound one there: behind the link where the register is one. At every moment a whole register
    /// stands under its name.
    /// @throws store::EngineError
    void replaceLive();
    /// Puts the sound one where no register is. @throws store::EngineError 3204 when there is one
    void placeNew();
    /// Gives "tvk_ren.mdb" the register's name back where no register is.
    /// @return false when there is nothing to bring back @throws store::EngineError
    bool bringBackOld();

  private:
    bool unpack(const QString& archive, const store::Share& share);

    store::DBEngine& engine_;
    const store::ProgramFolder& folder_;
    IsRegister isRegister_;
    QString made_;
};

} // namespace backup
