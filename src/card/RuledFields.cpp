#include "card/RuledFields.h"

#include "card/CalendarNote.h"
#include "card/FieldKeys.h"
#include "card/FocusHints.h"
#include "card/TextRules.h"
#include "forms/DropDown.h"
#include "forms/FocusGuard.h"
#include "forms/WhyNot.h"
#include "validation/Validators.h"

#include <algorithm>
#include <utility>

namespace card {

namespace {

const QString checkedMark = QStringLiteral("BK");

bool isZero(const QString& text) {
    return !text.isEmpty() && text.count(u'0') == text.size();
}

void rewrite(forms::EntryField& field, const QString& text) {
    if (text != field.text())
        field.setText(text);
}

/// Null when the fields are checked towards the control.
const SparingPick* sparing(const FieldSet& set, const forms::Control& towards) {
    const auto pick = std::ranges::find_if(set.sparing, [&](const SparingPick& one) {
        return towards.is(one.name) && towards.index() <= one.lastElement;
    });
    return pick == set.sparing.end() ? nullptr : &*pick;
}

void goTo(QWidget& field) {
    if (field.isEnabled())
        forms::moveFocus(&field);
}

} // namespace

RuledFields::RuledFields(QWidget& window, forms::FocusGuard& guard, const FieldSet& set,
                         std::vector<FieldRow> rows, QWidget* parent)
    : window_(window), set_(set), rows_(std::move(rows)), calendarNote_(new CalendarNote(parent)) {
    for (const FieldRow& row : rows_) {
        auto* made = new forms::EntryField(parent);
        made->setMaxTyped(row.maxLength);
        made->setDigitsOnly(row.digitsOnly);
        made->setToolTip(QString::fromUtf16(row.toolTip));
        markPageKeys(*made, QString::fromUtf16(set.pageKeysTo));
        if (row.mandatory)
            markMandatory(*made);
        if (!row.tabStop)
            made->setFocusPolicy(Qt::ClickFocus);
        if (row.check == Check::Date)
            calendarNote_->watch(*made);
        guard.watch(made, QString::fromUtf16(set.array), int(fields_.size()), *this);
        fields_.push_back(made);
    }
}

void RuledFields::setNeighbours(QWidget* above, QWidget* below) {
    above_ = above;
    below_ = below;
}

/// From the last one, as the focus of a field that is disabled goes to the next.
void RuledFields::enable(bool enabled, const QString& whyNot) {
    for (std::size_t i = fields_.size(); i-- > 0;) {
        if (!rows_[i].opensApart)
            forms::setUsable(*fields_[i], enabled, whyNot);
    }
}

void RuledFields::gotFocus(const forms::Control& control) {
    if (set_.focusClearsCheck == FocusClearsCheck::No)
        return;
    forms::EntryField& entry = field(control.index());
    control.setTag(QString());
    entry.trimAndSelect();
    if (rowOf(control.index()).tidy == Tidy::ZeroIfEmpty && isZero(entry.text()))
        entry.clear();
}

void RuledFields::keyPress(const forms::Control& control, QChar& character) {
    if (rowOf(control.index()).digitsOnly)
        takeDigitsOnly(window_, control, character);
}

void RuledFields::keyDown(const forms::Control& control, int& key,
                          Qt::KeyboardModifiers modifiers) {
    const int index = control.index();
    if (opensPicker(key, modifiers)) {
        key = 0;
        return openPick(index);
    }
    if (!walks(key, modifiers))
        return;
    const int pressed = std::exchange(key, 0);
    const Checked found = check(index, true);
    calendarNote_->judge(field(index));
    if (found == Checked::Failed) {
        field(index).trimAndSelect();
        field(index).setFocus();
    } else if (found == Checked::Passed) {
        control.setTag(checkedMark);
        walk(index, pressed);
    }
}

void RuledFields::openPick(int index) const {
    forms::DropDown* pick = pickOf(index);
    if (pick != nullptr && forms::moveFocus(pick))
        pick->showPopup();
}

void RuledFields::walk(int index, int key) const {
    if (leadsToButton(window_, QString::fromUtf16(set_.pageKeysTo), key))
        return;
    field(index).selectAll();
    step(index, key == Qt::Key_Up ? Way::Back : Way::Forth);
}

void RuledFields::step(int index, Way way) const {
    const auto told = std::ranges::find_if(
        set_.steps, [&](const Step& one) { return one.from == index && one.way == way; });
    if (told != set_.steps.end()) {
        const int to = field(told->to).isEnabled() ? told->to : told->otherwise;
        return to == index ? walkEnds(index, way) : goTo(field(to));
    }
    const int next = way == Way::Back ? index - 1 : index + 1;
    QWidget* beyond = way == Way::Back ? above_ : below_;
    if (next >= 0 && next < int(fields_.size()))
        goTo(field(next));
    else if (beyond != nullptr)
        forms::moveFocus(beyond);
}

/// What is typed counts, not what was picked for the field before, nor what a key has checked.
void RuledFields::change(const forms::Control& control) {
    if (forms::DropDown* pick = pickOf(control.index()))
        pick->dropPick();
    if (set_.focusClearsCheck == FocusClearsCheck::Yes)
        control.setTag(QString());
}

forms::Leave RuledFields::lostFocus(const forms::Control& control, const forms::Control& now) {
    if (!control.isEnabled())
        return forms::Leave::Go;
    if (*set_.uncheckedTowards != u'\0' && now.is(set_.uncheckedTowards))
        return forms::Leave::Pending;
    const forms::Leave answer = leave(control, now);
    calendarNote_->judge(field(control.index()));
    return answer;
}

forms::Leave RuledFields::leave(const forms::Control& control, const forms::Control& now) {
    const int index = control.index();
    const SparingPick* pick = sparing(set_, now);
    const bool isSpared = pick != nullptr && (pick->field < 0 || pick->field == index);
    if (isSpared || control.tag() == checkedMark) {
        leftUnchecked(index);
        return forms::Leave::Go;
    }
    return check(index, false) == Checked::Failed ? forms::Leave::Hold : forms::Leave::Go;
}

void RuledFields::tidy(int index, bool byKey) const {
    forms::EntryField& entry = field(index);
    switch (rowOf(index).tidy) {
    case Tidy::Capital:
        return rewrite(entry, capitalised(entry.text()));
    case Tidy::CapitalByKey:
        return byKey ? rewrite(entry, capitalised(entry.text())) : void();
    case Tidy::BothCapitals:
        return rewrite(entry, capitalisedName(entry.text()));
    case Tidy::TwoCharacters:
        return rewrite(entry, entry.text().left(2));
    case Tidy::ZeroIfEmpty:
        return entry.text().isEmpty() ? entry.setText(QStringLiteral("0")) : void();
    case Tidy::None:
        return;
    }
}

bool RuledFields::isRefused(int index) const {
    switch (rowOf(index).check) {
    case Check::Date:
        return modKontrola::kontrolaDatum(field(index));
    case Check::Sex:
        return modKontrola::kontrolaPohlavie(field(index));
    case Check::None:
        break;
    }
    return false;
}

Checked RuledFields::check(int index, bool byKey) {
    tidy(index, byKey);
    return isRefused(index) ? Checked::Failed : checkOwn(index);
}

} // namespace card
