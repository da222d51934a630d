#pragma once

#include "store/Recordset.h"

#include <QAbstractTableModel>
#include <QCache>
#include <QStringList>
#include <QStringView>

#include <memory>
#include <span>

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
    /// How many rows have been read since setRows.
    qint64 rowsRead() const { return rowsRead_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QStringList texts(int row) const;
    QStringList read(int row) const;

    std::span<const GridColumn> columns_;
    QWidget& view_;
    std::unique_ptr<store::Recordset> cursor_;
    int rows_ = 0;
    mutable QCache<int, QStringList> kept_;
    mutable qint64 rowsRead_ = 0;
    /// A row could not be read; until the next setRows() none is tried.
    mutable bool failed_ = false;
};

} // namespace forms
