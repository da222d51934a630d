#pragma once

#include <QObject>

class QWidget;

namespace card {

/// Whether the user has typed or picked anything in a window.
class InputNote : public QObject {
    Q_OBJECT
  public:
    /// From now on, in all fields that the window has.
    void watch(QWidget& window);
    bool isNoted() const { return isNoted_; }

  Q_SIGNALS:
    /// Sent with each letter and each pick.
    void noted();

  private:
    bool isNoted_ = false;
};

} // namespace card
