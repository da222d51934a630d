#pragma once

#include <QString>

class QLabel;
class QLayout;
class QPushButton;
class QWidget;

namespace clientcard {

/// What stands under the page of a new client: why the other tabs are locked and the button that
/// opens them; and what has been written last.
class CardGuide {
  public:
    /// @param cmdZaklUd shown while the tabs are locked
    CardGuide(QWidget& window, QPushButton& cmdZaklUd);

    QLayout* layOut();
    void setLocked(bool locked);
    bool isLocked() const;
    /// Says that a client is written, until forget().
    void tellWritten(const QString& whom);
    void forget();
    /// There is anything to say.
    bool speaks() const;

  private:
    QPushButton& cmdZaklUd_;
    QLabel* lblZapisane_;
    QLabel* lblZamok_;
};

} // namespace clientcard
