#include "clientcard/Pickers.h"

#include "clientcard/CardData.h"
#include "clientcard/CardTables.h"
#include "clientcard/CodePick.h"
#include "clientcard/EntryFields.h"
#include "clientcard/TabFamily.h"
#include "forms/DropDown.h"
#include "forms/FocusGuard.h"
#include "validation/Validators.h"
#include "validation/modKontrola.h"

namespace clientcard {

namespace {

constexpr int droppedWidth = 320;

const PickerRow& rowOf(int index) {
    return pickerTable()[std::size_t(index)];
}

bool listsCodes(const PickerRow& row) {
    return QStringView(row.shownColumn) == u"roleta";
}

} // namespace

Pickers::Pickers(CardFrame& frame, QWidget* parent) : frame_(frame) {
    for (int i = 0; i < count; ++i) {
        const PickerRow& row = rowOf(i);
        auto* made = new forms::DropDown(parent, forms::DropDown::Kind::Editable);
        made->setSource(frame.data().source(row.dataSource), QString::fromUtf16(row.shownColumn));
        made->setDroppedWidth(droppedWidth);
        frame.guard().watch(made, QStringLiteral("dbcvolby"), i, *this);
        // Tab leads from field to field; a picker is reached from its field by Alt and Down.
        made->setFocusPolicy(Qt::ClickFocus);
        pickers_[std::size_t(i)] = made;
    }
}

forms::EntryField& Pickers::fieldOf(int index) const {
    return fields_->field(rowOf(index).element);
}

void Pickers::openFor(int element) {
    const int index = entryTable()[std::size_t(element)].picker;
    if (index >= 0 && forms::moveFocus(&picker(index)))
        picker(index).showPopup();
}

void Pickers::dropPick(int element) {
    const int index = entryTable()[std::size_t(element)].picker;
    if (index >= 0 && picker(index).pick() >= 0)
        picker(index).setText(picker(index).text());
}

bool Pickers::lookUp(int element, forms::EntryField& field, bool byName) {
    const int index = entryTable()[std::size_t(element)].picker;
    const PickerRow& row = rowOf(index);
    const bool held = modKontrola::kontrolaCiselnik(
        picker(index), field, frame_.data().source(row.dataSource), byName,
        QString::fromUtf16(row.table), QStringLiteral("kod"), QStringLiteral("nazov"));
    if (held)
        return true;
    // What is typed into the field later must not meet an old pick again.
    if (byName)
        picker(index).setText(field.text());
    else
        showMeaning(index);
    return false;
}

void Pickers::showMeanings() {
    for (int i = 0; i < count; ++i) {
        if (listsCodes(rowOf(i)))
            showMeaning(i);
    }
}

void Pickers::showMeaning(int index) {
    showMeaningOf(fieldOf(index).text(), picker(index),
                  frame_.data().source(rowOf(index).dataSource), u"kod");
}

void Pickers::take(int index, int characters) const {
    fieldOf(index).setText(picker(index).text().left(characters));
}

void Pickers::change(const forms::Control& control) {
    const PickerRow& row = rowOf(control.index());
    if (row.takenOnChange > 0)
        take(control.index(), row.takenOnChange);
    else
        forms::moveFocus(&fieldOf(control.index()));
}

void Pickers::click(const forms::Control& control, forms::Area area) {
    if (area != forms::Area::Item)
        return;
    take(control.index(), rowOf(control.index()).taken);
    forms::moveFocus(&fieldOf(control.index()));
    picker(control.index()).refill();
}

void Pickers::keyDown(const forms::Control& control, int& key,
                      Qt::KeyboardModifiers /*modifiers*/) {
    if (key != Qt::Key_Return && key != Qt::Key_Escape)
        return;
    if (key == Qt::Key_Return)
        take(control.index(), rowOf(control.index()).taken);
    else
        modKontrola::gZVyberu = true;
    key = 0;
    forms::moveFocus(&fieldOf(control.index()));
}

} // namespace clientcard
