#include "mainwindow/Exit.h"

#include "store/EngineError.h"
#include "store/Files.h"

#include <QFile>

namespace mainwindow {

void compactAndReplace(store::DBEngine& engine, const store::ProgramFolder& folder) {
    const QString compact = folder.path(u"tmp.mdb");
    engine.CompactDatabase(folder.database(), compact,
                           QStringLiteral(";LANGID=0x0405;CP=1250;COUNTRY=0"));
    try {
        store::DBEngine::verifyDatabase(compact);
        store::syncFile(compact);
        store::replaceFile(compact, folder.database());
    } catch (const store::EngineError&) {
        QFile::remove(compact);
        throw;
    }
    QFile::remove(folder.path(u"arch_tmp.zip"));
}

} // namespace mainwindow
