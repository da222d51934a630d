#include "datacheck/FrmKontrola.h"

#include "datacheck/FrmVyber.h"
#include "datacheck/Mends.h"
#include "forms/Guard.h"
#include "forms/MessageBox.h"
#include "forms/Metrics.h"
#include "forms/WhyNot.h"
#include "store/EngineError.h"
#include "store/Sql.h"
#include "validation/modKontrola.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QTableWidget>
#include <QVBoxLayout>

namespace datacheck {

namespace {

constexpr QSize startSize(1000, 600);
constexpr int rowsShown = 200;
constexpr int recordLines = 8;

/// What is offered for a finding: in its line, and on the button.
struct RemedyWords {
    const char16_t* offer;
    const char16_t* button;
};
constexpr RemedyWords remedies[] = {
    {u"", u"&Napraviť"},
    {u"priradiť záznamy klientovi, ktorého vyberiete", u"&Priradiť klientovi…"},
    {u"priradiť záznamy zamestnancovi, ktorého vyberiete", u"&Priradiť zamestnancovi…"},
    {u"vytvoriť kľúč z priezviska a mena", u"&Vytvoriť kľúč"},
    {u"doplniť prázdny riadok textov", u"&Doplniť texty"},
    {u"spojiť texty do jedného riadka, nič sa nestratí", u"S&pojiť texty"},
    {u"otvoriť kartu klienta a údaj opraviť", u"&Otvoriť kartu"},
    {u"otvoriť kartu zamestnanca a údaj opraviť", u"&Otvoriť kartu"},
    {u"vytvoriť register nanovo z nepoškodených tabuliek", u"Op&raviť súbor"},
};

const RemedyWords& remedyWords(Remedy remedy) {
    return remedies[static_cast<int>(remedy)];
}

QTableWidget* newFindingList() {
    auto* list = new QTableWidget(0, 3);
    list->setObjectName(QStringLiteral("lstNalezy"));
    list->setAccessibleName(QStringLiteral("Čo sa našlo"));
    list->setHorizontalHeaderLabels(
        {QStringLiteral("Čo sa našlo"), QStringLiteral("Kto"), QStringLiteral("Čo sa dá urobiť")});
    list->verticalHeader()->hide();
    list->horizontalHeader()->setStretchLastSection(true);
    list->setColumnWidth(0, 430);
    list->setColumnWidth(1, 230);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setTabKeyNavigation(false);
    return list;
}

QPlainTextEdit* newRecordView() {
    auto* view = new QPlainTextEdit;
    view->setObjectName(QStringLiteral("txtZaznamy"));
    view->setAccessibleName(QStringLiteral("Záznamy"));
    view->setReadOnly(true);
    view->setTabChangesFocus(true);
    forms::fitToFont(*view,
                     [view] { view->setMaximumHeight(forms::linesHigh(*view, recordLines)); });
    return view;
}

QPushButton* newButton(const char16_t* name, const QString& caption, QHBoxLayout& line) {
    auto* button = new QPushButton(caption);
    button->setObjectName(QString::fromUtf16(name));
    button->setAutoDefault(false);
    line.addWidget(button);
    return button;
}

} // namespace

FrmKontrola::FrmKontrola(store::DBEngine& engine, const store::ProgramFolder& folder,
                         OpenCard openCard, QWidget* parent)
    : QDialog(parent), engine_(engine), folder_(folder), openCard_(std::move(openCard)),
      lblStav_(new QLabel), lblSubor_(new QLabel), lstNalezy_(newFindingList()),
      txtZaznamy_(newRecordView()), prgStav_(new QProgressBar) {
    setObjectName(QStringLiteral("FrmKontrola"));
    setWindowTitle(QStringLiteral("Kontrola údajov"));
    forms::ErrorRoute::of(*this).undoIn(engine_);
    forms::openAs(*this, startSize);
    lblStav_->setObjectName(QStringLiteral("lblStav"));
    lblStav_->setWordWrap(true);
    lblSubor_->setObjectName(QStringLiteral("lblSubor"));
    prgStav_->setObjectName(QStringLiteral("prgStav"));
    prgStav_->setAccessibleName(windowTitle());
    auto* lines = new QVBoxLayout(this);
    for (QWidget* line :
         std::initializer_list<QWidget*>{lblStav_, lblSubor_, lstNalezy_, txtZaznamy_, prgStav_})
        lines->addWidget(line);
    lines->addWidget(buttons());
    connect(lstNalezy_, &QTableWidget::currentCellChanged, this, &FrmKontrola::showChosen);
    connect(lstNalezy_, &QTableWidget::cellActivated, this, &FrmKontrola::mendChosen);
}

FrmKontrola::~FrmKontrola() = default;

QWidget* FrmKontrola::buttons() {
    auto* box = new QWidget;
    auto* line = new QHBoxLayout(box);
    line->setContentsMargins(0, 0, 0, 0);
    cmdNaprav_ = newButton(u"cmdNaprav", QString::fromUtf16(remedies[0].button), *line);
    cmdZnova_ = newButton(u"cmdZnova", QStringLiteral("&Skontrolovať znova"), *line);
    line->addStretch();
    cmdZrusit_ = newButton(u"cmdZrusit", QStringLiteral("Z&rušiť"), *line);
    QPushButton* cmdZavriet = newButton(u"cmdZavriet", QStringLiteral("&Zavrieť"), *line);
    cmdZnova_->setToolTip(QStringLiteral("F5"));
    connect(new QShortcut(QKeySequence(Qt::Key_F5), this), &QShortcut::activated, cmdZnova_,
            &QPushButton::click);
    cmdZrusit_->setToolTip(QStringLiteral("Preruší kontrolu"));
    connect(cmdNaprav_, &QPushButton::clicked, this, &FrmKontrola::mendChosen);
    connect(cmdZnova_, &QPushButton::clicked, this, &FrmKontrola::startAll);
    connect(cmdZrusit_, &QPushButton::clicked, this, [this] {
        fileChecked(FileState::Unknown);
        endRows(false);
    });
    connect(cmdZavriet, &QPushButton::clicked, this, &QDialog::reject);
    return box;
}

void FrmKontrola::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous() && file_ == FileState::Unknown && !isRunning_)
        startAll();
}

/// Enter presses the button in focus. A button of the dialog's own choice would also be pressed by
/// the Enter that the list has taken.
void FrmKontrola::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (isEnter && button != nullptr)
        button->click();
    else
        QDialog::keyPressEvent(event);
}

void FrmKontrola::reject() {
    isRunning_ = false;
    fileCheck_.reset();
    QDialog::reject();
}

void FrmKontrola::startAll() {
    done_.clear();
    line_ = 0;
    startFile();
    startRows();
}

void FrmKontrola::startFile() {
    const auto tell = [this](FileState state) {
        QMetaObject::invokeMethod(
            this,
            [this, state] {
                if (fileCheck_)
                    fileChecked(state);
            },
            Qt::QueuedConnection);
    };
    file_ = FileState::Checking;
    fileCheck_.reset();
    fileCheck_ = std::make_unique<store::BackgroundCheck>(
        QFileInfo(folder_.database()).canonicalFilePath(), [tell] { tell(FileState::Damaged); },
        [tell](bool isRead) { tell(isRead ? FileState::Sound : FileState::Unreadable); });
}

void FrmKontrola::fileChecked(FileState state) {
    fileCheck_.reset();
    if (file_ == FileState::Checking)
        file_ = state;
    if (!isRunning_)
        fill();
    showState();
}

void FrmKontrola::startRows() {
    findings_.clear();
    step_ = 0;
    isRunning_ = true;
    lstNalezy_->setRowCount(0);
    forms::guarded(this, [this] {
        if (!database_)
            database_ = engine_.OpenDatabase(folder_.database());
        checker_.emplace(*database_);
    });
    prgStav_->setRange(0, checker_ ? static_cast<int>(checker_->steps()) : 1);
    QMetaObject::invokeMethod(this, &FrmKontrola::nextStep, Qt::QueuedConnection);
    showState();
}

void FrmKontrola::nextStep() {
    if (!isRunning_)
        return;
    if (!checker_ || step_ == checker_->steps())
        return endRows(checker_.has_value());
    if (!forms::guarded(this, [this] { checker_->run(step_); }))
        return endRows(false);
    prgStav_->setValue(static_cast<int>(++step_));
    QMetaObject::invokeMethod(this, &FrmKontrola::nextStep, Qt::QueuedConnection);
}

void FrmKontrola::endRows(bool isWhole) {
    if (isRunning_ && checker_)
        findings_ = checker_->take();
    isWhole_ = isRunning_ ? isWhole : isWhole_;
    isRunning_ = false;
    checker_.reset();
    fill();
    showState();
}

void FrmKontrola::fill() {
    std::erase_if(findings_,
                  [](const Finding& found) { return found.remedy == Remedy::RepairFile; });
    if (file_ == FileState::Damaged)
        findings_.insert(findings_.begin(),
                         {QStringLiteral("Súbor registra je poškodený"), {}, Remedy::RepairFile});
    lstNalezy_->setRowCount(0);
    for (const Finding& finding : findings_)
        addLine(finding);
    lstNalezy_->resizeRowsToContents();
    if (!findings_.empty())
        lstNalezy_->setCurrentCell(std::min(line_, lstNalezy_->rowCount() - 1), 0);
    lstNalezy_->setFocus();
    showChosen();
}

void FrmKontrola::addLine(const Finding& finding) {
    const int line = lstNalezy_->rowCount();
    lstNalezy_->insertRow(line);
    int column = 0;
    for (const QString& text :
         {finding.what, finding.who, QString::fromUtf16(remedyWords(finding.remedy).offer)})
        lstNalezy_->setItem(line, column++, new QTableWidgetItem(text));
}

void FrmKontrola::showState() {
    const QString found =
        isRunning_  ? QStringLiteral("Kontrolujú sa údaje …")
        : !isWhole_ ? QStringLiteral("Kontrola bola prerušená, zoznam nie je úplný.")
        : findings_.empty()
            ? QStringLiteral("V údajoch sa nenašlo nič, čo by bolo treba opraviť.")
            : QStringLiteral("Nálezy, počet: %1. Nič sa nezmení, kým to nepotvrdíte.")
                  .arg(findings_.size());
    lblStav_->setText(done_.isEmpty() ? found : done_ + u' ' + found);
    constexpr const char16_t* files[] = {
        u"Strany a indexy súboru: neskontrolované", u"Strany a indexy súboru: kontrolujú sa …",
        u"Strany a indexy súboru: v poriadku", u"Strany a indexy súboru: poškodené",
        u"Strany a indexy súboru: nedajú sa čítať"};
    lblSubor_->setText(QString::fromUtf16(files[static_cast<int>(file_)]));
    prgStav_->setVisible(isRunning_);
    forms::setUsable(*cmdZrusit_, isRunning_ || file_ == FileState::Checking,
                     QStringLiteral("Nič sa nekontroluje."));
    forms::setUsable(*cmdZnova_, !isRunning_, QStringLiteral("Kontrola ešte beží."));
    showChosen();
}

const Finding* FrmKontrola::chosen() const {
    const int line = lstNalezy_->currentRow();
    return isRunning_ || line < 0 || line >= static_cast<int>(findings_.size())
               ? nullptr
               : &findings_[static_cast<std::size_t>(line)];
}

void FrmKontrola::showChosen() {
    const Finding* finding = chosen();
    const Remedy remedy = finding != nullptr ? finding->remedy : Remedy::None;
    cmdNaprav_->setText(QString::fromUtf16(remedyWords(remedy).button));
    forms::setUsable(*cmdNaprav_, remedy != Remedy::None,
                     finding == nullptr ? QStringLiteral("Najprv vyberte nález.")
                                        : QStringLiteral("Tento nález sa nedá opraviť odtiaľto."));
    QStringList records;
    if (finding != nullptr)
        forms::showGuarded(this, [&] {
            for (const FoundRow& row : finding->rows)
                if (records.size() < rowsShown)
                    records += wordsOf(row.current(), *row.table);
        });
    txtZaznamy_->setPlainText(records.join(u'\n'));
    txtZaznamy_->setVisible(!records.isEmpty());
}

void FrmKontrola::mendChosen() {
    const Finding* finding = chosen();
    if (finding == nullptr || finding->remedy == Remedy::None)
        return;
    line_ = lstNalezy_->currentRow();
    done_.clear();
    // The list may change while the user decides.
    forms::guarded(this, [this, found = *finding] { mend(found); });
}

void FrmKontrola::mend(const Finding& finding) {
    bool isDone = true;
    switch (finding.remedy) {
    case Remedy::GiveClient:
    case Remedy::GiveWorker:
        isDone = pickAndGive(finding);
        break;
    case Remedy::MakeKey:
        isDone = confirmed(finding, QStringLiteral("Vytvoriť klientovi %1 kľúč ?"));
        if (isDone)
            makeKey(*database_, finding);
        break;
    case Remedy::AddTexts:
        isDone = confirmed(finding, QStringLiteral("Doplniť klientovi %1 prázdny riadok textov ?"));
        if (isDone)
            addTexts(*database_, finding.key);
        break;
    case Remedy::JoinTexts:
        isDone = confirmed(finding, QStringLiteral("Spojiť texty klienta %1 do jedného riadka ?"));
        if (isDone)
            joinTexts(*database_, finding.key);
        break;
    case Remedy::OpenClient:
    case Remedy::OpenEmployee:
        openCard(finding);
        break;
    case Remedy::RepairFile:
        wantsRepair_ = true;
        return accept();
    case Remedy::None:
        break;
    }
    if (isDone)
        startRows();
}

bool FrmKontrola::confirmed(const Finding& finding, const QString& question) {
    const auto answer = forms::showMessage(this, {.text = question.arg(finding.who),
                                                  .title = windowTitle(),
                                                  .icon = QMessageBox::Question,
                                                  .buttons = QMessageBox::Yes | QMessageBox::No});
    if (answer == QMessageBox::Yes)
        done_ = QStringLiteral("Hotovo.");
    return answer == QMessageBox::Yes;
}

bool FrmKontrola::pickAndGive(const Finding& finding) {
    const bool isClient = finding.remedy == Remedy::GiveClient;
    FrmVyber pick(isClient ? FrmVyber::Who::Client : FrmVyber::Who::Employee,
                  finding.what + QStringLiteral("\nVybranej osobe sa priradia záznamy, počet: %1.")
                                     .arg(finding.rows.size()),
                  engine_, folder_, this);
    if (pick.exec() != QDialog::Accepted || pick.key().isEmpty())
        return false;
    (isClient ? giveClient : giveWorker)(*database_, finding, pick.key());
    done_ = QStringLiteral("Priradené záznamy, počet: %1.").arg(finding.rows.size());
    return true;
}

void FrmKontrola::openCard(const Finding& finding) {
    const bool isClient = finding.remedy == Remedy::OpenClient;
    const auto row = database_->OpenRecordset(
        QStringLiteral("select * from %1 where idkod = %2")
            .arg(isClient ? QStringLiteral("k_zaklad") : QStringLiteral("zamestnanci"),
                 store::quoted(finding.key)));
    const auto text = [&](QStringView column) {
        return row->Fields(column).Value().toText();
    };
    modKontrola::gAkcia = 2;
    modKontrola::gIdKod = text(u"idkod");
    modKontrola::gMenoKlienta =
        QStringLiteral(" : ") + text(u"meno") + QStringLiteral("  ") + text(u"priezv");
    openCard_(isClient ? Card::Client : Card::Employee);
}

} // namespace datacheck
