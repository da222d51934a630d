#include "report/PreviewDialog.h"

#include "report/PageView.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QSpinBox>
#include <QStandardPaths>
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
const QString pdfSuffix = QStringLiteral(".pdf");

/// A file name of that wording, without what file systems refuse or people can't type, and short
/// enough for all of them.
QString fileName(const QString& wording) {
    static const QRegularExpression unfit(QStringLiteral("[^\\w –-]|_"),
                                          QRegularExpression::UseUnicodePropertiesOption);
    constexpr qsizetype mostBytes = 200;
    QString name = QString(wording).replace(u'/', u'-').remove(unfit).simplified();
    while (name.toUtf8().size() > mostBytes)
        name.chop(1);
    return name.isEmpty() ? QStringLiteral("zostava") : name.trimmed();
}

/// Where pages of that name are saved if the user agrees: among their documents.
QString suggestedPath(const QString& name) {
    const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    return (documents.exists() ? documents : QDir::home()).filePath(fileName(name) + pdfSuffix);
}

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
    buildToolBar();
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(4, 4, 4, 4);
    box->addWidget(toolBar_);
    box->addWidget(view_, 1);
    box->addWidget(state_);
    connect(view_, &PageView::pageChanged, this, &PreviewDialog::noticePage);
    view_->setFocus();
    noticePage();
}

void PreviewDialog::buildToolBar() {
    using P = PreviewDialog;
    addActions(
        {{"print", QStringLiteral("Tlačiť…"), QKeySequence::Print, &P::print},
         {"savePdf", QStringLiteral("Uložiť ako PDF"), QKeySequence::Save, &P::askAndSavePdf},
         {},
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
    if (const QString path = askPdfPath(); !path.isEmpty())
        savePdf(path);
}

/// Empty when the user has cancelled, or when the name they meant is another file's.
QString PreviewDialog::askPdfPath() {
    QFileDialog dialog(this, QStringLiteral("Uložiť ako PDF"), suggestedPath(pages_.name()));
    dialog.setObjectName(QStringLiteral("pdfDialog"));
    // The system's own dialog speaks the system's language.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(QStringLiteral("Dokumenty PDF (*.pdf)"));
    dialog.setDefaultSuffix(pdfSuffix);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    QString chosen = dialog.selectedFiles().value(0);
    if (chosen.endsWith(pdfSuffix, Qt::CaseInsensitive))
        return chosen;
    // The dialog leaves names with another suffix alone and has asked about that name only.
    QString path = chosen + pdfSuffix;
    if (!QFileInfo::exists(path))
        return path;
    tell(QStringLiteral("Súbor %1 už existuje. Zvoľte iný názov.").arg(path));
    return {};
}

void PreviewDialog::savePdf(const QString& path) {
    QSaveFile file(path);
    const bool saved = file.open(QIODevice::WriteOnly) && writePdf(pages_, file) && file.commit();
    if (saved)
        state_->setText(QStringLiteral("Uložené do súboru %1").arg(QDir::toNativeSeparators(path)));
    else
        tell(
            QStringLiteral("Súbor %1 sa nepodarilo uložiť. Skontrolujte, či priečinok existuje, či "
                           "sa doň smie zapisovať a či je na disku miesto.")
                .arg(QDir::toNativeSeparators(path)));
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
