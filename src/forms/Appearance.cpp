#include "forms/Appearance.h"

#include "forms/AccessibleParts.h"
#include "forms/Colours.h"
#include "forms/EdgeStyle.h"

#include <QApplication>
#include <QPalette>

static void loadPictures() {
    Q_INIT_RESOURCE(spravy);
}

namespace forms {

namespace {

constexpr auto texts = {QPalette::WindowText, QPalette::Text, QPalette::ButtonText};

QPalette colours() {
    QPalette palette(buttonColour, screenColour);
    palette.setColor(QPalette::Base, fieldGround);
    palette.setColor(QPalette::Disabled, QPalette::Base, readGround);
    palette.setColor(QPalette::AlternateBase, secondRowGround);
    palette.setColor(QPalette::Highlight, chosenGround);
    palette.setColor(QPalette::HighlightedText, chosenInk);
    palette.setColor(QPalette::ToolTipBase, tipGround);
    palette.setColor(QPalette::ToolTipText, ink);
    for (const auto role : texts) {
        palette.setColor(role, ink);
        palette.setColor(QPalette::Disabled, role, idleInk);
    }
    palette.setColor(QPalette::PlaceholderText, hintInk);
    palette.setColor(QPalette::Disabled, QPalette::Button, idleButtonColour);
    return palette;
}

/// What a field shows is read, whether it can be typed into now or not.
void dressFields(const QPalette& ofAll) {
    QPalette palette = ofAll;
    palette.setColor(QPalette::PlaceholderText, emptyFieldInk);
    for (const auto role : texts)
        palette.setColor(QPalette::Disabled, role, readInk);
    for (const char* kind : {"QLineEdit", "QComboBox", "QTextEdit", "QSpinBox"})
        QApplication::setPalette(palette, kind);
}

} // namespace

void dress(QApplication& application) {
    loadPictures();
    QApplication::setStyle(new EdgeStyle);
    const QPalette palette = colours();
    QApplication::setPalette(palette);
    dressFields(palette);
    nameParts(application);
}

} // namespace forms
