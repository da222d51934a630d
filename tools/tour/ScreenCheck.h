#pragma once

#include <QStringList>

class QWidget;

namespace tour {

/// What of a shown window a user can't see as he should: a window that leaves its screen, a control
/// that leaves its window and can't be scrolled to, lies on another or is smaller than its text, a
/// button out of sight, a line of running text of more than 100 letters. Each fault is a line with
/// the names of window and control.
QStringList screenFaults(const QWidget& window);

} // namespace tour
