#pragma once

#include "clientcard/CardData.h"
#include "clientcard/SaveCycle.h"
#include "clientcard/TabFamily.h"
#include "forms/EscButton.h"
#include "forms/FocusGuard.h"

#include <QDialog>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QStackedWidget;

namespace clientcard {

class TabList;

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

    /// What the button "Tlač záložku" does with the number of the tab on show; without it the
    /// button is disabled.
    void setPrinting(std::function<void(int tab)> print);

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    enum Button {
        cmdZaklUd,
        cmdZakZap,
        cmdSave,
        cmdTlac,
        cmdZapNew,
        CmdZap,
        cmdStorno,
        buttonCount
    };

    struct Draft {
        quint8 akcia = 0;
        QString idKod;
        QString menoKlienta;
        bool isNew = false;
        std::vector<std::function<void()>> putBack;
    };

    QDialog& window() override { return *this; }
    CardData& data() override { return data_; }
    forms::FocusGuard& guard() override { return guard_; }
    SaveCycle& cycle() override { return *cycle_; }
    QAbstractButton& saveButton() override;
    void perform(const std::function<void()>& action) override;
    void turnTo(int tab) override;
    void beginEdit(int tab, QAbstractButton& storno) override;
    void endEdit() override;

    void makeTabs();
    void makeButtons(QHBoxLayout& line);
    void dressInColours();
    TabFamily& familyOf(int tab) const;

    void otvorKlienta();
    void openExisting();
    void openNew();
    void zamkniZalozky();
    void zalozkaKlik(int tab);
    void showKeys(int tab);
    void turnBy(int step);
    void enableTabs(int from, bool enabled);

    void act(Button button);
    void press(Button button);
    void recoverNew();
    bool saves(bool turnsTab);
    void cmdZaklUdClick();
    void cmdZakZapClick();
    void CmdZapClick();
    void cmdZapNewClick();
    void cmdStornoClick();
    void reopen(store::DataSource& source, const QString& recordSource);
    bool clientIsNew() const;
    void keepDraft();
    void resumeDraft();
    void commit();
    void tellNotWritten();
    bool recordIsOpen() const;
    bool staysForRecord();
    bool endsByFrame();

    // The tabs are told of events by the guard, and bound to the data.
    CardData data_;
    std::vector<std::unique_ptr<TabFamily>> families_;
    forms::FocusGuard guard_;
    forms::EscButton esc_;
    TabList* SSTab1_;
    QStackedWidget* pages_;
    QLabel* keys_;
    std::array<QPushButton*, buttonCount> buttons_{};
    std::map<int, TabFamily*> familyOfTab_;
    TabFamily* entry_ = nullptr;
    std::optional<SaveCycle> cycle_;
    std::function<void(int)> print_;
    /// What the card was about when the last save began.
    Draft draft_;
    bool wasShown_ = false;
};

} // namespace clientcard
