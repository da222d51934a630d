#include "forms/FieldEvents.h"

#include <QVariant>

namespace forms {

namespace {

constexpr auto tagProperty = "tag";
constexpr auto passesProperty = "causesNoValidation";

} // namespace

QString elementName(const QString& array, int index) {
    return index < 0 ? array : QStringLiteral("%1(%2)").arg(array).arg(index);
}

Control::Control(QWidget* widget) : widget_(widget) {
    if (widget == nullptr)
        return;
    name_ = widget->objectName();
    const qsizetype open = name_.indexOf(QLatin1Char('('));
    if (open > 0 && name_.endsWith(QLatin1Char(')'))) {
        index_ = name_.mid(open + 1, name_.size() - open - 2).toInt();
        name_.truncate(open);
    }
}

QString Control::tag() const {
    return widget_ != nullptr ? widget_->property(tagProperty).toString() : QString();
}

void Control::setTag(const QString& tag) const {
    if (widget_ != nullptr)
        widget_->setProperty(tagProperty, tag);
}

bool Control::causesValidation() const {
    return widget_ == nullptr || !widget_->property(passesProperty).toBool();
}

void Control::setCausesValidation(bool causes) const {
    if (widget_ != nullptr)
        widget_->setProperty(passesProperty, !causes);
}

} // namespace forms
