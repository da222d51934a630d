#pragma once

#include "forms/DropDown.h"

namespace forms {

/// A drop-down of a code-list that shows the names and is bound to a column of the codes. A text
/// that is no line of the list leaves the code as it is.
class CodeDropDown : public DropDown {
    Q_OBJECT
  public:
    /// @param codes must outlive the drop-down
    CodeDropDown(store::DataSource& codes, const QString& codeColumn, const QString& nameColumn,
                 QWidget* parent);

    bool dataChanged() const override { return boundText() != code_; }
    QString boundText() const override;
    void showBound(const QString& code) override;
    void enter(const QString& code) override;
    /// The width is that of the code, which is not typed.
    void limitTo(int /*characters*/) override {}

  private:
    QString nameOf(const QString& code) const;

    store::DataSource& codes_;
    const QString codeColumn_;
    const QString nameColumn_;
    QString code_;
    /// How the code was shown.
    QString name_;
};

} // namespace forms
