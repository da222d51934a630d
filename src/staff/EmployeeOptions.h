#pragma once

#include "forms/FieldEvents.h"
#include "forms/Words.h"

#include <QString>
#include <QStringList>

#include <vector>

class QGroupBox;
class QRadioButton;

namespace forms {
class FocusGuard;
}

namespace store {
class Recordset;
}

namespace staff {

/// The three pairs of options: internal or external, the sex, the qualification. None is chosen
/// until the user or a row does.
class EmployeeOptions : public forms::FieldEvents {
  public:
    EmployeeOptions(QWidget& window, forms::FocusGuard& guard);

    /// The frames of the pairs, from left to right.
    const std::vector<QGroupBox*>& frames() const { return frames_; }
    /// Chooses what the row tells; a pair of which it tells nothing stays as it is.
    /// @throws store::EngineError
    void show(store::Recordset& employee);
    /// Puts what is chosen into the open row; where nothing is, the row stays as it is.
    /// @throws store::EngineError
    void volbyDoZaznamu(store::Recordset& employee) const;
    /// The codes of what is chosen, empty for a pair without a choice.
    QStringList chosen() const;

    /// What is chosen otherwise than before, which chosen() gave.
    forms::Words typed(const QStringList& before) const;
    void enter(const forms::Words& words);

    void keyDown(const forms::Control& control, int& key, Qt::KeyboardModifiers modifiers) override;

  private:
    QWidget& window_;
    std::vector<QGroupBox*> frames_;
    /// Two of each frame.
    std::vector<QRadioButton*> options_;
};

} // namespace staff
