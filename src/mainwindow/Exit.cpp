#include "mainwindow/Exit.h"

#include "store/EngineError.h"
#include "store/Files.h"

#include <QFile>
#include <QFileInfo>

namespace mainwindow {

namespace {

/// Somebody may have put his data there.
void refuseLeftCopy(const QString& path) {
    const QFileInfo left(path);
    if (left.exists() || left.isSymLink())
        throw store::EngineError(
            store::ErrorNumber::TargetExists,
            QStringLiteral("Cieľový súbor už existuje. Údaje sú v poriadku, ale nedajú sa "
                           "zhustiť, kým ho nepremenujete alebo nevymažete."),
            path);
}

} // namespace

void compactAndReplace(store::DBEngine& engine, const store::ProgramFolder& folder) {
    refuseLeftCopy(folder.path(u"tmp.mdb"));
    const QString behindLinks = QFileInfo(folder.database()).canonicalFilePath();
    const QString live = behindLinks.isEmpty() ? folder.database() : behindLinks;
    const store::WorkFiles files(live);
    engine.CompactDatabase(live, files.copy(), QStringLiteral(";LANGID=0x0405;CP=1250;COUNTRY=0"));
    if (store::takeOwnerOf(live, files.copy()))
        store::replaceFile(files.copy(), live);
    QFile::remove(folder.path(u"arch_tmp.zip"));
}

} // namespace mainwindow
