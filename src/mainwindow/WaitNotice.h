#pragma once

#include <QDialog>
#include <QElapsedTimer>

namespace mainwindow {

/// Says what a long work of the program's own is, as long as it lives. There is nothing to answer
/// and nothing to cancel.
class WaitNotice : public QDialog {
    Q_OBJECT
  public:
    explicit WaitNotice(const QString& text);

    void reject() override {}
    /// Comes on the screen. Called again and again, it shows that the work goes on.
    void showWork();

  private:
    QElapsedTimer sinceShown_;
};

} // namespace mainwindow
