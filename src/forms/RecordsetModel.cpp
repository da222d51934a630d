#include "forms/RecordsetModel.h"

#include "store/EngineError.h"

#include <algorithm>
#include <limits>

namespace forms {

namespace {

constexpr int keptRows = 256;

}

RecordsetModel::RecordsetModel(std::span<const GridColumn> columns, QObject* parent)
    : QAbstractTableModel(parent), columns_(columns), kept_(keptRows) {}

void RecordsetModel::setRows(std::unique_ptr<store::Recordset> cursor) {
    constexpr qint64 most = std::numeric_limits<int>::max();
    const qint64 rows = cursor != nullptr ? cursor->RecordCount() : 0;
    beginResetModel();
    cursor_ = std::move(cursor);
    rows_ = static_cast<int>(std::min(rows, most));
    kept_.clear();
    rowsRead_ = 0;
    endResetModel();
}

int RecordsetModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int RecordsetModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant RecordsetModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid())
        return {};
    return texts(index.row()).at(index.column());
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

QStringList RecordsetModel::texts(int row) const {
    if (const QStringList* kept = kept_.object(row))
        return *kept;
    const QStringList texts = read(row);
    kept_.insert(row, new QStringList(texts));
    return texts;
}

QStringList RecordsetModel::read(int row) const {
    ++rowsRead_;
    QStringList texts;
    try {
        cursor_->setAbsolutePosition(row);
        for (const GridColumn& column : columns_)
            texts << cursor_->Fields(column.field).Value().toText();
        return texts;
    } catch (const store::EngineError& error) {
        // A view paints this: a row deleted meanwhile stays blank, any other fault shows in place.
        const bool deleted = error.number() == store::ErrorNumber::RecordDeleted;
        const QString shown = deleted ? QString() : QStringLiteral("#chyba");
        return QStringList(static_cast<qsizetype>(columns_.size()), shown);
    }
}

} // namespace forms
