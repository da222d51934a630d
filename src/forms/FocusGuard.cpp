#include "forms/FocusGuard.h"

#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/Guard.h"
#include "forms/RichText.h"
#include "forms/RowList.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QShortcutEvent>
#include <QTabBar>
#include <QWindow>

#include <algorithm>
#include <optional>

namespace forms {

namespace {

/// The focus leaves the field without the field being left.
bool isAbsence(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

bool isComposite(const QWidget* widget) {
    return qobject_cast<const QAbstractItemView*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(widget) != nullptr ||
           qobject_cast<const RichText*>(widget) != nullptr;
}

bool canHaveFocus(const QWidget* widget) {
    return widget != nullptr && widget->isVisible() && widget->isEnabled();
}

bool isEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Control characters that are typed as such; the rest belong to shortcuts.
bool isTyped(QChar character) {
    return character == QLatin1Char('\r') || character == QLatin1Char('\b') ||
           (character.unicode() >= 0x20 && character.unicode() != 0x7f);
}

std::optional<QChar> typedBy(const QKeyEvent& key) {
    if (isEnter(key.key()))
        return QLatin1Char('\r');
    // With Alt beside it, it is the third row of the keys.
    if (key.modifiers().testFlag(Qt::ControlModifier) && !key.modifiers().testFlag(Qt::AltModifier))
        return std::nullopt;
    return key.text().size() == 1 ? std::optional(key.text().front()) : std::nullopt;
}

bool startsPhysicalAction(QEvent::Type type) {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
           type == QEvent::Wheel || type == QEvent::TouchBegin;
}

bool isPointing(QEvent::Type type) {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
           type == QEvent::MouseButtonDblClick || type == QEvent::MouseMove ||
           type == QEvent::Wheel || type == QEvent::ContextMenu;
}

void takeFocusOnClick(QWidget& widget) {
    const bool partOfTabBar = qobject_cast<QTabBar*>(widget.parentWidget()) != nullptr;
    if (widget.focusPolicy() == Qt::TabFocus && !partOfTabBar)
        widget.setFocusPolicy(Qt::StrongFocus);
}

} // namespace

FocusGuard::FocusGuard(QWidget* window) : window_(window) {
    qApp->installEventFilter(this);
}

FocusGuard::~FocusGuard() = default;

void FocusGuard::watch(QWidget* control, FieldEvents& events) {
    watched_.insert(control, &events);
    connect(control, &QObject::destroyed, this, [this, control] { watched_.remove(control); });
    forwardSignals(control, events);
}

void FocusGuard::watch(QWidget* control, const QString& name, int index, FieldEvents& events) {
    control->setObjectName(elementName(name, index));
    watch(control, events);
}

void FocusGuard::forwardSignals(QWidget* control, FieldEvents& events) {
    const auto change = [this, control, &events] {
        tell([&] { events.change(Control(control)); });
    };
    const auto click = [this, control, &events](Area area) {
        tell([&] { events.click(Control(control), area); });
    };
    if (auto* entry = qobject_cast<EntryField*>(control))
        connect(entry, &EntryField::textEdited, this, change);
    if (auto* rich = qobject_cast<RichText*>(control))
        connect(rich, &RichText::textEdited, this, change);
    if (auto* list = qobject_cast<RowList*>(control))
        connect(list, &RowList::rowChosen, this, [click] { click(Area::Item); });
    if (auto* drop = qobject_cast<DropDown*>(control)) {
        connect(drop, &DropDown::textEdited, this, change);
        connect(drop, &DropDown::clicked, this, click);
    }
}

void FocusGuard::tell(const std::function<void()>& rule) {
    if (window_ != nullptr)
        guarded(window_, rule);
}

bool FocusGuard::isMine(const QWidget* widget) const {
    return window_ != nullptr && widget->window() == window_;
}

Control FocusGuard::controlOf(QWidget* widget) const {
    QWidget* control = widget;
    for (QWidget* part = widget; part != nullptr && part != window_; part = part->parentWidget()) {
        if (watched_.contains(part))
            return Control(part);
        if (isComposite(part))
            control = part;
    }
    return Control(control);
}

FieldEvents* FocusGuard::eventsOf(const Control& control) const {
    return watched_.value(control.widget(), nullptr);
}

bool FocusGuard::eventFilter(QObject* watched, QEvent* event) {
    if (window_ == nullptr || event == delivered_)
        return false;
    if (watched->isWidgetType()) {
        auto* widget = static_cast<QWidget*>(watched);
        return isMine(widget) && widgetEvent(widget, event);
    }
    if (watched->isWindowType() && watched == window_->windowHandle() &&
        startsPhysicalAction(event->type()))
        swallowing_ = false;
    return false;
}

bool FocusGuard::widgetEvent(QWidget* widget, QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn:
        return focusIn(widget, static_cast<QFocusEvent*>(event));
    case QEvent::FocusOut:
        return focusOut(widget, static_cast<QFocusEvent*>(event));
    case QEvent::KeyPress:
        return keyPressed(widget, static_cast<QKeyEvent*>(event));
    case QEvent::InputMethod:
        return textComposed(widget, static_cast<QInputMethodEvent*>(event));
    case QEvent::Shortcut:
        return shortcut(widget, static_cast<QShortcutEvent*>(event));
    case QEvent::Show:
        if (widget == window_)
            prepareWindow();
        return false;
    default:
        return swallowing_ && isPointing(event->type());
    }
}

void FocusGuard::prepareWindow() {
    for (auto* bar : window_->findChildren<QTabBar*>())
        takeFocusOnClick(*bar);
    for (auto* button : window_->findChildren<QAbstractButton*>())
        takeFocusOnClick(*button);
    // Enter belongs to the field in focus; it must not press a button elsewhere.
    for (auto* button : window_->findChildren<QPushButton*>())
        button->setAutoDefault(false);
}

bool FocusGuard::focusOut(QWidget* widget, const QFocusEvent* event) {
    if (deciding_)
        return true;
    if (isAbsence(event->reason()) || !inCharge_)
        return false;
    uninformed_ = widget;
    heldReason_ = event->reason();
    return true;
}

bool FocusGuard::focusIn(QWidget* widget, QFocusEvent* event) {
    if (deciding_)
        return true;
    if (event->reason() == Qt::MenuBarFocusReason)
        return false;
    if (controlOf(widget) == inCharge_ && widget == uninformed_) {
        uninformed_ = nullptr;
        return true;
    }
    if (controlOf(widget) == inCharge_) {
        releaseHeldFocusOut();
        return false;
    }
    decide(widget, event);
    return true;
}

void FocusGuard::decide(QWidget* arrived, QFocusEvent* event) {
    Leave answer = Leave::Go;
    const bool byPress = QGuiApplication::mouseButtons() != Qt::NoButton;
    {
        const QScopedValueRollback deciding(deciding_, true);
        answer = askToLeave(controlOf(arrived), arrived, event->reason());
        if (answer == Leave::Hold)
            putBack(inCharge_);
    }
    // A press that was let go while a box stood open would leave a button drawn down.
    const bool letGo = byPress && QGuiApplication::mouseButtons() == Qt::NoButton;
    if (window_->focusWidget() != arrived || letGo || !window_->isVisible())
        swallowing_ = true;
    settle(arrived, event, answer);
}

Leave FocusGuard::askToLeave(const Control& next, QWidget* arrived, Qt::FocusReason reason) {
    if (const Control field = toValidate(next); field && validateHolds(field, arrived, reason)) {
        putBack(field);
        return Leave::Go;
    }
    Leave answer = Leave::Go;
    if (FieldEvents* events = eventsOf(inCharge_))
        tell([&] { answer = events->lostFocus(inCharge_, next); });
    return answer;
}

Control FocusGuard::toValidate(const Control& next) {
    const Control field = unvalidated_ ? unvalidated_ : inCharge_;
    unvalidated_ = Control();
    if (!next.causesValidation())
        unvalidated_ = field;
    return next.causesValidation() && !(next == field) ? field : Control();
}

bool FocusGuard::validateHolds(const Control& field, QWidget* arrived, Qt::FocusReason reason) {
    FieldEvents* events = eventsOf(field);
    if (events == nullptr || !events->validates(field) || !canHaveFocus(field.widget()))
        return false;
    // The focus has arrived already; the field gets it back for as long as it is asked.
    field.widget()->setFocus(Qt::OtherFocusReason);
    bool holds = false;
    tell([&] { holds = events->validate(field); });
    if (!holds && controlOf(window_->focusWidget()) == field)
        arrived->setFocus(reason);
    return holds;
}

void FocusGuard::putBack(const Control& control) {
    if (!canHaveFocus(control.widget()))
        return;
    const bool inside = uninformed_ != nullptr && controlOf(uninformed_) == control;
    QWidget* target = inside ? uninformed_.data() : control.widget();
    target->setFocus(Qt::OtherFocusReason);
}

void FocusGuard::settle(QWidget* arrived, QFocusEvent* event, Leave answer) {
    QWidget* focused = window_->focusWidget();
    if (focused == nullptr || focused == uninformed_) {
        uninformed_ = nullptr;
        return;
    }
    releaseHeldFocusOut();
    const Control now = controlOf(focused);
    const bool isNew = !(now == inCharge_) && answer != Leave::Pending;
    if (isNew)
        inCharge_ = now;
    QFocusEvent redirected(QEvent::FocusIn, Qt::OtherFocusReason);
    deliver(focused, focused == arrived ? event : &redirected);
    FieldEvents* events = eventsOf(now);
    if (isNew && events != nullptr && window_->isVisible())
        tell([&] { events->gotFocus(now); });
}

void FocusGuard::deliver(QWidget* widget, QFocusEvent* event) {
    const QScopedValueRollback delivering(delivered_, static_cast<const QEvent*>(event));
    QCoreApplication::sendEvent(widget, event);
}

void FocusGuard::releaseHeldFocusOut() {
    if (uninformed_ == nullptr)
        return;
    QWidget* widget = uninformed_;
    uninformed_ = nullptr;
    QFocusEvent event(QEvent::FocusOut, heldReason_);
    deliver(widget, &event);
}

bool FocusGuard::keyPressed(QWidget* widget, QKeyEvent* event) {
    // A key that a widget leaves alone comes again for its parents.
    if (widget != window_->focusWidget() || event->key() == Qt::Key_Tab ||
        event->key() == Qt::Key_Backtab)
        return false;
    const Control control = controlOf(widget);
    if (FieldEvents* events = eventsOf(control)) {
        int key = isEnter(event->key()) ? int{Qt::Key_Return} : event->key();
        tell([&] { events->keyDown(control, key, event->modifiers()); });
        if (key == 0 || window_ == nullptr || window_->focusWidget() != widget)
            return true;
        if (const auto typed = typedBy(*event); typed && drops(control, *typed))
            return true;
    }
    auto* button = qobject_cast<QPushButton*>(widget);
    if (button == nullptr || !isEnter(event->key()))
        return false;
    if (!event->isAutoRepeat())
        button->click();
    return true;
}

bool FocusGuard::drops(const Control& control, QChar character) {
    FieldEvents* events = eventsOf(control);
    if (events == nullptr || !isTyped(character))
        return false;
    tell([&] { events->keyPress(control, character); });
    return character.isNull();
}

bool FocusGuard::textComposed(QWidget* widget, const QInputMethodEvent* event) {
    const QString& text = event->commitString();
    return widget == window_->focusWidget() &&
           std::any_of(text.begin(), text.end(),
                       [&](QChar character) { return drops(controlOf(widget), character); });
}

bool FocusGuard::shortcut(QWidget* widget, const QShortcutEvent* event) {
    const bool acts = qobject_cast<QAbstractButton*>(widget) != nullptr ||
                      qobject_cast<QTabBar*>(widget) != nullptr;
    if (!acts || event->isAmbiguous() || widget->focusPolicy() == Qt::NoFocus)
        return false;
    return !moveFocus(widget);
}

void pressTab() {
    QWidget* widget = QApplication::focusWidget();
    if (widget == nullptr)
        return;
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
    QCoreApplication::sendEvent(widget, &press);
}

bool moveFocus(QWidget* target) {
    target->setFocus(Qt::OtherFocusReason);
    const QWidget* focused = target->window()->focusWidget();
    return focused == target || target->isAncestorOf(focused);
}

} // namespace forms
