#include "backup/Unpacking.h"

#include "backup/Zip.h"
#include "store/EngineError.h"
#include "store/Files.h"

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

} // namespace

void unpackRegister(const QString& archive, const QByteArray& password, const QString& target,
                    const store::Share& share) {
    ZipEntry entry(archive, password);
    if (isBomb(entry))
        throw ZipEntry::Fault::Damaged;
    needRoom(target, entry.size());
    writeEntry(entry, target, share);
    store::syncFile(target);
}

void removeRegister(const QString& path) {
    QFile::remove(path);
    for (const char16_t* suffix : store::journalSuffixes)
        QFile::remove(path + QString::fromUtf16(suffix));
}

} // namespace backup
