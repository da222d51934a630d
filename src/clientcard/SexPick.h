#pragma once

#include "forms/FieldEvents.h"

#include <QString>

class QWidget;

namespace forms {
class DropDown;
class EntryField;
class FocusGuard;
} // namespace forms

namespace clientcard {

/// The drop-down of "M" and "Z" beside the field of the sex.
class SexPick : public forms::FieldEvents {
  public:
    /// @param array, index the pick's name
    SexPick(forms::FocusGuard& guard, forms::EntryField& field, const QString& array, int index,
            const QString& toolTip, QWidget* parent);
    forms::DropDown& pick() const { return *pick_; }

    void gotFocus(const forms::Control& control) override;
    void click(const forms::Control& control, forms::Area area) override;
    forms::Leave lostFocus(const forms::Control& control, const forms::Control& now) override;
    void keyDown(const forms::Control& control, int& key, Qt::KeyboardModifiers modifiers) override;

  private:
    void take();

    forms::EntryField& field_;
    forms::DropDown* pick_;
};

} // namespace clientcard
