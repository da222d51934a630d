#pragma once

#include "words/Book.h"

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;
class QTextEdit;

namespace words {

/// Words that are kept, as text that can be copied, with whose they are and from when. They can be
/// thrown away here; nothing is written into the register.
class FrmSlova : public QDialog {
    Q_OBJECT
  public:
    /// @param book must outlive the window
    explicit FrmSlova(Book& book, QWidget* parent = nullptr);

    /// Shows these words, which need not be in the book any more.
    void showAlone(const Kept& kept);
    bool hasThrownAway() const { return hasThrownAway_; }

  private:
    void layOut();
    void fill();
    void showChosen();
    void copy();
    void throwAway();
    const Kept* chosen() const;

    Book& book_;
    KeptWords shown_;
    QListWidget* lstSlova_;
    QTextEdit* rtbSlova_;
    QLabel* lblStav_;
    QPushButton* cmdKopirovat_;
    QPushButton* cmdZahodit_;
    bool hasThrownAway_ = false;
};

} // namespace words
