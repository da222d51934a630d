#include "forms/Appearance.h"

#include "forms/AccessibleParts.h"
#include "forms/CalmStyle.h"
#include "forms/Colours.h"

#include <QApplication>
#include <QPalette>

static void loadPictures() {
    Q_INIT_RESOURCE(spravy);
}

namespace forms {

namespace {

constexpr QColor ink(32, 32, 56);
constexpr QColor fadedInk(118, 118, 150);
constexpr QColor highlight(84, 84, 158);

QPalette colours() {
    QPalette palette(buttonColour, screenColour);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(222, 222, 236));
    palette.setColor(QPalette::AlternateBase, QColor(246, 246, 252));
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(255, 255, 232));
    palette.setColor(QPalette::ToolTipText, ink);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, ink);
        palette.setColor(QPalette::Disabled, role, fadedInk);
    }
    palette.setColor(QPalette::PlaceholderText, fadedInk);
    palette.setColor(QPalette::Disabled, QPalette::Button, QColor(190, 190, 220));
    return palette;
}

} // namespace

void dress(QApplication& application) {
    loadPictures();
    QApplication::setStyle(new CalmStyle);
    QApplication::setPalette(colours());
    nameParts(application);
}

} // namespace forms
