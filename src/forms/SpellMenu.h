#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QTextCursor>
#include <QTimer>

class QMenu;
class QTextEdit;

namespace spelling {
class Speller;
}

namespace forms {

/// The menu of a text in which spelling is checked. Other words for an unknown one may take seconds
/// to be found: the menu does not wait for them, and what it has stays in its place when they come.
class SpellMenu : public QObject {
    Q_OBJECT
  public:
    /// @param editor, speller must outlive this
    SpellMenu(QTextEdit& editor, spelling::Speller& speller);

    /// A word that may be replaced.
    struct Offer {
        /// What has it selected.
        QTextCursor place;
        /// As the dictionary would have it.
        QString word;
        /// Where the menu opens, on the screen.
        QPoint at;
        /// With what the menu of a text has anyway.
        bool withEditing = false;
    };
    void open(const Offer& offer);
    /// Where no word is unknown.
    void openPlain(const QPoint& at);
    /// The user has gone on: a menu that is still to open does not.
    void giveUp() { waiting_.stop(); }

  Q_SIGNALS:
    void nextAsked();
    void added(const QString& word);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void show(const QStringList* words);
    void addWords(QMenu& menu, const QStringList* words);
    void addCommands(QMenu& menu);
    void suggested(const QStringList& words);
    void replace(const QString& word);

    QTextEdit& editor_;
    spelling::Speller& speller_;
    Offer offer_;
    /// How many offers there have been, so that an answer to an earlier one is known as such.
    int offers_ = 0;
    QTimer waiting_;
    QPointer<QMenu> menu_;
};

} // namespace forms
