#pragma once

#include <QFont>
#include <QObject>

class QApplication;

namespace forms {

/// Ctrl++ and Ctrl+- make the texts of all windows larger and smaller, Ctrl+0 as large as the
/// desktop has them. It holds until the program ends. Where a window has a key of these for
/// something else, the window's holds.
class TextSize : public QObject {
    Q_OBJECT
  public:
    explicit TextSize(QApplication& application);

    /// Percent of the desktop's size.
    int percent() const;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void setStep(int step);

    QFont desktop_;
    int step_;
};

} // namespace forms
