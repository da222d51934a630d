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
#include <QRegularExpression>
#include <QScreen>
#include <QTemporaryDir>

#include <cstdio>
#include <exception>
#include <optional>

namespace {

/// The screen that the tour pretends to have.
struct ScreenKind {
    /// In device-independent pixels.
    int width = 1280;
    int height = 800;
    double factor = 1;
    /// How often the user has made the texts larger.
    int largerTexts = 0;
};

/// @param text as 1024x600, 1280x800@2 or 1366x768@1.5+3
std::optional<ScreenKind> readScreen(const QString& text) {
    static const QRegularExpression form(
        QStringLiteral("^(\\d+)x(\\d+)(?:@(\\d(?:\\.\\d+)?))?(?:\\+(\\d))?$"));
    const auto parts = form.match(text);
    if (!parts.hasMatch())
        return std::nullopt;
    const double factor = parts.captured(3).isEmpty() ? 1 : parts.captured(3).toDouble();
    return ScreenKind{parts.captured(1).toInt(), parts.captured(2).toInt(), factor,
                      parts.captured(4).toInt()};
}

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

/// The platform without a screen, which pretends to have one: lists and menus open where a user
/// sees them.
/// @param file is written
QByteArray offscreen(const QString& file, const ScreenKind& kind) {
    QFile screen(file);
    if (!screen.open(QIODevice::WriteOnly))
        tour::giveUp(QStringLiteral("Cannot write ") + file);
    screen.write(QStringLiteral(R"({"screens": [{"name": "screen", "x": 0, "y": 0,
                     "width": %1, "height": %2,
                     "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": %3}]})")
                     .arg(kind.width)
                     .arg(kind.height)
                     .arg(kind.factor)
                     .toUtf8());
    screen.close();
    return "offscreen:configfile=" + file.toUtf8();
}

/// Opens the program on a register of this kind and walks through it.
template <typename Roads>
void walk(const char16_t* kind, const QString& output, const ScreenKind& screen,
          const Roads& roads) {
    const QTemporaryDir directory;
    const store::ProgramFolder folder(directory.path());
    makeRegister(kind, folder.database());

    store::DBEngine engine;
    const auto nothing = [] {
    };
    // The exit is too short to be shown, on a slow computer too.
    const mainwindow::Surroundings around{engine,  folder, [] { return today; }, app::openScreen,
                                          nothing, {},     std::chrono::hours(1)};
    mainwindow::FrmUvod window(around);
    window.open();
    window.setGeometry(window.screen()->availableGeometry());
    tour::Guide guide(output, window);
    for (int i = 0; i < screen.largerTexts; ++i)
        guide.key(Qt::Key_Plus, Qt::ControlModifier);
    guide.picture(QStringLiteral("start"));
    roads(guide, window);
    guide.end();
}

/// From nothing to the first return.
void walkFirstClient(const QString& output, const ScreenKind& screen) {
    walk(u"prazdna", output, screen, [](tour::Guide& guide, mainwindow::FrmUvod& window) {
        tour::walkNewEmployee(guide);
        tour::walkNewClient(guide);
        tour::walkSchoolYear(guide);
        tour::walkEntryForms(guide);
        tour::walkWholeReturn(guide, window);
    });
}

void walkSample(const QString& output, const ScreenKind& screen) {
    walk(u"ukazka", output, screen, [](tour::Guide& guide, mainwindow::FrmUvod& window) {
        tour::walkLists(guide);
        tour::walkClientCard(guide);
        tour::walkSchoolYear(guide);
        tour::walkTables(guide, window);
        tour::walkWholeReturn(guide, window);
        tour::walkClientsInReturn(guide, window);
        tour::walkClientList(guide, window);
        tour::walkCopies(guide, window);
        tour::walkDataCheck(guide, window);
    });
}

} // namespace

/// Walks through the program without a screen, on an empty register and on an invented one, and
/// leaves pictures and print-outs in the folder. Without a folder it only looks whether all can be
/// seen on that screen.
int main(int argc, char** argv) {
    const QString output = QString::fromLocal8Bit(argc > 1 ? argv[1] : "");
    const auto screen = readScreen(QString::fromLatin1(argc > 2 ? argv[2] : "1280x800"));
    if (argc < 2 || argc > 3 || !screen) {
        std::fputs("Usage: tour FOLDER|- [WIDTHxHEIGHT[@FACTOR][+LARGER TEXTS]]\n", stderr);
        return 2;
    }
    const QTemporaryDir directory;
    qputenv("QT_QPA_PLATFORM",
            offscreen(directory.filePath(QStringLiteral("screen.json")), *screen));
    // The desktop that the tour pretends to have.
    QApplication::setFont(QFont(QStringLiteral("Liberation Sans"), 9));
    app::Application application(argc, argv);
    try {
        const bool takesPictures = output != u"-";
        walkFirstClient(takesPictures ? output + QStringLiteral("/prvy-klient") : QString(),
                        *screen);
        walkSample(takesPictures ? output : QString(), *screen);
    } catch (const std::exception& error) {
        tour::giveUp(QString::fromUtf8(error.what()));
    }
    return 0;
}
