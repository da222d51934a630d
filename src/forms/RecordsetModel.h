#pragma once

#include "store/Recordset.h"

#include <QAbstractTableModel>
#include <QCache>
#include <QStringList>
#include <QStringView>

#include <memory>
#include <optional>
#include <span>
#include <vector>

class QWidget;

namespace forms {

/// A column of a grid; the width is in twips.
struct GridColumn {
    QStringView caption;
    QStringView field;
    int width = 0;
};

/// The rows of a recordset as a table of texts. Reads a row when it is asked for and keeps only
/// those read last, so that a long list costs no more than what is on show.
class RecordsetModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    /// @param columns must outlive the model
    /// @param view asks for the rows; what can't be read goes its route. It owns the model.
    RecordsetModel(std::span<const GridColumn> columns, QWidget& view);

    /// @param cursor a cursor for this model alone; null empties the table. @throws EngineError
    void setRows(std::unique_ptr<store::Recordset> cursor);
    /// Leaves on show the rows of these positions alone, which ascend; nothing shows all. Lasts
    /// until the next setRows().
    void showOnly(std::optional<std::vector<qint64>> positions);
    /// Where a row on show stands in the recordset.
    qint64 positionOf(int row) const;
    /// The row on show that stands there; -1 when it is not on show.
    int rowOf(qint64 position) const;
    /// How many rows there are, on show or not.
    int allRows() const { return all_; }
    /// How many rows have been read since setRows.
    qint64 rowsRead() const { return rowsRead_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QStringList texts(qint64 position) const;
    QStringList read(qint64 position) const;

    std::span<const GridColumn> columns_;
    QWidget& view_;
    std::unique_ptr<store::Recordset> cursor_;
    int all_ = 0;
    std::optional<std::vector<qint64>> shown_;
    /// By their positions.
    mutable QCache<qint64, QStringList> kept_;
    mutable qint64 rowsRead_ = 0;
    /// A row could not be read; until the next setRows() none is tried.
    mutable bool failed_ = false;
};

} // namespace forms
