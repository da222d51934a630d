/// The client card among 100,000 clients against the same among 1,000: no step of it may grow with
/// the number of clients.

#include "clientcard/CardData.h"
#include "clientcard/Registers.h"
#include "common/Figures.h"
#include "forms/Appearance.h"
#include "forms/DropDown.h"
#include "validation/modKontrola.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QTest>

namespace {

using bench::Screen;

constexpr int runs = 21;
/// Twice the depth of the trees and the noise of two cores.
constexpr double wanted = 1.5;

struct Step {
    const char* name;
    /// Not timed.
    void (*prepare)(Screen&);
    void (*act)(Screen&);
};

void enterNew(Screen& screen) {
    screen.openNew();
    screen.type(0, QStringLiteral("Jana"));
    screen.type(1, QStringLiteral("Meraná"));
    screen.type(6, screen.freeNumber());
}

forms::DropDown& municipalities(const Screen& screen) {
    return screen.find<forms::DropDown>(QStringLiteral("dbcvolby(4)"));
}

void openList(Screen& screen) {
    screen.key(Qt::Key_F4);
    QCoreApplication::processEvents();
}

const Step steps[] = {
    {"open a client's sources", [](Screen&) {},
     [](Screen& screen) {
         clientcard::CardData data(screen.engine, screen.folder);
         data.otvorZaznamy(QStringLiteral("NIKTO00"));
         data.otvorCiselniky();
     }},
    {"open a client's card", [](Screen&) {},
     [](Screen& screen) {
         screen.openClient();
     }},
    {"save a client (CmdZap)",
     [](Screen& screen) {
         screen.openClient();
         screen.type(12, screen.freeNumber());
     },
     [](Screen& screen) {
         screen.click("CmdZap");
     }},
    {"save a client under another key",
     [](Screen& screen) {
         screen.openClient();
         screen.type(1, QStringLiteral("Premenovaná"));
     },
     [](Screen& screen) {
         screen.click("CmdZap");
     }},
    {"save a new client (CmdZap)", enterNew,
     [](Screen& screen) {
         screen.click("CmdZap");
     }},
    {"save a new client on the way (cmdZaklUd)", enterNew,
     [](Screen& screen) {
         screen.click("cmdZaklUd");
     }},
    {"a letter typed into a field",
     [](Screen& screen) {
         screen.openClient();
         screen.goTo(12);
     },
     [](Screen& screen) {
         screen.key(Qt::Key_X);
     }},
    {"a walk by Enter through the first tab",
     [](Screen& screen) {
         screen.openClient();
         screen.goTo(0);
     },
     [](Screen& screen) {
         for (int element = 0; element <= 17; ++element)
             screen.key(Qt::Key_Return);
     }},
    {"the check of a free catalogue number",
     [](Screen& screen) {
         screen.goTo(6);
         screen.type(6, screen.freeNumber());
     },
     [](Screen& screen) {
         screen.key(Qt::Key_Return);
     }},
    {"the check of the own catalogue number",
     [](Screen& screen) {
         screen.openClient();
         screen.goTo(6);
     },
     [](Screen& screen) {
         screen.key(Qt::Key_Return);
     }},
    {"the look-up of a municipality",
     [](Screen& screen) {
         screen.goTo(13);
         screen.type(13, QStringLiteral("Nitra"));
     },
     [](Screen& screen) {
         screen.key(Qt::Key_Return);
     }},
    {"open the list of municipalities",
     [](Screen& screen) {
         screen.openClient();
         screen.goTo(13);
     },
     openList},
    {"find a municipality by a letter",
     [](Screen& screen) {
         screen.openClient();
         screen.goTo(13);
         openList(screen);
     },
     [](Screen& screen) {
         QTest::keyClick(municipalities(screen).view(), Qt::Key_Z);
     }},
};

void compare(const Step& step, Screen& small, Screen& large, bench::Figures& figures) {
    const auto on = [&step](Screen& screen) {
        return bench::PreparedWork{[&] { step.prepare(screen); },
                                   [&] {
                                       step.act(screen);
                                   }};
    };
    figures.compare(step.name, on(large), on(small), wanted, runs);
}

} // namespace

int main(int argc, char** argv) {
    bench::needNoDisplay();
    QApplication application(argc, argv);
    forms::dress(application);
    Screen small(1000);
    Screen large(100'000);
    bench::Figures figures("Client card, 100,000 clients against 1,000");
    for (const Step& step : steps)
        compare(step, small, large, figures);
    return figures.print();
}
