#pragma once

#include "forms/Bound.h"

#include <QTextEdit>
#include <QWidget>

#include <array>
#include <optional>
#include <vector>

class QToolButton;

namespace spelling {
class Speller;
}

namespace forms {

class KeyHint;

/// A field of rich text: bold, italic, underlined, lists, with a small tool bar and the usual keys
/// (Ctrl+B, Ctrl+I, Ctrl+U, Ctrl+Shift+L, Ctrl+Shift+N). Tab leaves the field. What is pasted is
/// reduced to what the field keeps. Its text in store is told in
/// report/StoredText.h.
class RichText : public QWidget, public Bound {
    Q_OBJECT
  public:
    explicit RichText(QWidget* parent = nullptr);

    /// The stored form.
    QString text() const;
    /// Shows a stored text; the steps to undo are forgotten.
    void setText(const QString& stored);
    /// A field that can't be written can still be read and scrolled.
    /// @param whyNot said by the tip
    void setReadOnly(bool readOnly, const QString& whyNot = {});
    /// From now on spelling is checked while the field can be written.
    void setSpelling(spelling::Speller& speller);

    bool dataChanged() const override { return text() != shown_; }
    QString boundText() const override { return text(); }
    void showBound(const QString& text) override;
    void enter(const QString& text) override { setText(text); }
    void limitTo(int /*characters*/) override {}
    bool showsLate() const override { return true; }

    QTextEdit& editor();
    /// What Tab leads to, in order: the tools, of which one takes the focus, and the text.
    std::vector<QWidget*> tabStops() const;

  Q_SIGNALS:
    /// The user changed the text.
    void textEdited();

  private:
    enum Tool { Bold, Italic, Underlined, Bullets, Numbers, ToolCount };

    void addTools(QWidget& bar);
    void showState();

    class Editor;
    Editor* editor_;
    std::array<QToolButton*, ToolCount> tools_{};
    KeyHint* spellingLine_ = nullptr;
    QString shown_;
    /// The stored form of what the field shows, made when it is asked for.
    mutable std::optional<QString> text_;
};

} // namespace forms
