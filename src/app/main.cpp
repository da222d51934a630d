#include "app/Application.h"
#include "app/Screens.h"
#include "mainwindow/FrmUvod.h"
#include "store/Database.h"
#include "store/ProgramFolder.h"

#include <QDate>

#include <algorithm>

int main(int argc, char** argv) {
    // Arguments are none of ours, nor of the toolkit's.
    int programName = std::min(argc, 1);
    app::Application application(programName, argv);
    const store::ProgramFolder folder(QCoreApplication::applicationDirPath());
    store::DBEngine engine;
    application.beforeWaiting([&engine] { engine.commitPending(); });

    // quit() has to wait for the loop: a start without data ends before it runs.
    const auto endRun = [&application] {
        QMetaObject::invokeMethod(&application, &QCoreApplication::quit, Qt::QueuedConnection);
    };
    const mainwindow::Surroundings around{engine, folder, &QDate::currentDate, app::openScreen,
                                          endRun};
    mainwindow::FrmUvod window(around);
    QMetaObject::invokeMethod(&window, &mainwindow::FrmUvod::open, Qt::QueuedConnection);
    return QApplication::exec();
}
