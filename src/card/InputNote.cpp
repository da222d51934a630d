#include "card/InputNote.h"

#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/RichText.h"

#include <QRadioButton>

namespace card {

void InputNote::watch(QWidget& window) {
    const auto note = [this] {
        isNoted_ = true;
        Q_EMIT noted();
    };
    for (auto* field : window.findChildren<forms::EntryField*>())
        connect(field, &forms::EntryField::textEdited, this, note);
    for (auto* text : window.findChildren<forms::RichText*>())
        connect(text, &forms::RichText::textEdited, this, note);
    for (auto* pick : window.findChildren<forms::DropDown*>())
        connect(pick, &forms::DropDown::textEdited, this, note);
    for (auto* option : window.findChildren<QRadioButton*>())
        connect(option, &QRadioButton::clicked, this, note);
}

} // namespace card
