#include "clientcard/EntryFields.h"

#include "card/FieldKeys.h"
#include "card/TextRules.h"
#include "clientcard/CardData.h"
#include "clientcard/ImpairmentFields.h"
#include "clientcard/Pickers.h"
#include "clientcard/SaveCycle.h"
#include "clientcard/SexPick.h"
#include "clientcard/TabFamily.h"
#include "forms/DropDown.h"
#include "forms/MessageBox.h"
#include "store/Dates.h"
#include "validation/Validators.h"
#include "validation/modKontrola.h"

#include <QDialog>

#include <algorithm>
#include <iterator>

namespace clientcard {

namespace {

using card::Checked;

Own ownCheckOf(int element) {
    return entryTable()[std::size_t(element)].own;
}

std::vector<card::FieldRow> fieldRows() {
    std::vector<card::FieldRow> rows;
    std::ranges::transform(entryTable(), std::back_inserter(rows), &EntryRow::field);
    return rows;
}

/// The year of a parent's birth, and where the age at the birth of the child goes.
struct ParentRow {
    krz::Element year;
    krz::Element age;
    const char16_t* message;
};

constexpr ParentRow parents[] = {
    {krz::matnar, krz::matvek, u"Logicky chybne zadané dátumy matky a klienta !"},
    {krz::otenar, krz::otevek, u"Logicky chybne zadané dátumy otca a klienta !"},
};

Checked answer(bool held) {
    return held ? Checked::Failed : Checked::Passed;
}

} // namespace

EntryFields::EntryFields(CardFrame& frame, Pickers& pickers, QWidget* parent)
    : RuledFields(frame.window(), frame.guard(), entrySet, fieldRows(), parent), frame_(frame),
      pickers_(pickers) {}

void EntryFields::setPicks(SexPick& sex, ImpairmentFields& client, ImpairmentFields& mother,
                           ImpairmentFields& father) {
    sexPick_ = &sex;
    impairments_ = {&client, &mother, &father};
}

ImpairmentFields& EntryFields::impairmentsOf(int element) const {
    return *impairments_.at(element <= krz::associatedK ? 0 : element <= krz::associatedM ? 1 : 2);
}

forms::DropDown* EntryFields::pickOf(int element) const {
    if (element == krz::pohlav)
        return &sexPick_->pick();
    switch (ownCheckOf(element)) {
    case Own::Dominant:
        return &impairmentsOf(element).dominantPick();
    case Own::Associated:
        return &impairmentsOf(element).associatedPick();
    default:
        return pickers_.pickOf(element);
    }
}

void EntryFields::leftUnchecked(int element) {
    const Own own = ownCheckOf(element);
    if (own == Own::Dominant || own == Own::Associated)
        impairmentsOf(element).takePending();
}

void EntryFields::gotFocus(const forms::Control& control) {
    idleEnters_ = 0;
    RuledFields::gotFocus(control);
}

/// The Enter that takes the digit is not idle.
void EntryFields::change(const forms::Control& control) {
    idleEnters_ = -1;
    RuledFields::change(control);
}

/// One more associated impairment may be typed there, so only an Enter that is repeated without a
/// digit means that there is none.
void EntryFields::walkEnds(int element, card::Way way) const {
    const bool isClients = element == krz::dominantK || element == krz::associatedK;
    if (isClients && way == card::Way::Forth && ++idleEnters_ > 1)
        frame_.leadOnFromLastField();
}

Checked EntryFields::checkOwn(int element) {
    switch (ownCheckOf(element)) {
    case Own::NameLookUp:
    case Own::CodeLookUp:
        return answer(pickers_.lookUp(element));
    case Own::BirthNumber:
        return answer(modKontrola::kontrolaRodCis(field(element), field(krz::pohlav),
                                                  pickers_.picker(0), field(krz::datnar)));
    case Own::CatalogueNumber:
        return checkCatalogueNumber();
    case Own::ParentYear:
        return checkParentsYear(element);
    case Own::Dominant:
        impairmentsOf(element).takeDominant();
        return Checked::Passed;
    case Own::Associated:
        return answer(impairmentsOf(element).takeAssociated());
    case Own::None:
        break;
    }
    return Checked::Passed;
}

/// A client written on the way still counts as new, so the search would find the client's own row
/// and never let go of the field. The number in that row is not asked about.
bool EntryFields::isOwnNumber() const {
    return modKontrola::gAkcia == 1 && !field(krz::katcis).dataChanged() &&
           frame_.data().datZaklad().Recordset().EditMode() == store::EditState::Edit;
}

Checked EntryFields::checkCatalogueNumber() {
    if (isOwnNumber() || !frame_.cycle().kon_katCislo(text(krz::katcis)))
        return Checked::Passed;
    forms::showMessage(
        &frame_.window(),
        {.text = QStringLiteral("V databáze už existuje klient s tým istým kat.číslom!"),
         .title = QStringLiteral("Upozornenie"),
         .icon = QMessageBox::Information});
    return Checked::Failed;
}

Checked EntryFields::checkParentsYear(int element) {
    const auto born = store::readDate(text(krz::datnar));
    const auto year = int(modKontrola::Val(text(element)));
    if (!born || born->date.year() == 0 || year == 0)
        return Checked::Passed;
    const ParentRow& parent = *std::ranges::find(parents, element, &ParentRow::year);
    if (year < born->date.year()) {
        field(parent.age).setText(card::ageAtBirth(born->date.year(), year));
        return Checked::Passed;
    }
    card::refuse(frame_.window(), QString::fromUtf16(parent.message));
    forms::Control(&field(element)).setTag(QStringLiteral("BK"));
    // The date lies on the first tab.
    frame_.turnTo(0);
    field(krz::datnar).setFocus();
    return Checked::Ended;
}

} // namespace clientcard
