#include "mainwindow/Exit.h"

#include "backup/Copies.h"
#include "forms/Guard.h"
#include "forms/MessageBox.h"
#include "store/EngineError.h"
#include "store/Files.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

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

/// Runs a work and shows how far it is, until it ends or fails.
template <class Work>
void runShown(forms::ProgressForm& form, const QString& doing, const Work& work) {
    const auto hide = qScopeGuard([&form] { form.hide(); });
    work(form.progress(doing));
}

void copyOrTell(backup::NextCopy& copy, const QString& database, bool isChecked,
                forms::ProgressForm& form) {
    // That the register isn't there has been told by the compaction.
    if (!QFileInfo::exists(database))
        return;
    try {
        runShown(form, QStringLiteral("Robí sa záloha údajov …"),
                 [&](const auto& tell) { copy.make(isChecked, tell); });
    } catch (const store::GivenUp&) {
        // The next copy holds what this one would have held.
    } catch (const store::EngineError& error) {
        forms::showMessage(nullptr, {.text = QStringLiteral("Záloha údajov sa nevytvorila.\n\n") +
                                             error.description(),
                                     .title = QStringLiteral("Upozornenie"),
                                     .icon = QMessageBox::Warning,
                                     .detail = error.place()});
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

void leaveInOrder(const Surroundings& around) {
    forms::ProgressForm form(QStringLiteral("frmKoniec"), QStringLiteral("Koniec"), nullptr);
    form.setPatience(around.patience);
    backup::NextCopy copy(around.folder, QDateTime(around.today(), QTime::currentTime()));
    bool isChecked = false;
    forms::guardedEnd([&] {
        runShown(form, QStringLiteral("Údaje sa zhusťujú …"), [&](const auto& tell) {
            isChecked = compactAndReplace(around.engine, around.folder, tell);
        });
    });
    forms::guardedEnd([&] { copyOrTell(copy, around.folder.database(), isChecked, form); });
}

} // namespace mainwindow
