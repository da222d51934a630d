#pragma once

#include "forms/RecordsetModel.h"

#include <QPointer>
#include <QTableView>

#include <span>

namespace store {
class DataSource;
}

namespace forms {

/// The rows of a data source as a list in which one row is chosen: the current row of its
/// recordset, both ways. Nothing is edited or opened in it.
class RecordsetGrid : public QTableView {
    Q_OBJECT
  public:
    /// @param columns must outlive the grid
    explicit RecordsetGrid(std::span<const GridColumn> columns, QWidget* parent = nullptr);

    /// Follows a data source from now on; null leaves it and empties the grid.
    void bind(store::DataSource* source);
    /// Takes the rows of the source's recordset anew. @throws EngineError
    void rebind();
    const RecordsetModel& rows() const { return *model_; }

    /// Letters are no search here: that would read the whole list.
    void keyboardSearch(const QString&) override {}
    /// A row goes on to the edge of the grid, behind its last column.
    QModelIndex indexAt(const QPoint& position) const override;

  protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void followSource();
    void moveSource(int row);
    QColor rowColour(int row) const;

    RecordsetModel* model_;
    QPointer<store::DataSource> source_;
    bool following_ = false;
};

} // namespace forms
