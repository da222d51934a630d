#include "clientcard/FrmKlientUdaj.h"

#include "card/Buttons.h"
#include "card/FieldKeys.h"
#include "card/TextRules.h"
#include "clientcard/CardPages.h"
#include "clientcard/CardTables.h"
#include "clientcard/EntryTable.h"
#include "clientcard/EntryTabs.h"
#include "clientcard/MemoTabs.h"
#include "clientcard/RecordTabs.h"
#include "clientcard/TabList.h"
#include "forms/Colours.h"
#include "forms/DropDown.h"
#include "forms/MessageBox.h"
#include "forms/RichText.h"
#include "validation/modKontrola.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace clientcard {

namespace {

// Two of them are never shown: one does nothing, the other what its neighbour does better.
constexpr std::array<card::ButtonRow, 7> buttonTable = {{
    {u"cmdZaklUd", u"Zapíš základné údaje", u"Zapíše základné údaje a sprístupníi ďalšie záložky",
     false},
    {u"cmdZakZap", u"Zapíš základné údaje", u"", false},
    {u"cmdSave", u"Zapíš", u"", false},
    {u"cmdTlac", u"Tlač záložku"},
    {u"cmdZapNew", u"Zapíš + nový klient", u"Zapíše aktuálne údaje a prejde na nového klienta"},
    {u"CmdZap", u"Zapíš + návrat", u"Zapíše aktuálne údaje a vráti sa do hlavnej obrazovky"},
    {u"cmdStorno", u"Storno", u"Návrat do hlavnej obrazovky"},
}};

bool isEntry(TabKind kind) {
    return kind == TabKind::Basic || kind == TabKind::Parents;
}

/// The place of the family that fills a tab of the kind.
std::size_t familyOfKind(TabKind kind) {
    if (isEntry(kind))
        return 0;
    return kind == TabKind::Memo ? 1 : 2;
}

constexpr auto entryKeys =
    u"Enter ďalšie pole  ·  F4 číselník  ·  Ctrl+PageDown ďalšia záložka  ·  "
    "PageDown na zápis";
constexpr auto recordKeys = u"Enter ďalšie pole  ·  F4 číselník  ·  Esc storno záznamu";
constexpr auto otherKeys = u"Tab ďalšie pole  ·  Ctrl+PageDown ďalšia záložka";

} // namespace

FrmKlientUdaj::FrmKlientUdaj(store::DBEngine& engine, const store::ProgramFolder& folder,
                             QWidget* parent)
    : QDialog(parent), data_(engine, folder), actions_(engine, *this), draft_(data_, families_),
      guard_(this), esc_(this), pages_(new CardPages(this)), keys_(new QLabel(this)) {
    setObjectName(QStringLiteral("frmKlientUdaj"));
    setWindowTitle(QStringLiteral("Údaje klienta") + card::trimBlanks(modKontrola::gMenoKlienta));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    card::setGround(*this, QPalette::Window, forms::screenColour);
    makePages();
    auto* lines = new QVBoxLayout(this);
    lines->addLayout(pages_->layOut(), 1);
    lines->addLayout(makeFoot());
    noteInput();
    connect(&forms::ErrorRoute::of(*this), &forms::ErrorRoute::readFailed, this,
            &FrmKlientUdaj::closeUnread);
    // The row that is opened shows what its codes mean.
    data_.otvorCiselniky();
    draft_.open();
    modKontrola::gZVyberu = false;
    if (modKontrola::gAkcia != 2)
        zamkniZalozky();
    else if (data_.datMemo().Recordset().Eof())
        // The rest can be edited without this row.
        actions_.perform([this] { data_.datMemo().Recordset().Edit(); });
}

FrmKlientUdaj::~FrmKlientUdaj() = default;

void FrmKlientUdaj::makePages() {
    families_.push_back(makeEntryTabs(*this));
    families_.push_back(makeMemoTabs(*this));
    families_.push_back(makeRecordTabs(*this));
    entry_ = families_.front().get();
    cycle_.emplace(data_, *entry_->keyFields());
    for (const TabRow& row : tabTable())
        pages_->add(*families_[familyOfKind(row.kind)]);
    connect(pages_, &CardPages::turned, this,
            [this](int tab) { actions_.perform([&] { zalozkaKlik(tab); }); });
    for (const auto& [keys, step] :
         {std::pair{Qt::CTRL | Qt::Key_PageDown, 1}, std::pair{Qt::CTRL | Qt::Key_PageUp, -1}}) {
        auto* shortcut = new QShortcut(QKeySequence(keys), this);
        connect(shortcut, &QShortcut::activated, this,
                [this, by = step] { actions_.perform([&] { turnBy(by); }); });
    }
}

QLayout* FrmKlientUdaj::makeFoot() {
    keys_->setForegroundRole(QPalette::PlaceholderText);
    showKeys(0);
    buttons_ = card::makeButtons(buttonTable, this, [this](int i) { act(Button(i)); });
    auto* line = new QHBoxLayout;
    for (QPushButton* button : buttons_) {
        if (button == buttons_[cmdTlac])
            line->addWidget(keys_, 1, Qt::AlignCenter);
        line->addWidget(button);
    }
    buttons_[cmdTlac]->setEnabled(false);
    esc_.set(buttons_[cmdStorno]);
    return line;
}

QAbstractButton& FrmKlientUdaj::saveButton() {
    return *buttons_[CmdZap];
}

void FrmKlientUdaj::setPrinting(std::function<void(const Shown&)> print) {
    print_ = std::move(print);
    buttons_[cmdTlac]->setEnabled(print_ != nullptr);
}

void FrmKlientUdaj::zamkniZalozky() {
    pages_->enable(1, false);
    buttons_[cmdZaklUd]->show();
}

void FrmKlientUdaj::turnTo(int tab) {
    pages_->turnTo(tab);
}

void FrmKlientUdaj::zalozkaKlik(int tab) {
    esc_.set(buttons_[cmdStorno]);
    showKeys(tab);
    pages_->show(tab);
}

/// Which keys lead on from the tab.
void FrmKlientUdaj::showKeys(int tab) {
    const bool walksByEnter = isEntry(tabTable()[std::size_t(tab)].kind);
    keys_->setText(QString::fromUtf16(recordIsOpen() ? recordKeys
                                      : walksByEnter ? entryKeys
                                                     : otherKeys));
}

/// If the field in focus lets go and no record is open.
void FrmKlientUdaj::turnBy(int step) {
    if (QApplication::activePopupWidget() == nullptr && !recordIsOpen() &&
        forms::moveFocus(&pages_->list()))
        pages_->turnBy(step);
}

void FrmKlientUdaj::enableButtons(bool enabled) {
    for (const Button button : {CmdZap, cmdZapNew, cmdStorno})
        buttons_[button]->setEnabled(enabled);
    buttons_[cmdTlac]->setEnabled(enabled && print_ != nullptr);
}

void FrmKlientUdaj::beginEdit(int tab, QAbstractButton& storno) {
    pages_->enable(0, false);
    pages_->setReachable(tab, true);
    enableButtons(false);
    esc_.set(&storno);
    showKeys(tab);
}

void FrmKlientUdaj::endEdit() {
    pages_->enable(0, true);
    enableButtons(true);
    esc_.set(buttons_[cmdStorno]);
    showKeys(pages_->current());
}

void FrmKlientUdaj::act(Button button) {
    const bool isDone = actions_.perform([&] { press(button); });
    if (isVisible() && draft_.isLost())
        actions_.perform([this] { resume(); });
    tellNotWritten();
    // Nothing is lost with a card that can be read no longer and holds nothing of its own.
    if (!isDone && draft_.isOwed() && !draft_.heldTyped())
        cmdStornoClick();
}

void FrmKlientUdaj::press(Button button) {
    switch (button) {
    case cmdZaklUd:
        return cmdZaklUdClick();
    case cmdZakZap:
        return cmdZakZapClick();
    case CmdZap:
        return CmdZapClick();
    case cmdZapNew:
        return cmdZapNewClick();
    case cmdStorno:
        return cmdStornoClick();
    case cmdTlac:
        return cmdTlacClick();
    case cmdSave:
        return;
    }
}

/// @param turnsTab for a missing name the first tab is turned to. A missing catalogue number never
/// does that.
/// @param afterwards what is written and opened behind the cycle, as a part of the same unit
bool FrmKlientUdaj::saves(bool turnsTab, const std::function<void()>& afterwards) {
    if (draft_.isOwed())
        draft_.openOwed();
    draft_.keep();
    auto result = SaveResult::Saved;
    const auto write = [&] {
        result = cycle_->zapisZaklad();
        if (result == SaveResult::Saved)
            afterwards();
    };
    actions_.write(write, [this] {
        // What was passed over is undone as well, and told as what stopped the save.
        draft_.takeErrors();
        resume();
    });
    if (result != SaveResult::Saved)
        goToMissing(result, turnsTab);
    return result == SaveResult::Saved;
}

void FrmKlientUdaj::goToMissing(SaveResult missing, bool turnsTab) {
    if (missing == SaveResult::NoCatalogueNumber)
        return entry_->focusElement(krz::katcis);
    if (turnsTab)
        turnTo(0);
    entry_->focusElement(missing == SaveResult::NoFirstName ? krz::meno : krz::priezv);
}

void FrmKlientUdaj::resume() {
    draft_.resume();
    if (!draft_.isNew())
        return;
    zamkniZalozky();
    goToStart();
}

void FrmKlientUdaj::goToStart() {
    turnTo(0);
    entry_->focusElement(krz::meno);
}

void FrmKlientUdaj::cmdZaklUdClick() {
    if (!saves(false, [this] { draft_.openWritten(); }))
        return;
    pages_->enable(1, true);
    buttons_[cmdZaklUd]->hide();
    entry_->focusElement(krz::meno);
}

void FrmKlientUdaj::cmdZakZapClick() {
    if (!saves(true, [] {}))
        return;
    pages_->enable(1, true);
    buttons_[cmdZakZap]->hide();
}

void FrmKlientUdaj::CmdZapClick() {
    if (!saves(true, [this] { data_.leaveClient(); }))
        return;
    modKontrola::gAkcia = 0;
    tellNotWritten();
    accept();
}

void FrmKlientUdaj::cmdZapNewClick() {
    const bool isSaved = saves(true, [this] {
        modKontrola::gIdKod.clear();
        modKontrola::gMenoKlienta.clear();
        data_.otvorZaznamy(QString());
        draft_.openNew();
    });
    if (!isSaved)
        return;
    zamkniZalozky();
    modKontrola::gAkcia = 1;
    goToStart();
}

/// Reads nothing, so that a card closes whose file has gone.
void FrmKlientUdaj::cmdStornoClick() {
    data_.dropClient();
    modKontrola::gAkcia = 0;
    reject();
}

void FrmKlientUdaj::cmdTlacClick() {
    if (print_ == nullptr)
        return;
    if (!draft_.isNew())
        return print_(
            {pages_->current(), data_.source(u"datNavstevy").RecordSource(), draft_.isChanged()});
    forms::showMessage(
        this, {.text = QStringLiteral("Klient ešte nie je zapísaný, najprv zapíš základné údaje !"),
               .title = QStringLiteral("Upozornenie"),
               .icon = QMessageBox::Warning});
}

void FrmKlientUdaj::noteInput() {
    const auto note = [this] {
        hasInput_ = true;
    };
    for (auto* field : findChildren<forms::EntryField*>())
        connect(field, &forms::EntryField::textEdited, this, note);
    for (auto* text : findChildren<forms::RichText*>())
        connect(text, &forms::RichText::textEdited, this, note);
    for (auto* pick : findChildren<forms::DropDown*>())
        connect(pick, &forms::DropDown::textEdited, this, note);
    for (auto* option : findChildren<QRadioButton*>())
        connect(option, &QRadioButton::clicked, this, note);
}

/// A card that can't be read closes, unless the user has entered anything. What of it differs from
/// the row can't be read either.
void FrmKlientUdaj::closeUnread() {
    if (isVisible() && !recordIsOpen() && !hasInput_)
        cmdStornoClick();
}

void FrmKlientUdaj::tellNotWritten() {
    forms::showNotWritten(this, draft_.takeErrors());
}

void FrmKlientUdaj::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (std::exchange(wasShown_, true))
        return;
    goToStart();
}

void FrmKlientUdaj::closeEvent(QCloseEvent* event) {
    if (isVisible() && (staysForRecord() || !endsByFrame())) {
        event->ignore();
        return;
    }
    QDialog::closeEvent(event);
}

/// While a record is open Esc is its Storno's.
bool FrmKlientUdaj::recordIsOpen() const {
    return esc_.button() != nullptr && esc_.button() != buttons_[cmdStorno];
}

/// A record that is open belongs to its tab alone: only its own buttons write or drop it.
bool FrmKlientUdaj::staysForRecord() {
    if (!recordIsOpen())
        return false;
    forms::showMessage(
        this, {.text = QStringLiteral("Záznam je otvorený, najprv ho zapíš alebo stornuj !"),
               .title = QStringLiteral("Upozornenie"),
               .icon = QMessageBox::Warning});
    return true;
}

/// Closing by the frame saves a client who has a key, as "Zapíš + návrat" does, when the field in
/// focus lets go, and drops one who was never saved.
/// @return false to stay open
bool FrmKlientUdaj::endsByFrame() {
    bool ends = false;
    actions_.perform([&] {
        if (draft_.isNew())
            ends = mayDrop();
        else if (forms::moveFocus(&pages_->list()))
            ends = !draft_.isChanged() || saves(true, [this] { data_.leaveClient(); });
    });
    tellNotWritten();
    if (ends) {
        data_.dropClient();
        modKontrola::gAkcia = 0;
    }
    return ends;
}

/// A new client who was typed in is not given up unasked.
bool FrmKlientUdaj::mayDrop() {
    return !draft_.isChanged() ||
           card::mayDrop(*this,
                         QStringLiteral("Klient ešte nie je zapísaný. Zahodiť, čo bolo zadané ?"));
}

} // namespace clientcard
