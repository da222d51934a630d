#include "tour/Roads.h"

#include "mainwindow/FrmUvod.h"
#include "report/PreviewDialog.h"
#include "tour/Guide.h"

#include <QAction>
#include <QFile>
#include <QTableWidget>

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

void walkCopies(Guide& guide, mainwindow::FrmUvod& window) {
    const auto choose = [&window](const QString& entry) {
        window.findChild<QAction*>(entry)->trigger();
    };
    for (const bool isChanged : {false, true}) {
        if (isChanged)
            window.surroundings()
                .engine.OpenDatabase(window.surroundings().folder.database())
                .Execute(QStringLiteral("update k_zaklad set kon_tel = '037 651 23 45'"));
        choose(QStringLiteral("mnuKoniec"));
        window.open();
    }
    guide.key(Qt::Key_S, Qt::AltModifier);
    guide.picture(QStringLiteral("ponuka-servis"));
    guide.key(Qt::Key_Escape);
    guide.inModalWindow([&guide](QWidget& form) {
        auto* list = form.findChild<QTableWidget*>(QStringLiteral("lstZalohy"));
        while (list->item(list->rowCount() - 1, list->columnCount() - 1)->text().endsWith(u'…'))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        guide.picture(QStringLiteral("zalohy"));
        guide.key(Qt::Key_Escape);
    });
    choose(QStringLiteral("mniZalohy"));
}

} // namespace tour
