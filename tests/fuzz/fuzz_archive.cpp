// Any bytes as an archive: it is restored, or refused without a trace. What passes for sound is a
// register; nothing but the live one lies in the folder afterwards, untouched.
//
// The input: a byte that says how the rest is packed (0: not at all, it is the archive itself), so
// that what is inside is reached without guessing sums.

#include "backup/Restore.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/FileBytes.h"

#include <QTemporaryDir>

#include <zip.h>

#include <cstdint>
#include <cstdlib>

namespace {

constexpr char live[] = "live";

bool isRegister(const QString& path, const store::TellProgress&) {
    try {
        store::DBEngine().OpenDatabase(path).Close();
        store::DBEngine::verifyDatabase(path);
        return true;
    } catch (const store::EngineError&) {
        return false;
    }
}

/// The bytes as the one entry of an archive.
QByteArray packed(const QByteArray& bytes, const QString& file) {
    int code = 0;
    zip_t* archive = zip_open(file.toUtf8().constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    zip_source_t* source =
        zip_source_buffer(archive, bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0);
    if (archive == nullptr || zip_file_add(archive, "tvk.mdb", source, 0) < 0 ||
        zip_close(archive) != 0)
        std::abort();
    return files::read(file);
}

void restore(const QString& archive, const store::ProgramFolder& folder) {
    store::DBEngine engine;
    backup::Restore one(engine, folder, isRegister);
    try {
        const auto found = one.extract(archive, QByteArray("heslo"));
        if (found == backup::Finding::Sound && !isRegister(folder.path(u"tvk.mdb.obnova"), {}))
            std::abort();
    } catch (const store::EngineError& error) {
        if (error.description().isEmpty())
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QTemporaryDir directory;
    static const QTemporaryDir elsewhere;
    static const store::ProgramFolder folder(directory.path());
    if (size == 0)
        return 0;
    files::write(folder.database(), live);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1),
                           static_cast<qsizetype>(size - 1));
    const QString archive = elsewhere.filePath(QStringLiteral("a.zip"));
    files::write(archive, data[0] == 0 ? bytes : packed(bytes, archive));
    restore(archive, folder);
    if (files::namesIn(directory.path()) != QStringList{QStringLiteral("tvk.mdb")} ||
        files::read(folder.database()) != live)
        std::abort();
    return 0;
}
