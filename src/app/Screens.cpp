#include "app/Screens.h"

#include "backup/FrmArch_new.h"
#include "backup/FrmDearch_new.h"
#include "clientcard/FrmKlientUdaj.h"
#include "datacheck/FrmKontrola.h"
#include "forms/Guard.h"
#include "forms/MessageBox.h"
#include "mainwindow/FrmUvod.h"
#include "oldregister/Conversion.h"
#include "oldregister/FileKind.h"
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

/// A register of ours, or one of the old format, which the next load offers to take over.
bool isRegister(store::DBEngine& engine, const QString& path) {
    try {
        if (oldregister::kindOf(path) == oldregister::FileKind::OldRegister) {
            oldregister::readThrough(path);
            return true;
        }
        engine.OpenDatabase(path).Close();
        store::DBEngine::verifyDatabase(path);
        return true;
    } catch (const store::EngineError& error) {
        if (error.number() != store::ErrorNumber::UnrecognizedFile)
            throw;
        return false;
    }
}

/// Closes the main window, so that the register is free, and opens it anew afterwards.
template <class Action>
void whileClosed(FrmUvod& window, const Action& action) {
    window.hide();
    forms::guardedEnd([&window] {
        window.zavri();
        window.surroundings().engine.commitPending();
    });
    action();
    window.open();
}

void archive(FrmUvod& window) {
    const mainwindow::Surroundings& around = window.surroundings();
    whileClosed(window, [&around] { backup::FrmArch_new(around.engine, around.folder).exec(); });
}

void restoreAs(const char* mode, const mainwindow::Surroundings& around) {
    backup::FrmDearch_new form(around.engine, around.folder, [&around](const QString& path) {
        return isRegister(around.engine, path);
    });
    form.setMode(QString::fromLatin1(mode));
    form.exec();
}

void restore(FrmUvod& window) {
    whileClosed(window, [&window] { restoreAs("MENU", window.surroundings()); });
}

/// The main window is just loading; it ends the run when this is done.
void restoreAtStart(FrmUvod& window) {
    restoreAs("LOAD", window.surroundings());
}

/// @return true when a damaged file is to be repaired
bool checkedFileIsDamaged(FrmUvod& window) {
    const mainwindow::Surroundings& around = window.surroundings();
    datacheck::FrmKontrola form(
        around.engine, around.folder,
        [&window](datacheck::FrmKontrola::Card card) {
            openScreen(card == datacheck::FrmKontrola::Card::Client ? Screen::ClientCard
                                                                    : Screen::EmployeeCard,
                       window);
        },
        &window);
    form.exec();
    return form.wantsRepair();
}

void checkData(FrmUvod& window) {
    if (checkedFileIsDamaged(window))
        window.opravSubor();
    else
        window.obnovZoznam();
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
        {Screen::Archive, archive},
        {Screen::Restore, restore},
        {Screen::RestoreAtStart, restoreAtStart},
        {Screen::DataCheck, checkData},
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
