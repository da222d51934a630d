#include "tour/Guide.h"
#include "tour/Roads.h"

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

<<<<<<< HEAD:tools/tour/ListRoads.cpp
=======
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
    lookAtPrint(guide, QStringLiteral("tabulka1"), QStringLiteral("rptVek"),
                [&window] { window.findChild<QAction*>(QStringLiteral("mniVek"))->trigger(); });
}

void walkClientList(Guide& guide, mainwindow::FrmUvod& window) {
    lookAtPrint(
        guide, QStringLiteral("zoznam-klientov"), QStringLiteral("rptZozKlient"),
        [&window] { window.findChild<QAction*>(QStringLiteral("mniZozKlient"))->trigger(); });
}

void lookAtPrint(Guide& guide, const QString& picture, const QString& report,
                 const std::function<void()>& print) {
    const QString file = guide.path(report + QStringLiteral(".pdf"));
    guide.inModalWindow([&](QWidget& preview) {
        preview.showNormal();
        preview.setGeometry(guide.place());
        guide.picture(picture);
        dynamic_cast<report::PreviewDialog&>(preview).savePdf(file);
        guide.key(Qt::Key_Escape);
    });
    print();
    // Without a window manager nobody brings the window back.
    guide.inFront().activateWindow();
    if (QFile(file).size() == 0)
        giveUp(report + QStringLiteral(" gave no print-out"));
}

>>>>>>> printouts:tools/tour/Roads.cpp
} // namespace tour
