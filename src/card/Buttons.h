#pragma once

#include <QPalette>

#include <functional>
#include <span>
#include <vector>

class QPushButton;
class QWidget;

namespace card {

/// A button of a screen.
struct ButtonRow {
    const char16_t* name;
    const char16_t* caption;
    const char16_t* toolTip = u"";
    bool shown = true;
};

/// Makes the buttons of an entry screen in their colour.
/// @param pressed is given the place of the button in the table; nothing may be thrown out of it
std::vector<QPushButton*> makeButtons(std::span<const ButtonRow> table, QWidget* parent,
                                      const std::function<void(int)>& pressed);

/// Gives a part of a screen a ground on which disabled texts can still be read.
void setGround(QWidget& widget, QPalette::ColorRole role, const QColor& colour);

} // namespace card
