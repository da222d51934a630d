#pragma once

#include "forms/FieldEvents.h"

#include <QStringList>

namespace forms {
class CodeDropDown;
class FocusGuard;
} // namespace forms

namespace store {
class DataSource;
}

namespace staff {

/// The pick `DBCombo1` of the employee's function, by its name or by its place in the list.
class FunctionPick : public forms::FieldEvents {
  public:
    /// @param functions is open, and must outlive the pick
    FunctionPick(QWidget& window, forms::FocusGuard& guard, store::DataSource& functions);

    forms::CodeDropDown& pick() const { return *pick_; }

    /// What is typed takes the place of the name.
    void gotFocus(const forms::Control& control) override;
    void keyDown(const forms::Control& control, int& key, Qt::KeyboardModifiers modifiers) override;
    forms::Leave lostFocus(const forms::Control& control, const forms::Control& now) override;

  private:
    QWidget& window_;
    forms::CodeDropDown* pick_;
    QStringList names_;
};

} // namespace staff
