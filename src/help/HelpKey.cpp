#include "help/HelpKey.h"

#include "help/HelpWindow.h"

#include <QApplication>
#include <QKeyEvent>

namespace help {

HelpKey::HelpKey(QApplication& application) {
    application.installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier)
        return false;
    showHelp(static_cast<QWidget*>(watched));
    return true;
}

} // namespace help
