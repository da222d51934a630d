/// What a user waits for in the running program: its start, Table I of the return, its exit.

#include "app/Application.h"
#include "app/Screens.h"
#include "common/Figures.h"
#include "mainwindow/FrmUvod.h"
#include "store/Database.h"
#include "store/ProgramFolder.h"

#include <QAction>
#include <QDate>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QPushButton>
#include <QTimer>

#include <cstdio>
#include <ctime>

namespace {

using namespace Qt::StringLiterals;

/// Seconds since a moment, by the clock on the wall and of the processor.
class Watch {
  public:
    Watch() { clock_.start(); }
    void tell(const char* what) const {
        std::printf("%-42s %7.2f s %7.2f s of the processor\n", what,
                    double(clock_.elapsed()) / 1e3,
                    double(std::clock() - processor_) / CLOCKS_PER_SEC);
        std::fflush(stdout);
    }

  private:
    QElapsedTimer clock_;
    std::clock_t processor_ = std::clock();
};

/// Tells when a modal window has been drawn, and closes it.
void tellNextWindow(const Watch& watch, const char* what) {
    auto* const looker = new QTimer(qApp);
    QObject::connect(looker, &QTimer::timeout, looker, [looker, watch, what] {
        QWidget* const modal = QApplication::activeModalWidget();
        if (modal == nullptr || !modal->isVisible())
            return;
        modal->repaint();
        watch.tell(what);
        looker->deleteLater();
        modal->close();
    });
    looker->start(1);
}

void printTableOne(const mainwindow::FrmUvod& window, const char* what) {
    const Watch watch;
    tellNextWindow(watch, what);
    window.findChild<QAction*>(u"mniVek"_s)->trigger();
    watch.tell("  to the end of its preview");
}

} // namespace

/// @param argv the folder of a register, which is worked on as the program itself would
int main(int argc, char** argv) {
    const Watch sinceStart;
    bench::needNoDisplay();
    app::Application application(argc, argv);
    if (argc != 2) {
        std::fputs("Usage: bench_program FOLDER\n", stderr);
        return 2;
    }
    const store::ProgramFolder folder(QString::fromLocal8Bit(argv[1]));
    store::DBEngine engine;
    application.beforeWaiting([&engine] { engine.commitPending(); });
    const mainwindow::Surroundings around{engine, folder, &QDate::currentDate, app::openScreen,
                                          &QApplication::quit};
    mainwindow::FrmUvod window(around);
    window.open();
    window.repaint();
    sinceStart.tell("start to the window drawn");
    const Watch list;
    window.ukazKlientov();
    QApplication::processEvents();
    window.repaint();
    list.tell("the list of clients");
    printTableOne(window, "Table I, ages to be stamped");
    printTableOne(window, "Table I again");
    const Watch exit;
    window.findChild<QAction*>(u"mnuKoniec"_s)->trigger();
    exit.tell("Koniec");
    return 0;
}
