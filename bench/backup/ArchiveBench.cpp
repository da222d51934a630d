/// An archive and a restore against the ZIP library alone.
///
/// Without an argument on an invented register of 10,000 clients; a register may be given.

#include "backup/Archive.h"
#include "backup/Copies.h"
#include "backup/Zip.h"
#include "common/Figures.h"
#include "mkdb/DatabaseSink.h"
#include "mkdb/Register.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>
#include <zip.h>

#include <vector>

namespace {

constexpr int clients = 10000;
constexpr int runs = 5;
constexpr double wanted = 1.1;

void makeRegister(const QString& path) {
    const auto lists = mkdb::readCodeLists(QStringLiteral(TVK_DATA_FOLDER "/ciselniky"));
    const auto words = mkdb::readVocabulary(QStringLiteral(TVK_DATA_FOLDER "/ukazka"));
    store::DBEngine engine;
    engine.CreateDatabase(path);
    auto database = engine.OpenDatabase(path);
    {
        mkdb::DatabaseSink sink(database);
        mkdb::makeRegister({clients, 1, QDate(2026, 11, 23)}, words, lists, sink);
    }
    database.Close();
}

/// What whoever uses the library without further thought gets, on the disk when it is done.
void packBare(const QString& path, const QString& made, zip_uint32_t level) {
    zip_t* archive =
        zip_open(QFile::encodeName(made).constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    zip_source_t* source = zip_source_file(archive, QFile::encodeName(path).constData(), 0, 0);
    zip_file_add(archive, "tvk.mdb", source, 0);
    zip_set_file_compression(archive, 0, ZIP_CM_DEFLATE, level);
    zip_close(archive);
    const int descriptor = open(QFile::encodeName(made).constData(), O_RDONLY | O_CLOEXEC);
    fsync(descriptor);
    close(descriptor);
}

} // namespace

int main(int argc, char** argv) {
    const QTemporaryDir directory;
    const store::ProgramFolder folder(directory.path());
    const int counted = argc > 1 ? 1 : runs;
    if (argc > 1)
        QFile::link(QString::fromLocal8Bit(argv[1]), folder.database());
    else
        makeRegister(folder.database());
    store::DBEngine engine;
    const QString bare = directory.filePath(QStringLiteral("holy.zip"));
    const auto ours = [&] {
        backup::makeArchive(engine, folder);
    };
    bench::Figures figures("Backup");
    figures.compare(
        "archive, read back / libzip as it comes", ours,
        [&] { packBare(folder.database(), bare, 0); }, wanted, counted);
    figures.compare(
        "archive, read back / libzip at our level", ours,
        [&] { packBare(folder.database(), bare, 6); }, {}, counted);
    figures.compare(
        "copy at exit / libzip as it comes",
        [&] {
            QDir(backup::copiesFolder(folder)).removeRecursively();
            backup::NextCopy(folder, QDateTime::currentDateTime()).make(true);
        },
        [&] { packBare(folder.database(), bare, 0); }, {}, counted);
    figures.compare(
        "exit with nothing to copy / libzip as it comes",
        [&] { backup::NextCopy(folder, QDateTime::currentDateTime()).make(true); },
        [&] { packBare(folder.database(), bare, 0); }, {}, counted);
    return figures.print();
}
