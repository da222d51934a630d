#include "tour/Roads.h"

#include "mainwindow/FrmUvod.h"
#include "report/PreviewDialog.h"
#include "tour/Guide.h"

#include <QAction>
#include <QFile>

namespace tour {

void walkLists(Guide& guide) {
    guide.click(QStringLiteral("Picture1"));
    guide.picture(QStringLiteral("klienti"));
    guide.inModalWindow([&guide](QWidget&) {
        guide.type(QStringLiteral("Kov"));
        guide.picture(QStringLiteral("hladanie"));
        guide.key(Qt::Key_Return);
    });
    guide.click(QStringLiteral("cmdHladaj"));
    guide.picture(QStringLiteral("najdeny-klient"));
    guide.click(QStringLiteral("CmdSort"));
    guide.picture(QStringLiteral("podla-kat-cisla"));
    guide.inModalWindow([&guide](QWidget&) {
        guide.picture(QStringLiteral("vymaz-otazka"));
        guide.key(Qt::Key_Escape);
    });
    guide.click(QStringLiteral("cmdVymaz"));
    guide.click(QStringLiteral("Picture2"));
    guide.picture(QStringLiteral("zamestnanci"));
    guide.inModalWindow([&guide](QWidget&) {
        guide.picture(QStringLiteral("zamestnanec"));
        guide.key(Qt::Key_Escape);
    });
    guide.click(QStringLiteral("cmdOprava"));
    guide.click(QStringLiteral("Picture1"));
}

void walkSchoolYear(Guide& guide) {
    guide.inModalWindow([&guide](QWidget&) {
        guide.picture(QStringLiteral("skolsky-rok"));
        guide.key(Qt::Key_Return);
    });
    guide.click(QStringLiteral("Picture6"));
}

void walkTableOne(Guide& guide, mainwindow::FrmUvod& window) {
    guide.key(Qt::Key_T, Qt::AltModifier);
    guide.picture(QStringLiteral("ponuka-tlac"));
    guide.key(Qt::Key_Escape);
    guide.inModalWindow([&guide, &window](QWidget& preview) {
        preview.showNormal();
        preview.setGeometry(window.geometry());
        guide.picture(QStringLiteral("tabulka1"));
        auto& dialog = dynamic_cast<report::PreviewDialog&>(preview);
        dialog.savePdf(guide.path(QStringLiteral("rptVek.pdf")));
        guide.key(Qt::Key_Escape);
    });
    window.findChild<QAction*>(QStringLiteral("mniVek"))->trigger();
    if (QFile(guide.path(QStringLiteral("rptVek.pdf"))).size() == 0)
        giveUp(QStringLiteral("Table I gave no print-out"));
}

void walkClientsInReturn(Guide& guide, mainwindow::FrmUvod& window) {
    guide.inModalWindow([&guide, &window](QWidget& numbers) {
        guide.picture(QStringLiteral("klienti-vo-vykaze"));
        guide.key(Qt::Key_PageDown, Qt::ControlModifier);
        guide.key(Qt::Key_End, Qt::ControlModifier);
        guide.key(Qt::Key_Home);
        guide.key(Qt::Key_Return);
        guide.picture(QStringLiteral("klienti-tabulka2"));
        guide.inModalWindow([&guide, &window](QWidget& preview) {
            preview.showNormal();
            preview.setGeometry(window.geometry());
            guide.picture(QStringLiteral("klienti-tlac"));
            guide.key(Qt::Key_Escape);
        });
        guide.key(Qt::Key_P, Qt::ControlModifier);
        // Without a window manager nobody brings the window back.
        numbers.activateWindow();
        guide.key(Qt::Key_PageDown, Qt::ControlModifier);
        guide.picture(QStringLiteral("kto-chyba"));
        guide.key(Qt::Key_Escape);
    });
    window.findChild<QAction*>(QStringLiteral("mniKlientVykaz"))->trigger();
}

} // namespace tour
