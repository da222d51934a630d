#include "tour/Roads.h"

#include "mainwindow/FrmUvod.h"
#include "report/PreviewDialog.h"
#include "tour/Guide.h"

#include <QAction>
#include <QCoreApplication>
#include <QFile>
#include <QLabel>

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

void walkDataCheck(Guide& guide, mainwindow::FrmUvod& window) {
    const mainwindow::Surroundings& around = window.surroundings();
    store::Database database = around.engine.OpenDatabase(around.folder.database());
    for (const char16_t* damage :
         {u"update k_zaznam_spc set idkod = 'BOROVČAD00' where idkod = 'BOROVSAD00'",
          u"update k_memo set idkod = 'BOROVČAD00' where idkod = 'BOROVSAD00'",
          u"update k_zaklad set katcis = '3' where idkod = 'CHOVANAN00'",
          u"update k_navstevy set dat_budn = '31.6.2027' where idkod = 'ONDRUŠKR00'",
          u"update k_zaklad set zdrpoi = '99' where idkod = 'ONDRUŠKR00'"})
        database.Execute(QString::fromUtf16(damage));
    database.Close();
    guide.inModalWindow([&guide](QWidget& form) {
        const auto isAtWork = [&form](const char16_t* label) {
            return form.findChild<QLabel*>(QString::fromUtf16(label))->text().contains(u'…');
        };
        while (isAtWork(u"lblStav") || isAtWork(u"lblSubor"))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        guide.picture(QStringLiteral("kontrola-udajov"));
        guide.inModalWindow([&guide](QWidget&) {
            guide.type(QStringLiteral("borov"));
            guide.picture(QStringLiteral("kontrola-vyber-klienta"));
            guide.key(Qt::Key_Escape);
        });
        guide.press(QStringLiteral("cmdNaprav"));
        guide.key(Qt::Key_Escape);
    });
    window.findChild<QAction*>(QStringLiteral("mniKontrola"))->trigger();
}

} // namespace tour
