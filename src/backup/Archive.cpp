#include "backup/Archive.h"

#include "backup/Zip.h"
#include "store/Files.h"
#include "store/OpenCheck.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <zip.h>

#include <array>
#include <cstring>
#include <vector>

namespace backup {

namespace {

using store::EngineError;
using store::ErrorNumber;

/// Beyond it a register grows hardly smaller, in five times the time.
constexpr zip_uint32_t level = 6;
constexpr qint64 chunk = 1 << 18;

/// What libzip's callbacks know of a work.
struct Packing {
    const store::TellProgress& tell;
    bool givenUp = false;
};

void tellPacked(zip_t*, double part, void* state) {
    auto& packing = *static_cast<Packing*>(state);
    if (packing.tell && !packing.givenUp)
        packing.givenUp = !packing.tell(part * 0.7);
}

int isPackingGivenUp(zip_t*, void* state) {
    return static_cast<Packing*>(state)->givenUp ? 1 : 0;
}

void addRegister(zip_t* archive, const QString& path) {
    zip_source_t* source = zip_source_file(archive, QFile::encodeName(path).constData(), 0, 0);
    if (source == nullptr)
        throw zipFault(*zip_get_error(archive), path);
    const zip_int64_t added = zip_file_add(archive, entryName, source, ZIP_FL_ENC_UTF_8);
    if (added < 0) {
        zip_source_free(source);
        throw zipFault(*zip_get_error(archive), path);
    }
    const auto index = static_cast<zip_uint64_t>(added);
    zip_set_file_compression(archive, index, ZIP_CM_DEFLATE, level);
    zip_file_set_external_attributes(archive, index, 0, ZIP_OPSYS_UNIX,
                                     zip_uint32_t{S_IFREG | S_IRUSR | S_IWUSR} << 16U);
}

void pack(const QString& path, const QString& made, const store::TellProgress& tell) {
    // libzip gives what it makes the rights of what it replaces.
    store::createPrivateFile(made);
    int code = 0;
    ZipHandle archive(
        zip_open(QFile::encodeName(made).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code));
    if (!archive)
        throw EngineError(ErrorNumber::CannotOpen, QStringLiteral("Archív sa nedá vytvoriť."),
                          made);
    addRegister(archive.get(), path);
    Packing packing{tell};
    zip_register_progress_callback_with_state(archive.get(), 0.005, tellPacked, nullptr, &packing);
    zip_register_cancel_callback_with_state(archive.get(), isPackingGivenUp, nullptr, &packing);
    if (zip_close(archive.get()) != 0) {
        if (packing.givenUp)
            throw store::GivenUp();
        throw zipFault(*zip_get_error(archive.get()), made);
    }
    static_cast<void>(archive.release());
    store::syncFile(made);
    store::syncFile(QFileInfo(made).absolutePath());
}

void openToRead(QFile& file) {
    if (!file.open(QIODevice::ReadOnly))
        throw EngineError(ErrorNumber::CannotOpen, QStringLiteral("Súbor sa nedá čítať."),
                          file.fileName());
}

[[noreturn]] void throwDifferent(const QString& path) {
    throw EngineError(ErrorNumber::DiskError,
                      QStringLiteral("Archív sa nezhoduje s údajmi, z ktorých vznikol."), path);
}

/// Reads both to the end, of which the first is `size` long, and compares them.
template <typename Read>
void compare(const Read& read, quint64 size, const QString& path, const store::Share& share) {
    QFile original(path);
    openToRead(original);
    std::vector<char> ours(chunk);
    std::vector<char> theirs(chunk);
    quint64 done = 0;
    for (qint64 count = 0; (count = read(ours.data(), chunk)) > 0;) {
        if (original.read(theirs.data(), count) != count ||
            std::memcmp(ours.data(), theirs.data(), static_cast<size_t>(count)) != 0)
            throwDifferent(path);
        done += static_cast<quint64>(count);
        share(static_cast<double>(done) / static_cast<double>(size));
    }
    if (!original.atEnd() || done != size)
        throwDifferent(path);
}

void readBack(const QString& made, const QString& path, const store::TellProgress& tell) {
    try {
        ZipEntry entry(made);
        compare([&](char* into, qint64 most) { return entry.read(into, most); }, entry.size(), path,
                store::Share(tell, 0.7, 1));
    } catch (ZipEntry::Fault) {
        throwDifferent(made);
    }
}

void removeWork(const QString& made) {
    QFile::remove(made);
    const QFileInfo info(made);
    // A killed run leaves libzip's own.
    const QDir folder = info.absoluteDir();
    for (const QString& left : folder.entryList({info.fileName() + QStringLiteral(".??????")},
                                                QDir::Files | QDir::Hidden | QDir::System))
        QFile::remove(folder.filePath(left));
}

/// Takes a work file away with its block, unless it was kept.
class Begun {
  public:
    explicit Begun(QString path) : path_(std::move(path)) { removeWork(path_); }
    ~Begun() {
        if (!kept_)
            removeWork(path_);
    }
    Q_DISABLE_COPY_MOVE(Begun)
    const QString& path() const { return path_; }
    void keep() { kept_ = true; }

  private:
    QString path_;
    bool kept_ = false;
};

void compareFiles(const QString& made, const QString& original, const store::Share& share) {
    QFile file(made);
    openToRead(file);
    compare([&](char* into, qint64 most) { return file.read(into, most); },
            static_cast<quint64>(file.size()), original, share);
}

/// Two paths to one name, whether or not something lies there.
bool isSameName(const QString& one, const QString& other) {
    const QFileInfo first(one);
    const QFileInfo second(other);
    return first.fileName() == second.fileName() &&
           first.dir().canonicalPath() == second.dir().canonicalPath();
}

bool isSameFile(const QString& one, const QString& other) {
    const auto identity = store::fileIdentity(one);
    return (identity && identity == store::fileIdentity(other)) || isSameName(one, other);
}

void refuseOwnFiles(const store::ProgramFolder& folder, const QString& target) {
    static constexpr auto own =
        std::to_array<QStringView>({u"tvk.mdb", u"tvk_ren.mdb", u"tmp.mdb", u"arch_tmp.zip"});
    for (const QStringView name : own) {
        if (isSameFile(folder.path(name), target))
            throw EngineError(ErrorNumber::TargetExists,
                              QStringLiteral("Do súboru %1 sa archív uložiť nedá, pracuje s ním "
                                             "program. Zvoľte iný názov.")
                                  .arg(name),
                              target);
    }
}

} // namespace

void makeArchive(store::DBEngine& engine, const store::ProgramFolder& folder,
                 const store::TellProgress& tell) {
    const QString path = folder.database();
    // What a crash has left half-written must not be packed.
    if (store::hasHotJournal(path))
        engine.OpenDatabase(path).Close();
    Begun made(folder.path(u"arch_tmp.zip"));
    pack(path, made.path(), tell);
    readBack(made.path(), path, tell);
    made.keep();
}

void placeArchive(const store::ProgramFolder& folder, const QString& target,
                  const store::TellProgress& tell) {
    refuseOwnFiles(folder, target);
    const QString made = folder.path(u"arch_tmp.zip");
    if (isSameName(folder.path(u"arch_tvk.zip"), target))
        return store::replaceFile(made, folder.path(u"arch_tvk.zip"));
    const QFileInfo existing(target);
    const QString place = existing.exists() ? existing.canonicalFilePath() : target;
    const Begun begun(place + QStringLiteral(".cast"));
    const store::Share copied(tell, 0, 0.6);
    store::copyFile(made, begun.path(), [&copied](double part) { return copied.tells(part); });
    compareFiles(begun.path(), made, store::Share(tell, 0.6, 1));
    store::replaceFile(begun.path(), place);
}

} // namespace backup
