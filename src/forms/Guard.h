#pragma once

#include "forms/ErrorRoute.h"

#include <QWidget>

namespace forms {

/// Runs an action of the user in the widget's window. @return false when an error ended it
inline bool guarded(QWidget* widget, const std::function<void()>& action) {
    return ErrorRoute::of(*widget).perform(action);
}

/// Runs what ends a run, with no window left to tell an error in: it is told at once.
void guardedEnd(const std::function<void()>& action);

/// Runs what shows rows in the widget. @return false when an error ended it
inline bool showGuarded(QWidget* widget, const std::function<void()>& reads) {
    return ErrorRoute::of(*widget).show(reads);
}

} // namespace forms
