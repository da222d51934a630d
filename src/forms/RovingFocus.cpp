#include "forms/RovingFocus.h"

#include <QKeyEvent>
#include <QWidget>

#include <algorithm>

namespace forms {

RovingFocus::RovingFocus(QWidget& row) : QObject(&row) {}

void RovingFocus::add(QWidget& button) {
    button.setFocusPolicy(buttons_.empty() ? Qt::TabFocus : Qt::NoFocus);
    button.installEventFilter(this);
    buttons_.push_back(&button);
}

bool RovingFocus::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Left && key != Qt::Key_Right)
        return false;
    step(*static_cast<QWidget*>(watched), key == Qt::Key_Left ? -1 : 1);
    return true;
}

void RovingFocus::step(QWidget& from, int by) {
    const auto place = int(std::ranges::find(buttons_, &from) - buttons_.begin()) + by;
    if (place < 0 || place >= int(buttons_.size()))
        return;
    QWidget& next = *buttons_[std::size_t(place)];
    next.setFocusPolicy(Qt::TabFocus);
    next.setFocus();
    from.setFocusPolicy(Qt::NoFocus);
}

} // namespace forms
