#pragma once

#include <QAbstractButton>
#include <QObject>
#include <QPointer>

namespace forms {

/// Gives Esc of a window to one button at a time. That button causes no validation while it has
/// Esc. A disabled or hidden button, or none: nothing happens, the window stays open as well.
class EscButton : public QObject {
    Q_OBJECT
  public:
    explicit EscButton(QWidget* window);

    void set(QAbstractButton* button);
    QAbstractButton* button() const { return button_; }
    /// As if Esc had been pressed.
    void press();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QPointer<QAbstractButton> button_;
};

} // namespace forms
