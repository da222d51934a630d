#pragma once

#include "forms/ProgressForm.h"
#include "store/Database.h"
#include "store/ProgramFolder.h"

#include <QDate>

#include <chrono>
#include <functional>

class QWidget;

namespace spelling {
class Speller;
}

namespace mainwindow {

class FrmUvod;

/// What the main window opens. Most are modal and are back when they are done.
enum class Screen {
    ClientCard,
    EmployeeCard,
    TableIV,
    TableV,
    PrintVek,
    PrintVzd,
    PrintZam,
    PrintOdbStar,
    PrintDopUkaz,
    PrintZozKlient,
    PrintReturn,
    ClientsInReturn,
    Archive,
    Restore,
    Copies,
    RestoreAtStart,
    DataCheck,
    KeptWords,
    Help,
    About,
};

/// What the main window needs of the rest of the program.
struct Surroundings {
    store::DBEngine& engine;
    const store::ProgramFolder& folder;
    std::function<QDate()> today;
    /// Opens a screen and waits until it is done.
    std::function<void(Screen, FrmUvod&)> open;
    /// The run is over: the window is closed and will not come again.
    std::function<void()> endRun;
    /// Called with the register's path, over that window, before the register is opened; false ends
    /// the run.
    std::function<bool(const QString& path, QWidget* window)> prepareFile = {};
    /// How long the exit and the print-outs work before they show how far they are.
    std::chrono::milliseconds patience = forms::ProgressForm::usualPatience;
    /// Who knows how words are spelled; nobody, where spelling is not checked.
    spelling::Speller* speller = nullptr;
};

} // namespace mainwindow
