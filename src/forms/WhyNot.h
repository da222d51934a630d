#pragma once

#include <QString>

class QWidget;

namespace forms {

/// Lets a control be used, or not: then its tip says why, and how to change that, below the tip
/// that it has otherwise.
void setUsable(QWidget& control, bool enabled, const QString& whyNot);

/// The tip alone, for a control that is closed in a way of its own.
void tellWhyNot(QWidget& control, bool isOpen, const QString& whyNot);

} // namespace forms
