#include "statreturn/FrmKlientVykaz.h"

#include "card/Buttons.h"
#include "forms/Colours.h"
#include "forms/FlowLayout.h"
#include "forms/Guard.h"
#include "forms/KeyHint.h"
#include "forms/MessageBox.h"
#include "forms/Metrics.h"
#include "forms/WhyNot.h"
#include "report/Csv.h"
#include "report/Fonts.h"
#include "report/SaveFile.h"
#include "report/TableReport.h"
#include "statreturn/PeopleList.h"
#include "statreturn/PersonTexts.h"
#include "store/DataSource.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace statreturn {

namespace {

constexpr QSize startSize(1240, 730);
constexpr int leastListLines = 6;
constexpr int tabFrame = 8;

QLabel* newLabel(const char16_t* name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromUtf16(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

FrmKlientVykaz::Contents::Contents(ReturnPeople read)
    : people(std::move(read)), one(tableOneNumbers(people)), two(tableTwoNumbers(people)),
      leftOut(people) {}

FrmKlientVykaz::FrmKlientVykaz(const printing::PrintTools& tools, const QString& schoolYear,
                               const QDate& today, OpenCard openCard, QWidget* parent)
    : QDialog(parent), tools_(tools), schoolYear_(schoolYear), today_(today),
      openCard_(std::move(openCard)), halves_(new QSplitter(Qt::Vertical, this)),
      tables_(new QTabWidget), one_(addNumbers(u"grdVek", u"Tabuľka I")),
      two_(addNumbers(u"grdVzd", u"Tabuľka II")),
      leftOut_(addNumbers(u"grdChyba", u"Kto chýba a prečo")), list_(new PeopleList),
      chosen_(newLabel(u"lblVyber", this)), state_(newLabel(u"lblStav", this)) {
    setObjectName(QStringLiteral("frmKlientVykaz"));
    setWindowTitle(QStringLiteral("Klienti vo výkaze za školský rok %1, vek k %2")
                       .arg(schoolYear, today.toString(u"d. M. yyyy")));
    card::setGround(*this, QPalette::Window, forms::screenColour);
    auto* lines = new QVBoxLayout(this);
    lines->addWidget(makeHalves(), 1);
    lines->addWidget(state_);
    lines->addLayout(makeLastLine());
    makeKeys();
    forms::openAs(*this, startSize);
    readAnew();
    shareHeight();
    followUser();
    one_->setFocus();
}

void FrmKlientVykaz::followUser() {
    for (NumbersView* view : {one_, two_, leftOut_}) {
        connect(view, &NumbersView::numberChosen, this, &FrmKlientVykaz::showPeople);
        connect(view, &NumbersView::activated, this, &FrmKlientVykaz::goToList);
    }
    connect(list_, &PeopleList::lineChosen, this, &FrmKlientVykaz::showLine);
    connect(list_, &PeopleList::activated, this, &FrmKlientVykaz::openCard);
    connect(tables_, &QTabWidget::currentChanged, this, &FrmKlientVykaz::showPeople);
    connect(tables_, &QTabWidget::currentChanged, this, &FrmKlientVykaz::shareHeight);
    connect(halves_, &QSplitter::splitterMoved, this, [this] { sharedByHand_ = true; });
}

NumbersView* FrmKlientVykaz::addNumbers(const char16_t* name, const char16_t* caption) {
    auto* view = new NumbersView(QString::fromUtf16(name));
    tables_->addTab(view, QString::fromUtf16(caption));
    return view;
}

QWidget* FrmKlientVykaz::makeHalves() {
    tables_->setObjectName(QStringLiteral("tabVykaz"));
    halves_->setChildrenCollapsible(false);
    halves_->addWidget(tables_);
    halves_->addWidget(makeList());
    halves_->setStretchFactor(1, 1);
    return halves_;
}

/// The numbers on show get the height of all their rows, as far as some lines of the list stay in
/// sight; what the user has set stays.
void FrmKlientVykaz::shareHeight() {
    if (sharedByHand_)
        return;
    const int wanted = onShow().fullHeight() + tables_->tabBar()->sizeHint().height() + tabFrame;
    halves_->setSizes({wanted, std::max(list_->minimumHeight(), height() - wanted)});
}

QWidget* FrmKlientVykaz::makeList() {
    auto* half = new QWidget;
    auto* lines = new QVBoxLayout(half);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->addWidget(chosen_);
    lines->addWidget(list_, 1);
    list_->setObjectName(QStringLiteral("lstKlienti"));
    forms::fitToFont(*list_,
                     [this] { list_->setMinimumHeight(forms::linesHigh(*list_, leastListLines)); });
    return half;
}

QLayout* FrmKlientVykaz::makeLastLine() {
    using Action = void (FrmKlientVykaz::*)();
    static constexpr card::ButtonRow table[] = {
        {u"cmdKarta", u"&Otvoriť kartu", u"Enter v zozname"},
        {u"cmdCsv", u"&Uložiť ako CSV", u"Ctrl+S"},
        {u"cmdTlac", u"&Tlačiť…", u"Ctrl+P"},
        {u"cmdZavri", u"&Zavrieť", u"Esc"}};
    static constexpr Action actions[] = {&FrmKlientVykaz::openCard, &FrmKlientVykaz::save,
                                         &FrmKlientVykaz::print, &FrmKlientVykaz::reject};
    auto* line = new forms::FlowLayout(forms::FlowLayout::Fill::First);
    auto* hint = new forms::KeyHint(this);
    hint->setObjectName(QStringLiteral("lblKlavesy"));
    hint->setText(QStringLiteral("Šípky číslo  ·  Enter zoznam, v ňom karta  ·  Ctrl+PageDown "
                                 "ďalšia tabuľka  ·  Ctrl+S CSV  ·  Ctrl+P tlač"));
    line->addWidget(hint);
    for (QPushButton* button : card::makeButtons(table, this, [this](int place) {
             forms::guarded(this, [&] { (this->*actions[place])(); });
         }))
        line->addWidget(button);
    return line;
}

void FrmKlientVykaz::makeKeys() {
    const auto onKey = [this](const QKeySequence& key, const auto& action) {
        connect(new QShortcut(key, this), &QShortcut::activated, this,
                [this, action] { forms::guarded(this, action); });
    };
    onKey(Qt::CTRL | Qt::Key_S, [this] { save(); });
    onKey(Qt::CTRL | Qt::Key_P, [this] { print(); });
    onKey(Qt::CTRL | Qt::Key_PageDown, [this] { turn(1); });
    onKey(Qt::CTRL | Qt::Key_PageUp, [this] { turn(-1); });
}

void FrmKlientVykaz::turn(int by) {
    tables_->setCurrentIndex((tables_->currentIndex() + by + tables_->count()) % tables_->count());
}

void FrmKlientVykaz::readAnew() {
    const forms::BusyPointer busy;
    for (NumbersView* view : {one_, two_, leftOut_})
        view->setNumbers(nullptr);
    list_->setLines(clientColumns(), 0, {});
    chosen_->clear();
    contents_.reset();
    store::DataSource source(tools_.engine);
    source.setDatabaseName(tools_.folder.database());
    contents_.emplace(readPeople(source, schoolYear_, today_));
    one_->setNumbers(&contents_->one);
    two_->setNumbers(&contents_->two);
    leftOut_->setNumbers(&contents_->leftOut.numbers);
    showPeople();
}

NumbersView& FrmKlientVykaz::onShow() const {
    return *static_cast<NumbersView*>(tables_->currentWidget());
}

const Behind& FrmKlientVykaz::behind() const {
    return onShow().numbers().behind(onShow().row(), onShow().column());
}

QString FrmKlientVykaz::chosenNumber() const {
    return onShow().numbers().nameOf(onShow().row(), onShow().column());
}

void FrmKlientVykaz::showPeople() {
    if (!contents_)
        return;
    const bool applies = onShow().numbers().rows[onShow().row()].applies;
    chosen_->setText(QStringLiteral("%1  ·  %2")
                         .arg(chosenNumber(), applies
                                                  ? QStringLiteral("Počet: %1").arg(behind().size())
                                                  : QStringLiteral("v tomto riadku sa klienti "
                                                                   "nepočítajú")));
    list_->setAccessibleName(chosen_->text());
    const Behind& people = behind();
    const auto text = [this, &people, row = onShow().row(), left = showsLeftOut(),
                       &numbers = onShow().numbers()](int line) {
        const Counted& counted = people[std::size_t(line)];
        return left ? remarkTexts(contents_->people, contents_->leftOut, row, counted)
                    : clientTexts(contents_->people, numbers, counted);
    };
    list_->setLines(showsLeftOut() ? remarkColumns() : clientColumns(), int(people.size()), text);
    showLine();
}

/// A reason may be longer than its column.
void FrmKlientVykaz::showLine() {
    const bool any = list_->line() >= 0;
    forms::setUsable(*findChild<QPushButton*>(QStringLiteral("cmdKarta")), any,
                     QStringLiteral("Najprv vyberte číslo, za ktorým niekto stojí."));
    state_->setText(any && showsLeftOut()
                        ? list_->model()->index(list_->line(), 3).data().toString()
                        : QString());
}

const Person* FrmKlientVykaz::chosenPerson() const {
    if (list_->line() < 0)
        return nullptr;
    const Counted& counted = behind()[std::size_t(list_->line())];
    return showsLeftOut() ? &personOf(contents_->people, contents_->leftOut.remarks[counted.who])
                          : &contents_->people.clients[counted.who].person;
}

void FrmKlientVykaz::goToList() {
    if (list_->count() > 0)
        list_->setFocus();
}

void FrmKlientVykaz::openCard() {
    forms::guarded(this, [this] {
        const Person* chosen = chosenPerson();
        if (chosen == nullptr)
            return;
        const int line = list_->line();
        const QString key = openCard_(*chosen, this);
        readAnew();
        list_->setLine(lineOf(key).value_or(line));
        if (list_->count() == 0)
            onShow().setFocus();
    });
}

std::optional<int> FrmKlientVykaz::lineOf(const QString& key) const {
    for (std::size_t line = 0; line < behind().size(); ++line) {
        const std::uint32_t who = behind()[line].who;
        const Person& person = showsLeftOut()
                                   ? personOf(contents_->people, contents_->leftOut.remarks[who])
                                   : contents_->people.clients[who].person;
        if (person.key == key)
            return int(line);
    }
    return std::nullopt;
}

void FrmKlientVykaz::showOutcome(bool good, const QString& text) {
    if (good)
        return state_->setText(text);
    forms::showMessage(
        this, {.text = text, .title = QStringLiteral("Upozornenie"), .icon = QMessageBox::Warning});
}

void FrmKlientVykaz::save() {
    if (!contents_)
        return;
    const auto outcome = report::askAndSave(
        report::csvFile(), chosenNumber(),
        [this](QIODevice& file) { return report::writeCsv(list_->table(), file); }, this);
    if (outcome)
        showOutcome(outcome->saved, outcome->text);
}

void FrmKlientVykaz::print() {
    if (!contents_)
        return;
    report::TableReport table;
    table.title = windowTitle();
    table.notes = chosen_->text();
    table.table = list_->table();
    for (const PeopleColumn& column : showsLeftOut() ? remarkColumns() : clientColumns())
        table.columns.push_back({.share = column.width});
    report::Pages pages = report::pagesOf(table, std::make_shared<report::FontMeter>(), today_);
    pages.title = chosenNumber();
    printing::showPages(tools_, pages, this);
}

} // namespace statreturn
