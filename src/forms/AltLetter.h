#pragma once

#include <QKeyEvent>

namespace forms {

/// Whether a key is a letter with Alt, which is for buttons and menus: where none has that letter,
/// the toolkit's fields would take it as typed.
inline bool isLetterForAlt(const QKeyEvent& event) {
    const auto held = event.modifiers() & (Qt::AltModifier | Qt::ControlModifier);
    return held == Qt::AltModifier && !event.text().isEmpty() && event.text().front().isPrint();
}

} // namespace forms
