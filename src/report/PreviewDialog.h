#pragma once

#include "report/Print.h"
#include "report/SaveFile.h"

#include <QDialog>
#include <QTimer>

#include <chrono>
#include <initializer_list>
#include <optional>

class QAction;
class QIODevice;
class QLabel;
class QSpinBox;
class QToolBar;

namespace report {

class PageView;

/// The window that shows a finished report: one page at a time, with zoom and page turning; from it
/// the pages go to a printer or into a PDF file, and a plain table into a CSV file. The first page
/// stands at once; those behind it are looked for meanwhile. Esc closes it.
class PreviewDialog : public QDialog {
    Q_OBJECT

  public:
    /// @param pages have to outlive the window
    PreviewDialog(const Pages& pages, ProblemTeller tellProblem, QWidget* parent = nullptr);

    /// Writes the pages into that file, which is replaced as a whole or not at all.
    void savePdf(const QString& path);
    /// How long a work goes on unseen before its progress is shown.
    void showProgressAfter(std::chrono::milliseconds patience) { patience_ = patience; }

  private:
    struct ActionRow;

    void buildToolBar();
    void addActions(std::initializer_list<ActionRow> rows);
    void addPageBox();
    void lookOn();
    void showCount();
    bool writesPdf(QIODevice& file);
    /// Runs what goes through all pages; a window tells how far it is and lets the user give up.
    bool goThrough(const QString& what, const std::function<bool(const Progress&)>& work);
    void noticePage();
    void goToFirst();
    void goToPrevious();
    void goToNext();
    void goToLast();
    void zoomIn();
    void zoomOut();
    void fitWidth();
    void fitPage();
    void print();
    void askAndSavePdf();
    void askAndSaveCsv();
    void tellOutcome(const std::optional<SaveOutcome>& outcome);
    void say(const QString& words);
    void tell(const QString& problem);

    const Pages& pages_;
    std::chrono::milliseconds patience_{300};
    ProblemTeller tellProblem_;
    QToolBar* toolBar_;
    PageView* view_;
    QSpinBox* pageBox_;
    QLabel* state_;
    QTimer looker_;
    bool givenUp_ = false;
};

} // namespace report
