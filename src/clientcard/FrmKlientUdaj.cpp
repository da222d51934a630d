#include "clientcard/FrmKlientUdaj.h"

#include "clientcard/CardTables.h"
#include "clientcard/EntryTabs.h"
#include "clientcard/MemoTabs.h"
#include "clientcard/RecordTabs.h"
#include "clientcard/TabList.h"
#include "clientcard/TextRules.h"
#include "forms/Colours.h"
#include "forms/MessageBox.h"
#include "validation/modKontrola.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace clientcard {

namespace {

struct ButtonRow {
    const char16_t* name;
    const char16_t* caption;
    const char16_t* toolTip;
    bool shown;
};

// Two of them are never shown: one does nothing, the other what its neighbour does better.
constexpr std::array<ButtonRow, 7> buttonTable = {{
    {u"cmdZaklUd", u"Zapíš základné údaje", u"Zapíše základné údaje a sprístupníi ďalšie záložky",
     false},
    {u"cmdZakZap", u"Zapíš základné údaje", u"", false},
    {u"cmdSave", u"Zapíš", u"", false},
    {u"cmdTlac", u"Tlač záložku", u"", true},
    {u"cmdZapNew", u"Zapíš + nový klient", u"Zapíše aktuálne údaje a prejde na nového klienta",
     true},
    {u"CmdZap", u"Zapíš + návrat", u"Zapíše aktuálne údaje a vráti sa do hlavnej obrazovky", true},
    {u"cmdStorno", u"Storno", u"Návrat do hlavnej obrazovky", true},
}};

constexpr int tabCount = 14;

bool isEntry(TabKind kind) {
    return kind == TabKind::Basic || kind == TabKind::Parents;
}

/// The place of the family that fills a tab of the kind.
std::size_t familyOfKind(TabKind kind) {
    if (isEntry(kind))
        return 0;
    return kind == TabKind::Memo ? 1 : 2;
}

/// A disabled text must still be read on the coloured ground.
constexpr QColor disabledText(112, 112, 148);

constexpr auto entryKeys =
    u"Enter ďalšie pole  ·  F4 číselník  ·  Ctrl+PageDown ďalšia záložka  ·  "
    "PageDown na zápis";
constexpr auto recordKeys = u"Enter ďalšie pole  ·  F4 číselník  ·  Esc storno záznamu";
constexpr auto otherKeys = u"Tab ďalšie pole  ·  Ctrl+PageDown ďalšia záložka";

void setColour(QWidget& widget, QPalette::ColorRole role, const QColor& colour) {
    QPalette palette = widget.palette();
    palette.setColor(role, colour);
    palette.setColor(QPalette::Disabled, QPalette::Text, disabledText);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, disabledText);
    widget.setPalette(palette);
}

void dropOpenRow(store::DataSource& source) {
    if (source.isOpen())
        source.Recordset().CancelUpdate();
}

} // namespace

FrmKlientUdaj::FrmKlientUdaj(store::DBEngine& engine, const store::ProgramFolder& folder,
                             QWidget* parent)
    : QDialog(parent), data_(engine, folder), guard_(this), esc_(this), SSTab1_(new TabList(this)),
      pages_(new QStackedWidget(this)), keys_(new QLabel(this)) {
    setObjectName(QStringLiteral("frmKlientUdaj"));
    setWindowTitle(QStringLiteral("Údaje klienta") + trimBlanks(modKontrola::gMenoKlienta));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    dressInColours();
    makeTabs();

    auto* tabs = new QHBoxLayout;
    tabs->addWidget(SSTab1_);
    tabs->addWidget(pages_, 1);
    auto* buttons = new QHBoxLayout;
    makeButtons(*buttons);
    keys_->setForegroundRole(QPalette::PlaceholderText);
    showKeys(0);
    auto* lines = new QVBoxLayout(this);
    lines->addLayout(tabs, 1);
    lines->addLayout(buttons);
    otvorKlienta();
}

FrmKlientUdaj::~FrmKlientUdaj() = default;

void FrmKlientUdaj::dressInColours() {
    setColour(*this, QPalette::Window, forms::screenColour);
    setColour(*SSTab1_, QPalette::Base, forms::screenColour);
}

void FrmKlientUdaj::makeTabs() {
    SSTab1_->setObjectName(QStringLiteral("SSTab1"));
    families_.push_back(makeEntryTabs(*this));
    families_.push_back(makeMemoTabs(*this));
    families_.push_back(makeRecordTabs(*this));
    entry_ = families_.front().get();
    cycle_.emplace(data_, *entry_->keyFields());
    for (int tab = 0; tab < tabCount; ++tab) {
        const TabRow& row = tabTable()[std::size_t(tab)];
        auto* item = new QListWidgetItem(QString::fromUtf16(row.caption), SSTab1_);
        item->setSizeHint({SSTab1_->fontMetrics().horizontalAdvance(item->text()) + 16, 28});
        familyOfTab_[tab] = families_[familyOfKind(row.kind)].get();
        pages_->addWidget(familyOf(tab).makePage(tab, pages_));
    }
    SSTab1_->fitWidth();
    SSTab1_->setCurrentRow(0);
    connect(SSTab1_, &QListWidget::currentRowChanged, this,
            [this](int tab) { perform([&] { zalozkaKlik(tab); }); });
    for (const auto& [keys, step] :
         {std::pair{Qt::CTRL | Qt::Key_PageDown, 1}, std::pair{Qt::CTRL | Qt::Key_PageUp, -1}}) {
        auto* shortcut = new QShortcut(QKeySequence(keys), this);
        connect(shortcut, &QShortcut::activated, this, [this, by = step] { turnBy(by); });
    }
}

TabFamily& FrmKlientUdaj::familyOf(int tab) const {
    return *familyOfTab_.at(tab);
}

void FrmKlientUdaj::makeButtons(QHBoxLayout& line) {
    for (int i = 0; i < buttonCount; ++i) {
        const ButtonRow& row = buttonTable[std::size_t(i)];
        auto* button = new QPushButton(QString::fromUtf16(row.caption), this);
        button->setObjectName(QString::fromUtf16(row.name));
        button->setToolTip(QString::fromUtf16(row.toolTip));
        button->setVisible(row.shown);
        button->setAutoDefault(false);
        setColour(*button, QPalette::Button, forms::buttonColour);
        connect(button, &QPushButton::clicked, this, [this, i] { act(Button(i)); });
        button->setMinimumSize(button->sizeHint() + QSize(16, 4));
        if (i == cmdTlac)
            line.addWidget(keys_, 1, Qt::AlignCenter);
        line.addWidget(button);
        buttons_[std::size_t(i)] = button;
    }
    buttons_[cmdTlac]->setEnabled(false);
    esc_.set(buttons_[cmdStorno]);
}

QAbstractButton& FrmKlientUdaj::saveButton() {
    return *buttons_[CmdZap];
}

void FrmKlientUdaj::setPrinting(std::function<void(int)> print) {
    print_ = std::move(print);
    buttons_[cmdTlac]->setEnabled(print_ != nullptr);
}

void FrmKlientUdaj::perform(const std::function<void()>& action) {
    try {
        action();
    } catch (const store::EngineError& error) {
        forms::showEngineError(this, error);
    }
}

void FrmKlientUdaj::otvorKlienta() {
    data_.otvorZaznamy(modKontrola::gIdKod);
    data_.otvorCiselniky();
    modKontrola::gZVyberu = false;
    if (modKontrola::gAkcia == 2)
        openExisting();
    else
        openNew();
}

void FrmKlientUdaj::openExisting() {
    // The source stands on somebody else's row when the client has gone since the list was read.
    if (data_.datZaklad().Recordset().NoMatch())
        throw store::EngineError(
            store::ErrorNumber::NoCurrentRecord,
            QStringLiteral("Klient s kľúčom „%1“ už v databáze nie je.").arg(modKontrola::gIdKod));
    data_.datZaklad().Recordset().Edit();
    perform([this] { data_.datMemo().Recordset().Edit(); });
}

void FrmKlientUdaj::openNew() {
    zamkniZalozky();
    data_.datZaklad().Recordset().AddNew();
    data_.datMemo().Recordset().AddNew();
}

void FrmKlientUdaj::zamkniZalozky() {
    enableTabs(1, false);
    buttons_[cmdZaklUd]->show();
}

void FrmKlientUdaj::enableTabs(int from, bool enabled) {
    for (int tab = from; tab < tabCount; ++tab)
        SSTab1_->setReachable(tab, enabled);
}

void FrmKlientUdaj::turnTo(int tab) {
    SSTab1_->setCurrentRow(tab);
}

void FrmKlientUdaj::zalozkaKlik(int tab) {
    if (tab < 0)
        return;
    esc_.set(buttons_[cmdStorno]);
    showKeys(tab);
    pages_->setCurrentIndex(tab);
    familyOf(tab).turnedTo(tab);
}

/// Which keys lead on from the tab.
void FrmKlientUdaj::showKeys(int tab) {
    const bool walksByEnter = isEntry(tabTable()[std::size_t(tab)].kind);
    keys_->setText(QString::fromUtf16(recordIsOpen() ? recordKeys
                                      : walksByEnter ? entryKeys
                                                     : otherKeys));
}

/// To the next tab that is enabled, if the field in focus lets go and no record is open.
void FrmKlientUdaj::turnBy(int step) {
    if (QApplication::activePopupWidget() != nullptr || recordIsOpen() ||
        !forms::moveFocus(SSTab1_))
        return;
    const int tab = SSTab1_->reachableFrom(SSTab1_->currentRow(), step);
    if (tab >= 0)
        turnTo(tab);
    else
        familyOf(SSTab1_->currentRow()).turnedTo(SSTab1_->currentRow());
}

void FrmKlientUdaj::beginEdit(int tab, QAbstractButton& storno) {
    enableTabs(0, false);
    SSTab1_->setReachable(tab, true);
    for (const Button button : {CmdZap, cmdZapNew, cmdStorno, cmdTlac})
        buttons_[button]->setEnabled(false);
    esc_.set(&storno);
    showKeys(tab);
}

void FrmKlientUdaj::endEdit() {
    enableTabs(0, true);
    for (const Button button : {CmdZap, cmdZapNew, cmdStorno})
        buttons_[button]->setEnabled(true);
    buttons_[cmdTlac]->setEnabled(print_ != nullptr);
    esc_.set(buttons_[cmdStorno]);
    showKeys(SSTab1_->currentRow());
}

void FrmKlientUdaj::act(Button button) {
    perform([&] { press(button); });
    perform([this] { recoverNew(); });
    tellNotWritten();
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
        return print_ ? print_(SSTab1_->currentRow()) : void();
    case cmdSave:
    case buttonCount:
        return;
    }
}

/// A new client who could not be written has lost the open row, and the source stands on somebody
/// else.
void FrmKlientUdaj::recoverNew() {
    if (isVisible() && modKontrola::gAkcia == 1 && data_.datZaklad().isOpen() &&
        data_.datZaklad().Recordset().EditMode() == store::EditState::None)
        resumeDraft();
}

/// Never written so far.
bool FrmKlientUdaj::clientIsNew() const {
    return data_.datZaklad().isOpen() &&
           data_.datZaklad().Recordset().EditMode() == store::EditState::Add;
}

void FrmKlientUdaj::keepDraft() {
    draft_ = {
        modKontrola::gAkcia, modKontrola::gIdKod, modKontrola::gMenoKlienta, clientIsNew(), {}};
    for (const auto& family : families_)
        draft_.putBack.push_back(family->keepTyped());
}

/// Goes on with what was typed as if the save had not begun.
void FrmKlientUdaj::resumeDraft() {
    modKontrola::gAkcia = draft_.akcia;
    modKontrola::gIdKod = draft_.idKod;
    modKontrola::gMenoKlienta = draft_.menoKlienta;
    data_.otvorZaznamy(draft_.idKod);
    if (draft_.isNew)
        openNew();
    else
        openExisting();
    for (const auto& putBack : draft_.putBack)
        putBack();
    turnTo(0);
    entry_->focusElement(0);
}

/// The disk may be full only now. What a card shows no longer must lie in the file.
void FrmKlientUdaj::commit() {
    try {
        data_.commit();
    } catch (const store::EngineError&) {
        resumeDraft();
        throw;
    }
}

/// @param turnsTab for a missing name the first tab is turned to. A missing catalogue number never
/// does that.
bool FrmKlientUdaj::saves(bool turnsTab) {
    keepDraft();
    const SaveResult result = cycle_->zapisZaklad();
    if (result == SaveResult::Saved)
        return true;
    if (result == SaveResult::NoCatalogueNumber) {
        entry_->focusElement(6);
        return false;
    }
    if (turnsTab)
        turnTo(0);
    entry_->focusElement(result == SaveResult::NoFirstName ? 0 : 1);
    return false;
}

void FrmKlientUdaj::cmdZaklUdClick() {
    if (!saves(false))
        return;
    data_.datMemo().setRecordSource(QStringLiteral("select * from k_memo order by idkod"));
    data_.datMemo().Refresh();
    enableTabs(1, true);
    buttons_[cmdZaklUd]->hide();
    reopen(data_.datZaklad(), QStringLiteral("select * from k_zaklad  order by priezv,meno"));
    reopen(data_.datMemo(), data_.datMemo().RecordSource());
    commit();
    entry_->focusElement(0);
}

/// Opens the client's row for the further edit, if it is there (see recoverNew()).
void FrmKlientUdaj::reopen(store::DataSource& source, const QString& recordSource) {
    if (source.RecordSource() != recordSource) {
        source.setRecordSource(recordSource);
        source.Refresh();
    }
    source.Recordset().FindFirst(keyCriterion(modKontrola::gIdKod));
    if (!source.Recordset().NoMatch())
        source.Recordset().Edit();
}

void FrmKlientUdaj::cmdZakZapClick() {
    if (!saves(true))
        return;
    enableTabs(1, true);
    buttons_[cmdZakZap]->hide();
}

void FrmKlientUdaj::CmdZapClick() {
    if (!saves(true))
        return;
    data_.datZaklad().Refresh();
    data_.datMemo().Refresh();
    commit();
    modKontrola::gAkcia = 0;
    tellNotWritten();
    accept();
}

void FrmKlientUdaj::cmdZapNewClick() {
    if (!saves(true))
        return;
    modKontrola::gIdKod.clear();
    modKontrola::gMenoKlienta.clear();
    data_.otvorZaznamy(QString());
    commit();
    openNew();
    modKontrola::gAkcia = 1;
    turnTo(0);
    entry_->focusElement(0);
}

void FrmKlientUdaj::cmdStornoClick() {
    for (store::DataSource* source : {&data_.datZaklad(), &data_.datMemo()}) {
        dropOpenRow(*source);
        source->Refresh();
    }
    modKontrola::gAkcia = 0;
    reject();
}

void FrmKlientUdaj::tellNotWritten() {
    std::vector<forms::NotWritten> errors;
    for (const auto& family : families_) {
        std::ranges::move(family->takeErrors(), std::back_inserter(errors));
    }
    forms::showNotWritten(this, errors);
}

void FrmKlientUdaj::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (wasShown_)
        return;
    wasShown_ = true;
    turnTo(0);
    entry_->focusElement(0);
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
    return esc_.button() != buttons_[cmdStorno];
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

/// Closing by the frame writes a client who has a key, when the field in focus lets go, and drops
/// one who was never saved.
/// @return false to stay open
bool FrmKlientUdaj::endsByFrame() {
    if (clientIsNew()) {
        const auto answer =
            entry_->isChanged()
                ? forms::showMessage(this,
                                     {.text = QStringLiteral(
                                          "Klient ešte nie je zapísaný. Zahodiť, čo bolo zadané ?"),
                                      .title = QStringLiteral("Upozornenie"),
                                      .icon = QMessageBox::Question,
                                      .buttons = QMessageBox::Yes | QMessageBox::No,
                                      .defaultButton = QMessageBox::No})
                : QMessageBox::Yes;
        if (answer != QMessageBox::Yes)
            return false;
        dropOpenRow(data_.datZaklad());
        dropOpenRow(data_.datMemo());
    } else if (!forms::moveFocus(SSTab1_)) {
        return false;
    }
    perform([this] {
        for (const auto& family : families_)
            family->writeBack();
    });
    tellNotWritten();
    modKontrola::gAkcia = 0;
    return true;
}

} // namespace clientcard
