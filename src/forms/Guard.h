#pragma once

#include "forms/MessageBox.h"
#include "store/EngineError.h"

#include <QWidget>

namespace forms {

/// Runs an action of the user. An error of the engine that the action does not handle ends the
/// action alone: it is reported here, since exceptions must not travel through Qt.
template <typename Action>
void guarded(QWidget* parent, Action&& action) {
    try {
        action();
    } catch (const store::EngineError& error) {
        showEngineError(parent, error);
    }
}

/// Connects a signal to a guarded action; the parent of its boxes is also its life.
template <typename Sender, typename Signal, typename Action>
void wire(Sender* sender, Signal signal, QWidget* parent, Action action) {
    QObject::connect(sender, signal, parent, [parent, action] { guarded(parent, action); });
}

} // namespace forms
