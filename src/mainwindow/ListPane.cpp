#include "mainwindow/ListPane.h"

#include "forms/Guard.h"
#include "forms/Metrics.h"
#include "forms/RecordsetGrid.h"
#include "forms/Twips.h"
#include "forms/WhyNot.h"
#include "mainwindow/ListFilter.h"
#include "validation/modKontrola.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <array>

namespace mainwindow {

namespace {

constexpr QStringView sortByNumber = u"Trieď (katalógové číslo)";
constexpr QStringView sortByName = u"Trieď (priezvisko,meno)";
constexpr int sortStateLength = 8;

constexpr int headingHeight = forms::pixels(720);
constexpr int leastGridWidth = forms::pixels(7695) / 2;
constexpr int margin = 14;
/// Letters of the longest caption, and space above and below it.
constexpr int buttonLetters = 27;
constexpr int buttonPadding = 20;

QLabel* makeWelcome() {
    auto* label = new QLabel(QStringLiteral("Vyberte vľavo zoznam klientov alebo zamestnancov."));
    label->setObjectName(QStringLiteral("lblVyber"));
    label->setAlignment(Qt::AlignCenter);
    forms::enlarge(*label, 1.25, false);
    label->setWordWrap(true);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

} // namespace

const std::array<ListPane::ListButton, 5>& ListPane::buttons() {
    static const std::array<ListButton, 5> table{{
        {&ListPane::cmdNovy_,
         u"CmdNovy",
         u"Nový",
         &ListPane::novy,
         u"Ctrl+N",
         {},
         u"Zadávanie nových dát zamestnancov"},
        {&ListPane::cmdOprava_,
         u"cmdOprava",
         u"Oprava údajov",
         &ListPane::oprava,
         u"Ctrl+O",
         u"Enter",
         {}},
        {&ListPane::cmdVymaz_, u"cmdVymaz", u"Výmaz ", &ListPane::vymaz, u"Ctrl+Del", u"Del", {}},
        {&ListPane::cmdHladaj_, u"cmdHladaj", u"Hľadaj", &ListPane::hladajOsobu, u"Ctrl+F", {}, {}},
        {&ListPane::cmdSort_, u"CmdSort", sortByNumber, &ListPane::tried, u"Ctrl+T", {}, {}},
    }};
    return table;
}

ListPane::ListPane(const Surroundings& around, std::function<void(Screen)> open, QWidget* parent)
    : QWidget(parent), around_(around), open_(std::move(open)), heading_(new QLabel),
      filter_(new ListFilter), welcome_(makeWelcome()), dbgKlient_(addGrid(clientList)),
      dbgPsych_(addGrid(employeeList)) {
    auto* lists = new QVBoxLayout;
    lists->setSpacing(0);
    lists->addWidget(makeHeading());
    for (QWidget* widget : {static_cast<QWidget*>(dbgKlient_), static_cast<QWidget*>(dbgPsych_),
                            static_cast<QWidget*>(welcome_)})
        lists->addWidget(widget, 1);
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(margin, 0, margin, margin);
    columns->setSpacing(margin);
    columns->addLayout(lists, 1);
    columns->addLayout(makeButtonColumn());
    buildListKeys();
    clear();
}

QWidget* ListPane::makeHeading() {
    auto* row = new QWidget;
    forms::fitToFont(
        *row, [row] { row->setFixedHeight(std::max(headingHeight, forms::linesHigh(*row, 2))); });
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    heading_->setObjectName(QStringLiteral("lblZoznam"));
    forms::enlarge(*heading_, 1.5, true);
    layout->setSpacing(2 * margin);
    layout->addWidget(heading_);
    layout->addWidget(filter_, 1);
    connect(filter_, &ListFilter::changed, this, &ListPane::tlacidlaVsetky);
    return row;
}

forms::RecordsetGrid* ListPane::addGrid(const ListTraits& list) {
    auto* grid = new forms::RecordsetGrid(list.columns);
    grid->setObjectName(list.gridName.toString());
    grid->setAccessibleName(list.heading.toString());
    grid->setMinimumWidth(leastGridWidth);
    grid->horizontalHeader()->setSortIndicatorShown(true);
    connect(grid->horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int column) { forms::guarded(this, [&] { sortByHead(column); }); });
    grid->installEventFilter(this);
    return grid;
}

QLayout* ListPane::makeButtonColumn() {
    auto* column = new QVBoxLayout;
    column->setContentsMargins(0, headingHeight, 0, 0);
    column->setSpacing(forms::gap);
    for (const ListButton& traits : buttons()) {
        this->*traits.button = addButton(traits);
        column->addWidget(this->*traits.button);
    }
    column->addStretch();
    return column;
}

QPushButton* ListPane::addButton(const ListButton& traits) {
    auto* button = new QPushButton(traits.caption.toString());
    button->setObjectName(traits.name.toString());
    forms::fitToFont(*button, [button] {
        button->setFixedSize(forms::lettersWide(*button, buttonLetters),
                             button->fontMetrics().height() + buttonPadding);
    });
    button->setAutoDefault(true);
    const QString key = traits.key.toString();
    const QString keys =
        traits.keyInList.isEmpty() ? key : traits.keyInList.toString() + QStringLiteral(", ") + key;
    button->setToolTip(traits.toolTip.isEmpty() ? keys : traits.toolTip.toString());
    connect(button, &QPushButton::clicked, this,
            [this, action = traits.action] { forms::guarded(this, [&] { (this->*action)(); }); });
    connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, button, [this, button] {
        if (!button->isHidden())
            pressByKey(*button);
    });
    return button;
}

forms::RecordsetGrid& ListPane::grid(const ListTraits& list) const {
    return list.number == clientList.number ? *dbgKlient_ : *dbgPsych_;
}

const ListTraits* ListPane::onShow() const {
    if (!dbgKlient_->isHidden())
        return &clientList;
    return !dbgPsych_->isHidden() ? &employeeList : nullptr;
}

void ListPane::setSources(MainSources* sources) {
    filter_->leave();
    dbgKlient_->bind(nullptr);
    dbgPsych_->bind(nullptr);
    sources_ = sources;
}

void ListPane::clear() {
    dbgKlient_->hide();
    dbgPsych_->hide();
    welcome_->show();
    heading_->clear();
    filter_->leave();
    aktZoznam_ = 0;
    for (const ListButton& traits : buttons())
        (this->*traits.button)->setText(traits.caption.toString());
    cmdSort_->hide();
    tlacidlaPrazdne();
    forms::setUsable(*cmdNovy_, false, whyNoRow());
}

/// What acts on the current row needs one that is seen.
void ListPane::tlacidlaVsetky() {
    if (sources_->datGrid.Recordset().Eof())
        return;
    const ListTraits* list = onShow();
    const bool anyShown = list == nullptr || grid(*list).rows().rowCount() > 0;
    for (QPushButton* button : {cmdHladaj_, cmdNovy_})
        forms::setUsable(*button, true, {});
    for (QPushButton* button : {cmdOprava_, cmdVymaz_})
        forms::setUsable(*button, anyShown,
                         QStringLiteral("Napísanému nezodpovedá nikto: Esc ukáže všetkých."));
}

QString ListPane::whyNoRow() const {
    return onShow() == nullptr
               ? QStringLiteral("Najprv zvoľte zoznam vľavo: Klienti alebo Zamestnanci.")
               : QStringLiteral("Zoznam je prázdny.");
}

void ListPane::tlacidlaPrazdne() {
    for (QPushButton* button : {cmdHladaj_, cmdOprava_, cmdVymaz_})
        forms::setUsable(*button, false, whyNoRow());
    forms::setUsable(*cmdNovy_, true, {});
}

void ListPane::tlacidlaPodlaRiadkov(forms::RecordsetGrid& focus) {
    if (sources_->datGrid.Recordset().Eof()) {
        tlacidlaPrazdne();
        cmdNovy_->setFocus();
    } else {
        tlacidlaVsetky();
        focus.setFocus();
    }
}

void ListPane::ukaz(const ListTraits& list) {
    setCaptions(list);
    zoznam(list);
    aktZoznam_ = list.number;
}

void ListPane::setCaptions(const ListTraits& list) {
    cmdNovy_->setText(list.newCaption.toString());
    cmdVymaz_->setText(list.deleteCaption.toString());
    cmdHladaj_->setText(list.findCaption.toString());
    cmdSort_->setVisible(list.number == clientList.number);
}

/// `zoznamKlientov` and `zoznamZamestnancov`.
void ListPane::zoznam(const ListTraits& list) {
    filter_->leave();
    showGrid(list);
    readAnew(list.sqlByName);
    grid(list).bind(&sources_->datGrid);
    // The way from the list to the buttons stays as short as it is.
    setTabOrder(cmdSort_, &filter_->field());
    filter_->follow(list, grid(list), sources_->datGrid);
    showOrder(nameColumn, Qt::AscendingOrder);
    tlacidlaPodlaRiadkov(grid(list));
}

void ListPane::showGrid(const ListTraits& list) {
    const ListTraits& other = list.number == clientList.number ? employeeList : clientList;
    grid(other).bind(nullptr);
    grid(other).hide();
    welcome_->hide();
    grid(list).show();
    heading_->setText(list.heading.toString());
}

void ListPane::readAnew(QStringView sql) {
    sources_->datGrid.setDatabaseName(around_.folder.database());
    sources_->datGrid.setRecordSource(sql.toString());
    sources_->datGrid.Refresh();
}

void ListPane::readAnew() {
    if (onShow() == nullptr || sources_ == nullptr)
        return;
    store::DataSource& rows = sources_->datGrid;
    const bool any = !rows.Recordset().Eof();
    const QString key = any ? fieldText(rows, u"idkod") : QString();
    rows.Refresh();
    if (any && !rows.Recordset().Eof())
        rows.Recordset().FindFirst(QStringLiteral("idkod = ") + store::quoted(key));
    tlacidlaPodlaRiadkov(grid(*onShow()));
}

void ListPane::novy() {
    modKontrola::gAkcia = 1;
    modKontrola::gIdKod.clear();
    modKontrola::gMenoKlienta.clear();
    if (const ListTraits* list = onShow())
        open_(list->card);
    sources_->datGrid.Refresh();
    // The caption tells the list: "Nový zamestnanec" as against "Nový klient".
    const bool employees = cmdNovy_->text().trimmed().endsWith(u'c');
    tlacidlaPodlaRiadkov(employees ? *dbgPsych_ : *dbgKlient_);
}

void ListPane::oprava() {
    zoznamPred_ = aktZoznam_;
    if (const ListTraits* list = onShow()) {
        store::DataSource& row = sources_->datGrid;
        modKontrola::editRecord(fieldText(row, u"idkod"), fieldText(row, u"meno"),
                                fieldText(row, u"priezv"));
        open_(list->card);
    }
    Q_EMIT cardClosed(zoznamPred_);
    const ListTraits& list = zoznamPred_ == clientList.number ? clientList : employeeList;
    // By name whatever the order was; the caption of CmdSort stays, and may then offer the order
    // that is on show.
    readAnew(list.sqlByName);
    if (!sources_->datGrid.Recordset().Eof())
        sources_->datGrid.Recordset().FindFirst(QStringLiteral("idkod = ") +
                                                store::quoted(modKontrola::gIdKod));
    filter_->giveWay();
    grid(list).rebind();
    showOrder(nameColumn, Qt::AscendingOrder);
    grid(list).setFocus();
}

void ListPane::tried() {
    const bool byNumber =
        cmdSort_->text().first(sortStateLength) == sortByNumber.first(sortStateLength);
    sources_->datGrid.setRecordSource(
        (byNumber ? clientsByNumber : clientList.sqlByName).toString());
    cmdSort_->setText((byNumber ? sortByName : sortByNumber).toString());
    sources_->datGrid.Refresh();
    showOrder(byNumber ? numberColumn : nameColumn, Qt::AscendingOrder);
}

void ListPane::vymaz() {
    const ListTraits* list = onShow();
    if (list == nullptr)
        return;
    const bool deleted =
        list->number == clientList.number ? vymazKlienta(place()) : vymazZamestnanca(place());
    if (!deleted)
        return;
    commit();
    if (sources_->datGrid.Recordset().Eof())
        tlacidlaPrazdne();
}

/// Whom the disk does not let go is in the list again.
void ListPane::commit() {
    try {
        place().around.engine.commitPending();
    } catch (const store::EngineError&) {
        sources_->datGrid.Refresh();
        throw;
    }
}

void ListPane::hladajOsobu() {
    const ListTraits& list = dbgKlient_->isHidden() ? employeeList : clientList;
    const auto input = hladaj(place(), list);
    if (!input)
        return;
    hladane_ = *input;
    filter_->giveWay();
    grid(list).setFocus();
    grid(list).viewport()->update();
}

} // namespace mainwindow
