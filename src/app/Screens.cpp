#include "app/Screens.h"

#include "clientcard/FrmKlientUdaj.h"
#include "forms/MessageBox.h"
#include "mainwindow/FrmUvod.h"
#include "staff/FrmPsychUdaj.h"
#include "statreturn/FrmDoUkaz.h"
#include "statreturn/FrmOdbStar.h"
#include "statreturn/ReturnPrints.h"

#include <map>

namespace app {

namespace {

using mainwindow::FrmUvod;
using mainwindow::Screen;
using Opener = void (*)(FrmUvod&);

printing::PrintTools printTools(FrmUvod& window) {
    return {window.surroundings().engine, window.surroundings().folder};
}

statreturn::ReturnTools returnTools(FrmUvod& window) {
    window.connectDB();
    return {printTools(window), window.datTlac(), window.datCisVzd()};
}

void printVek(FrmUvod& window) {
    statreturn::printVek(returnTools(window), window.schoolYear(), window.surroundings().today(),
                         &window);
}

void printVzd(FrmUvod& window) {
    statreturn::printVzd(returnTools(window), window.schoolYear(), window.surroundings().today(),
                         &window);
}

void printZam(FrmUvod& window) {
    statreturn::printZam(returnTools(window), window.surroundings().today(), &window);
}

void printDopUkaz(FrmUvod& window) {
    statreturn::printDopUkaz(printTools(window), window.surroundings().today(), &window);
}

void printOdbStar(FrmUvod& window) {
    statreturn::printOdbStar(printTools(window), window.surroundings().today(), &window);
}

/// Opens a screen that works on the register and waits until it is done.
template <class Dialog>
void openDialog(FrmUvod& window) {
    const mainwindow::Surroundings& around = window.surroundings();
    Dialog(around.engine, around.folder, &window).exec();
}

/// Every screen that there is. What is missing here is told to the user as not ready yet.
const std::map<Screen, Opener>& openers() {
    static const std::map<Screen, Opener> table{
        {Screen::ClientCard, openDialog<clientcard::FrmKlientUdaj>},
        {Screen::EmployeeCard, openDialog<staff::FrmPsychUdaj>},
        {Screen::TableIV, openDialog<statreturn::FrmDoUkaz>},
        {Screen::TableV, openDialog<statreturn::FrmOdbStar>},
        {Screen::PrintVek, printVek},
        {Screen::PrintVzd, printVzd},
        {Screen::PrintZam, printZam},
        {Screen::PrintDopUkaz, printDopUkaz},
        {Screen::PrintOdbStar, printOdbStar},
    };
    return table;
}

} // namespace

void openScreen(Screen screen, FrmUvod& window) {
    const auto opener = openers().find(screen);
    if (opener != openers().end())
        return opener->second(window);
    forms::showMessage(&window, {.text = QStringLiteral("Táto časť programu sa pripravuje."),
                                 .title = QStringLiteral("Informácia"),
                                 .icon = QMessageBox::Information});
}

} // namespace app
