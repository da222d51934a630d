#include "card/Buttons.h"

#include "forms/Colours.h"

#include <QPushButton>

namespace card {

namespace {

constexpr QColor disabledText(112, 112, 148);

} // namespace

void setGround(QWidget& widget, QPalette::ColorRole role, const QColor& colour) {
    QPalette palette = widget.palette();
    palette.setColor(role, colour);
    palette.setColor(QPalette::Disabled, QPalette::Text, disabledText);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, disabledText);
    widget.setPalette(palette);
}

std::vector<QPushButton*> makeButtons(std::span<const ButtonRow> table, QWidget* parent,
                                      const std::function<void(int)>& pressed) {
    std::vector<QPushButton*> buttons;
    for (const ButtonRow& row : table) {
        auto* button = new QPushButton(QString::fromUtf16(row.caption), parent);
        button->setObjectName(QString::fromUtf16(row.name));
        button->setToolTip(QString::fromUtf16(row.toolTip));
        button->setVisible(row.shown);
        button->setAutoDefault(false);
        setGround(*button, QPalette::Button, forms::buttonColour);
        QObject::connect(button, &QPushButton::clicked, parent,
                         [pressed, place = int(buttons.size())] { pressed(place); });
        buttons.push_back(button);
    }
    return buttons;
}

} // namespace card
