#pragma once

#include "mainwindow/ListRows.h"
#include "store/Files.h"

#include <QMainWindow>

#include <memory>

class QAction;
class QLabel;
class QMenu;

namespace words {
class OfferLine;
}

namespace store {
class BackgroundCheck;
class EngineError;
class IndexRepair;
} // namespace store

namespace mainwindow {

class ButtonPanel;
class ListPane;

/// The program's one main window: picture buttons, menu, the lists and the school year. It owns the
/// run; everything else opens modally from it.
class FrmUvod : public QMainWindow {
    Q_OBJECT
  public:
    /// Nothing is read before open(). @param around must outlive the window
    explicit FrmUvod(const Surroundings& around);
    ~FrmUvod() override;

    /// The whole load, and then the window, or the end of the run when there are no data to work
    /// with. Opening again after zavri() sets list, colours and school year back.
    void open();
    /// Closes the window and lets go of the file; the run goes on.
    void zavri();
    /// Makes sure that the register can be opened, before the return's tables are made.
    /// @throws store::EngineError
    void connectDB();
    /// The year that the return is made for, "RRRR/RRRR".
    QString schoolYear() const;
    /// The data source that print-outs select with. It ends when the window closes.
    store::DataSource& datTlac() { return sources_->datTlac; }
    /// Walks the types of school for the return; ends with the window, too.
    store::DataSource& datCisVzd() { return sources_->datCisVzd; }
    const Surroundings& surroundings() const { return around_; }

    /// Repairs a register that a check has found damaged, with the user's consent; the run ends
    /// when that can't be.
    void opravSubor();

    void ukazKlientov();
    void ukazZamestnancov();
    void zadajSkolskyRok();
    /// Shows what others have written into the list on show. @throws store::EngineError
    void readListAnew();

  Q_SIGNALS:
    /// Koniec was chosen: the window is closed and what is left to do takes its time.
    void leaving();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void buildMenu();
    void addItem(QMenu& menu, QStringView name, QStringView caption, Screen screen);
    void buildKeys();
    void buildStatus();
    void openMenu(QAction* action);

    void load();
    bool fileFound();
    std::chrono::milliseconds patience() const;
    void openData();
    void finishLoad();
    bool ensureLoaded();
    void clearUp();
    void loadFailed(const store::EngineError& error);
    void tellUnloaded(const store::EngineError& error);
    void listFailed(const store::EngineError& error);
    bool indexesRepaired();
    std::unique_ptr<store::IndexRepair> triedRepair();
    void loadRepaired();
    void checkInBackground();
    void damageFound();
    void setControlsEnabled(bool enabled);
    void showFoundWords();
    void nastavSkolskyRok();
    void unload();
    void finishRun();

    void pressed(int button);
    void openTable(int button, Screen screen);
    void openScreen(Screen screen);
    void koniecTlacidlom();
    void koniec();

    const Surroundings& around_;
    std::unique_ptr<MainSources> sources_;
    std::unique_ptr<store::BackgroundCheck> check_;
    ButtonPanel* panel_;
    ListPane* lists_;
    QLabel* state_ = nullptr;
    words::OfferLine* found_;
    bool ukoncit_ = false;
    bool loaded_ = false;
    /// The file that this run has cleared up after killed programs.
    std::optional<store::FileIdentity> clearedUp_;
    bool runGoesOn_ = false;
};

} // namespace mainwindow
