#pragma once

#include <QChar>
#include <QtCore/qnamespace.h>

class QString;
class QWidget;

namespace forms {
class Control;
}

/// What all entry fields of a card do alike.
namespace card {

/// The key leads to another field: Enter, Up, Down, PageUp, PageDown.
bool walks(int key, Qt::KeyboardModifiers modifiers);

/// PageUp and PageDown ask for the focus of a button by its name; a disabled one does not take it.
/// @return false, and the focus and the key stay, for all other keys
bool leadsToButton(QWidget& window, const QString& button, int& key);

/// The key opens the drop-down beside the field.
bool opensPicker(int key, Qt::KeyboardModifiers modifiers);

/// Says that what was entered is not taken.
void refuse(QWidget& window, const QString& message);

/// Asks whether what was typed and is not written may be dropped.
bool mayDrop(QWidget& window, const QString& question);

/// Drops a character that is no digit, and says so; the field keeps the focus.
void takeDigitsOnly(QWidget& window, const forms::Control& control, QChar& character);

} // namespace card
