#include "forms/TextSize.h"

#include "forms/Metrics.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <algorithm>
#include <array>
#include <optional>

namespace forms {

namespace {

constexpr std::array steps{80, 90, 100, 110, 125, 150, 175, 200};
constexpr int desktopStep = 2;

/// The step that a key leads to; on many keyboards plus is the upper one of two signs.
std::optional<int> stepOf(const QKeyEvent& key, int step) {
    if ((key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != Qt::ControlModifier)
        return std::nullopt;
    switch (key.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return std::min(step + 1, int(steps.size()) - 1);
    case Qt::Key_Minus:
        return std::max(step - 1, 0);
    case Qt::Key_0:
        return desktopStep;
    default:
        return std::nullopt;
    }
}

QFont scaled(QFont font, int percent) {
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * percent / 100);
    else
        font.setPixelSize(font.pixelSize() * percent / 100);
    return font;
}

/// A dialog grows with its texts; the main window stays where the user has put it.
void resizeDialogs(qreal scale) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->windowType() == Qt::Dialog && window->isVisible() && !window->isMaximized())
            window->resize((window->size() * scale).boundedTo(roomFor(*window)));
    }
}

} // namespace

TextSize::TextSize(QApplication& application) : step_(desktopStep) {
    application.installEventFilter(this);
}

int TextSize::percent() const {
    return steps[std::size_t(step_)];
}

bool TextSize::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto step = stepOf(*static_cast<QKeyEvent*>(event), step_);
    if (step)
        setStep(*step);
    return step.has_value();
}

void TextSize::setStep(int step) {
    if (step == step_)
        return;
    const int before = percent();
    if (step_ == desktopStep)
        desktop_ = QApplication::font();
    step_ = step;
    QApplication::setFont(scaled(desktop_, percent()));
    resizeDialogs(qreal(percent()) / before);
}

} // namespace forms
