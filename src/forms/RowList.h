#pragma once

#include "forms/RowsModel.h"

#include <QListView>

#include <utility>

namespace forms {

/// A list of a data source's rows, showing one column. It reads the rows that are in sight. It
/// follows refreshes of the source; moves of its current row only by showCurrentRow().
class RowList : public QListView {
    Q_OBJECT
  public:
    explicit RowList(QWidget* parent = nullptr);

    void setSource(store::DataSource& source, const QString& column);
    /// See RowsModel::setSayEmpty().
    void setSayEmpty(RowsModel::SayEmpty say) { rows_.setSayEmpty(std::move(say)); }
    /// Marks the source's current row. No event of the user.
    void showCurrentRow();
    int row() const { return currentIndex().row(); }
    int count() const { return rows_.rowCount(); }
    QString text() const { return rows_.text(row()); }
    QString itemText(int line) const { return rows_.text(line); }
    /// The marked row, for the recordset of the source; not valid when none is.
    store::RowMark selectedItem() const { return rows_.mark(row()); }

  Q_SIGNALS:
    /// The user marked another row, by the mouse or by a key.
    void rowChosen();

  protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;

  private:
    void refill();

    RowsModel rows_{*this};
    bool byProgram_ = false;
};

} // namespace forms
