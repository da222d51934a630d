#include "forms/RecordsetGrid.h"

#include "forms/Guard.h"
#include "forms/Metrics.h"
#include "forms/RowLook.h"
#include "store/DataSource.h"

#include <QHeaderView>
#include <QScopedValueRollback>

#include <numeric>

namespace forms {

RecordsetGrid::RecordsetGrid(std::span<const GridColumn> columns, QWidget* parent)
    : QTableView(parent), model_(new RecordsetModel(columns, *this)) {
    setModel(model_);
    lookLikeList(*this);
    for (const GridColumn& column : columns)
        shares_.push_back(column.width);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, &RecordsetGrid::keepShares);
    fitToFont(*this, [this] { fitColumns(); });
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) { moveSource(current.row()); });
}

void RecordsetGrid::bind(store::DataSource* source) {
    if (source_ != nullptr)
        source_->disconnect(this);
    source_ = source;
    if (source != nullptr) {
        connect(source, &store::DataSource::refreshed, this,
                [this] { showGuarded(this, [this] { rebind(); }); });
        connect(source, &store::DataSource::repositioned, this,
                [this] { showGuarded(this, [this] { followSource(); }); });
    }
    rebind();
}

void RecordsetGrid::rebind() {
    const bool open = source_ != nullptr && source_->isOpen();
    model_->setRows(open ? source_->Recordset().Clone() : nullptr);
    followSource();
    Q_EMIT rowsTaken();
}

void RecordsetGrid::showOnly(std::optional<std::vector<qint64>> positions) {
    if (source_ == nullptr || !source_->isOpen())
        return;
    {
        const QScopedValueRollback guard(following_, true);
        model_->showOnly(std::move(positions));
    }
    if (model_->rowCount() > 0 && model_->rowOf(source_->Recordset().AbsolutePosition()) < 0)
        source_->Recordset().setAbsolutePosition(model_->positionOf(0));
    else
        followSource();
}

void RecordsetGrid::centreCurrentRow() {
    scrollTo(currentIndex(), PositionAtCenter);
}

void RecordsetGrid::followSource() {
    if (following_ || source_ == nullptr || !source_->isOpen())
        return;
    const QScopedValueRollback guard(following_, true);
    const int row = model_->rowOf(source_->Recordset().AbsolutePosition());
    const QModelIndex index = model_->index(row, std::max(0, currentIndex().column()));
    setCurrentIndex(index);
    if (!index.isValid()) {
        clearSelection();
        return;
    }
    selectRow(row);
    scrollTo(index);
}

void RecordsetGrid::moveSource(int row) {
    if (following_ || row < 0 || source_ == nullptr || !source_->isOpen())
        return;
    const QScopedValueRollback guard(following_, true);
    guarded(this, [&] { source_->Recordset().setAbsolutePosition(model_->positionOf(row)); });
}

QModelIndex RecordsetGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const int column = std::max(0, currentIndex().column());
    if (action == MoveHome)
        return model_->index(0, column);
    if (action == MoveEnd)
        return model_->index(model_->rowCount() - 1, column);
    return QTableView::moveCursor(action, modifiers);
}

void RecordsetGrid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    fitColumns();
}

/// The last column takes what is left. No head is cut.
void RecordsetGrid::fitColumns() {
    const QScopedValueRollback guard(fitting_, true);
    const double all = std::accumulate(shares_.begin(), shares_.end(), 0.0);
    const auto least = [this](int column) {
        return fontMetrics().horizontalAdvance(
                   model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString()) +
               2 * gap;
    };
    int left = viewport()->width();
    for (int column = 0; column + 1 < model_->columnCount(); ++column) {
        const double share = shares_[static_cast<size_t>(column)] / all;
        setColumnWidth(column,
                       std::max(least(column), static_cast<int>(viewport()->width() * share)));
        left -= columnWidth(column);
    }
    const int last = model_->columnCount() - 1;
    setColumnWidth(last, std::max(least(last), left));
}

/// The user has set a width: the columns behind it share what is left.
void RecordsetGrid::keepShares(int resized) {
    const int last = model_->columnCount() - 1;
    if (fitting_)
        return;
    if (resized == last)
        return fitColumns();
    const auto behind = shares_.begin() + resized + 1;
    const double were = std::accumulate(behind, shares_.end(), 0.0);
    for (int column = 0; column <= resized; ++column)
        shares_[static_cast<size_t>(column)] = columnWidth(column);
    const double left = viewport()->width() - std::accumulate(shares_.begin(), behind, 0.0);
    const double least = (last - resized) * horizontalHeader()->minimumSectionSize();
    for (auto share = behind; share != shares_.end(); ++share)
        *share *= std::max(left, least) / were;
    fitColumns();
}

} // namespace forms
