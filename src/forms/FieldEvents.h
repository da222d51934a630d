#pragma once

#include <QChar>
#include <QPointer>
#include <QString>
#include <QStringView>
#include <QWidget>

namespace forms {

/// Name of an element of a control array, as its objectName carries it: "textKrz(3)".
QString elementName(const QString& array, int index);

/// A control as the rules of a screen know it: a lone one, or an element of a control array. The
/// name comes from the widget's objectName. Tag and CausesValidation live with the widget, so that
/// all Controls made of one widget agree.
class Control {
  public:
    /// No control.
    Control() = default;
    explicit Control(QWidget* widget);

    QWidget* widget() const { return widget_; }
    /// Name without the index.
    const QString& name() const { return name_; }
    /// Index in its array, -1 for a lone control.
    int index() const { return index_; }
    bool is(QStringView name) const { return widget_ != nullptr && name_ == name; }
    bool isEnabled() const { return widget_ != nullptr && widget_->isEnabled(); }

    QString tag() const;
    void setTag(const QString& tag) const;

    /// True for all controls but the button of Esc (see EscButton).
    bool causesValidation() const;
    void setCausesValidation(bool causes) const;

    explicit operator bool() const { return widget_ != nullptr; }
    bool operator==(const Control& other) const { return widget_ == other.widget_; }

  private:
    QPointer<QWidget> widget_;
    QString name_;
    int index_ = -1;
};

/// What a screen decides about a control that has lost the focus.
enum class Leave {
    Go,      ///< The focus stays where the user sent it, or where the rule has put it.
    Hold,    ///< The focus goes back; what caused the leaving acts on nothing else.
    Pending, ///< The focus stays, but the rule runs again at the next move (away from Storno).
};

/// Where a drop-down was clicked.
enum class Area { Button = 0, Edit = 1, Item = 2 };

/// The rules of a screen for its controls. FocusGuard tells them; all do nothing by default.
/// An EngineError that a rule throws is reported to the user and ends that rule alone; the control
/// is left as if the rule had not objected.
class FieldEvents {
  public:
    virtual ~FieldEvents() = default;

    /// The control has the focus now and keeps it. Not told of a return from a message box, a menu
    /// or another window.
    virtual void gotFocus(const Control& /*control*/) {}
    /// A key went down, before the control acts on it. Enter of either keypad is Qt::Key_Return.
    /// Tab is not told. Set to 0, the key acts on nothing.
    virtual void keyDown(const Control& /*control*/, int& /*key*/,
                         Qt::KeyboardModifiers /*modifiers*/) {}
    /// A character is about to be typed; Enter is '\r', Backspace '\b'. Set to QChar::Null it is
    /// dropped.
    virtual void keyPress(const Control& /*control*/, QChar& /*character*/) {}
    /// Whether validate() is to be asked of the control.
    virtual bool validates(const Control& /*control*/) const { return false; }
    /// The focus is about to move to a control that causes validation; the control still has it.
    /// A control that was left towards Storno is asked when the focus goes on from there.
    /// @return true to keep it
    virtual bool validate(const Control& /*control*/) { return false; }
    /// The focus has moved, `now` has it. The rule may open boxes and may send the focus elsewhere.
    /// A control that is hidden or disabled by now can't be held.
    virtual Leave lostFocus(const Control& /*control*/, const Control& /*now*/) {
        return Leave::Go;
    }
    /// A drop-down or a list was clicked, or a row picked by Enter. Area::Button comes before the
    /// list opens; if the rule moves the focus away, it does not open.
    virtual void click(const Control& /*control*/, Area /*area*/) {}
    /// The user changed the text, not the program.
    virtual void change(const Control& /*control*/) {}
};

} // namespace forms
