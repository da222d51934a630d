/// What it takes to take 10,000 clients over, against a bare read of the same file by the library.

#include "ManyClients.h"
#include "common/Figures.h"
#include "oldregister/Conversion.h"
#include "oldregister/OldFile.h"
#include "oldregister/ReaderMain.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int copies = 250; // of 40 clients
constexpr int runs = 3;
/// On a machine that reads the file bare in 0.4 s, 10 s are 25 times that.
constexpr double wantedRatio = 25;
constexpr long mostMegabytes = 200;

/// Every row of every table, with its values as texts.
void readBare(const QString& path) {
    oldregister::OldFile file(QFile::encodeName(path));
    std::vector<std::vector<char>> texts;
    for (MdbCatalogEntry* entry : file.catalogue()) {
        if (mdb_is_user_table(entry) == 0)
            continue;
        const oldregister::OldTableReader reader(*entry);
        texts.resize(reader.columns().size());
        for (std::size_t column = 0; column < texts.size(); ++column) {
            texts[column].resize(MDB_BIND_SIZE);
            mdb_bind_column(&reader.definition(), static_cast<int>(column) + 1,
                            texts[column].data(), nullptr);
        }
        mdb_rewind_table(&reader.definition());
        while (mdb_fetch_row(&reader.definition()) != 0) {
        }
    }
}

/// The most that this program and the one that reads have held at a time, in megabytes.
long memory() {
    rusage own{};
    rusage reading{};
    getrusage(RUSAGE_SELF, &own);
    getrusage(RUSAGE_CHILDREN, &reading);
    return (own.ru_maxrss + reading.ru_maxrss) / 1024;
}

/// In a process of its own, so that what else this program does is not counted.
bool isThrifty(const QString& old, const QString& made) {
    const pid_t child = fork();
    if (child == 0) {
        QElapsedTimer told;
        told.start();
        qint64 silence = 0;
        const auto report = oldregister::convert(old, made, [&](double) {
            silence = std::max(silence, told.restart());
            return true;
        });
        silence = std::max(silence, told.elapsed());
        std::printf("%lld rows read, %lld written, %zu exceptions, longest silence %lld ms, "
                    "%ld MB of memory (<= %ld)\n",
                    report.rowsRead(), report.rowsWritten(), report.findings.size(), silence,
                    memory(), mostMegabytes);
        std::fflush(stdout);
        _exit(memory() <= mostMegabytes ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    QFile::remove(made);
    return status == 0;
}

} // namespace

int main(int argc, char** argv) {
    if (const auto code = oldregister::runAsReader(argc, argv))
        return *code;
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString old = folder.filePath(QStringLiteral("stary.mdb"));
    const QString made = folder.filePath(QStringLiteral("novy.mdb"));
    bench::multiplyClients(QStringLiteral(TVK_OLD_SAMPLE), old, copies);
    std::printf("10,000 clients in a file of %lld MB: ", QFileInfo(old).size() >> 20);
    std::fflush(stdout);
    const bool isThriftyEnough = isThrifty(old, made);

    bench::Figures figures("A register of the old format");
    const bench::PreparedWork ours{[&] { QFile::remove(made); },
                                   [&] {
                                       oldregister::convert(old, made);
                                   }};
    const bench::PreparedWork bare{[] {},
                                   [&] {
                                       readBare(old);
                                   }};
    figures.compare("convert 10,000 clients / bare read by the library", ours, bare, wantedRatio,
                    runs);
    return figures.print() + (isThriftyEnough ? 0 : 1);
}
