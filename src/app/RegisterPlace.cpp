#include "app/RegisterPlace.h"

#include "forms/MessageBox.h"
#include "store/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace app {

namespace {

bool wantsEmptyRegister(const store::ProgramFolder& place) {
    return forms::showMessage(
               nullptr,
               {.text = QStringLiteral("Register ešte nie je. Založiť prázdny, s číselníkmi ?\n\n"
                                       "Bude v súbore %1")
                            .arg(QDir::toNativeSeparators(place.database())),
                .title = QStringLiteral("Nový register"),
                .icon = QMessageBox::Question,
                .buttons = QMessageBox::Yes | QMessageBox::No,
                .defaultButton = QMessageBox::Yes}) == QMessageBox::Yes;
}

void writeContents(const QString& from, const QString& to) {
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly))
        throw store::EngineError(store::ErrorNumber::CannotOpen,
                                 QStringLiteral("Súbor sa nedá čítať."), from);
    const QByteArray bytes = source.readAll();
    QFile target(to);
    if (!target.open(QIODevice::WriteOnly) || target.write(bytes) != bytes.size() ||
        !target.flush())
        throw store::EngineError(store::ErrorNumber::DiskFull,
                                 QStringLiteral("Súbor sa nedá zapísať."), to);
}

/// @throws store::EngineError
void putInPlace(const QString& empty, const QString& database) {
    const QString made = database + QStringLiteral(".novy");
    QFile::remove(made);
    store::createPrivateFile(made);
    writeContents(empty, made);
    store::syncFile(made);
    store::moveToFreeName(made, database);
}

} // namespace

store::ProgramFolder registerPlace(const QString& programFolder, const QString& userFolder) {
    const store::ProgramFolder beside(programFolder);
    const bool installed =
        QFileInfo::exists(emptyRegisterOf(programFolder)) || !QFileInfo(programFolder).isWritable();
    if (!installed || QFileInfo::exists(beside.database()) || !QDir().mkpath(userFolder))
        return beside;
    return store::ProgramFolder(userFolder);
}

QString emptyRegisterOf(const QString& programFolder) {
    return QDir::cleanPath(programFolder + QStringLiteral("/../share/tvk/prazdny.mdb"));
}

void offerEmptyRegister(const store::ProgramFolder& place, const QString& empty) {
    if (QFileInfo::exists(place.database()) || !QFileInfo::exists(empty) ||
        !wantsEmptyRegister(place))
        return;
    try {
        putInPlace(empty, place.database());
    } catch (const store::EngineError& error) {
        forms::showEngineError(nullptr, error);
    }
}

} // namespace app
