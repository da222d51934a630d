#include "forms/RecordsetGrid.h"

#include "forms/Guard.h"
#include "forms/RowLook.h"
#include "forms/Twips.h"
#include "store/DataSource.h"

#include <QHeaderView>
#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>

namespace forms {

RecordsetGrid::RecordsetGrid(std::span<const GridColumn> columns, QWidget* parent)
    : QTableView(parent), model_(new RecordsetModel(columns, *this)) {
    setModel(model_);
    lookLikeList(*this);
    for (int column = 0; column < model_->columnCount(); ++column)
        setColumnWidth(column, pixels(columns[static_cast<size_t>(column)].width));
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) { moveSource(current.row()); });
    // The view itself repaints the cells alone, not the rest of the row.
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, viewport(),
            qOverload<>(&QWidget::update));
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
}

void RecordsetGrid::followSource() {
    if (following_ || source_ == nullptr || !source_->isOpen())
        return;
    const QScopedValueRollback guard(following_, true);
    const auto position = static_cast<int>(source_->Recordset().AbsolutePosition());
    const QModelIndex index = model_->index(position, std::max(0, currentIndex().column()));
    if (!index.isValid()) {
        clearSelection();
        return;
    }
    setCurrentIndex(index);
    selectRow(position);
    scrollTo(index);
}

void RecordsetGrid::moveSource(int row) {
    if (following_ || row < 0 || source_ == nullptr || !source_->isOpen())
        return;
    const QScopedValueRollback guard(following_, true);
    guarded(this, [&] { source_->Recordset().setAbsolutePosition(row); });
}

QModelIndex RecordsetGrid::indexAt(const QPoint& position) const {
    const QModelIndex cell = QTableView::indexAt(position);
    const bool behind = position.x() >= horizontalHeader()->length() - horizontalHeader()->offset();
    if (cell.isValid() || !behind)
        return cell;
    return model_->index(rowAt(position.y()), model_->columnCount() - 1);
}

QModelIndex RecordsetGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const int column = std::max(0, currentIndex().column());
    if (action == MoveHome)
        return model_->index(0, column);
    if (action == MoveEnd)
        return model_->index(model_->rowCount() - 1, column);
    return QTableView::moveCursor(action, modifiers);
}

QColor RecordsetGrid::rowColour(int row) const {
    const auto group = isActiveWindow() ? QPalette::Active : QPalette::Inactive;
    if (selectionModel()->isRowSelected(row))
        return palette().color(group, QPalette::Highlight);
    return palette().color(group, row % 2 == 0 ? QPalette::Base : QPalette::AlternateBase);
}

// The last column ends where its width says; the rows go on to the edge.
void RecordsetGrid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    const int left = horizontalHeader()->length() - horizontalHeader()->offset();
    const int width = viewport()->width() - left;
    if (width <= 0)
        return;
    QPainter painter(viewport());
    for (int row = std::max(0, rowAt(0)); row < model_->rowCount(); ++row) {
        const int top = rowViewportPosition(row);
        if (top > viewport()->height())
            break;
        painter.fillRect(left, top, width, rowHeight(row), rowColour(row));
    }
}

} // namespace forms
