#pragma once

#include "forms/SpellMenu.h"
#include "forms/SpellSearch.h"
#include "spelling/Words.h"

#include <optional>

class QContextMenuEvent;
class QLabel;
class QPainter;
class QTextBlock;

namespace forms {

/// Spelling in a text that is being written: underlines on the screen what the dictionary does not
/// know, but for the word that is just being typed, and offers other words. The document itself is
/// never touched before one of them is chosen. A text that can only be read is left alone.
class SpellCheck : public QObject {
    Q_OBJECT
  public:
    /// @param line tells keys and troubles; all three must outlive this
    SpellCheck(QTextEdit& editor, spelling::Speller& speller, QLabel& line);

    /// To be called when the editor has painted this part of itself.
    void paint(const QRect& area);
    /// Opens the menu of the editor.
    void openMenu(const QContextMenuEvent& event);
    /// Goes to the next unknown word, behind the last one to the first, and offers others for it.
    void findNext();
    /// Another text is on show, or it can be written from now on, or no longer.
    void begin();
    bool isOn() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool isUnderlined(const QTextBlock& block, const spelling::Word& word);
    bool paintBlock(QPainter& painter, const QTextBlock& block, int from, int bottom);
    void setTyped(int start);
    void textChanged(int from, int added);
    void cursorMoved();
    void leave();
    void offer(int from, int length);
    void tell(const QString& text);
    void tellUsual();

    QTextEdit& editor_;
    spelling::Speller& speller_;
    QLabel& line_;
    SpellSearch search_;
    SpellMenu menu_;
    /// Where the word begins that is just being typed, -1 for none.
    int typed_ = -1;
};

} // namespace forms
