#pragma once

#include <QObject>

class QApplication;

namespace help {

/// F1 opens the page of help about the place where the focus is, in every window of the program.
class HelpKey : public QObject {
    Q_OBJECT
  public:
    /// Works on the application for as long as this object lives.
    explicit HelpKey(QApplication& application);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace help
