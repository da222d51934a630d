#pragma once

#include <QListView>
#include <QPointer>

namespace forms {

class RowsModel;

/// The lines of a pick, shown below the field in which one types, with the line that was found in
/// the middle. It takes no focus and no keys; readers of the screen hear the line with the field.
class HitList : public QListView {
    Q_OBJECT
  public:
    /// @param rows must outlive the list
    HitList(RowsModel& rows, QWidget& field);

    /// Shows a line and its neighbours; -1 hides the list.
    void showLine(int row);
    int line() const { return currentIndex().row(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    QRect place() const;

    RowsModel& rows_;
    QPointer<QWidget> field_;
    /// What the field is described by while no line is shown.
    QString description_;
};

} // namespace forms
