#include "forms/RowsModel.h"

#include "store/DataSource.h"
#include "store/EngineError.h"

namespace forms {

namespace {

QString withoutAccents(const QString& text) {
    QString plain;
    for (const QChar character : text.normalized(QString::NormalizationForm_D)) {
        if (character.category() != QChar::Mark_NonSpacing)
            plain += character;
    }
    return plain;
}

} // namespace

void RowsModel::setItems(const QStringList& items) {
    beginResetModel();
    source_ = nullptr;
    rows_.reset();
    texts_.assign(items.begin(), items.end());
    endResetModel();
}

void RowsModel::removeItem(int row) {
    beginRemoveRows({}, row, row);
    texts_.erase(texts_.begin() + row);
    endRemoveRows();
}

void RowsModel::setSource(store::DataSource& source, const QString& column) {
    source_ = &source;
    column_ = column;
    unload();
}

void RowsModel::load() {
    if (source_ == nullptr || rows_ != nullptr || !source_->isOpen())
        return;
    beginResetModel();
    rows_ = source_->Recordset().Clone();
    texts_.resize(static_cast<size_t>(rows_->RecordCount()));
    endResetModel();
}

void RowsModel::unload() {
    if (source_ == nullptr)
        return;
    beginResetModel();
    rows_.reset();
    texts_.clear();
    endResetModel();
}

int RowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(texts_.size());
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    try {
        return text(index.row());
    } catch (const store::EngineError&) {
        // A view that is painting can't do with an error; the line stays empty.
        return {};
    }
}

QString RowsModel::text(int row) const {
    if (row < 0 || row >= rowCount())
        return {};
    auto& text = texts_[static_cast<size_t>(row)];
    if (!text)
        text = read(row);
    return *text;
}

QString RowsModel::read(int row) const {
    try {
        rows_->setAbsolutePosition(row);
        return rows_->Fields(column_).Value().toText();
    } catch (const store::EngineError& error) {
        if (error.number() == store::ErrorNumber::RecordDeleted)
            return {};
        throw;
    }
}

store::RowMark RowsModel::mark(int row) const {
    if (rows_ == nullptr || row < 0 || row >= rowCount())
        return {};
    rows_->setAbsolutePosition(row);
    return rows_->Bookmark();
}

int RowsModel::sourceRow() const {
    if (source_ == nullptr || !source_->isOpen() || source_->Recordset().Eof())
        return -1;
    const qint64 row = source_->Recordset().AbsolutePosition();
    return row < rowCount() ? static_cast<int>(row) : -1;
}

int RowsModel::find(const QString& beginning) const {
    if (beginning.isEmpty())
        return -1;
    for (int row = 0; row < rowCount(); ++row) {
        if (text(row).trimmed().startsWith(beginning, Qt::CaseInsensitive))
            return row;
    }
    const QString plain = withoutAccents(beginning);
    for (int row = 0; row < rowCount(); ++row) {
        if (withoutAccents(text(row).trimmed()).startsWith(plain, Qt::CaseInsensitive))
            return row;
    }
    return -1;
}

} // namespace forms
