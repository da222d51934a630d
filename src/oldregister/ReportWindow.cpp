#include "oldregister/ReportWindow.h"

#include "forms/MessageBox.h"
#include "forms/Metrics.h"
#include "oldregister/ReportPages.h"
#include "report/Print.h"

#include <QDate>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTableWidget>
#include <QVBoxLayout>

namespace oldregister {

namespace {

constexpr QSize startSize(1220, 700);
constexpr int rowPadding = 8;
constexpr int countListLetters = 58;
/// Fitting the height of each row takes its time.
constexpr std::size_t mostFitted = 500;
/// A long text is read in the saved report; here it must not push the others out of sight.
constexpr int longestShown = 300;

QTableWidget* newList(const QString& name, const QString& caption, const QStringList& columns) {
    auto* list = new QTableWidget(0, static_cast<int>(columns.size()));
    list->setObjectName(name);
    list->setAccessibleName(caption);
    list->setHorizontalHeaderLabels(columns);
    list->verticalHeader()->hide();
    forms::fitToFont(*list, [list] {
        list->verticalHeader()->setDefaultSectionSize(list->fontMetrics().height() + rowPadding);
    });
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->setTabKeyNavigation(false);
    return list;
}

void addRow(QTableWidget& list, const QStringList& cells, Qt::Alignment ofNumbers = {}) {
    const int row = list.rowCount();
    list.insertRow(row);
    for (int column = 0; column < cells.size(); ++column) {
        const QString& whole = cells[column];
        auto* item = new QTableWidgetItem(
            whole.size() > longestShown ? whole.left(longestShown) + u'…' : whole);
        if (column > 0 && ofNumbers != Qt::Alignment())
            item->setTextAlignment(ofNumbers);
        list.setItem(row, column, item);
    }
}

QString documentsFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

QString nameOf(const QString& path) {
    return QFileInfo(path).fileName();
}

QString headline(const ConversionReport& report) {
    QStringList lines{QStringLiteral("Prevod sa skončil. Prečítaných riadkov: %1, zapísaných: %2.")
                          .arg(report.rowsRead())
                          .arg(report.rowsWritten())};
    if (!report.keptFile.isEmpty())
        lines += QStringLiteral("Pôvodný súbor ostal nezmenený ako %1, táto správa leží vedľa neho "
                                "ako %2.")
                     .arg(nameOf(report.keptFile), nameOf(report.reportFile));
    if (!report.protection.isEmpty())
        lines += report.protection;
    lines += report.summary();
    return lines.join(u'\n');
}

} // namespace

ReportWindow::ReportWindow(ConversionReport report, QWidget* parent)
    : QDialog(parent), report_(std::move(report)) {
    setObjectName(QStringLiteral("frmPrevod"));
    setWindowTitle(QStringLiteral("Prevod registra z pôvodného formátu"));
    forms::openAs(*this, startSize);
    auto* layout = new QVBoxLayout(this);
    auto* words = new QLabel(headline(report_));
    words->setObjectName(QStringLiteral("lblPrevod"));
    words->setTextFormat(Qt::PlainText);
    words->setWordWrap(true);
    layout->addWidget(words);
    auto* lists = new QHBoxLayout;
    lists->addWidget(countList());
    if (!report_.findings.empty())
        lists->addWidget(findingList(), 1);
    layout->addLayout(lists, 1);
    layout->addWidget(buttons());
    findChild<QPushButton*>(QStringLiteral("cmdZavri"))->setFocus();
}

QWidget* ReportWindow::countList() {
    auto* list = newList(
        QStringLiteral("lstTabulky"), QStringLiteral("Riadky tabuliek"),
        {QStringLiteral("Tabuľka"), QStringLiteral("Prečítané"), QStringLiteral("Zapísané")});
    for (const TableCount& count : report_.tables)
        addRow(
            *list,
            {captionOf(count.table), QString::number(count.read), QString::number(count.written)},
            Qt::AlignRight | Qt::AlignVCenter);
    list->resizeColumnsToContents();
    if (!report_.findings.empty())
        forms::fitToFont(
            *list, [list] { list->setFixedWidth(forms::lettersWide(*list, countListLetters)); });
    return list;
}

QWidget* ReportWindow::findingList() {
    auto* list = newList(QStringLiteral("lstVynimky"), QStringLiteral("Čo sa nedalo preniesť"),
                         {QStringLiteral("Osoba"), QStringLiteral("Tabuľka"),
                          QStringLiteral("Čo sa nedalo"), QStringLiteral("Obsah")});
    for (const Finding& finding : report_.findings)
        addRow(*list, {finding.client, captionOf(finding.table), finding.what, finding.content});
    list->horizontalHeader()->setStretchLastSection(true);
    list->setColumnWidth(0, 190);
    list->setColumnWidth(1, 170);
    list->setColumnWidth(2, 290);
    if (report_.findings.size() <= mostFitted)
        list->resizeRowsToContents();
    return list;
}

QWidget* ReportWindow::buttons() {
    auto* box = new QDialogButtonBox;
    const auto add = [&](const char16_t* name, const QString& caption,
                         QDialogButtonBox::ButtonRole role) {
        QPushButton* button = box->addButton(caption, role);
        button->setObjectName(QString::fromUtf16(name));
        button->setAutoDefault(role == QDialogButtonBox::AcceptRole);
        return button;
    };
    using Role = QDialogButtonBox::ButtonRole;
    connect(add(u"cmdUloz", QStringLiteral("&Uložiť správu…"), Role::ActionRole),
            &QPushButton::clicked, this, &ReportWindow::askAndSave);
    connect(add(u"cmdTlac", QStringLiteral("&Tlačiť…"), Role::ActionRole), &QPushButton::clicked,
            this, &ReportWindow::print);
    QPushButton* close = add(u"cmdZavri", QStringLiteral("&Pokračovať"), Role::AcceptRole);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    return box;
}

void ReportWindow::saveAs(const QString& path) {
    QSaveFile file(path);
    const QByteArray text = report_.text().toUtf8();
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
        return;
    forms::showMessage(this,
                       {.text = QStringLiteral("Správa sa nedá uložiť: ") + file.errorString(),
                        .title = QStringLiteral("Chybová správa"),
                        .icon = QMessageBox::Critical});
}

void ReportWindow::askAndSave() {
    const QString path = QFileDialog::getSaveFileName(
        this, QStringLiteral("Kam uložiť správu o prevode"),
        documentsFolder() + QStringLiteral("/prevod.txt"), QStringLiteral("Textové súbory (*.txt)"),
        nullptr, QFileDialog::DontUseNativeDialog | QFileDialog::HideNameFilterDetails);
    if (!path.isEmpty())
        saveAs(path);
}

void ReportWindow::print() {
    report::showPreview(
        pagesOf(report_, QDate::currentDate()), this, [](QWidget* window, const QString& problem) {
            forms::showMessage(window, {.text = problem, .icon = QMessageBox::Warning});
        });
}

} // namespace oldregister
