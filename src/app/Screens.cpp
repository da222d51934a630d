#include "app/Screens.h"

#include "backup/FrmArch_new.h"
#include "backup/FrmDearch_new.h"
#include "backup/FrmZalohy.h"
#include "clientcard/FrmKlientUdaj.h"
#include "datacheck/FrmKontrola.h"
#include "forms/Guard.h"
#include "forms/MessageBox.h"
#include "help/HelpWindow.h"
#include "mainwindow/FrmUvod.h"
#include "oldregister/Conversion.h"
#include "oldregister/FileKind.h"
#include "printouts/CardPrints.h"
#include "staff/FrmPsychUdaj.h"
#include "statreturn/FrmDoUkaz.h"
#include "statreturn/FrmKlientVykaz.h"
#include "statreturn/FrmOdbStar.h"
#include "statreturn/ReturnPrints.h"
#include "validation/modKontrola.h"
#include "words/FrmSlova.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include <map>

namespace app {

namespace {

using mainwindow::FrmUvod;
using mainwindow::Screen;
using Opener = void (*)(FrmUvod&);

printing::PrintTools printTools(FrmUvod& window) {
    const mainwindow::Surroundings& around = window.surroundings();
    return {.engine = around.engine, .folder = around.folder, .patience = around.patience};
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

void printZozKlient(FrmUvod& window) {
    printouts::printClientList(printTools(window), window.surroundings().today(), &window);
}

void checkSpelling(clientcard::FrmKlientUdaj& card, const mainwindow::Surroundings& around) {
    if (around.speller != nullptr)
        card.setSpelling(*around.speller);
}

void openClientCard(FrmUvod& window) {
    using clientcard::FrmKlientUdaj;
    const mainwindow::Surroundings& around = window.surroundings();
    FrmKlientUdaj card(around.engine, around.folder, &window);
    const auto cardOf = [](const FrmKlientUdaj::Shown& shown) {
        return printouts::PrintedCard{modKontrola::gIdKod, shown.visits, shown.isChanged};
    };
    card.setPrinting(
        [&](const FrmKlientUdaj::Shown& shown) {
            printouts::printTab(printTools(window), shown.tab, cardOf(shown), around.today(),
                                &card);
        },
        [&](const FrmKlientUdaj::Shown& shown) {
            printouts::printCard(printTools(window), cardOf(shown), around.today(), &card);
        });
    checkSpelling(card, around);
    card.exec();
}

void printReturn(FrmUvod& window) {
    statreturn::printReturn(returnTools(window), window.schoolYear(), window.surroundings().today(),
                            &window);
}

/// Opens a screen that works on the register and waits until it is done.
template <class Dialog>
void openDialog(FrmUvod& window) {
    const mainwindow::Surroundings& around = window.surroundings();
    Dialog(around.engine, around.folder, &window).exec();
}

void clientsInReturn(FrmUvod& window) {
    const mainwindow::Surroundings& around = window.surroundings();
    const auto openCard = [&around](const statreturn::Person& person, QWidget* parent) {
        modKontrola::editRecord(person.key, person.firstName, person.surname);
        if (person.isEmployee) {
            staff::FrmPsychUdaj(around.engine, around.folder, parent).exec();
            return modKontrola::gIdKod;
        }
        clientcard::FrmKlientUdaj card(around.engine, around.folder, parent);
        checkSpelling(card, around);
        card.exec();
        return modKontrola::gIdKod;
    };
    statreturn::FrmKlientVykaz(printTools(window), window.schoolYear(), around.today(), openCard,
                               &window)
        .exec();
    window.readListAnew();
}

/// A register of ours, or one of the old format, which the next load offers to take over.
bool isRegister(store::DBEngine& engine, const QString& path, const store::TellProgress& tell) {
    try {
        if (oldregister::kindOf(path) == oldregister::FileKind::OldRegister) {
            oldregister::readThrough(path, tell);
            return true;
        }
        engine.OpenDatabase(path).Close();
        store::DBEngine::verifyDatabase(path, tell);
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

void restoreAs(const char* mode, const mainwindow::Surroundings& around, const QString& copy = {}) {
    backup::FrmDearch_new form(around.engine, around.folder,
                               [&around](const QString& path, const store::TellProgress& tell) {
                                   return isRegister(around.engine, path, tell);
                               });
    form.setMode(QString::fromLatin1(mode));
    form.setArchive(copy);
    form.exec();
}

void restore(FrmUvod& window) {
    whileClosed(window, [&window] { restoreAs("MENU", window.surroundings()); });
}

void copies(FrmUvod& window) {
    const mainwindow::Surroundings& around = window.surroundings();
    backup::FrmZalohy form(around.folder, &window);
    form.exec();
    if (form.toRestore())
        whileClosed(window, [&] { restoreAs("MENU", around, *form.toRestore()); });
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
        window.readListAnew();
}

void keptWords(FrmUvod& window) {
    words::Book book(window.surroundings().folder);
    words::FrmSlova(book, &window).exec();
}

void showHelp(FrmUvod& window) {
    help::showHelp(window.focusWidget() != nullptr ? window.focusWidget() : &window);
}

void showAbout(FrmUvod& window) {
    const QString path = window.surroundings().folder.database();
    const QLocale slovak(QLocale::Slovak, QLocale::Slovakia);
    forms::showMessage(
        &window,
        {.text = QStringLiteral("TVK %1, register centra špeciálno-pedagogického poradenstva\n\n"
                                "Slobodný softvér s licenciou GNU GPL, verzia 3 alebo novšia, bez "
                                "záruky.\n\nRegister: %2\nVeľkosť: %3")
                     .arg(QCoreApplication::applicationVersion(), QDir::toNativeSeparators(path),
                          slovak.formattedDataSize(QFileInfo(path).size())),
         .title = QStringLiteral("O programe"),
         .icon = QMessageBox::Information});
}

/// Every screen that there is.
const std::map<Screen, Opener>& openers() {
    static const std::map<Screen, Opener> table{
        {Screen::ClientCard, openClientCard},
        {Screen::EmployeeCard, openDialog<staff::FrmPsychUdaj>},
        {Screen::TableIV, openDialog<statreturn::FrmDoUkaz>},
        {Screen::TableV, openDialog<statreturn::FrmOdbStar>},
        {Screen::PrintVek, printVek},
        {Screen::PrintVzd, printVzd},
        {Screen::PrintZam, printZam},
        {Screen::PrintDopUkaz, printDopUkaz},
        {Screen::PrintOdbStar, printOdbStar},
        {Screen::PrintZozKlient, printZozKlient},
        {Screen::PrintReturn, printReturn},
        {Screen::ClientsInReturn, clientsInReturn},
        {Screen::Archive, archive},
        {Screen::Restore, restore},
        {Screen::Copies, copies},
        {Screen::RestoreAtStart, restoreAtStart},
        {Screen::DataCheck, checkData},
        {Screen::KeptWords, keptWords},
        {Screen::Help, showHelp},
        {Screen::About, showAbout},
    };
    return table;
}

} // namespace

void openScreen(Screen screen, FrmUvod& window) {
    openers().at(screen)(window);
}

} // namespace app
