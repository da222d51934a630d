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

/// @return false when it was given up
bool compact(store::DBEngine& engine, const store::WorkFiles& files,
             const store::TellProgress& tell) {
    try {
        engine.CompactDatabase(files.path(), files.copy(),
                               QStringLiteral(";LANGID=0x0405;CP=1250;COUNTRY=0"), tell);
        return true;
    } catch (const store::GivenUp&) {
        return false;
    }
}

} // namespace

bool compactAndReplace(store::DBEngine& engine, const store::ProgramFolder& folder,
                       const store::TellProgress& tell) {
    refuseLeftCopy(folder.path(u"tmp.mdb"));
    const store::WorkFiles files(store::behindLinks(folder.database()));
    const bool isCompact = compact(engine, files, tell);
    if (isCompact && store::takeOwnerOf(files.path(), files.copy()))
        store::replaceFile(files.copy(), files.path());
    QFile::remove(folder.path(u"arch_tmp.zip"));
    return isCompact;
}

} // namespace mainwindow
