#include "tour/Guide.h"
#include "tour/Roads.h"

#include <QApplication>
#include <QContextMenuEvent>

namespace tour {

namespace {

/// The platform makes it of a key that no test can press.
void openMenu(QWidget& list) {
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&list, &asked);
    QApplication::processEvents();
}

} // namespace

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
    guide.type(QStringLiteral("j kov"));
    guide.picture(QStringLiteral("filter"));
    openMenu(*guide.inFront().findChild<QWidget*>(QStringLiteral("dbgKlient")));
    guide.picture(QStringLiteral("ponuka-zoznamu"));
    guide.key(Qt::Key_Escape);
    guide.key(Qt::Key_Escape);
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

} // namespace tour
