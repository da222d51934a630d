#pragma once

#include "card/Actions.h"
#include "forms/EntryField.h"
#include "forms/FieldEvents.h"
#include "forms/FocusGuard.h"
#include "words/Keeper.h"

#include <QDialog>

#include <optional>

class QLayout;

namespace store {
class DBEngine;
}

namespace statreturn {

/// What the two forms share into which the tables IV and V are typed: digits only, Enter and Down
/// act as Tab, the field in focus is coloured, Ctrl+S writes. Leaving by Esc asks before it drops
/// what was typed; Storno does not.
class EntryForm : public QDialog, public forms::FieldEvents {
    Q_OBJECT
  public:
    /// @param engine must outlive the form
    EntryForm(store::DBEngine& engine, const QString& name, const QString& title, QWidget* parent);

    void gotFocus(const forms::Control& control) override;
    void keyDown(const forms::Control& control, int& key, Qt::KeyboardModifiers modifiers) override;
    void keyPress(const forms::Control& control, QChar& character) override;
    forms::Leave lostFocus(const forms::Control& control, const forms::Control& now) override;

    /// Esc.
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

    /// Something was typed that the file does not hold.
    virtual bool isChanged() const = 0;
    /// Writes what was typed; what it wrote becomes durable as a whole. @throws store::EngineError
    virtual void write() = 0;
    /// Opens the edit again, with what was typed, after a write in vain.
    virtual void resume() = 0;
    /// Drops what was typed.
    virtual void drop() {}
    /// What the end of the form by its frame does. @return false to stay open
    virtual bool endsByFrame() { return mayDrop(); }
    /// Sends the focus to where a check wants it, after a control was left.
    virtual void returnFocus(const forms::Control& left) = 0;

    /// Keeps what is typed, and offers what was. Called when all is laid out.
    /// @param folder must outlive the form
    /// @param name what the user calls the form
    void keepWords(const store::ProgramFolder& folder, const QString& name, words::Place place);

    /// Asks whether what was typed may be dropped, if there is anything.
    bool mayDrop();
    /// @return false when it is not written, which the user has been told
    bool tryToWrite();
    /// A field of an array with the form's rules. @param parent owns it
    forms::EntryField* makeField(const QString& array, int index, QWidget* parent);
    /// Both buttons and before them the keys, as the form's last line.
    QLayout* makeLastLine(const char16_t* writes, const char16_t* drops, const char16_t* keys);

  private:
    void writeAndClose();
    void storno();

    store::DBEngine& engine_;
    card::Actions actions_;
    std::optional<words::Keeper> words_;
    forms::FocusGuard guard_;
};

} // namespace statreturn
