#include "mainwindow/FrmUvod.h"
#include "tour/Guide.h"
#include "tour/Roads.h"

#include <QAction>
#include <QCoreApplication>
#include <QLabel>

namespace tour {

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
