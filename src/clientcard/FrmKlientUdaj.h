#pragma once

#include "card/Actions.h"
#include "card/InputNote.h"
#include "clientcard/CardData.h"
#include "clientcard/CardFoot.h"
#include "clientcard/CardGuide.h"
#include "clientcard/ClientDraft.h"
#include "clientcard/SaveCycle.h"
#include "clientcard/TabFamily.h"
#include "forms/FocusGuard.h"
#include "words/Keeper.h"

#include <QDialog>

#include <functional>
#include <optional>

namespace spelling {
class Speller;
}

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
    using Print = std::function<void(const Shown&)>;
    /// What the buttons "Tlač záložku" and "Tlač kartu" do; without it they are disabled.
    void setPrinting(Print tab, Print card);
    /// Spelling is checked in the long texts. @param speller must outlive the card
    void setSpelling(spelling::Speller& speller);

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    /// How the card ends, when it does.
    using End = std::optional<DialogCode>;

    QDialog& window() override { return *this; }
    CardData& data() override { return data_; }
    forms::FocusGuard& guard() override { return guard_; }
    SaveCycle& cycle() override { return *cycle_; }
    card::Actions& actions() override { return actions_; }
    words::Keeper& words() override { return words_; }
    void turnTo(int tab) override;
    void beginEdit(int tab, QAbstractButton& storno) override;
    void endEdit() override;
    void showContents() override;
    void leadOnFromLastField() override;

    void makePages();
    void makeKeys();
    void onKey(const QKeySequence& keys, const std::function<int()>& tab);
    void beginWords();
    void zamkniZalozky();
    void odomkniZalozky();
    void arrangeGuide();
    void tellWritten(const QString& whom);
    QString typedName();
    void zalozkaKlik(int tab);
    bool leavesField();

    void act(CardFoot::Button button);
    End press(CardFoot::Button button);
    bool isSaved(SaveResult result, bool turnsTab);
    void goToStart();
    void cmdZaklUdClick();
    void cmdZakZapClick();
    End CmdZapClick();
    void cmdZapNewClick();
    End cmdStornoClick();
    void print(const Print& printed);
    void closeUnread();
    bool staysForRecord();
    bool endsByFrame();
    bool mayDrop();

    // The tabs are told of events by the guard, and bound to the data.
    CardData data_;
    card::Actions actions_;
    words::Keeper words_;
    TabFamilies families_;
    forms::FocusGuard guard_;
    CardPages* pages_;
    TabFamily* entry_ = nullptr;
    std::optional<SaveCycle> cycle_;
    std::optional<ClientDraft> draft_;
    std::optional<CardFoot> foot_;
    std::optional<CardGuide> guide_;
    Print printTab_;
    Print printCard_;
    card::InputNote input_;
    bool wasShown_ = false;
};

} // namespace clientcard
