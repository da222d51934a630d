#include "backup/Restore.h"

#include "backup/Zip.h"
#include "store/EngineError.h"
#include "store/Files.h"
#include "store/OpenCheck.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <vector>

namespace backup {

namespace {

using store::EngineError;
using store::ErrorNumber;

constexpr qint64 portion = 1 << 18;
/// No register of this size has ever been packed to so small a part of it.
constexpr quint64 bombSize = quint64{64} << 20U;
constexpr quint64 bombRatio = 200;
/// The share of the work that is done when the register is checked.
constexpr double unpacking = 0.4;

void removeWithJournals(const QString& path) {
    QFile::remove(path);
    for (const char16_t* suffix : store::journalSuffixes)
        QFile::remove(path + QString::fromUtf16(suffix));
}

bool isBomb(const ZipEntry& entry) {
    return entry.size() > bombSize && entry.size() / bombRatio > entry.packedSize();
}

void needRoom(const QString& path, quint64 size) {
    const QStorageInfo disk(QFileInfo(path).absolutePath());
    if (disk.isValid() && static_cast<quint64>(disk.bytesAvailable()) < size)
        throw EngineError(ErrorNumber::DiskFull,
                          QStringLiteral("Na disku nie je pre obnovené údaje dosť miesta."), path);
}

void writePortion(QFile& file, const std::vector<char>& bytes, qint64 count) {
    if (file.write(bytes.data(), count) != count)
        throw EngineError(ErrorNumber::DiskFull,
                          QStringLiteral("Obnovené údaje sa nedajú zapísať, disk je asi plný."),
                          file.fileName());
}

void writeEntry(ZipEntry& entry, const QString& path, const store::Share& share) {
    store::createPrivateFile(path);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw EngineError(ErrorNumber::CannotOpen, QStringLiteral("Súbor sa nedá vytvoriť."), path);
    std::vector<char> bytes(portion);
    for (qint64 count = 0; (count = entry.read(bytes.data(), portion)) > 0;) {
        writePortion(file, bytes, count);
        share(static_cast<double>(file.pos()) / static_cast<double>(entry.size()));
    }
}

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
    removeWithJournals(made_);
}

Restore::~Restore() {
    removeWithJournals(made_);
}

Finding Restore::extract(const QString& archive, const store::TellProgress& tell) {
    removeWithJournals(made_);
    try {
        if (!unpack(archive, store::Share(tell, 0, unpacking)))
            return Finding::NoRegister;
        const store::Share checked(tell, unpacking, 1);
        return isRegister_(made_, [&checked](double part) { return checked.tells(part); })
                   ? Finding::Sound
                   : Finding::NoRegister;
    } catch (const ZipEntry::Fault fault) {
        return fault == ZipEntry::Fault::NoArchive ? Finding::NoArchive : Finding::NoRegister;
    }
}

bool Restore::unpack(const QString& archive, const store::Share& share) {
    ZipEntry entry(archive);
    if (isBomb(entry))
        return false;
    needRoom(made_, entry.size());
    writeEntry(entry, made_, share);
    store::syncFile(made_);
    return true;
}

void Restore::replaceLive() {
    const QString live = store::behindLinks(folder_.database());
    if (!QFileInfo::exists(live))
        return placeNew();
    settle(engine_, live);
    store::takeOwnerOf(live, made_);
    const QString kept = folder_.path(u"tvk_ren.mdb");
    removeWithJournals(kept);
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
