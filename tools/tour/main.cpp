#include "app/Application.h"
#include "app/Screens.h"
#include "mainwindow/FrmUvod.h"
#include "mkdb/Arguments.h"
#include "mkdb/Commands.h"
#include "store/Database.h"
#include "store/ProgramFolder.h"
#include "tour/Guide.h"
#include "tour/Roads.h"

#include <QDate>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <exception>

namespace {

// The pictures are those of a register that never changes: its own data and its own day.
const QDate today(2026, 11, 20);

/// @param kind as on the command line of mkdb
void makeRegister(const char16_t* kind, const QString& file) {
    QString problem;
    const auto arguments = mkdb::readArguments({QString::fromUtf16(kind), file},
                                               QStringLiteral(TVK_DATA_FOLDER), today, problem);
    if (!arguments)
        tour::giveUp(problem);
    mkdb::run(*arguments);
}

/// The platform without a screen, with room for the whole window: lists and menus open where a user
/// sees them.
/// @param file is written
QByteArray offscreen(const QString& file) {
    QFile screen(file);
    if (!screen.open(QIODevice::WriteOnly))
        tour::giveUp(QStringLiteral("Cannot write ") + file);
    screen.write(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1280, "height": 800,
                     "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    return "offscreen:configfile=" + file.toUtf8();
}

/// Opens the program on a register of this kind and walks through it.
template <typename Roads>
void walk(const char16_t* kind, const QString& output, const Roads& roads) {
    const QTemporaryDir directory;
    const store::ProgramFolder folder(directory.path());
    makeRegister(kind, folder.database());

    store::DBEngine engine;
    const mainwindow::Surroundings around{engine, folder, [] { return today; }, app::openScreen,
                                          [] {
                                          }};
    mainwindow::FrmUvod window(around);
    window.resize(1280, 800);
    window.open();
    tour::Guide guide(output, window);
    guide.picture(QStringLiteral("start"));
    roads(guide, window);
    guide.allCame();
}

/// From nothing to the first return.
void walkFirstClient(const QString& output) {
    walk(u"prazdna", output, [](tour::Guide& guide, mainwindow::FrmUvod& window) {
        tour::walkNewEmployee(guide);
        tour::walkNewClient(guide);
        tour::walkSchoolYear(guide);
        tour::walkEntryForms(guide);
        tour::walkWholeReturn(guide, window);
    });
}

void walkSample(const QString& output) {
    walk(u"ukazka", output, [](tour::Guide& guide, mainwindow::FrmUvod& window) {
        tour::walkLists(guide);
        tour::walkClientCard(guide);
        tour::walkSchoolYear(guide);
        tour::walkTables(guide, window);
        tour::walkWholeReturn(guide, window);
        tour::walkClientList(guide, window);
        tour::walkDataCheck(guide, window);
    });
}

} // namespace

/// Walks through the program without a screen, on an empty register and on an invented one, and
/// leaves pictures and print-outs in the folder that is its only argument.
int main(int argc, char** argv) {
    const QTemporaryDir directory;
    qputenv("QT_QPA_PLATFORM", offscreen(directory.filePath(QStringLiteral("screen.json"))));
    app::Application application(argc, argv);
    if (argc != 2) {
        std::fputs("Usage: tour FOLDER\n", stderr);
        return 2;
    }
    try {
        const QString output = QString::fromLocal8Bit(argv[1]);
        walkFirstClient(output + QStringLiteral("/prvy-klient"));
        walkSample(output);
    } catch (const std::exception& error) {
        tour::giveUp(QString::fromUtf8(error.what()));
    }
    return 0;
}
