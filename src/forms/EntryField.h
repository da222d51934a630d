#pragma once

#include "forms/Bound.h"

#include <QLineEdit>

namespace forms {

/// A line of text, bound or not. `textEdited` comes from the user alone.
class EntryField : public QLineEdit, public Bound {
    Q_OBJECT
  public:
    explicit EntryField(QWidget* parent = nullptr);

    /// The longest text that can be typed, 0 for no limit of the field's own. A bound field is
    /// limited by its column too.
    void setMaxTyped(int characters);

    /// The text differs from the value that the binding has shown; without a binding from "".
    bool dataChanged() const override { return text() != shown_; }
    QString boundText() const override { return text(); }
    void showBound(const QString& text) override;
    void enter(const QString& text) override { setText(text); }
    void limitTo(int characters) override;

    /// Takes the blanks off both ends and selects the whole text.
    void trimAndSelect();

  private:
    void applyLimit();

    QString shown_;
    int ownLimit_ = 0;
    int columnLimit_ = 0;
};

} // namespace forms
