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
#include "forms/Guard.h"
#include "forms/MessageBox.h"
#include "forms/Metrics.h"
#include "forms/RichText.h"
#include "validation/modKontrola.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeySequence>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace clientcard {

namespace {

/// The place of the family that fills a tab of the kind.
std::size_t familyOfKind(TabKind kind) {
    if (isEntry(kind))
        return 0;
    return kind == TabKind::Memo ? 1 : 2;
}

/// As much of the window behind as leaves that to be seen.
QSize windowSize(const QWidget* parent) {
    constexpr QSize least(1240, 700);
    constexpr QSize seenBehind(40, 60);
    return parent != nullptr ? least.expandedTo(parent->window()->size() - seenBehind) : least;
}

} // namespace

FrmKlientUdaj::FrmKlientUdaj(store::DBEngine& engine, const store::ProgramFolder& folder,
                             QWidget* parent)
    : QDialog(parent), data_(engine, folder), actions_(engine, *this),
      words_(*this, engine, folder, QStringLiteral("k_zaklad")), guard_(this),
      pages_(new CardPages(this)) {
    setObjectName(QStringLiteral("frmKlientUdaj"));
    setWindowTitle(QStringLiteral("Údaje klienta") + card::trimBlanks(modKontrola::gMenoKlienta));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    card::setGround(*this, QPalette::Window, forms::screenColour);
    makePages();
    makeKeys();
    foot_.emplace(*this, [this](CardFoot::Button button) { act(button); });
    guide_.emplace(*this, foot_->button(CardFoot::cmdZaklUd));
    auto* lines = new QVBoxLayout(this);
    lines->addLayout(pages_->layOut(guide_->layOut()), 1);
    lines->addLayout(foot_->layOut());
    input_.watch(*this);
    connect(&forms::ErrorRoute::of(*this), &forms::ErrorRoute::readFailed, this,
            &FrmKlientUdaj::closeUnread);
    forms::openAs(*this, windowSize(parent));
    draft_->otvorKlienta();
    modKontrola::gZVyberu = false;
    if (modKontrola::gAkcia != 2)
        zamkniZalozky();
    else if (data_.datMemo().Recordset().Eof())
        // The rest can be edited without this row.
        actions_.perform([this] { data_.datMemo().Recordset().Edit(); });
    showContents();
    beginWords();
}

/// What is still open is dropped: the user has not said that it is to be written.
FrmKlientUdaj::~FrmKlientUdaj() {
    draft_->drop();
}

void FrmKlientUdaj::makePages() {
    families_.push_back(makeEntryTabs(*this));
    families_.push_back(makeMemoTabs(*this));
    families_.push_back(makeRecordTabs(*this));
    entry_ = families_.front().get();
    cycle_.emplace(data_, *entry_->keyFields());
    draft_.emplace(data_, families_, *cycle_, actions_);
    words_.add({.tables = {QStringLiteral("k_zaklad"), QStringLiteral("k_memo")},
                .typed = [this] { return draft_->typedWords(); },
                .enter =
                    [this](const words::Kept& kept) {
                        draft_->enterWords(kept.words);
                    }});
    for (const TabRow& row : tabTable())
        pages_->add(*families_[familyOfKind(row.kind)]);
    connect(pages_, &CardPages::turned, this,
            [this](int tab) { actions_.perform([&] { zalozkaKlik(tab); }); });
}

void FrmKlientUdaj::makeKeys() {
    onKey(Qt::CTRL | Qt::Key_PageDown, [this] { return pages_->beside(1); });
    onKey(Qt::CTRL | Qt::Key_PageUp, [this] { return pages_->beside(-1); });
    for (int tab = 0; tab < int(tabTable().size()); ++tab)
        onKey(tabKey(tab), [tab] { return tab; });
}

/// A field is not left for a tab that is locked.
void FrmKlientUdaj::onKey(const QKeySequence& keys, const std::function<int()>& tab) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, [this, tab] {
        actions_.perform([&] {
            if (!pages_->list().isReachable(tab()) || leavesField())
                pages_->goTo(tab());
        });
    });
}

void FrmKlientUdaj::beginWords() {
    const bool isNew = draft_->isNew();
    const card::Names names = entry_->keyFields()->typed();
    words_.begin(isNew ? QString() : modKontrola::gIdKod,
                 isNew ? QStringLiteral("nový klient")
                       : (names.firstName + u' ' + names.surname).simplified());
}

void FrmKlientUdaj::setPrinting(Print tab, Print card) {
    printTab_ = std::move(tab);
    printCard_ = std::move(card);
    foot_->setPrints(printTab_ != nullptr);
}

void FrmKlientUdaj::setSpelling(spelling::Speller& speller) {
    for (auto* text : findChildren<forms::RichText*>())
        text->setSpelling(speller);
}

void FrmKlientUdaj::zamkniZalozky() {
    pages_->enable(1, false);
    pages_->list().setWhyLocked(
        QStringLiteral("Sprístupní sa, keď sa zapíšu základné údaje: Alt+D"));
    guide_->setLocked(true);
    arrangeGuide();
}

void FrmKlientUdaj::odomkniZalozky() {
    pages_->enable(1, true);
    guide_->setLocked(false);
    arrangeGuide();
}

/// On the first tab what the guide says stands near the last field.
void FrmKlientUdaj::arrangeGuide() {
    pages_->hugFirstPage(guide_->speaks() && pages_->current() == 0);
    foot_->showKeys();
}

void FrmKlientUdaj::tellWritten(const QString& whom) {
    guide_->tellWritten(whom);
    arrangeGuide();
}

QString FrmKlientUdaj::typedName() {
    const card::Names names = entry_->keyFields()->typed();
    return names.firstName + u' ' + names.surname;
}

/// Shows what is written, and of a client who is not there yet nothing.
void FrmKlientUdaj::showContents() {
    forms::showGuarded(this, [this] {
        if (data_.datZaklad().isOpen())
            pages_->showContents(!draft_->isNew());
    });
}

void FrmKlientUdaj::leadOnFromLastField() {
    if (guide_->isLocked())
        forms::moveFocus(&foot_->button(CardFoot::cmdZaklUd));
}

void FrmKlientUdaj::turnTo(int tab) {
    pages_->turnTo(tab);
}

void FrmKlientUdaj::zalozkaKlik(int tab) {
    foot_->takeEsc();
    guide_->forget();
    arrangeGuide();
    pages_->show(tab);
    showContents();
}

/// Whether the field in focus lets go, and no record is open.
bool FrmKlientUdaj::leavesField() {
    return QApplication::activePopupWidget() == nullptr && !foot_->recordIsOpen() &&
           forms::moveFocus(&pages_->list());
}

void FrmKlientUdaj::beginEdit(int tab, QAbstractButton& storno) {
    pages_->enable(0, false);
    pages_->setReachable(tab, true);
    pages_->list().setWhyLocked(
        QStringLiteral("Sprístupní sa, keď sa otvorený záznam zapíše alebo stornuje"));
    foot_->giveWayTo(storno);
    words_.setRecordOpen(true);
}

void FrmKlientUdaj::endEdit() {
    pages_->enable(0, true);
    foot_->comeBack();
    words_.setRecordOpen(false);
}

/// What an action has to tell is told before the card ends.
void FrmKlientUdaj::act(CardFoot::Button button) {
    End end;
    words_.keep();
    const bool isDone = actions_.perform([&] { end = press(button); });
    // Nothing is lost with a card that can be read no longer and holds nothing of its own.
    if (!isDone && draft_->isOwed() && !input_.isNoted())
        end = cmdStornoClick();
    if (end)
        done(*end);
    else if (isDone)
        showContents();
}

FrmKlientUdaj::End FrmKlientUdaj::press(CardFoot::Button button) {
    switch (button) {
    case CardFoot::CmdZap:
        return CmdZapClick();
    case CardFoot::cmdStorno:
        return cmdStornoClick();
    case CardFoot::cmdZaklUd:
        cmdZaklUdClick();
        break;
    case CardFoot::cmdZakZap:
        cmdZakZapClick();
        break;
    case CardFoot::cmdZapNew:
        cmdZapNewClick();
        break;
    case CardFoot::cmdTlac:
        print(printTab_);
        break;
    case CardFoot::cmdTlacKartu:
        print(printCard_);
        break;
    case CardFoot::cmdSave:
        break;
    }
    return {};
}

/// Goes to a mandatory field that is empty.
/// @param turnsTab for a missing name the first tab is turned to. A missing catalogue number never
/// does that.
bool FrmKlientUdaj::isSaved(SaveResult result, bool turnsTab) {
    if (result == SaveResult::Saved)
        return true;
    if (result == SaveResult::NoCatalogueNumber) {
        entry_->focusElement(krz::katcis);
        return false;
    }
    if (turnsTab)
        turnTo(0);
    entry_->focusElement(result == SaveResult::NoFirstName ? krz::meno : krz::priezv);
    return false;
}

void FrmKlientUdaj::goToStart() {
    turnTo(0);
    entry_->focusElement(krz::meno);
}

void FrmKlientUdaj::cmdZaklUdClick() {
    if (!isSaved(draft_->saveOnTheWay(), false))
        return;
    entry_->focusElement(krz::meno);
    // The table may have refused the client.
    if (draft_->isNew())
        return;
    odomkniZalozky();
    tellWritten(typedName());
    beginWords();
}

void FrmKlientUdaj::cmdZakZapClick() {
    if (!isSaved(draft_->saveOnTheWay(), true))
        return;
    pages_->enable(1, true);
    foot_->button(CardFoot::cmdZakZap).hide();
    beginWords();
}

FrmKlientUdaj::End FrmKlientUdaj::CmdZapClick() {
    if (!isSaved(draft_->saveAndLeave(), true))
        return {};
    words_.written();
    modKontrola::gAkcia = 0;
    return Accepted;
}

void FrmKlientUdaj::cmdZapNewClick() {
    const QString written = typedName();
    if (!isSaved(draft_->saveForNext(), true))
        return;
    beginWords();
    zamkniZalozky();
    goToStart();
    if (!actions_.passedOverRow())
        return tellWritten(written);
    guide_->forget();
    arrangeGuide();
}

/// Reads nothing, so that a card closes whose file has gone.
FrmKlientUdaj::End FrmKlientUdaj::cmdStornoClick() {
    words_.dropped();
    draft_->drop();
    modKontrola::gAkcia = 0;
    return Rejected;
}

void FrmKlientUdaj::print(const Print& printed) {
    if (!draft_->isNew())
        return printed({pages_->current(), datedRecordsOf(u"k_navstevy", modKontrola::gIdKod),
                        draft_->isChanged()});
    forms::showMessage(
        this, {.text = QStringLiteral("Klient ešte nie je zapísaný, najprv zapíš základné údaje !"),
               .title = QStringLiteral("Upozornenie"),
               .icon = QMessageBox::Warning});
}

/// A card that can't be read closes, unless the user has entered anything. What of it differs from
/// the row can't be read either.
void FrmKlientUdaj::closeUnread() {
    if (isVisible() && !foot_->recordIsOpen() && !input_.isNoted())
        done(*cmdStornoClick());
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

/// A record that is open belongs to its tab alone: only its own buttons write or drop it.
bool FrmKlientUdaj::staysForRecord() {
    if (!foot_->recordIsOpen())
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
        if (draft_->isNew())
            ends = mayDrop();
        else if (forms::moveFocus(&pages_->list()))
            ends = !draft_->isChanged() || CmdZapClick();
    });
    if (ends)
        cmdStornoClick();
    return ends;
}

/// A new client who was typed in is not given up unasked.
bool FrmKlientUdaj::mayDrop() {
    return !draft_->isChanged() ||
           card::mayDrop(*this,
                         QStringLiteral("Klient ešte nie je zapísaný. Zahodiť, čo bolo zadané ?"));
}

} // namespace clientcard
