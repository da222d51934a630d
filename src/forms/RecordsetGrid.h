#pragma once

#include "forms/RecordsetModel.h"

#include <QPointer>
#include <QTableView>

#include <span>
#include <vector>

namespace store {
class DataSource;
}

namespace forms {

/// The rows of a data source as a list in which one row is chosen: the current row of its
/// recordset, both ways. Nothing is edited or opened in it. The columns fill its width, by the
/// widths that they were given until the user gives them others.
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
    /// Leaves on show the rows of these positions alone, until rows are taken anew; nothing shows
    /// all. The current row stays when it is among them; else the first one becomes current.
    /// @throws EngineError
    void showOnly(std::optional<std::vector<qint64>> positions);
    /// False when there is none, or it is not among the rows on show.
    bool showsCurrentRow() const { return currentIndex().isValid(); }
    /// Puts the current row, which may be out of sight, into the middle.
    void centreCurrentRow();

    /// What letters do is for the screen to say.
    void keyboardSearch(const QString&) override {}

  Q_SIGNALS:
    /// All rows of the source are on show, after they were taken anew.
    void rowsTaken();

  protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void followSource();
    void moveSource(int row);
    void fitColumns();
    void keepShares(int resized);

    RecordsetModel* model_;
    QPointer<store::DataSource> source_;
    bool following_ = false;
    /// How the columns share the width.
    std::vector<double> shares_;
    bool fitting_ = false;
};

} // namespace forms
