#pragma once

#include "forms/Bound.h"

#include <QClipboard>
#include <QLineEdit>

namespace forms {

/// A line of text, bound or not. `textEdited` comes from the user alone. What is pasted or dropped
/// comes in as one line: breaks and tabs between words become a blank, invisible characters go.
class EntryField : public QLineEdit, public Bound {
    Q_OBJECT
  public:
    explicit EntryField(QWidget* parent = nullptr);

    /// The longest text that can be typed, 0 for no limit of the field's own. A bound field is
    /// limited by its column too.
    void setMaxTyped(int characters);
    /// Takes only the digits of what is pasted. What is typed is the rules' (FieldEvents).
    void setDigitsOnly(bool digitsOnly) { digitsOnly_ = digitsOnly; }

    /// Shows another text, which the user can undo. No event of the user.
    void setText(const QString& text);
    /// Takes the blanks off both ends and selects the whole text.
    void trimAndSelect();

    /// The text differs from the value that the binding has shown; without a binding from "".
    bool dataChanged() const override { return text() != shown_; }
    QString boundText() const override { return text(); }
    /// The texts of another row can't be undone.
    void showBound(const QString& text) override;
    void enter(const QString& text) override { setText(text); }
    void limitTo(int characters) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void applyLimit();
    void pasteFrom(QClipboard::Mode mode);
    QString fitting(const QString& foreign) const;

    QString shown_;
    int ownLimit_ = 0;
    int columnLimit_ = 0;
    bool digitsOnly_ = false;
};

} // namespace forms
