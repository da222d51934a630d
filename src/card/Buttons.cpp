#include "card/Buttons.h"

#include "forms/Colours.h"

#include <QPushButton>

namespace card {

void setGround(QWidget& widget, QPalette::ColorRole role, const QColor& colour) {
    QPalette palette;
    palette.setColor(role, colour);
    if (role == QPalette::Button)
        palette.setColor(QPalette::Disabled, role, forms::idleButtonColour);
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
