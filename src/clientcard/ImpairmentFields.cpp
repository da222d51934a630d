#include "clientcard/ImpairmentFields.h"

#include "card/FieldGrid.h"
#include "card/TextRules.h"
#include "clientcard/RecordStateTexts.h"
#include "forms/Colours.h"
#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/FocusGuard.h"
#include "forms/Metrics.h"
#include "forms/WhyNot.h"
#include "validation/Validators.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

#include <algorithm>

namespace clientcard {

namespace {

constexpr int impairmentListWidth = 240;
/// Letters of the shortest field for an impairment, and of the longest impairment.
constexpr int leastOfImpairment = 18;
constexpr int mostOfImpairment = 40;
/// Around the one digit of a slot.
constexpr int slotEdges = 11;
/// Of the impairments in words.
constexpr int leastOfWords = 18;
constexpr int mostOfWords = 200;

// The father's field looks for a blank as well, which no key can type there.
constexpr std::array<ImpairmentTraits, 4> traitsTable = {{
    {Person::Client, u"textPosK", u"cmbPos", 2, 0, u"Výber domin. postihnutia",
     u"Výber pridruž. postihnutia", u"Postihnutia", u"výber z číselnika", false, false, false, u'0',
     u"Postihnutia"},
    {Person::Mother, u"textPosM", u"cmbPos", 1, 1, u"Výber dominantného postihnutia",
     u"Výber pridruženého postihnutia", u"Postihnutia", u"výber z postihnutí", false, false, false,
     u' ', u"Postihnutia matky"},
    {Person::Father, u"textPosO", u"cmbPos", 0, 2, u"Výber dominantného postihnutia",
     u"Výber pridruženého postihnutia", u"Postihnutia", u"výber z postihnutí", false, false, false,
     u' ', u"Postihnutia otca"},
    {Person::Sibling, u"textPosS", u"cmbSur", 1, 3, u"Výber dominantného postihnutia",
     u"Výber pridruženého postihnutia", u"Postihnutia súrodenca", u"výber z postihnutí", true, true,
     true, u'0', u"Postihnutia súrodenca"},
}};

forms::DropDown* makePick(QWidget* parent, const ImpairmentTraits& traits) {
    auto* pick = new forms::DropDown(parent);
    pick->setToolTip(QString::fromUtf16(traits.toolTip));
    pick->setDroppedWidth(impairmentListWidth);
    card::setRoom(*pick, leastOfImpairment, mostOfImpairment);
    return pick;
}

/// What only shows something must not look as if it could be typed into.
void setGround(QWidget& widget, const QColor& colour) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Base, colour);
    widget.setPalette(palette);
}

/// Empty for what is no code.
QString meaningOf(const QString& code) {
    const int number = code.toInt();
    return number > 0 ? impairmentTexts()[std::size_t(number) - 1] : QString();
}

/// "zrakové, pridružené: sluchové, iné".
QString wordsOf(const std::array<QString, 9>& codes) {
    constexpr qsizetype codeAndBar = 4;
    QStringList words;
    for (const QString& code : codes) {
        if (const QString meaning = meaningOf(code); !meaning.isEmpty())
            words += meaning.mid(codeAndBar);
    }
    if (words.isEmpty())
        return QStringLiteral("žiadne");
    const QString dominant = meaningOf(codes[0]).isEmpty() ? QString() : words.takeFirst();
    if (words.isEmpty())
        return dominant;
    const QString associated = QStringLiteral("pridružené: ") + words.join(QStringLiteral(", "));
    return dominant.isEmpty() ? associated : dominant + QStringLiteral(", ") + associated;
}

QString slotName(const ImpairmentTraits& traits, std::size_t slot) {
    const QString whose = QString::fromUtf16(traits.slotsCaption);
    return slot == 0 ? whose + QStringLiteral(", dominantné")
                     : whose + QStringLiteral(", pridružené %1").arg(slot);
}

QLabel* captionOf(QWidget* control, const QString& text) {
    auto* label = new QLabel(text, control->parentWidget());
    label->setBuddy(control);
    return label;
}

} // namespace

const ImpairmentTraits& impairmentTraits(Person person) {
    return *std::ranges::find(traitsTable, person, &ImpairmentTraits::person);
}

ImpairmentFields::ImpairmentFields(const ImpairmentTraits& traits, forms::EntryField& dominant,
                                   forms::EntryField& associated, QWidget* parent,
                                   forms::FocusGuard& guard)
    : traits_(traits), dominant_(dominant), associated_(associated),
      dominantPick_(makePick(parent, traits)), associatedPick_(makePick(parent, traits)),
      words_(new forms::EntryField(parent)),
      dominantCaption_(captionOf(dominantPick_, QString::fromUtf16(traits.dominantCaption))),
      associatedCaption_(captionOf(associatedPick_, QString::fromUtf16(traits.associatedCaption))) {
    guard.watch(dominantPick_, QString::fromUtf16(traits.dominantArray), traits.dominantElement,
                *this);
    guard.watch(associatedPick_, QStringLiteral("cmbSek"), traits.associatedElement, *this);
    dominantPick_->setItems(dominantRows());
    makeSlots(parent);
    if (traits.hidesPicks) {
        for (QWidget* hidden : std::initializer_list<QWidget*>{
                 dominantPick_, associatedPick_, dominantCaption_, associatedCaption_})
            card::keepPlace(*hidden);
    }
    show(QString());
}

void ImpairmentFields::makeSlots(QWidget* parent) {
    const QString array = QString::fromUtf16(traits_.slotArray);
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        slots_[i] = new forms::EntryField(parent);
        slots_[i]->setObjectName(forms::elementName(array, static_cast<int>(i)));
        slots_[i]->setFocusPolicy(Qt::NoFocus);
        slots_[i]->setAlignment(Qt::AlignCenter);
        forms::fitToFont(*slots_[i], [slot = slots_[i]] {
            slot->setFixedWidth(forms::lettersWide(*slot, 1) + slotEdges);
        });
    }
    words_->setObjectName(array + QStringLiteral("Slovom"));
    words_->setAccessibleName(QString::fromUtf16(traits_.slotsCaption) + QStringLiteral(" slovom"));
    card::setRoom(*words_, leastOfWords, mostOfWords);
    for (forms::EntryField* shown : {words_, slots_[0], slots_[1], slots_[2], slots_[3], slots_[4],
                                     slots_[5], slots_[6], slots_[7], slots_[8]}) {
        shown->setReadOnly(true);
        setGround(*shown, forms::screenColour.lighter(104));
    }
}

QWidget& ImpairmentFields::inWords() const {
    return *words_;
}

void ImpairmentFields::layOut(QGridLayout& grid, Shape shape) const {
    const auto place = [&](forms::EntryField& field, forms::DropDown* pick, QLabel* caption,
                           const QString& label, int row, int column) {
        grid.addWidget(caption, row, column + 2);
        grid.addWidget(captionOf(&field, label), row + 1, column, Qt::AlignRight);
        grid.addWidget(&field, row + 1, column + 1);
        auto* room = new QHBoxLayout;
        room->addWidget(pick, 1);
        room->addStretch();
        grid.addLayout(room, row + 1, column + 2);
    };
    const bool wide = shape == Shape::Wide;
    place(dominant_, dominantPick_, dominantCaption_, QStringLiteral("Dominantné"), 0, 0);
    place(associated_, associatedPick_, associatedCaption_, QStringLiteral("Pridružené"),
          wide ? 0 : 2, wide ? 3 : 0);
    auto* line = new QHBoxLayout;
    line->setSpacing(forms::tightGap / 2);
    for (forms::EntryField* slot : slots_)
        line->addWidget(slot);
    line->addSpacing(forms::tightGap);
    line->addWidget(words_, 1);
    grid.addWidget(captionOf(slots_[0], QString::fromUtf16(traits_.slotsCaption)), 4, 0,
                   Qt::AlignRight);
    grid.addLayout(line, 4, 1, 1, wide ? 5 : 2);
    grid.setColumnStretch(2, 1);
    if (wide)
        grid.setColumnStretch(5, 1);
}

void ImpairmentFields::show(const QString& stored) {
    stored_ = stored;
    showCodes(stored);
}

void ImpairmentFields::showCodes(const QString& codes) {
    state_.read(codes);
    showSlots();
    dominantPick_->setPick(-1);
    for (forms::EntryField* field : {&dominant_, &associated_})
        field->showBound(QString());
    enableAssociated(hasImpairment(codes));
}

bool ImpairmentFields::isPending() const {
    return !dominant_.text().isEmpty() || !associated_.text().isEmpty();
}

void ImpairmentFields::addTyped(forms::Words& words, const QString& column) const {
    if (card::trimBlanks(joined()) != card::trimBlanks(stored_))
        words.push_back({.field = column,
                         .column = column,
                         .text = joined(),
                         .caption = QString::fromUtf16(traits_.wordsCaption)});
    for (const forms::EntryField* field : {&dominant_, &associated_}) {
        if (!field->text().isEmpty())
            words.push_back({.field = field->objectName(), .column = {}, .text = field->text()});
    }
}

void ImpairmentFields::enter(const forms::Words& words, const QString& column) {
    const auto ifTyped = [&](const QString& field, const auto& enter) {
        const auto word = std::ranges::find(words, field, &forms::Word::field);
        if (word != words.end())
            enter(word->text);
    };
    // This clears the fields beside them.
    ifTyped(column, [this](const QString& codes) { showCodes(codes); });
    for (forms::EntryField* field : {&dominant_, &associated_})
        ifTyped(field->objectName(), [field](const QString& code) { field->setText(code); });
}

void ImpairmentFields::showSlots() {
    const auto& texts = state_.slotTexts();
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        slots_[i]->setText(texts[i]);
        slots_[i]->setToolTip(meaningOf(texts[i]));
        slots_[i]->setAccessibleName(slotName(traits_, i));
    }
    words_->setText(wordsOf(texts));
    words_->setCursorPosition(0);
    words_->setToolTip(words_->text());
    associatedPick_->setItems(state_.associatedRows());
}

void ImpairmentFields::setOpen(bool open) {
    isOpen_ = open;
    enablePick(*dominantPick_, *dominantCaption_, open, recordIsClosedText());
    enableAssociated(isImpaired_);
}

void ImpairmentFields::enableAssociated(bool enabled) {
    isImpaired_ = enabled;
    enablePick(*associatedPick_, *associatedCaption_, isOpen_ && enabled, whyNotAssociated());
    forms::setUsable(associated_, isOpen_ && enabled, whyNotAssociated());
}

QString ImpairmentFields::whyNotAssociated() const {
    return isOpen_ ? QStringLiteral("Najprv zadajte dominantné postihnutie.")
                   : recordIsClosedText();
}

void ImpairmentFields::enablePick(forms::DropDown& pick, QLabel& caption, bool enabled,
                                  const QString& whyNot) const {
    if (traits_.hidesPicks) {
        pick.setVisible(enabled);
        caption.setVisible(enabled);
    } else {
        forms::setUsable(pick, enabled, whyNot);
    }
}

void ImpairmentFields::nastavDominantne(int code) {
    state_.setDominant(code);
    showSlots();
    dominant_.setText(state_.slotTexts()[0]);
    associated_.clear();
}

void ImpairmentFields::takeDominant() {
    const bool isTyped = !dominant_.text().isEmpty();
    const int code = int(modKontrola::Val(dominant_.text()));
    dominant_.clear();
    if (!isTyped || (code == 0 && !traits_.zeroClears))
        return;
    const bool repeats = state_.slotTexts()[0].toInt() == code;
    if (!repeats || !traits_.sparesOnRepeat)
        nastavDominantne(code);
    dominant_.clear();
    enableAssociated(state_.hasDominant());
}

bool ImpairmentFields::takeAssociated() {
    const auto& taken = state_.slotTexts();
    if (modKontrola::kontrolaPostih(associated_, true, QStringList(taken.begin(), taken.end())))
        return true;
    const QString code = associated_.text();
    if (code.startsWith(QChar(traits_.clearing))) {
        state_.resetAssociated();
    } else if (!code.isEmpty()) {
        state_.addAssociated(code);
        state_.removeCode(code);
    }
    showSlots();
    associated_.clear();
    return false;
}

void ImpairmentFields::takePending() {
    takeDominant();
    const auto& taken = state_.slotTexts();
    if (std::ranges::find(taken, associated_.text()) == taken.end())
        takeAssociated();
}

void ImpairmentFields::pickDominant(int row) {
    nastavDominantne(row);
    enableAssociated(row != 0);
    dominant_.clear();
}

void ImpairmentFields::pickAssociated(int row) {
    const QString code = associatedPick_->itemText(row).left(1);
    if (code == u"0") {
        state_.resetAssociated();
    } else {
        state_.removeRow(row);
        state_.addAssociated(code);
    }
    showSlots();
    associated_.clear();
}

/// The slots say what holds, so the picker shows nothing afterwards.
void ImpairmentFields::takePick(const forms::Control& control) {
    const bool isDominant = control.widget() == dominantPick_;
    forms::DropDown* pick = isDominant ? dominantPick_ : associatedPick_;
    const int row = pick != nullptr ? pick->pick() : -1;
    if (pick != nullptr)
        pick->setPick(-1);
    if (row < 0)
        return;
    isDominant ? pickDominant(row) : pickAssociated(row);
}

void ImpairmentFields::click(const forms::Control& control, forms::Area area) {
    if (area != forms::Area::Item)
        return;
    takePick(control);
    forms::moveFocus(control.widget() == dominantPick_ ? &dominant_ : &associated_);
}

forms::Leave ImpairmentFields::lostFocus(const forms::Control& control,
                                         const forms::Control& /*now*/) {
    takePick(control);
    return forms::Leave::Go;
}

void ImpairmentFields::keyDown(const forms::Control& control, int& key,
                               Qt::KeyboardModifiers /*modifiers*/) {
    // Only the sibling's pickers give the focus back by Esc.
    if (key != Qt::Key_Escape || traits_.person != Person::Sibling)
        return;
    key = 0;
    const bool isDominant = control.widget() == dominantPick_;
    (isDominant ? dominantPick_ : associatedPick_)->setPick(-1);
    forms::moveFocus(isDominant ? &dominant_ : &associated_);
}

} // namespace clientcard
