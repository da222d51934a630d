#pragma once

#include "forms/FieldEvents.h"

#include <QString>

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

/// Which code-list a pick shows, and by which columns it is looked up.
struct CodePickRow {
    const char16_t* name;
    /// Its place in the array of that name, -1 for a lone pick.
    int index = -1;
    const char16_t* toolTip = u"";
    const char16_t* source;
    const char16_t* table;
    /// The name's column when the field holds names and not codes.
    const char16_t* shownColumn = u"roleta";
    const char16_t* codeColumn;
    const char16_t* nameColumn;
};

/// The drop-down of a code-list beside the field that it writes into. What the field holds is what
/// is saved; when the pick is left, the two agree.
class CodePick : public forms::FieldEvents {
  public:
    CodePick(CardFrame& frame, const CodePickRow& row, forms::EntryField& field, QWidget* parent);

    forms::DropDown& pick() const { return *pick_; }
    /// Looks the field's text up. @return true to keep the focus
    bool lookUp();
    /// Shows beside the field what its text means, and drops the pick: what is typed later must not
    /// meet an old one. @throws store::EngineError
    void showMeaning();

    void gotFocus(const forms::Control& control) override;
    void click(const forms::Control& control, forms::Area area) override;
    forms::Leave lostFocus(const forms::Control& control, const forms::Control& now) override;
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
    void giveUp();
    bool holdsNames() const;
    QString meaning() const;

    CardFrame& frame_;
    const CodePickRow row_;
    forms::EntryField& field_;
    store::DataSource& codes_;
    forms::DropDown* pick_;
    /// What the field held when the pick got the focus.
    QString before_;
};

} // namespace clientcard
