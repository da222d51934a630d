#include "app/Application.h"
#include "app/OneRun.h"
#include "app/RegisterPlace.h"
#include "app/Screens.h"
#include "forms/MessageBox.h"
#include "help/HelpKey.h"
#include "mainwindow/FrmUvod.h"
#include "oldregister/Offer.h"
#include "oldregister/ReaderMain.h"
#include "spelling/Speller.h"
#include "store/Database.h"
#include "store/ProgramFolder.h"

#include <QDate>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace {

void bringToFront(QWidget& window) {
    if (window.isVisible())
        window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    QWidget* const modal = QApplication::activeModalWidget();
    QWidget& front = modal != nullptr ? *modal : window;
    front.raise();
    front.activateWindow();
}

void tellHolder(const QString& holder) {
    forms::showMessage(nullptr,
                       {.text = QStringLiteral("S údajmi práve pracuje %1. Naraz s nimi môže "
                                               "pracovať iba jeden program.")
                                    .arg(holder),
                        .title = QStringLiteral("Upozornenie"),
                        .icon = QMessageBox::Warning});
}

QString userFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/tvk");
}

/// A dictionary beside the register goes before those of the system.
QStringList dictionaryFolders(const store::ProgramFolder& folder) {
    QStringList folders{QFileInfo(folder.database()).path()};
    for (const QString& place :
         QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation))
        folders << place + QStringLiteral("/hunspell") << place + QStringLiteral("/myspell/dicts");
    return folders;
}

} // namespace

int main(int argc, char** argv) {
    if (const auto code = oldregister::runAsReader(argc, argv))
        return *code;
    // Other arguments are none of ours, nor of the toolkit's.
    int programName = std::min(argc, 1);
    app::Application application(programName, argv);
    const help::HelpKey helpKey(application);
    const QString programFolder = QCoreApplication::applicationDirPath();
    const store::ProgramFolder folder = app::registerPlace(programFolder, userFolder());
    app::OneRun run(folder.database());
    const app::OneRun::Outcome outcome = run.take();
    if (outcome == app::OneRun::Outcome::Held)
        tellHolder(run.holder());
    if (outcome != app::OneRun::Outcome::Taken)
        return 0;
    app::offerEmptyRegister(folder, app::emptyRegisterOf(programFolder));
    spelling::Speller speller(dictionaryFolders(folder), folder.path(u"tvk_slovnik.txt"));
    store::DBEngine engine;
    application.beforeWaiting([&engine] { engine.commitPending(); });

    // quit() has to wait for the loop: a start without data ends before it runs.
    const auto endRun = [&application] {
        QMetaObject::invokeMethod(&application, &QCoreApplication::quit, Qt::QueuedConnection);
    };
    const mainwindow::Surroundings around{.engine = engine,
                                          .folder = folder,
                                          .today = &QDate::currentDate,
                                          .open = app::openScreen,
                                          .endRun = endRun,
                                          .prepareFile = oldregister::offerTakeOver,
                                          .speller = &speller};
    mainwindow::FrmUvod window(around);
    QObject::connect(&run, &app::OneRun::windowAsked, &window, [&window] { bringToFront(window); });
    QObject::connect(&window, &mainwindow::FrmUvod::leaving, &run, &app::OneRun::stopAnswering);
    QMetaObject::invokeMethod(&window, &mainwindow::FrmUvod::open, Qt::QueuedConnection);
    return QApplication::exec();
}
