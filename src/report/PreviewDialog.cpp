#include "report/PreviewDialog.h"

#include "report/Csv.h"
#include "report/PageView.h"

#include <QAction>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProgressDialog>
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

/// Its name and key.
QString tipOf(const QAction& action) {
    const QString key = action.shortcut().toString(QKeySequence::NativeText);
    return key.isEmpty() ? action.text() : QStringLiteral("%1 (%2)").arg(action.text(), key);
}

} // namespace

PreviewDialog::PreviewDialog(const Pages& pages, ProblemTeller tellProblem, QWidget* parent)
    : QDialog(parent, Qt::Window), pages_(pages), tellProblem_(std::move(tellProblem)),
      toolBar_(new QToolBar(this)), pageBar_(new QToolBar(this)), bars_(new QHBoxLayout),
      view_(new PageView(pages, this)), pageBox_(new QSpinBox(this)), state_(new QLabel(this)) {
    setObjectName(QStringLiteral("preview"));
    setWindowTitle(pages.name());
    setModal(true);
    resize(1200, 740);
    setWindowState(Qt::WindowMaximized);
    toolBar_->setObjectName(QStringLiteral("previewTools"));
    view_->setObjectName(QStringLiteral("previewPages"));
    state_->setObjectName(QStringLiteral("previewState"));
    auto* note = new QLabel(pages.note, this);
    note->setObjectName(QStringLiteral("previewNote"));
    note->setWordWrap(true);
    note->setVisible(!pages.note.isEmpty());
    buildToolBar();
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(4, 4, 4, 4);
    box->addLayout(bars_);
    bars_->addWidget(toolBar_);
    bars_->addWidget(pageBar_);
    box->addWidget(note);
    box->addWidget(view_, 1);
    box->addWidget(state_);
    connect(view_, &PageView::pageChanged, this, &PreviewDialog::noticePage);
    connect(&looker_, &QTimer::timeout, this, &PreviewDialog::lookOn);
    looker_.start(0);
    view_->setFocus();
    lookOn();
}

void PreviewDialog::buildToolBar() {
    using P = PreviewDialog;
    addActions(*toolBar_, {{"print", QStringLiteral("Tlačiť…"), QKeySequence::Print, &P::print},
                           {"savePdf", QStringLiteral("Uložiť ako PDF"), QKeySequence::Save,
                            &P::askAndSavePdf}});
    if (!pages_.table.heads.isEmpty())
        addActions(*toolBar_, {{"saveCsv", QStringLiteral("Uložiť ako CSV"),
                                Qt::CTRL | Qt::SHIFT | Qt::Key_S, &P::askAndSaveCsv}});
    addActions(*toolBar_,
               {{},
                {"zoomIn", QStringLiteral("Zväčšiť"), QKeySequence::ZoomIn, &P::zoomIn},
                {"zoomOut", QStringLiteral("Zmenšiť"), QKeySequence::ZoomOut, &P::zoomOut},
                {"fitWidth", QStringLiteral("Na šírku okna"), Qt::CTRL | Qt::Key_1, &P::fitWidth},
                {"fitPage", QStringLiteral("Celá strana"), Qt::CTRL | Qt::Key_0, &P::fitPage}});
    addActions(*pageBar_,
               {{"firstPage", QStringLiteral("Prvá"), Qt::Key_Home, &P::goToFirst},
                {"previousPage", QStringLiteral("Predošlá"), Qt::Key_PageUp, &P::goToPrevious}});
    addPageBox();
    addActions(*pageBar_, {{"nextPage", QStringLiteral("Ďalšia"), Qt::Key_PageDown, &P::goToNext},
                           {"lastPage", QStringLiteral("Posledná"), Qt::Key_End, &P::goToLast},
                           {},
                           {"close", QStringLiteral("Zavrieť"), {}, &P::reject}});
}

void PreviewDialog::addActions(QToolBar& bar, std::initializer_list<ActionRow> rows) {
    for (const auto& row : rows) {
        if (!row.name) {
            bar.addSeparator();
            continue;
        }
        QAction* action = bar.addAction(row.text);
        action->setObjectName(QLatin1StringView(row.name));
        action->setShortcut(row.key);
        action->setToolTip(tipOf(*action));
        connect(action, &QAction::triggered, this, row.run);
    }
}

void PreviewDialog::addPageBox() {
    pageBox_->setObjectName(QStringLiteral("pageNumber"));
    pageBox_->setAccessibleName(QStringLiteral("Strana"));
    pageBox_->setPrefix(QStringLiteral("Strana "));
    pageBox_->setKeyboardTracking(false);
    connect(pageBox_, &QSpinBox::valueChanged, view_, &PageView::setCurrentPage);
    pageBar_->addWidget(pageBox_);
}

void PreviewDialog::resizeEvent(QResizeEvent* event) {
    const bool fits = toolBar_->sizeHint().width() + pageBar_->sizeHint().width() < width();
    bars_->setDirection(fits ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    QDialog::resizeEvent(event);
}

/// Looks for the pages behind those that are known.
void PreviewDialog::lookOn() {
    pages_.pages.lookOn();
    showCount();
    if (!pages_.pages.isComplete())
        return;
    looker_.stop();
    // Its foot tells the number of all pages.
    view_->refresh();
}

void PreviewDialog::showCount() {
    const QSignalBlocker quiet(pageBox_);
    pageBox_->setRange(1, view_->pageCount());
    pageBox_->setSuffix(
        (pages_.pages.isComplete() ? QStringLiteral(" z %1") : QStringLiteral(" z %1…"))
            .arg(view_->pageCount()));
    noticePage();
}

void PreviewDialog::noticePage() {
    const int page = view_->currentPage();
    const QSignalBlocker quiet(pageBox_);
    pageBox_->setValue(page);
    const auto enable = [this](const char* name, bool on, const QString& whyNot) {
        auto* action = findChild<QAction*>(QLatin1StringView(name));
        if (action == nullptr)
            return;
        action->setEnabled(on);
        action->setToolTip(on ? tipOf(*action) : tipOf(*action) + u'\n' + whyNot);
    };
    for (const auto* name : {"firstPage", "previousPage"})
        enable(name, page > pageBox_->minimum(), QStringLiteral("Toto je prvá strana."));
    for (const auto* name : {"nextPage", "lastPage"})
        enable(name, page < pageBox_->maximum(), QStringLiteral("Toto je posledná strana."));
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
    pages_.pages.size();
    lookOn();
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
    const bool printed = goThrough(QStringLiteral("Tlačí sa…"), [&](const Progress& progress) {
        return printPages(pages_, printer, progress);
    });
    if (!printed && !std::exchange(givenUp_, false))
        tell(QStringLiteral("Tlač sa nepodarila."));
}

bool PreviewDialog::goThrough(const QString& what,
                              const std::function<bool(const Progress&)>& work) {
    QProgressDialog window(what, QStringLiteral("Zrušiť"), 0, 0, this);
    window.setObjectName(QStringLiteral("progress"));
    window.setWindowTitle(windowTitle());
    window.setWindowModality(Qt::WindowModal);
    window.setMinimumDuration(static_cast<int>(patience_.count()));
    givenUp_ = false;
    return work([this, &window](std::size_t done, std::size_t count) {
        window.setMaximum(int(count));
        window.setValue(int(done));
        givenUp_ = window.wasCanceled();
        return !givenUp_;
    });
}

bool PreviewDialog::writesPdf(QIODevice& file) {
    return goThrough(QStringLiteral("Ukladá sa PDF…"),
                     [&](const Progress& progress) { return writePdf(pages_, file, progress); });
}

void PreviewDialog::askAndSavePdf() {
    tellOutcome(askAndSave(
        pdfFile(), pages_.name(), [this](QIODevice& file) { return writesPdf(file); }, this));
}

void PreviewDialog::askAndSaveCsv() {
    tellOutcome(askAndSave(
        csvFile(), pages_.name(), [this](QIODevice& file) { return writeCsv(pages_.table, file); },
        this));
}

void PreviewDialog::savePdf(const QString& path) {
    tellOutcome(saveFile(path, [this](QIODevice& file) { return writesPdf(file); }));
}

void PreviewDialog::tellOutcome(const std::optional<SaveOutcome>& outcome) {
    if (!outcome)
        return;
    if (std::exchange(givenUp_, false))
        say(QStringLiteral("Zrušené, nič sa neuložilo."));
    else if (outcome->saved)
        say(outcome->text);
    else
        tell(outcome->text);
}

void PreviewDialog::say(const QString& words) {
    state_->setText(words);
    // Nobody is led to an empty line.
    state_->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void PreviewDialog::tell(const QString& problem) {
    if (tellProblem_)
        tellProblem_(this, problem);
    else
        say(problem);
}

void showPreview(const Pages& pages, QWidget* parent, const ProblemTeller& tellProblem) {
    PreviewDialog(pages, tellProblem, parent).exec();
}

} // namespace report
