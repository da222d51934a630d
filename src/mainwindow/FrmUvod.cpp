#include "mainwindow/FrmUvod.h"

#include "forms/Guard.h"
#include "forms/LongWork.h"
#include "forms/MessageBox.h"
#include "forms/Metrics.h"
#include "forms/Twips.h"
#include "mainwindow/ButtonPanel.h"
#include "mainwindow/Exit.h"
#include "mainwindow/ListPane.h"
#include "mainwindow/SchoolYear.h"
#include "statreturn/ReturnPrints.h"
#include "store/BackgroundCheck.h"
#include "store/EngineError.h"
#include "store/IndexRepair.h"
#include "validation/modKontrola.h"
#include "words/Keeper.h"
#include "words/OfferLine.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QTimer>
#include <QVBoxLayout>

#include <chrono>
#include <optional>
#include <utility>

namespace mainwindow {

namespace {

constexpr int frameWidth = forms::pixels(3360) - 14;
constexpr QSize startSize(1280, 800);

bool isUnusable(int number) {
    return number == 3228 || number == 3343;
}

QString openingText(store::DBEngine::Opening what) {
    if (what == store::DBEngine::Opening::Checks)
        return QStringLiteral("Posledný zápis do registra sa prerušil, preto sa kontroluje celý. "
                              "Pri veľkom registri to chvíľu trvá. Prosím, počkajte.");
    return QStringLiteral("Register sa raz prispôsobuje tejto verzii programu. Pri veľkom registri "
                          "to môže trvať aj niekoľko minút. Prosím, počkajte.");
}

} // namespace

FrmUvod::FrmUvod(const Surroundings& around)
    : around_(around), panel_(new ButtonPanel),
      lists_(new ListPane(around, [this](Screen screen) { openScreen(screen); })),
      found_(new words::OfferLine(this)) {
    setObjectName(QStringLiteral("FrmUvod"));
    setWindowTitle(
        QStringLiteral("TVK – evidencia klientov centra špeciálno-pedagogického poradenstva"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/tvk.svg")));
    auto* centre = new QWidget;
    auto* columns = new QHBoxLayout(centre);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    forms::fitToFont(*panel_, [this] {
        panel_->setFixedWidth(std::max(frameWidth, panel_->sizeHint().width()));
    });
    columns->addWidget(panel_);
    auto* right = new QVBoxLayout;
    right->setSpacing(0);
    right->addWidget(found_);
    right->addWidget(lists_, 1);
    columns->addLayout(right, 1);
    setCentralWidget(centre);
    buildMenu();
    buildKeys();
    buildStatus();
    resize(startSize.boundedTo(forms::roomFor(*this)));
    forms::ErrorRoute& route = forms::ErrorRoute::of(*this);
    route.undoIn(around_.engine);
    connect(&route, &forms::ErrorRoute::readFailed, this, &FrmUvod::listFailed);
    connect(panel_, &ButtonPanel::chosen, this,
            [this](int button) { forms::guarded(this, [&] { pressed(button); }); });
    connect(lists_, &ListPane::cardClosed, this,
            [this](int list) { panel_->change(&ButtonColours::cardClosed, list); });
}

FrmUvod::~FrmUvod() {
    unload();
}

QString FrmUvod::schoolYear() const {
    return panel_->schoolYear();
}

void FrmUvod::open() {
    load();
    if (!ukoncit_)
        return show();
    // A window that was closed before is not told of its closing again.
    hide();
    unload();
    finishRun();
}

void FrmUvod::load() {
    ukoncit_ = false;
    setControlsEnabled(true);
    unload();
    panel_->setSchoolYear({});
    sources_ = std::make_unique<MainSources>(around_.engine);
    lists_->setSources(sources_.get());
    try {
        if (fileFound())
            finishLoad();
    } catch (const store::EngineError& error) {
        loadFailed(error);
    }
}

void FrmUvod::finishLoad() {
    openData();
    clearUp();
    lists_->clear();
    panel_->resetColours();
    if (schoolYear().isEmpty())
        nastavSkolskyRok();
    state_->clear();
    loaded_ = true;
    modKontrola::gSpusteny = true;
    checkInBackground();
    showFoundWords();
}

/// Makes up for a load that a fault has stopped. @return false when the run is over
/// @throws store::EngineError when the fault lasts
bool FrmUvod::ensureLoaded() {
    if (loaded_)
        return true;
    try {
        finishLoad();
    } catch (const store::EngineError& error) {
        if (!isUnusable(static_cast<int>(error.number())))
            throw;
        loadFailed(error);
        if (ukoncit_)
            close();
    }
    return loaded_;
}

/// What a program that was killed left in the scratch tables and beside the file. Once for a file:
/// the rows that this run leaves have their reason.
void FrmUvod::clearUp() {
    const QString path = QFileInfo(around_.folder.database()).canonicalFilePath();
    const auto file = store::fileIdentity(path);
    if (file == clearedUp_)
        return;
    const store::WorkFiles left(path);
    try {
        statreturn::emptyScratchTables(sources_->datTlac.Database());
        around_.engine.commitPending();
    } catch (const store::EngineError& error) {
        // Then nothing can be printed out of them either.
        if (error.number() != store::ErrorNumber::ReadOnly)
            throw;
    }
    clearedUp_ = file;
}

bool FrmUvod::fileFound() {
    const auto path = [this] {
        return around_.folder.database();
    };
    for (store::DataSource* source : sources_->all())
        source->setDatabaseName(path());
    while (!QFileInfo(path()).isFile()) {
        const auto answer = forms::showMessage(
            this, {.text = QStringLiteral(
                       "V adresári - chýba súbor -tvk.mdb-, pokúste sa o obnovu archívu !"),
                   .title = QStringLiteral("Upozornenie"),
                   .icon = QMessageBox::Critical,
                   .buttons = QMessageBox::Yes | QMessageBox::No});
        if (answer != QMessageBox::Yes)
            continue;
        openScreen(Screen::RestoreAtStart);
        // The data, if any came back, are for the next start.
        ukoncit_ = true;
        return false;
    }
    ukoncit_ = around_.prepareFile && !around_.prepareFile(path(), this);
    return !ukoncit_;
}

/// Nothing of a window that is on show may be pressed while something works on the register.
std::chrono::milliseconds FrmUvod::patience() const {
    return isVisible() ? std::chrono::milliseconds(0) : around_.patience;
}

/// The first source opens the register, which may take long.
void FrmUvod::openData() {
    const auto point = [this](store::DataSource& source, const QString& sql) {
        source.setDatabaseName(around_.folder.database());
        source.setRecordSource(sql);
        source.Refresh();
    };
    forms::ProgressForm form(QStringLiteral("frmUprava"), QCoreApplication::applicationName(),
                             nullptr);
    form.setPatience(patience());
    form.setEndless();
    const auto end = qScopeGuard([this] { around_.engine.whileOpening({}); });
    std::optional<store::DBEngine::Opening> told;
    store::TellProgress tell;
    around_.engine.whileOpening([&](store::DBEngine::Opening what) {
        if (std::exchange(told, what) != what)
            tell = form.progress(openingText(what));
        tell(store::unknownPart);
    });
    point(sources_->datGrid, QStringLiteral("select * from k_zaklad"));
    point(sources_->datTlac, QStringLiteral("select * from k_zaklad"));
    point(sources_->datCisVzd, QStringLiteral("select * from c_zariad"));
}

void FrmUvod::loadFailed(const store::EngineError& error) {
    if (!isUnusable(static_cast<int>(error.number())))
        return tellUnloaded(error);
    if (indexesRepaired())
        return loadRepaired();
    forms::showMessage(
        this, {.text = QStringLiteral("Program nemôže pracovať, je nutný reštart počítača !"),
               .icon = QMessageBox::Warning});
    ukoncit_ = true;
    setControlsEnabled(false);
    hide();
}

/// In the background the damage was found while the user was at work.
void FrmUvod::loadRepaired() {
    const QString chosen = schoolYear();
    load();
    if (!chosen.isEmpty())
        panel_->setSchoolYear(chosen);
}

void FrmUvod::tellUnloaded(const store::EngineError& error) {
    state_->setText(
        QStringLiteral("Údaje sa nepodarilo načítať: %1 Skúste to znova výberom zoznamu.")
            .arg(error.description()));
    state_->setToolTip(error.place());
}

/// A list that can't be read ends; choosing one loads anew.
void FrmUvod::listFailed(const store::EngineError& error) {
    if (!sources_)
        return;
    lists_->setSources(sources_.get());
    lists_->clear();
    panel_->resetColours();
    loaded_ = false;
    tellUnloaded(error);
}

/// Only when it has come out well is there anything to ask. @throws store::EngineError
std::unique_ptr<store::IndexRepair> FrmUvod::triedRepair() {
    forms::ProgressForm form(QStringLiteral("frmOprava"), QCoreApplication::applicationName(),
                             nullptr);
    form.setPatience(patience());
    try {
        return store::IndexRepair::tryMake(
            around_.folder.database(),
            form.progress(QStringLiteral("V súbore s údajmi sa našlo poškodenie, skúša sa jeho "
                                         "oprava na kópii …")));
    } catch (const store::GivenUp&) {
        return nullptr;
    }
}

/// Whether only the indexes were damaged and have been made anew, with the user's consent.
bool FrmUvod::indexesRepaired() {
    unload();
    try {
        const auto repair = triedRepair();
        if (!repair ||
            forms::showMessage(
                this, {.text = QStringLiteral("Register v súbore -tvk.mdb- je poškodený, údaje sú "
                                              "v poriadku. Má sa register vytvoriť nanovo ?"),
                       .title = QStringLiteral("Upozornenie"),
                       .icon = QMessageBox::Warning,
                       .buttons = QMessageBox::Yes | QMessageBox::No,
                       .defaultButton = QMessageBox::Yes}) != QMessageBox::Yes)
            return false;
        repair->putInPlace();
        return true;
    } catch (const store::EngineError& error) {
        forms::showEngineError(this, error);
        return false;
    }
}

void FrmUvod::checkInBackground() {
    const QString path = QFileInfo(around_.folder.database()).canonicalFilePath();
    if (!store::DBEngine::owesFullCheck(path))
        return;
    check_ = std::make_unique<store::BackgroundCheck>(path, [this] {
        QMetaObject::invokeMethod(this, &FrmUvod::damageFound, Qt::QueuedConnection);
    });
}

/// Waits until the user has ended what he is at.
void FrmUvod::damageFound() {
    if (!check_)
        return;
    if (QApplication::activeModalWidget() != nullptr ||
        QApplication::activePopupWidget() != nullptr || forms::BusyPointer::isShown())
        return QTimer::singleShot(std::chrono::milliseconds(300), this, &FrmUvod::damageFound);
    opravSubor();
}

void FrmUvod::opravSubor() {
    loadFailed({store::ErrorNumber::UnrecognizedFile, {}});
    if (ukoncit_)
        close();
}

void FrmUvod::setControlsEnabled(bool enabled) {
    const auto controls = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget* control : controls) {
        if (!control->isWindow())
            control->setEnabled(enabled);
    }
}

void FrmUvod::nastavSkolskyRok() {
    panel_->setSchoolYear(defaultSchoolYear(around_.today()));
}

void FrmUvod::zadajSkolskyRok() {
    if (const auto year = askSchoolYear(this, around_.today()))
        panel_->setSchoolYear(*year);
}

void FrmUvod::connectDB() {
    around_.engine.OpenDatabase(around_.folder.database()).Close();
}

void FrmUvod::openScreen(Screen screen) {
    const bool needsData = screen != Screen::Archive && screen != Screen::Restore &&
                           screen != Screen::RestoreAtStart && screen != Screen::Copies;
    if (needsData && !ensureLoaded())
        return;
    around_.open(screen, *this);
    showFoundWords();
}

/// What a run that ended badly left unsaved, until its user has taken it back or thrown it away.
void FrmUvod::showFoundWords() {
    if (!loaded_)
        return;
    const QString found = words::foundWords(around_.engine, around_.folder);
    if (found.isEmpty())
        found_->hide();
    else
        found_->tell(found);
}

void FrmUvod::pressed(int button) {
    switch (button) {
    case 1:
        return ukazKlientov();
    case 2:
        return ukazZamestnancov();
    case 3:
        return openTable(button, Screen::TableIV);
    case 4:
        return koniecTlacidlom();
    case 5:
        return openTable(button, Screen::TableV);
    default:
        return zadajSkolskyRok();
    }
}

void FrmUvod::ukazKlientov() {
    if (!ensureLoaded())
        return;
    panel_->change(&ButtonColours::listChosen, clientList.number);
    lists_->ukaz(clientList);
}

void FrmUvod::ukazZamestnancov() {
    if (!ensureLoaded())
        return;
    panel_->change(&ButtonColours::listChosen, employeeList.number);
    lists_->ukaz(employeeList);
}

void FrmUvod::readListAnew() {
    if (loaded_)
        lists_->readAnew();
}

void FrmUvod::openTable(int button, Screen screen) {
    panel_->change(&ButtonColours::tableOpened, button);
    openScreen(screen);
}

void FrmUvod::koniecTlacidlom() {
    panel_->change(&ButtonColours::exitChosen);
    koniec();
}

void FrmUvod::koniec() {
    forms::guardedEnd([this] { zavri(); });
    words::forgetDropped(around_.folder);
    Q_EMIT leaving();
    leaveInOrder(around_);
    around_.endRun();
}

void FrmUvod::zavri() {
    const QScopedValueRollback guard(runGoesOn_, true);
    close();
}

void FrmUvod::unload() {
    check_.reset();
    lists_->setSources(nullptr);
    lists_->clear();
    sources_.reset();
    loaded_ = false;
}

void FrmUvod::closeEvent(QCloseEvent* event) {
    unload();
    event->accept();
    if (!runGoesOn_)
        finishRun();
}

void FrmUvod::finishRun() {
    // What could not be told while the data sources ended.
    forms::guardedEnd([this] { around_.engine.commitPending(); });
    words::forgetDropped(around_.folder);
    around_.endRun();
}

} // namespace mainwindow
