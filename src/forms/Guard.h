#pragma once

#include "forms/MessageBox.h"
#include "store/Database.h"
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

/// The same for an action that writes: what it wrote is undone before its error is told.
template <typename Action>
void guarded(QWidget* parent, store::DBEngine& engine, Action&& action) {
    try {
        action();
    } catch (const store::EngineError& error) {
        engine.rollBackPending();
        showEngineError(parent, error);
    }
}

} // namespace forms
