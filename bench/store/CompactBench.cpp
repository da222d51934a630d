#include "BareFile.h"
#include "Benches.h"
#include "store/Database.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

namespace bench {

namespace {

constexpr int clients = 10000;
constexpr int runs = 7;
constexpr double wanted = 1.6;

void compactOurs(const QString& source, const QString& target) {
    QFile::remove(target);
    store::DBEngine().CompactDatabase(source, target,
                                      QStringLiteral(";LANGID=0x0405;CP=1250;COUNTRY=0"));
}

void syncFile(const QString& path) {
    const int descriptor = open(qUtf8Printable(path), O_RDONLY | O_CLOEXEC);
    fsync(descriptor);
    close(descriptor);
}

/// A copy that is worth as much: on the disk when it is done.
void vacuumBare(const QString& source, const QString& target) {
    QFile::remove(target);
    {
        const BareFile file(source);
        BareQuery vacuum(file, "VACUUM INTO ?1");
        vacuum.bind(1, target);
        vacuum.step();
    }
    syncFile(target);
}

} // namespace

void measureCompaction(Samples& samples, Figures& figures) {
    const QString source = samples.withFreeSpace(clients);
    const QString ours = samples.fresh("nase.mdb");
    const QString bare = samples.fresh("holy.mdb");
    figures.compare(
        "compact and check 10,000 clients / VACUUM INTO", [&] { compactOurs(source, ours); },
        [&] { vacuumBare(source, bare); }, wanted, runs);
}

} // namespace bench
