#pragma once

#include <QDialog>

class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace help {

/// The window of help over the window in front: the pages, a search in them, and the page chosen.
/// One works on in the window behind while it stands.
class HelpWindow : public QDialog {
    Q_OBJECT
  public:
    /// Owned by its parent, gone when it is closed.
    explicit HelpWindow(QWidget* parent);
    /// Brings a page onto the screen. @param page an index of helpPages()
    void showPage(std::size_t page);

  private:
    void layOut();
    void search();
    void pageChosen();
    void markWords();
    void nextHit();

    QLineEdit* question_;
    QListWidget* titles_;
    QTextBrowser* text_;
};

/// Opens the window of help at the page about `widget`, or brings it to the front.
void showHelp(QWidget* widget);

} // namespace help
