#pragma once

#include "forms/FieldEvents.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <vector>

class QFocusEvent;
class QInputMethodEvent;
class QKeyEvent;
class QShortcutEvent;

namespace forms {

/// Tells the rules of one window's controls (FieldEvents) what happens to them, and lets them hold
/// the focus.
///
/// It sees the application's events before the widgets do. When another control of the window
/// receives the focus, the rule of the control in charge is run first; the two widgets learn of the
/// move only when the rule has let it pass. If it holds, all that the causing press would still do
/// is swallowed. Message boxes, menus, opened drop-downs and other windows take the focus away
/// without the control being left.
///
/// In its window it also sees to it that tabs and buttons take the focus when clicked or when
/// pressed by Alt and a letter, that Enter presses the button in focus and no other.
class FocusGuard : public QObject {
    Q_OBJECT
  public:
    /// @param window the top-level widget of the screen. The guard must end before the objects
    /// that are told do.
    explicit FocusGuard(QWidget* window);
    ~FocusGuard() override;
    Q_DISABLE_COPY_MOVE(FocusGuard)

    /// Tells `events` of the control. A composite control is watched as a whole.
    void watch(QWidget* control, FieldEvents& events);
    /// As above, and names the control: the element of an array, or a lone one for index -1.
    void watch(QWidget* control, const QString& name, int index, FieldEvents& events);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool isMine(const QWidget* widget) const;
    Control controlOf(QWidget* widget) const;
    FieldEvents* eventsOf(const Control& control) const;

    bool widgetEvent(QWidget* widget, QEvent* event);
    bool focusIn(QWidget* widget, QFocusEvent* event);
    bool focusOut(QWidget* widget, const QFocusEvent* event);
    bool keyPressed(QWidget* widget, QKeyEvent* event);
    bool textComposed(QWidget* widget, const QInputMethodEvent* event);
    bool shortcut(QWidget* widget, const QShortcutEvent* event);

    void decide(QWidget* arrived, QFocusEvent* event);
    Leave askToLeave(const Control& next, QWidget* arrived, Qt::FocusReason reason);
    Control toValidate(const Control& next);
    bool validateHolds(const Control& field, QWidget* arrived, Qt::FocusReason reason);
    void putBack(const Control& control);
    void settle(QWidget* arrived, QFocusEvent* event, Leave answer);
    void deliver(QWidget* widget, QFocusEvent* event);
    void releaseHeldFocusOut();
    bool drops(const Control& control, QChar character);
    void prepareWindow();
    void tell(const std::function<void()>& rule);
    void forwardSignals(QWidget* control, FieldEvents& events);

    QPointer<QWidget> window_;
    QHash<const QWidget*, FieldEvents*> watched_;
    Control inCharge_;
    /// The widget that still believes to have the focus; its FocusOut is held back.
    QPointer<QWidget> uninformed_;
    Qt::FocusReason heldReason_ = Qt::OtherFocusReason;
    /// Left towards a control that causes no validation, so its validate() is still to come.
    Control unvalidated_;
    /// The event that the guard itself is sending on.
    const QEvent* delivered_ = nullptr;
    bool deciding_ = false;
    bool swallowing_ = false;
};

/// Acts as a press of Tab in the widget that has the focus, at once.
void pressTab();

/// Moves the focus, and with it runs the rule of the control that is left.
/// @return whether the focus arrived
bool moveFocus(QWidget* target);

} // namespace forms
