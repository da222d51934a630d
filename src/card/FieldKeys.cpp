#include "card/FieldKeys.h"

#include "forms/FieldEvents.h"
#include "forms/FocusGuard.h"
#include "forms/MessageBox.h"

namespace card {

bool walks(int key, Qt::KeyboardModifiers modifiers) {
    if (modifiers.testFlag(Qt::ControlModifier))
        return false;
    return key == Qt::Key_Return || key == Qt::Key_Down || key == Qt::Key_Up ||
           key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

bool leadsToButton(QWidget& window, const QString& button, int& key) {
    if (key != Qt::Key_PageUp && key != Qt::Key_PageDown)
        return false;
    key = 0;
    if (auto* asked = window.findChild<QWidget*>(button))
        forms::moveFocus(asked);
    return true;
}

bool opensPicker(int key, Qt::KeyboardModifiers modifiers) {
    return key == Qt::Key_F4 || (key == Qt::Key_Down && modifiers == Qt::AltModifier);
}

void refuse(QWidget& window, const QString& message) {
    forms::showMessage(
        &window,
        {.text = message, .title = QStringLiteral("Chybová správa"), .icon = QMessageBox::Warning});
}

bool mayDrop(QWidget& window, const QString& question) {
    return forms::showMessage(&window, {.text = question,
                                        .title = QStringLiteral("Upozornenie"),
                                        .icon = QMessageBox::Question,
                                        .buttons = QMessageBox::Yes | QMessageBox::No,
                                        .defaultButton = QMessageBox::No}) == QMessageBox::Yes;
}

void takeDigitsOnly(QWidget& window, const forms::Control& control, QChar& character) {
    if (character == u'\r' || character == u'\b' || (character >= u'0' && character <= u'9'))
        return;
    refuse(window, QStringLiteral("Zadávaj len číselné hodnoty !"));
    character = QChar::Null;
    control.widget()->setFocus();
}

} // namespace card
