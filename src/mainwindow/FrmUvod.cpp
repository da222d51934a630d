#include "mainwindow/FrmUvod.h"

#include "forms/Guard.h"
#include "forms/Twips.h"
#include "mainwindow/ButtonPanel.h"
#include "mainwindow/Exit.h"
#include "mainwindow/ListPane.h"
#include "mainwindow/SchoolYear.h"
#include "statreturn/ReturnPrints.h"
#include "store/EngineError.h"
#include "validation/modKontrola.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QIcon>
#include <QScopedValueRollback>
#include <QScreen>

namespace mainwindow {

namespace {

constexpr int frameWidth = forms::pixels(3360) - 14;
constexpr QSize startSize(1280, 800);
/// What a window manager may put around a window.
constexpr QSize decoration(8, 40);

bool isUnusable(int number) {
    return number == 3228 || number == 3343;
}

} // namespace

FrmUvod::FrmUvod(const Surroundings& around)
    : around_(around), panel_(new ButtonPanel),
      lists_(new ListPane(around, [this](Screen screen) { openScreen(screen); })) {
    setObjectName(QStringLiteral("FrmUvod"));
    setWindowTitle(
        QStringLiteral("TVK – evidencia klientov centra špeciálno-pedagogického poradenstva"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/tvk.svg")));
    auto* centre = new QWidget;
    auto* columns = new QHBoxLayout(centre);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    panel_->setFixedWidth(frameWidth);
    columns->addWidget(panel_);
    columns->addWidget(lists_, 1);
    setCentralWidget(centre);
    buildMenu();
    buildKeys();
    buildStatus();
    resize(startSize.boundedTo(screen()->availableSize() - decoration));
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
    if (ukoncit_)
        close();
    else
        show();
}

void FrmUvod::load() {
    ukoncit_ = false;
    setControlsEnabled(true);
    unload();
    sources_ = std::make_unique<MainSources>(around_.engine);
    lists_->setSources(sources_.get());
    try {
        if (!fileFound())
            return;
        openData();
        lists_->clear();
        panel_->resetColours();
        nastavSkolskyRok();
        modKontrola::gSpusteny = true;
        emptyLeftScratchTables();
    } catch (const store::EngineError& error) {
        // Any other fault leaves the window as far as it had got.
        loadFailed(static_cast<int>(error.number()));
    }
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
    return true;
}

void FrmUvod::openData() {
    const auto point = [this](store::DataSource& source, const QString& sql) {
        source.setDatabaseName(around_.folder.database());
        source.setRecordSource(sql);
        source.Refresh();
    };
    point(sources_->datGrid, QStringLiteral("select * from k_zaklad"));
    point(sources_->datTlac, QStringLiteral("select * from k_zaklad"));
    point(sources_->datCisVzd, QStringLiteral("select * from c_zariad"));
}

/// Print-outs that a program left when it was killed are nobody's. What this run leaves is its own,
/// so that a file is looked at once.
void FrmUvod::emptyLeftScratchTables() {
    const auto file = store::fileIdentity(around_.folder.database());
    if (file == lookedAt_)
        return;
    statreturn::emptyScratchTables(sources_->datTlac.Database());
    lookedAt_ = file;
}

void FrmUvod::loadFailed(int number) {
    if (!isUnusable(number))
        return;
    forms::showMessage(
        this, {.text = QStringLiteral("Program nemôže pracovať, je nutný reštart počítača !"),
               .icon = QMessageBox::Warning});
    ukoncit_ = true;
    setControlsEnabled(false);
    hide();
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
    connection_.emplace(around_.engine.OpenDatabase(around_.folder.database()));
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
    panel_->change(&ButtonColours::listChosen, clientList.number);
    lists_->ukaz(clientList);
}

void FrmUvod::ukazZamestnancov() {
    panel_->change(&ButtonColours::listChosen, employeeList.number);
    lists_->ukaz(employeeList);
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
    forms::guarded(nullptr, [this] {
        zavri();
        compactAndReplace(around_.engine, around_.folder);
    });
    around_.endRun();
}

void FrmUvod::zavri() {
    const QScopedValueRollback guard(runGoesOn_, true);
    close();
}

void FrmUvod::unload() {
    lists_->setSources(nullptr);
    lists_->clear();
    connection_.reset();
    sources_.reset();
}

void FrmUvod::closeEvent(QCloseEvent* event) {
    unload();
    event->accept();
    if (!runGoesOn_)
        around_.endRun();
}

} // namespace mainwindow
