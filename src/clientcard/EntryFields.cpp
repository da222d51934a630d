#include "clientcard/EntryFields.h"

#include "clientcard/CardData.h"
#include "clientcard/ImpairmentFields.h"
#include "clientcard/KeyRules.h"
#include "clientcard/Pickers.h"
#include "clientcard/SaveCycle.h"
#include "clientcard/TabFamily.h"
#include "clientcard/TextRules.h"
#include "forms/DropDown.h"
#include "forms/FocusGuard.h"
#include "forms/MessageBox.h"
#include "store/SqlFunctions.h"
#include "validation/Validators.h"
#include "validation/modKontrola.h"

#include <QAbstractButton>
#include <QDialog>

namespace clientcard {

namespace {

constexpr int birthDate = 4;
constexpr int sex = 5;
constexpr int lastElement = 56;

const EntryRow& rowOf(int element) {
    return entryTable()[std::size_t(element)];
}

bool isParentsAge(int element) {
    return rowOf(element).rule == Rule::ParentAge;
}

bool isZero(const QString& text) {
    return !text.isEmpty() && text.count(u'0') == text.size();
}

/// Pickers whose value the user is about to take; the sibling's are not among them.
bool isPicker(const forms::Control& control) {
    return control.is(u"dbcvolby") || control.is(u"cmbPos") ||
           (control.is(u"cmbSek") && control.index() <= 2);
}

void capitalise(forms::EntryField& field, QString (*rule)(const QString&)) {
    const QString capital = rule(field.text());
    if (capital != field.text())
        field.setText(capital);
}

Checked answer(bool held) {
    return held ? Checked::Failed : Checked::Passed;
}

} // namespace

EntryFields::EntryFields(CardFrame& frame, Pickers& pickers, QWidget* parent)
    : frame_(frame), pickers_(pickers) {
    for (int i = 0; i <= lastElement; ++i) {
        auto* made = new forms::EntryField(parent);
        const EntryRow& row = rowOf(i);
        made->setMaxTyped(row.maxLength);
        made->setToolTip(QString::fromUtf16(row.toolTip));
        if (row.tabIndex > 300)
            made->setFocusPolicy(Qt::ClickFocus);
        frame.guard().watch(made, QStringLiteral("textKrz"), i, *this);
        fields_[std::size_t(i)] = made;
    }
}

void EntryFields::setImpairments(ImpairmentFields& client, ImpairmentFields& mother,
                                 ImpairmentFields& father) {
    impairments_ = {&client, &mother, &father};
}

ImpairmentFields& EntryFields::impairmentsOf(int element) const {
    return *impairments_.at(element < 20 ? 0 : element < 35 ? 1 : 2);
}

void EntryFields::gotFocus(const forms::Control& control) {
    forms::EntryField& entry = field(control.index());
    control.setTag(QString());
    entry.trimAndSelect();
    if (isParentsAge(control.index()) && isZero(entry.text()))
        entry.clear();
}

void EntryFields::keyPress(const forms::Control& control, QChar& character) {
    if (rowOf(control.index()).digitsOnly)
        takeDigitsOnly(frame_.window(), control, character);
}

void EntryFields::keyDown(const forms::Control& control, int& key,
                          Qt::KeyboardModifiers modifiers) {
    const int element = control.index();
    if (opensPicker(key, modifiers)) {
        key = 0;
        pickers_.openFor(element);
        return;
    }
    if (!walks(key, modifiers))
        return;
    const int pressed = key;
    key = 0;
    const Checked found = check(element);
    if (found == Checked::Failed) {
        field(element).trimAndSelect();
        field(element).setFocus();
    } else if (found == Checked::Passed) {
        control.setTag(QStringLiteral("BK"));
        walk(element, pressed);
        // Where the walk ends, what is typed next is still to be checked.
        if (frame_.guard().activeControl() == control)
            control.setTag(QString());
    }
}

void EntryFields::walk(int element, int key) {
    if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
        forms::moveFocus(&frame_.saveButton());
    } else if (key == Qt::Key_Up) {
        forms::moveFocus(&field(previous(element)));
    } else {
        field(element).selectAll();
        forms::moveFocus(&field(next(element)));
    }
}

int EntryFields::next(int element) const {
    const int following = element == 19 || element == lastElement ? element : element + 1;
    if (following == 19 && !field(19).isEnabled())
        return 18;
    // Behind a parent's dominant impairment the walk goes on with the next person.
    if ((following == 34 || following == 49) && !field(following).isEnabled())
        return following + 1;
    return following;
}

int EntryFields::previous(int element) const {
    const int before = element == 0 ? 0 : element - 1;
    // From the first field of its tab the walk does not lead to another tab.
    if (before == 19)
        return 20;
    if ((before == 34 || before == 49) && !field(before).isEnabled())
        return before - 1;
    return before;
}

void EntryFields::change(const forms::Control& control) {
    pickers_.dropPick(control.index());
}

forms::Leave EntryFields::lostFocus(const forms::Control& control, const forms::Control& now) {
    const int element = control.index();
    if (!control.isEnabled())
        return forms::Leave::Go;
    if (now.is(u"cmdStorno"))
        return forms::Leave::Pending;
    if (isPicker(now) || (control.tag() == u"BK" && !isParentsAge(element)))
        return forms::Leave::Go;
    if (isParentsAge(element) && field(element).text().isEmpty())
        field(element).setText(QStringLiteral("0"));
    return check(element) == Checked::Failed ? forms::Leave::Hold : forms::Leave::Go;
}

Checked EntryFields::check(int element) {
    forms::EntryField& entry = field(element);
    switch (rowOf(element).rule) {
    case Rule::Capital:
        capitalise(entry, capitalised);
        return Checked::Passed;
    case Rule::CapitalBoth:
        capitalise(entry, capitalisedName);
        return Checked::Passed;
    case Rule::NameLookup:
        capitalise(entry, capitalised);
        return answer(pickers_.lookUp(element));
    case Rule::CodeLookup:
        return answer(pickers_.lookUp(element));
    case Rule::BirthNumber:
        return answer(
            modKontrola::kontrolaRodCis(entry, field(sex), pickers_.picker(0), field(birthDate)));
    case Rule::Date:
        return answer(modKontrola::kontrolaDatum(entry));
    case Rule::Sex:
        return answer(modKontrola::kontrolaPohlavie(entry));
    case Rule::CatalogueNumber:
        return checkCatalogueNumber(element);
    case Rule::ParentYear:
        return checkParentsYear(element);
    case Rule::Dominant:
        return answer(impairmentsOf(element).takeDominant());
    case Rule::Associated:
        return answer(impairmentsOf(element).takeAssociated());
    case Rule::None:
    case Rule::ParentAge:
        break;
    }
    return Checked::Passed;
}

/// A client written on the way still counts as new, so the search would find the client's own row
/// and never let go of the field. The number in that row is not asked about.
bool EntryFields::isOwnNumber(int element) const {
    return modKontrola::gAkcia == 1 && !field(element).dataChanged() &&
           frame_.data().datZaklad().Recordset().EditMode() == store::EditState::Edit;
}

Checked EntryFields::checkCatalogueNumber(int element) {
    if (isOwnNumber(element) || !frame_.cycle().kon_katCislo(text(element)))
        return Checked::Passed;
    forms::showMessage(
        &frame_.window(),
        {.text = QStringLiteral("V databáze už existuje klient s tým istým kat.číslom!"),
         .title = QStringLiteral("Upozornenie"),
         .icon = QMessageBox::Information});
    return Checked::Failed;
}

Checked EntryFields::checkParentsYear(int element) {
    const auto born = store::readDate(text(birthDate));
    const auto year = int(modKontrola::Val(text(element)));
    if (!born || born->date.year() == 0 || year == 0)
        return Checked::Passed;
    if (year < born->date.year()) {
        field(element + 1).setText(ageAtBirth(born->date.year(), year));
        return Checked::Passed;
    }
    const QString whose = element == 21 ? QStringLiteral("matky") : QStringLiteral("otca");
    refuse(frame_.window(),
           QStringLiteral("Logicky chybne zadané dátumy %1 a klienta !").arg(whose));
    forms::Control(&field(element)).setTag(QStringLiteral("BK"));
    // The date lies on the first tab.
    frame_.turnTo(0);
    field(birthDate).setFocus();
    return Checked::Ended;
}

} // namespace clientcard
