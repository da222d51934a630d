#include "report/PreviewDialog.h"

#include "report/Csv.h"
#include "report/PageView.h"

#include <QAction>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSpinBox>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace report {

/// A command of the tool bar; a row without a name is a separator.
struct PreviewDialog::ActionRow {
    const char* name;
    QString text;
    QKeySequence key;
    void (PreviewDialog::*run)();
};

namespace {

constexpr double zoomStep = 1.2;

} // namespace

PreviewDialog::PreviewDialog(const Pages& pages, ProblemTeller tellProblem, QWidget* parent)
    : QDialog(parent, Qt::Window), pages_(pages), tellProblem_(std::move(tellProblem)),
      toolBar_(new QToolBar(this)), view_(new PageView(pages, this)), pageBox_(new QSpinBox(this)),
      state_(new QLabel(this)) {
    setObjectName(QStringLiteral("preview"));
    setWindowTitle(pages.name());
    setModal(true);
    resize(1200, 740);
    setWindowState(Qt::WindowMaximized);
    toolBar_->setObjectName(QStringLiteral("previewTools"));
    view_->setObjectName(QStringLiteral("previewPages"));
    state_->setObjectName(QStringLiteral("previewState"));
    state_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    state_->setWordWrap(true);
    buildToolBar();
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(4, 4, 4, 4);
    box->addWidget(toolBar_);
    box->addWidget(view_, 1);
    box->addWidget(state_);
    connect(view_, &PageView::pageChanged, this, &PreviewDialog::noticePage);
    state_->setText(pages.note);
    view_->setFocus();
    noticePage();
}

void PreviewDialog::buildToolBar() {
    using P = PreviewDialog;
    addActions(
        {{"print", QStringLiteral("Tlačiť…"), QKeySequence::Print, &P::print},
         {"savePdf", QStringLiteral("Uložiť ako PDF"), QKeySequence::Save, &P::askAndSavePdf}});
    if (!pages_.table.heads.isEmpty())
        addActions({{"saveCsv", QStringLiteral("Uložiť ako CSV"), Qt::CTRL | Qt::SHIFT | Qt::Key_S,
                     &P::askAndSaveCsv}});
    addActions({{},
                {"zoomIn", QStringLiteral("Zväčšiť"), QKeySequence::ZoomIn, &P::zoomIn},
                {"zoomOut", QStringLiteral("Zmenšiť"), QKeySequence::ZoomOut, &P::zoomOut},
                {"fitWidth", QStringLiteral("Na šírku okna"), Qt::CTRL | Qt::Key_1, &P::fitWidth},
                {"fitPage", QStringLiteral("Celá strana"), Qt::CTRL | Qt::Key_0, &P::fitPage},
                {},
                {"firstPage", QStringLiteral("Prvá"), Qt::Key_Home, &P::goToFirst},
                {"previousPage", QStringLiteral("Predošlá"), Qt::Key_PageUp, &P::goToPrevious}});
    addPageBox();
    addActions({{"nextPage", QStringLiteral("Ďalšia"), Qt::Key_PageDown, &P::goToNext},
                {"lastPage", QStringLiteral("Posledná"), Qt::Key_End, &P::goToLast},
                {},
                {"close", QStringLiteral("Zavrieť"), {}, &P::reject}});
}

void PreviewDialog::addActions(std::initializer_list<ActionRow> rows) {
    for (const auto& row : rows) {
        if (!row.name) {
            toolBar_->addSeparator();
            continue;
        }
        QAction* action = toolBar_->addAction(row.text);
        action->setObjectName(QLatin1StringView(row.name));
        action->setShortcut(row.key);
        if (!row.key.isEmpty())
            action->setToolTip(QStringLiteral("%1 (%2)").arg(
                row.text, row.key.toString(QKeySequence::NativeText)));
        connect(action, &QAction::triggered, this, row.run);
    }
}

void PreviewDialog::addPageBox() {
    pageBox_->setObjectName(QStringLiteral("pageNumber"));
    pageBox_->setAccessibleName(QStringLiteral("Strana"));
    pageBox_->setRange(1, view_->pageCount());
    pageBox_->setPrefix(QStringLiteral("Strana "));
    pageBox_->setSuffix(QStringLiteral(" z %1").arg(view_->pageCount()));
    pageBox_->setKeyboardTracking(false);
    connect(pageBox_, &QSpinBox::valueChanged, view_, &PageView::setCurrentPage);
    toolBar_->addWidget(pageBox_);
}

void PreviewDialog::noticePage() {
    const int page = view_->currentPage();
    const QSignalBlocker quiet(pageBox_);
    pageBox_->setValue(page);
    const auto enable = [this](const char* name, bool on) {
        if (auto* action = toolBar_->findChild<QAction*>(QLatin1StringView(name)))
            action->setEnabled(on);
    };
    for (const auto* name : {"firstPage", "previousPage"})
        enable(name, page > pageBox_->minimum());
    for (const auto* name : {"nextPage", "lastPage"})
        enable(name, page < pageBox_->maximum());
}

void PreviewDialog::goToFirst() {
    view_->setCurrentPage(1);
}

void PreviewDialog::goToPrevious() {
    view_->setCurrentPage(view_->currentPage() - 1);
}

void PreviewDialog::goToNext() {
    view_->setCurrentPage(view_->currentPage() + 1);
}

void PreviewDialog::goToLast() {
    view_->setCurrentPage(view_->pageCount());
}

void PreviewDialog::zoomIn() {
    view_->zoomBy(zoomStep);
}

void PreviewDialog::zoomOut() {
    view_->zoomBy(1 / zoomStep);
}

void PreviewDialog::fitWidth() {
    view_->setFit(PageView::Fit::Width);
}

void PreviewDialog::fitPage() {
    view_->setFit(PageView::Fit::Page);
}

void PreviewDialog::print() {
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        return tell(QStringLiteral("Nie je k dispozícii žiadna tlačiareň. Zostavu môžete uložiť "
                                   "ako PDF."));
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(pages_.name());
    printer.setPageLayout(paperOf(pages_.pages.front()));
    QPrintDialog dialog(&printer, this);
    dialog.setObjectName(QStringLiteral("printDialog"));
    dialog.setMinMax(1, view_->pageCount());
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (printer.printRange() != QPrinter::PageRange)
        printer.setPageRanges({});
    if (!printPages(pages_, printer))
        tell(QStringLiteral("Tlač sa nepodarila."));
}

void PreviewDialog::askAndSavePdf() {
    tellOutcome(askAndSave(
        pdfFile(), pages_.name(), [this](QIODevice& file) { return writePdf(pages_, file); },
        this));
}

void PreviewDialog::askAndSaveCsv() {
    tellOutcome(askAndSave(
        csvFile(), pages_.name(), [this](QIODevice& file) { return writeCsv(pages_.table, file); },
        this));
}

void PreviewDialog::savePdf(const QString& path) {
    tellOutcome(saveFile(path, [this](QIODevice& file) { return writePdf(pages_, file); }));
}

void PreviewDialog::tellOutcome(const std::optional<SaveOutcome>& outcome) {
    if (!outcome)
        return;
    if (outcome->saved)
        state_->setText(outcome->text);
    else
        tell(outcome->text);
}

void PreviewDialog::tell(const QString& problem) {
    if (tellProblem_)
        tellProblem_(this, problem);
    else
        state_->setText(problem);
}

void showPreview(const Pages& pages, QWidget* parent, const ProblemTeller& tellProblem) {
    PreviewDialog(pages, tellProblem, parent).exec();
}

} // namespace report
