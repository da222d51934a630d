#pragma once

#include <QObject>

#include <vector>

class QWidget;

namespace forms {

/// Makes a row of buttons one stop of Tab: Left and Right go on among them. A click leaves the
/// focus where it is. Belongs to the row.
class RovingFocus : public QObject {
    Q_OBJECT
  public:
    explicit RovingFocus(QWidget& row);

    void add(QWidget& button);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void step(QWidget& from, int by);

    std::vector<QWidget*> buttons_;
};

} // namespace forms
