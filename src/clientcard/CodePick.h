#pragma once

#include "forms/FieldEvents.h"

#include <QString>
#include <QStringView>

class QWidget;

namespace forms {
class DropDown;
class EntryField;
} // namespace forms

namespace store {
class DataSource;
}

namespace clientcard {

class CardFrame;

/// Shows in a code-list's drop-down what a code means; empty for an unknown one. Drops the pick.
/// @throws store::EngineError
void showMeaningOf(const QString& code, forms::DropDown& pick, store::DataSource& codes,
                   QStringView codeColumn);

/// Which code-list a record's pick shows, and by which columns it is looked up.
struct CodePickRow {
    const char16_t* name;
    const char16_t* toolTip;
    const char16_t* source;
    const char16_t* table;
    const char16_t* codeColumn;
    const char16_t* nameColumn;
};

/// The drop-down of a code-list beside the field that it writes the code into.
class CodePick : public forms::FieldEvents {
  public:
    CodePick(CardFrame& frame, const CodePickRow& row, forms::EntryField& field, QWidget* parent);

    forms::DropDown& pick() const { return *pick_; }
    /// Looks the field's code up. @return true to keep the focus
    bool lookUp();
    /// Shows beside the code what it means. @throws store::EngineError
    void showMeaning();

    void click(const forms::Control& control, forms::Area area) override;
    void keyDown(const forms::Control& control, int& key, Qt::KeyboardModifiers modifiers) override;

  protected:
    /// The pick was clicked. @return false to do nothing else
    virtual bool opens(forms::Area /*area*/) { return true; }
    /// Takes what was picked into the field.
    virtual void take() = 0;

    CardFrame& frame() const { return frame_; }
    forms::EntryField& field() const { return field_; }
    store::DataSource& codes() const { return codes_; }

  private:
    CardFrame& frame_;
    const CodePickRow& row_;
    forms::EntryField& field_;
    store::DataSource& codes_;
    forms::DropDown* pick_;
};

} // namespace clientcard
