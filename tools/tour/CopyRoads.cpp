#include "mainwindow/FrmUvod.h"
#include "tour/Guide.h"
#include "tour/Roads.h"

#include <QAction>
#include <QCoreApplication>
#include <QTableWidget>

namespace tour {

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
