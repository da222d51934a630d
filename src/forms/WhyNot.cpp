#include "forms/WhyNot.h"

#include <QVariant>
#include <QWidget>

namespace forms {

namespace {

constexpr const char* ownTip = "tipWhenOpen";

} // namespace

void tellWhyNot(QWidget& control, bool isOpen, const QString& whyNot) {
    const QVariant kept = control.property(ownTip);
    const QString own = kept.isValid() ? kept.toString() : control.toolTip();
    control.setProperty(ownTip, isOpen ? QVariant() : own);
    control.setToolTip(isOpen ? own : QString(own + u'\n' + whyNot).trimmed());
}

void setUsable(QWidget& control, bool enabled, const QString& whyNot) {
    tellWhyNot(control, enabled, whyNot);
    control.setEnabled(enabled);
}

} // namespace forms
