#include "forms/RowsModel.h"

#include "forms/Guard.h"
#include "forms/Letters.h"
#include "store/DataSource.h"
#include "store/EngineError.h"

#include <utility>

namespace forms {

namespace {

constexpr QChar bar = u'|';

}

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
    // Half loaded it would count as loaded.
    auto rows = source_->Recordset().Clone();
    const auto count = static_cast<size_t>(rows->RecordCount());
    beginResetModel();
    rows_ = std::move(rows);
    failed_ = false;
    texts_.resize(count);
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
    const bool isSaid = sayEmpty_ && (role == Qt::ToolTipRole || role == Qt::AccessibleTextRole);
    if (!index.isValid() || (!isSaid && role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    QString shown;
    if (!failed_)
        failed_ = !showGuarded(&view_, [&] {
            shown = isSaid                    ? said(index.row())
                    : role == Qt::DisplayRole ? line(index.row())
                                              : text(index.row());
        });
    return shown;
}

QString RowsModel::text(int row) const {
    if (row < 0 || row >= rowCount())
        return {};
    auto& text = texts_[static_cast<size_t>(row)];
    if (!text)
        text = read(row);
    return *text;
}

QString RowsModel::line(int row) const {
    const QString own = text(row);
    if (twinColumn_.isEmpty() || rows_ == nullptr || own.isEmpty() ||
        (own != text(row - 1) && own != text(row + 1)))
        return own;
    rows_->setAbsolutePosition(row);
    return QStringLiteral("%1 (%2)").arg(own, rows_->Fields(twinColumn_).Value().toText());
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

/// Empty for a row that speaks for itself.
QString RowsModel::said(int row) const {
    if (rows_ == nullptr || !text(row).isEmpty())
        return {};
    rows_->setAbsolutePosition(row);
    return sayEmpty_(*rows_);
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

int RowsModel::first(const std::function<bool(const QString&)>& fits) const {
    for (int row = 0; row < rowCount(); ++row) {
        if (fits(text(row).trimmed()))
            return row;
    }
    return -1;
}

int RowsModel::firstWithoutAccents(const QString& beginning) const {
    const QString plain = withoutAccents(beginning);
    return first([&](const QString& line) {
        return withoutAccents(line).startsWith(plain, Qt::CaseInsensitive);
    });
}

int RowsModel::find(const QString& beginning) const {
    if (beginning.isEmpty())
        return -1;
    const int row =
        first([&](const QString& line) { return line.startsWith(beginning, Qt::CaseInsensitive); });
    if (row >= 0 || !holdsCodes())
        return row >= 0 ? row : firstWithoutAccents(beginning);
    const int coded = firstWithoutAccents(beginning);
    return coded >= 0 ? coded : firstByWords(beginning);
}

int RowsModel::firstByWords(const QString& beginning) const {
    const QString plain = withoutAccents(beginning.simplified());
    return first([&](const QString& line) {
        const QString words = line.mid(line.indexOf(bar) + 1).simplified();
        return withoutAccents(words).startsWith(plain, Qt::CaseInsensitive);
    });
}

bool RowsModel::holdsCodes() const {
    return rowCount() > 0 && text(0).contains(bar);
}

QString RowsModel::value(int row) const {
    const QString line = text(row);
    return line.left(line.indexOf(bar)).trimmed();
}

bool RowsModel::beginsAnother(int row, const QString& text) const {
    for (int other = 0; other < rowCount(); ++other) {
        if (other != row && value(other).startsWith(text, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

int RowsModel::lineOf(const QString& text) const {
    const int row = first([&](const QString& line) { return line == text; });
    return row >= 0 ? row : firstWithoutAccents(text);
}

} // namespace forms
