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

/// A file that is gone with its block, and was not there before.
class WorkFile {
  public:
    explicit WorkFile(QString path) : path_(std::move(path)) { remove(); }
    ~WorkFile() { remove(); }
    Q_DISABLE_COPY_MOVE(WorkFile)
    const QString& path() const { return path_; }

  private:
    void remove() const {
        QFile::remove(path_);
        QFile::remove(path_ + QStringLiteral("-journal"));
    }
    QString path_;
};

} // namespace

void compactAndReplace(store::DBEngine& engine, const store::ProgramFolder& folder) {
    refuseLeftCopy(folder.path(u"tmp.mdb"));
    const QString behindLinks = QFileInfo(folder.database()).canonicalFilePath();
    const QString live = behindLinks.isEmpty() ? folder.database() : behindLinks;
    const WorkFile copy(live + QStringLiteral(".kopia"));
    engine.CompactDatabase(live, copy.path(), QStringLiteral(";LANGID=0x0405;CP=1250;COUNTRY=0"));
    if (store::takeOwnerOf(live, copy.path()))
        store::replaceFile(copy.path(), live);
    QFile::remove(folder.path(u"arch_tmp.zip"));
}

} // namespace mainwindow
