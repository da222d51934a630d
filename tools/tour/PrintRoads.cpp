#include "mainwindow/FrmUvod.h"
#include "report/PreviewDialog.h"
#include "tour/Guide.h"
#include "tour/Roads.h"

#include <QAction>
#include <QFile>

namespace tour {

void walkClientList(Guide& guide, mainwindow::FrmUvod& window) {
    lookAtPrint(guide, QStringLiteral("rptZozKlient"), window, "mniZozKlient");
}

void lookAtPrint(Guide& guide, const QString& name, const std::function<void()>& print) {
    const QString file = guide.path(name + QStringLiteral(".pdf"));
    guide.inModalWindow([&](QWidget& preview) {
        preview.showNormal();
        preview.setGeometry(guide.place());
        guide.picture(name);
        if (guide.takesPictures())
            dynamic_cast<report::PreviewDialog&>(preview).savePdf(file);
        guide.key(Qt::Key_Escape);
    });
    print();
    // Without a window manager nobody brings the window back.
    guide.inFront().activateWindow();
    if (guide.takesPictures() && QFile(file).size() == 0)
        giveUp(name + QStringLiteral(" gave no print-out"));
}

void lookAtPrint(Guide& guide, const QString& name, mainwindow::FrmUvod& window,
                 const char* entry) {
    lookAtPrint(guide, name, [&window, entry] {
        window.findChild<QAction*>(QLatin1StringView(entry))->trigger();
    });
}

} // namespace tour
