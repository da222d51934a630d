#include "backup/FrmDearch_new.h"

#include "backup/FileChoice.h"
#include "store/EngineError.h"

#include <QFileInfo>

namespace backup {

namespace {

FileChoice openChoice() {
    return {QStringLiteral("Súbor pre obnovu dát"),
            {{QStringLiteral("záloha"), QStringLiteral("*.zip")}},
            0,
            QFileDialog::AcceptOpen};
}

} // namespace

FrmDearch_new::FrmDearch_new(store::DBEngine& engine, const store::ProgramFolder& folder,
                             IsRegister isRegister, QWidget* parent)
    : BackupForm(QStringLiteral("FrmDearch_new"), QStringLiteral("Obnova archivovaných dát"),
                 engine, folder, parent),
      isRegister_(std::move(isRegister)) {}

void FrmDearch_new::work() {
    try {
        restore();
    } catch (const store::GivenUp&) {
        fail(QStringLiteral("Obnova bola zrušená."));
    } catch (const store::EngineError& error) {
        fail(error.description());
    }
}

void FrmDearch_new::restore() {
    const auto archive = chooseFile(parentWidget(), openChoice());
    if (!archive)
        return fail(cancelWords());
    Restore restored(engine(), folder(), isRegister_);
    const Finding found =
        restored.extract(*archive, progress(QStringLiteral("Kontroluje sa archív …")));
    hide();
    if (found == Finding::NoArchive) {
        tell(QStringLiteral("Vybraný súbor neobsahuje očakávané dáta"), QMessageBox::Warning);
        return;
    }
    // Without a menu there is nothing to overwrite; a file that has come back meanwhile stays.
    const bool mayGoOn = isFromMenu() ? overwriteAgreed() : !QFileInfo::exists(folder().database());
    if (!mayGoOn)
        return;
    if (found == Finding::Sound)
        putInPlace(restored);
    else
        tellBad(restored);
}

bool FrmDearch_new::overwriteAgreed() {
    return tell(QStringLiteral("UPOZORNENIE !!\n\nMomentálny obsah dát bude premazaný !!!"),
                QMessageBox::Information, {},
                QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

void FrmDearch_new::putInPlace(Restore& restored) {
    if (isFromMenu())
        restored.replaceLive();
    else
        restored.placeNew();
    tell(QStringLiteral("Obnova dát bola úspešne ukončená"), QMessageBox::Information);
}

/// What an earlier restore has kept comes back to where no register is.
void FrmDearch_new::tellBad(Restore& restored) {
    QString detail;
    if (restored.bringBackOld())
        detail = QStringLiteral("Údaje z tvk_ren.mdb sú opäť v tvk.mdb.");
    else if (isFromMenu())
        detail = QStringLiteral("Doterajšie údaje sa nezmenili.");
    tell(QStringLiteral("Obnova dát nebola úspešná, chybný arch_tvk.zip"), QMessageBox::Information,
         detail);
}

void FrmDearch_new::fail(const QString& why) {
    tell(QStringLiteral("Vyskytla sa chyba pri obnove dát"), QMessageBox::Warning, why);
}

} // namespace backup
