#pragma once

#include "card/Actions.h"
#include "card/Draft.h"
#include "card/KeyedRow.h"
#include "card/RuledFields.h"
#include "forms/Binding.h"
#include "forms/EscButton.h"
#include "forms/FocusGuard.h"
#include "staff/EmployeeOptions.h"
#include "staff/EmployeeSave.h"
#include "staff/FunctionPick.h"
#include "staff/StaffData.h"
#include "words/Keeper.h"

#include <QDialog>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

class QBoxLayout;
class QPushButton;

namespace staff {

/// The card of an employee. What it is to show is in `gAkcia`, `gIdKod` and `gMenoKlienta` when it
/// is made; run it by exec().
class FrmPsychUdaj : public QDialog, private card::KeyField {
    Q_OBJECT
  public:
    /// @param engine, folder must outlive the card
    /// @throws store::EngineError 3021 when the employee is not there, and what the opening of the
    /// sources throws
    FrmPsychUdaj(store::DBEngine& engine, const store::ProgramFolder& folder,
                 QWidget* parent = nullptr);
    ~FrmPsychUdaj() override;

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    /// By their places in the table of buttons.
    enum Button { cmdZap, cmdzapNew, cmdStorno };

    card::Names typed() const override;
    void setKey(const QString& key) override { txtIdKod_->setText(key); }
    void tellMissing(const QString& message) override;
    void passOver(const store::EngineError& error) override { actions_.passOver(error); }

    void makeControls();
    void layOut();
    void layOutFields(QBoxLayout& lines);
    QLayout* layOutFoot();
    void bind();
    void openEmployee();
    forms::Words typedWords() const;
    void enterWords(const forms::Words& words);
    void beginWords();

    void act(Button button);
    std::optional<DialogCode> press(Button button);
    bool saves(const std::function<void()>& afterwards);
    void write(const std::function<void()>& writes);
    void beginNew();
    void dropRow();
    bool isChanged() const;
    bool isKeptByFrame();
    bool endsByFrame();
    bool keepOrDrop();

    // The rules are told of events by the guard, and the fields are bound to the data.
    StaffData data_;
    card::Actions actions_;
    words::Keeper words_;
    card::Draft draft_;
    std::optional<card::RuledFields> fields_;
    std::optional<FunctionPick> function_;
    std::optional<EmployeeOptions> options_;
    std::optional<EmployeeSave> save_;
    std::optional<forms::Binding> binding_;
    forms::FocusGuard guard_;
    forms::EscButton esc_;
    forms::EntryField* txtIdKod_;
    std::vector<QPushButton*> buttons_;
    /// The options as they were when the row was opened.
    QStringList chosenBefore_;
    bool wasShown_ = false;
};

} // namespace staff
