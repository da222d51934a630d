#include "backup/Restore.h"

#include "backup/Unpacking.h"
#include "backup/Zip.h"
#include "store/EngineError.h"
#include "store/Files.h"
#include "store/OpenCheck.h"

#include <QFile>
#include <QFileInfo>

namespace backup {

namespace {

using store::EngineError;
using store::ErrorNumber;

/// The share of the work that is done when the register is checked.
constexpr double unpacking = 0.4;

/// Finishes what a crash has left half-written, as far as the file can be opened.
void settle(store::DBEngine& engine, const QString& path) {
    if (!store::hasHotJournal(path))
        return;
    try {
        engine.OpenDatabase(path).Close();
    } catch (const EngineError&) {
        // Then the journal stays with it.
    }
}

} // namespace

Restore::Restore(store::DBEngine& engine, const store::ProgramFolder& folder, IsRegister isRegister)
    : engine_(engine), folder_(folder), isRegister_(std::move(isRegister)),
      made_(store::behindLinks(folder.database()) + QStringLiteral(".obnova")) {
    removeRegister(made_);
}

Restore::~Restore() {
    removeRegister(made_);
}

Finding Restore::extract(const QString& archive, const QByteArray& password,
                         const store::TellProgress& tell) {
    removeRegister(made_);
    try {
        unpackRegister(archive, password, made_, store::Share(tell, 0, unpacking));
        const store::Share checked(tell, unpacking, 1);
        return isRegister_(made_, [&checked](double part) { return checked.tells(part); })
                   ? Finding::Sound
                   : Finding::NoRegister;
    } catch (const ZipEntry::Fault fault) {
        if (fault == ZipEntry::Fault::Locked)
            return Finding::Locked;
        return fault == ZipEntry::Fault::NoArchive ? Finding::NoArchive : Finding::NoRegister;
    }
}

void Restore::replaceLive() {
    const QString live = store::behindLinks(folder_.database());
    if (!QFileInfo::exists(live))
        return placeNew();
    settle(engine_, live);
    store::takeOwnerOf(live, made_);
    const QString kept = folder_.path(u"tvk_ren.mdb");
    removeRegister(kept);
    store::keepAs(live, kept);
    try {
        store::moveJournals(live, kept);
        store::replaceFile(made_, live);
    } catch (const EngineError&) {
        if (QFileInfo::exists(made_)) {
            store::moveJournals(kept, live);
            QFile::remove(kept);
        }
        throw;
    }
}

void Restore::placeNew() {
    const QString live = store::behindLinks(folder_.database());
    store::moveJournals(live, live + QStringLiteral(".stary"));
    store::moveToFreeName(made_, live);
}

bool Restore::bringBackOld() {
    const QString live = store::behindLinks(folder_.database());
    const QString kept = folder_.path(u"tvk_ren.mdb");
    if (QFileInfo::exists(live) || !QFileInfo::exists(kept))
        return false;
    store::keepAs(kept, live);
    store::moveJournals(kept, live);
    QFile::remove(kept);
    return true;
}

} // namespace backup
