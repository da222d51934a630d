#include "forms/EscButton.h"

#include "forms/FieldEvents.h"

#include <QKeyEvent>

namespace forms {

EscButton::EscButton(QWidget* window) : QObject(window) {
    // The window is asked last for a key, so an open list or a field can use Esc before.
    window->installEventFilter(this);
}

void EscButton::set(QAbstractButton* button) {
    Control(button_).setCausesValidation(true);
    button_ = button;
    Control(button_).setCausesValidation(false);
}

void EscButton::press() {
    if (button_ != nullptr && button_->isVisible())
        button_->click();
}

bool EscButton::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Escape || key->modifiers() != Qt::NoModifier)
        return false;
    press();
    return true;
}

} // namespace forms
