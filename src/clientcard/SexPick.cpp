#include "clientcard/SexPick.h"

#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/FocusGuard.h"

namespace clientcard {

SexPick::SexPick(forms::FocusGuard& guard, forms::EntryField& field, const QString& array,
                 int index, const QString& toolTip, QWidget* parent)
    : field_(field), pick_(new forms::DropDown(parent)) {
    pick_->setItems({QStringLiteral("M"), QStringLiteral("Z")});
    pick_->setToolTip(toolTip);
    guard.watch(pick_, array, index, *this);
}

/// The field says what holds; another value may come into it later.
void SexPick::take() {
    if (pick_->pick() >= 0)
        field_.setText(pick_->text().left(1));
    pick_->setPick(-1);
}

/// The list opens at the field's value.
void SexPick::gotFocus(const forms::Control& /*control*/) {
    pick_->setPick(field_.text() == u"M" ? 0 : field_.text() == u"Z" ? 1 : -1);
}

void SexPick::click(const forms::Control& /*control*/, forms::Area area) {
    if (area != forms::Area::Item || pick_->pick() < 0)
        return;
    take();
    forms::moveFocus(&field_);
}

void SexPick::keyDown(const forms::Control& /*control*/, int& key,
                      Qt::KeyboardModifiers /*modifiers*/) {
    if (key != Qt::Key_Escape)
        return;
    key = 0;
    pick_->setPick(-1);
    forms::moveFocus(&field_);
}

forms::Leave SexPick::lostFocus(const forms::Control& /*control*/, const forms::Control& /*now*/) {
    take();
    return forms::Leave::Go;
}

} // namespace clientcard
