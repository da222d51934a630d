#include "forms/RecordsetModel.h"

#include "forms/Guard.h"
#include "store/EngineError.h"

#include <algorithm>
#include <limits>

namespace forms {

namespace {

constexpr int keptRows = 256;

}

RecordsetModel::RecordsetModel(std::span<const GridColumn> columns, QWidget& view)
    : QAbstractTableModel(&view), columns_(columns), view_(view), kept_(keptRows) {}

void RecordsetModel::setRows(std::unique_ptr<store::Recordset> cursor) {
    constexpr qint64 most = std::numeric_limits<int>::max();
    const qint64 rows = cursor != nullptr ? cursor->RecordCount() : 0;
    beginResetModel();
    cursor_ = std::move(cursor);
    all_ = static_cast<int>(std::min(rows, most));
    shown_.reset();
    kept_.clear();
    rowsRead_ = 0;
    failed_ = false;
    endResetModel();
}

void RecordsetModel::showOnly(std::optional<std::vector<qint64>> positions) {
    beginResetModel();
    shown_ = std::move(positions);
    endResetModel();
}

qint64 RecordsetModel::positionOf(int row) const {
    return shown_ ? shown_->at(static_cast<size_t>(row)) : row;
}

int RecordsetModel::rowOf(qint64 position) const {
    if (position < 0 || !shown_)
        return static_cast<int>(position);
    const auto found = std::ranges::lower_bound(*shown_, position);
    const bool isShown = found != shown_->end() && *found == position;
    return isShown ? static_cast<int>(found - shown_->begin()) : -1;
}

int RecordsetModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid())
        return 0;
    return shown_ ? static_cast<int>(shown_->size()) : all_;
}

int RecordsetModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant RecordsetModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid())
        return {};
    return texts(positionOf(index.row())).value(index.column());
}

QVariant RecordsetModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
    if (role == Qt::DisplayRole)
        return columns_[static_cast<size_t>(section)].caption.toString();
    return {};
}

QStringList RecordsetModel::texts(qint64 position) const {
    if (const QStringList* kept = kept_.object(position))
        return *kept;
    QStringList texts;
    if (!failed_)
        failed_ = !showGuarded(&view_, [&] { texts = read(position); });
    if (!failed_)
        kept_.insert(position, new QStringList(texts));
    return texts;
}

QStringList RecordsetModel::read(qint64 position) const {
    ++rowsRead_;
    QStringList texts;
    try {
        cursor_->setAbsolutePosition(position);
        for (const GridColumn& column : columns_)
            texts << cursor_->Fields(column.field).Value().toText();
        return texts;
    } catch (const store::EngineError& error) {
        if (error.number() != store::ErrorNumber::RecordDeleted)
            throw;
        return {};
    }
}

} // namespace forms
