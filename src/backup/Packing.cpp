#include "backup/Packing.h"

#include "backup/Zip.h"
#include "store/EngineError.h"
#include "store/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <zip.h>

#include <cstring>
#include <functional>
#include <vector>

namespace backup {

namespace {

using store::EngineError;
using store::ErrorNumber;

/// Beyond it a register grows hardly smaller, in five times the time.
constexpr zip_uint32_t level = 6;
constexpr qint64 chunk = 1 << 18;
/// The share of the work that is packing; the rest is reading back.
constexpr double packing = 0.7;

/// What libzip's callbacks know of a work.
struct Packing {
    const store::TellProgress& tell;
    bool givenUp = false;
};

void tellPacked(zip_t*, double part, void* state) {
    auto& work = *static_cast<Packing*>(state);
    if (work.tell && !work.givenUp)
        work.givenUp = !work.tell(part * packing);
}

int isPackingGivenUp(zip_t*, void* state) {
    return static_cast<Packing*>(state)->givenUp ? 1 : 0;
}

/// Makes the source of the entry that an archive gets.
using MakeSource = std::function<zip_source_t*(zip_t* archive)>;

void addRegister(zip_t* archive, const MakeSource& makeSource, const QByteArray& password) {
    zip_source_t* source = makeSource(archive);
    const zip_int64_t added =
        source == nullptr ? -1 : zip_file_add(archive, entryName, source, ZIP_FL_ENC_UTF_8);
    if (added < 0) {
        zip_source_free(source);
        throw zipFault(*zip_get_error(archive), QLatin1String(entryName));
    }
    const auto index = static_cast<zip_uint64_t>(added);
    zip_set_file_compression(archive, index, ZIP_CM_DEFLATE, level);
    zip_file_set_external_attributes(archive, index, 0, ZIP_OPSYS_UNIX,
                                     zip_uint32_t{S_IFREG | S_IRUSR | S_IWUSR} << 16U);
    if (!password.isEmpty() &&
        zip_file_set_encryption(archive, index, ZIP_EM_AES_256, password.constData()) != 0)
        throw zipFault(*zip_get_error(archive), QLatin1String(entryName));
}

void close(ZipHandle archive, const QString& made, const store::TellProgress& tell) {
    Packing work{tell};
    zip_register_progress_callback_with_state(archive.get(), 0.005, tellPacked, nullptr, &work);
    zip_register_cancel_callback_with_state(archive.get(), isPackingGivenUp, nullptr, &work);
    if (zip_close(archive.get()) != 0) {
        if (work.givenUp)
            throw store::GivenUp();
        throw zipFault(*zip_get_error(archive.get()), made);
    }
    static_cast<void>(archive.release());
}

void pack(const QString& made, const MakeSource& makeSource, const PackOptions& options,
          const store::TellProgress& tell) {
    // libzip gives what it makes the rights of what it replaces.
    store::createPrivateFile(made);
    int code = 0;
    ZipHandle archive(
        zip_open(QFile::encodeName(made).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code));
    if (!archive)
        throw EngineError(ErrorNumber::CannotOpen, QStringLiteral("Archív sa nedá vytvoriť."),
                          made);
    addRegister(archive.get(), makeSource, options.password);
    zip_set_archive_comment(archive.get(), options.comment.constData(),
                            static_cast<zip_uint16_t>(options.comment.size()));
    close(std::move(archive), made, tell);
    store::syncFile(made);
    store::syncFile(QFileInfo(made).absolutePath());
}

[[noreturn]] void throwDifferent(const QString& path) {
    throw EngineError(ErrorNumber::DiskError,
                      QStringLiteral("Archív sa nezhoduje s údajmi, z ktorých vznikol."), path);
}

/// Reads an archive's entry and its original to their ends and compares them.
/// @param original gives the next bytes of the original
void readBack(const QString& made, const QByteArray& password, const ReadBytes& original,
              const store::Share& share) {
    try {
        ZipEntry entry(made, password);
        compareBytes([&entry](char* into, qint64 most) { return entry.read(into, most); }, original,
                     entry.size(), made, share);
    } catch (ZipEntry::Fault) {
        throwDifferent(made);
    }
}

} // namespace

void Begun::remove() const {
    QFile::remove(path_);
    const QFileInfo info(path_);
    // A killed run leaves libzip's own.
    const QDir folder = info.absoluteDir();
    for (const QString& left : folder.entryList({info.fileName() + QStringLiteral(".??????")},
                                                QDir::Files | QDir::Hidden | QDir::System))
        QFile::remove(folder.filePath(left));
}

void openToRead(QFile& file) {
    if (!file.open(QIODevice::ReadOnly))
        throw EngineError(ErrorNumber::CannotOpen, QStringLiteral("Súbor sa nedá čítať."),
                          file.fileName());
}

/// Fills a buffer as far as there are bytes.
static qint64 readWhole(const ReadBytes& read, char* into, qint64 wanted) {
    qint64 done = 0;
    for (qint64 count = 1; done < wanted && count > 0; done += count) {
        count = read(into + done, wanted - done);
        if (count < 0)
            return count;
    }
    return done;
}

void compareBytes(const ReadBytes& made, const ReadBytes& original, quint64 size,
                  const QString& path, const store::Share& share) {
    std::vector<char> ours(chunk);
    std::vector<char> theirs(chunk);
    quint64 done = 0;
    for (qint64 count = chunk; count == chunk;) {
        count = readWhole(made, ours.data(), chunk);
        if (count < 0 || readWhole(original, theirs.data(), chunk) != count ||
            std::memcmp(ours.data(), theirs.data(), static_cast<size_t>(count)) != 0)
            throwDifferent(path);
        done += static_cast<quint64>(count);
        share(static_cast<double>(done) / static_cast<double>(size + 1));
    }
    if (done != size)
        throwDifferent(path);
}

void packFile(const QString& path, const QString& made, const PackOptions& options,
              const store::TellProgress& tell) {
    const QByteArray name = QFile::encodeName(path);
    pack(
        made, [&name](zip_t* archive) { return zip_source_file(archive, name.constData(), 0, 0); },
        options, tell);
    QFile original(path);
    openToRead(original);
    readBack(
        made, options.password,
        [&original](char* into, qint64 most) { return original.read(into, most); },
        store::Share(tell, packing, 1));
}

void packAgain(const QString& archive, const QString& made, const PackOptions& options,
               const store::TellProgress& tell) {
    ZipEntry packed(archive);
    pack(
        made, [&packed](zip_t* target) { return packed.sourceFor(target); }, options, tell);
    ZipEntry original(archive);
    readBack(
        made, options.password,
        [&original](char* into, qint64 most) { return original.read(into, most); },
        store::Share(tell, packing, 1));
}

} // namespace backup
