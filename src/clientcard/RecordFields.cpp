#include "clientcard/RecordFields.h"

#include "clientcard/CardData.h"
#include "clientcard/KeyRules.h"
#include "clientcard/RecordKind.h"
#include "clientcard/TabFamily.h"
#include "clientcard/TextRules.h"
#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/FocusGuard.h"
#include "store/Sql.h"
#include "validation/Validators.h"

#include <QDialog>

namespace clientcard {

namespace {

const QString checkedMark = QStringLiteral("BK");

void rewrite(forms::EntryField& field, const QString& text) {
    if (text != field.text())
        field.setText(text);
}

} // namespace

RecordFields::RecordFields(CardFrame& frame, const RecordRow& row, QWidget* parent)
    : frame_(frame), row_(row), source_(frame.data().source(row.source)) {
    for (const RecordField& field : row.fields) {
        auto* made = new forms::EntryField(parent);
        made->setMaxTyped(field.maxLength);
        made->setToolTip(QString::fromUtf16(field.toolTip));
        frame.guard().watch(made, QString::fromUtf16(row.fieldArray), int(fields_.size()), *this);
        fields_.push_back(made);
    }
}

/// From the last one, as the focus of a field that is disabled goes to the next. The associated
/// impairments are opened by the dominant one.
void RecordFields::enable(bool enabled) {
    for (std::size_t i = fields_.size(); i-- > 0;) {
        if (row_.fields[i].rule != RecordRule::Associated)
            fields_[i]->setEnabled(enabled);
    }
}

void RecordFields::gotFocus(const forms::Control& control) {
    if (row_.focusClearsCheck == FocusClearsCheck::No)
        return;
    forms::EntryField& entry = field(control.index());
    control.setTag(QString());
    entry.trimAndSelect();
    if (rowOf(control.index()).rule == RecordRule::Year && entry.text() == u"0")
        entry.clear();
}

void RecordFields::keyPress(const forms::Control& control, QChar& character) {
    if (rowOf(control.index()).digitsOnly)
        takeDigitsOnly(frame_.window(), control, character);
}

void RecordFields::keyDown(const forms::Control& control, int& key,
                           Qt::KeyboardModifiers modifiers) {
    const int index = control.index();
    if (opensPicker(key, modifiers)) {
        key = 0;
        return openPick(index);
    }
    if (!walks(key, modifiers))
        return;
    const int pressed = std::exchange(key, 0);
    if (holds(index, true)) {
        field(index).trimAndSelect();
        field(index).setFocus();
    } else {
        control.setTag(checkedMark);
        walk(index, pressed);
    }
}

void RecordFields::openPick(int index) {
    forms::DropDown* pick = kind_->pickOf(index);
    if (pick != nullptr && forms::moveFocus(pick))
        pick->showPopup();
}

void RecordFields::walk(int index, int key) {
    const int last = int(fields_.size()) - 1;
    if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
        // A button that is disabled does not take the focus.
        const QString name = QString::fromUtf16(row_.pageKeysTo);
        if (auto* button = frame_.window().findChild<QWidget*>(name))
            forms::moveFocus(button);
    } else if (key != Qt::Key_Up) {
        goTo(std::min(index + 1, last));
    } else if (index > 0) {
        goTo(index - 1);
    } else if (above_ != nullptr) {
        forms::moveFocus(above_);
    }
}

void RecordFields::goTo(int index) {
    if (field(index).isEnabled())
        forms::moveFocus(&field(index));
}

/// What is typed counts, not what was picked for the field before.
void RecordFields::change(const forms::Control& control) {
    if (forms::DropDown* pick = kind_->pickOf(control.index()))
        pick->dropPick();
}

forms::Leave RecordFields::lostFocus(const forms::Control& control, const forms::Control& now) {
    if (!control.isEnabled())
        return forms::Leave::Go;
    if (now.is(row_.uncheckedTowards))
        return forms::Leave::Pending;
    if (sparedTowards(control, now))
        return forms::Leave::Go;
    return holds(control.index(), false) ? forms::Leave::Hold : forms::Leave::Go;
}

bool RecordFields::sparedTowards(const forms::Control& control, const forms::Control& now) const {
    const bool isChecked = control.tag() == checkedMark;
    if (!now.is(row_.pick))
        return isChecked;
    switch (row_.towardsPick) {
    case TowardsPick::SparesItsField:
        return isChecked || control.index() == row_.pickedField;
    case TowardsPick::ChecksOthersAgain:
        return control.index() == row_.pickedField;
    case TowardsPick::SparesAllFields:
        break;
    }
    return true;
}

/// What the rule of a field makes of its text before it is checked.
void RecordFields::tidy(int index, bool byKey) {
    forms::EntryField& entry = field(index);
    switch (rowOf(index).rule) {
    case RecordRule::Hour:
        return rewrite(entry, entry.text().left(2));
    case RecordRule::Address:
        return byKey ? rewrite(entry, capitalised(entry.text())) : void();
    case RecordRule::Worker:
    case RecordRule::SiblingName:
        return rewrite(entry, capitalisedName(entry.text()));
    case RecordRule::Year:
        return entry.text().isEmpty() ? entry.setText(QStringLiteral("0")) : void();
    default:
        return;
    }
}

bool RecordFields::holds(int index, bool byKey) {
    tidy(index, byKey);
    forms::EntryField& entry = field(index);
    switch (rowOf(index).rule) {
    case RecordRule::Date:
        return modKontrola::kontrolaDatum(entry);
    case RecordRule::RecordDate:
        return modKontrola::kontrolaDatum(entry) || dateIsTaken(entry);
    case RecordRule::SiblingName:
        return nameIsTaken(entry);
    case RecordRule::Sex:
        return modKontrola::kontrolaPohlavie(entry);
    case RecordRule::Worker:
    case RecordRule::Facility:
    case RecordRule::Dominant:
    case RecordRule::Associated:
        return kind_->holds(index);
    default:
        return false;
    }
}

/// `kontrolaDatumu`. A text that is no calendar date is nobody's.
bool RecordFields::dateIsTaken(forms::EntryField& date) {
    const QString text = date.text();
    if (text.isEmpty() ||
        !anotherHas(QStringLiteral("datum = datevalue(%1)").arg(store::quoted(text))))
        return false;
    refuse(frame_.window(),
           QStringLiteral("Našiel sa záznam s rovnakým dátumom :") + trimBlanks(text));
    return true;
}

/// `kontrolaMena`.
bool RecordFields::nameIsTaken(forms::EntryField& name) {
    const QString text = name.text();
    if (text.isEmpty() || !anotherHas(QStringLiteral("meno = ") + store::quoted(text)))
        return false;
    refuse(frame_.window(), QStringLiteral("Súrodenec s rovnakým menom :") + trimBlanks(text) +
                                QStringLiteral(" už je zapísaný"));
    return true;
}

/// The first row found tells; for an edited record it may be the record itself. Marks tell rows
/// apart as their numbers would, without counting the rows before them.
bool RecordFields::anotherHas(const QString& criterion) const {
    const store::Recordset& rows = source_.Recordset();
    const auto clone = rows.Clone();
    clone->FindFirst(criterion);
    if (clone->NoMatch())
        return false;
    return rows.EditMode() == store::EditState::Add ||
           (rows.EditMode() == store::EditState::Edit && clone->Bookmark() != rows.Bookmark());
}

} // namespace clientcard
