#pragma once

#include "report/Print.h"
#include "report/SaveFile.h"

#include <QDialog>

#include <initializer_list>
#include <optional>

class QAction;
class QLabel;
class QSpinBox;
class QToolBar;

namespace report {

class PageView;

/// The window that shows a finished report: one page at a time, with zoom and page turning; from it
/// the pages go to a printer or into a PDF file, and a plain table into a CSV file. Esc closes it.
class PreviewDialog : public QDialog {
    Q_OBJECT

  public:
    /// @param pages have to outlive the window
    PreviewDialog(const Pages& pages, ProblemTeller tellProblem, QWidget* parent = nullptr);

    /// Writes the pages into that file, which is replaced as a whole or not at all.
    void savePdf(const QString& path);

  private:
    struct ActionRow;

    void buildToolBar();
    void addActions(std::initializer_list<ActionRow> rows);
    void addPageBox();
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
    void tell(const QString& problem);

    const Pages& pages_;
    ProblemTeller tellProblem_;
    QToolBar* toolBar_;
    PageView* view_;
    QSpinBox* pageBox_;
    QLabel* state_;
};

} // namespace report
