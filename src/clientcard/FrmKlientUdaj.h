#pragma once

#include "card/Actions.h"
#include "clientcard/CardData.h"
#include "clientcard/ClientDraft.h"
#include "clientcard/SaveCycle.h"
#include "clientcard/TabFamily.h"
#include "forms/EscButton.h"
#include "forms/FocusGuard.h"

#include <QDialog>

#include <functional>
#include <optional>
#include <vector>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace clientcard {

class CardPages;

/// The card of a client: fourteen tabs, and below them the buttons that save. What it is to show
/// is in `gAkcia`, `gIdKod` and `gMenoKlienta` when it is made; run it by exec(). Whoever has gone
/// from the register can't be opened.
class FrmKlientUdaj : public QDialog, private CardFrame {
    Q_OBJECT
  public:
    /// @param engine, folder must outlive the card
    /// @throws store::EngineError 3021 when the client is not there, and what the opening of the
    /// sources throws
    FrmKlientUdaj(store::DBEngine& engine, const store::ProgramFolder& folder,
                  QWidget* parent = nullptr);
    ~FrmKlientUdaj() override;

    /// What is to be printed of a client whose row is written; the key is in `gIdKod`.
    struct Shown {
        int tab = 0;
        /// The record source of the list of visits.
        QString visits;
        /// Something is typed that is not written.
        bool isChanged = false;
    };
    /// What the button "Tlač záložku" does; without it the button is disabled.
    void setPrinting(std::function<void(const Shown&)> print);

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    /// By their places in the table of buttons.
    enum Button { cmdZaklUd, cmdZakZap, cmdSave, cmdTlac, cmdZapNew, CmdZap, cmdStorno };

    QDialog& window() override { return *this; }
    CardData& data() override { return data_; }
    forms::FocusGuard& guard() override { return guard_; }
    SaveCycle& cycle() override { return *cycle_; }
    card::Actions& actions() override { return actions_; }
    void perform(const std::function<void()>& action) override { actions_.perform(action); }
    QAbstractButton& saveButton() override;
    void turnTo(int tab) override;
    void beginEdit(int tab, QAbstractButton& storno) override;
    void endEdit() override;

    void makePages();
    QLayout* makeFoot();
    void enableButtons(bool enabled);
    void zamkniZalozky();
    void zalozkaKlik(int tab);
    void showKeys(int tab);
    void turnBy(int step);

    void act(Button button);
    void press(Button button);
    bool saves(bool turnsTab, const std::function<void()>& afterwards);
    void goToMissing(SaveResult missing, bool turnsTab);
    void resume();
    void goToStart();
    void cmdZaklUdClick();
    void cmdZakZapClick();
    void CmdZapClick();
    void cmdZapNewClick();
    void cmdStornoClick();
    void cmdTlacClick();
    void noteInput();
    void closeUnread();
    void tellNotWritten();
    bool recordIsOpen() const;
    bool staysForRecord();
    bool endsByFrame();
    bool mayDrop();

    // The tabs are told of events by the guard, and bound to the data.
    CardData data_;
    card::Actions actions_;
    TabFamilies families_;
    ClientDraft draft_;
    forms::FocusGuard guard_;
    forms::EscButton esc_;
    CardPages* pages_;
    QLabel* keys_;
    std::vector<QPushButton*> buttons_;
    TabFamily* entry_ = nullptr;
    std::optional<SaveCycle> cycle_;
    std::function<void(const Shown&)> print_;
    bool wasShown_ = false;
    /// The user has typed or picked since the card was opened.
    bool hasInput_ = false;
};

} // namespace clientcard
