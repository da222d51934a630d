#include "backup/FrmArch_new.h"

#include "backup/Archive.h"
#include "backup/FileChoice.h"
#include "store/EngineError.h"

#include <QFileInfo>

namespace backup {

namespace {

FileChoice saveChoice() {
    // The second pattern is a plain word that no archive's name matches; users know it that way.
    return {QStringLiteral("Kde bude archív"),
            {{QStringLiteral("Všechny soubory *.*"), QStringLiteral("*")},
             {QStringLiteral("záloha"), QStringLiteral("zaloha")}},
            1,
            QFileDialog::AcceptSave};
}

} // namespace

FrmArch_new::FrmArch_new(store::DBEngine& engine, const store::ProgramFolder& folder,
                         QWidget* parent)
    : BackupForm(QStringLiteral("frmArch_new"), QStringLiteral("Archivácia dát"), engine, folder,
                 parent) {}

void FrmArch_new::work() {
    try {
        archive();
    } catch (const store::GivenUp&) {
        fail(QStringLiteral("Archivácia bola zrušená."));
    } catch (const store::EngineError& error) {
        fail(error.description(), error.place());
    }
}

void FrmArch_new::archive() {
    if (QFileInfo::exists(folder().database()))
        makeArchive(engine(), folder(), progress(QStringLiteral("Vytvára sa archív …")));
    if (!QFileInfo::exists(folder().path(u"arch_tmp.zip")))
        return fail({});
    hide();
    const auto target = chooseFile(parentWidget(), saveChoice());
    if (!target)
        return fail(cancelWords());
    placeArchive(folder(), *target, progress(QStringLiteral("Archív sa ukladá …")));
    tell(QStringLiteral("Archivácia bola úspešne ukončená"), QMessageBox::Information);
}

void FrmArch_new::fail(const QString& why, const QString& place) {
    tell(QStringLiteral("Vyskytla sa chyba pri archivácii :") + why, QMessageBox::Information,
         place);
}

} // namespace backup
