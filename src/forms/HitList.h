#pragma once

#include <QListView>
#include <QPointer>

namespace forms {

class RowsModel;

/// The lines of a pick, shown below the field in which one types, with the line that was found in
/// the middle. It takes no focus and no keys.
class HitList : public QListView {
    Q_OBJECT
  public:
    /// @param rows must outlive the list
    HitList(RowsModel& rows, QWidget& field);

    /// Shows a line and its neighbours; -1 hides the list.
    void showLine(int row);
    int line() const { return currentIndex().row(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QRect place() const;

    RowsModel& rows_;
    QPointer<QWidget> field_;
};

} // namespace forms
