#include "statreturn/PeopleList.h"

#include "forms/Metrics.h"
#include "forms/RowLook.h"

#include <QHeaderView>

#include <algorithm>

namespace statreturn {

namespace {

/// Letters of the narrowest column.
constexpr int leastColumn = 12;

} // namespace

void PeopleModel::setLines(std::vector<PeopleColumn> columns, int count, Line line) {
    beginResetModel();
    columns_ = std::move(columns);
    count_ = count;
    line_ = std::move(line);
    made_ = -1;
    endResetModel();
}

report::Table PeopleModel::table() const {
    report::Table table;
    for (const PeopleColumn& column : columns_)
        table.heads << column.head;
    for (int line = 0; line < count_; ++line)
        table.rows.push_back(line_(line));
    return table;
}

int PeopleModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count_;
}

int PeopleModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(columns_.size());
}

QVariant PeopleModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    if (made_ != index.row()) {
        texts_ = line_(index.row());
        made_ = index.row();
    }
    return texts_[index.column()];
}

QVariant PeopleModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical)
        return {};
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? columns_[std::size_t(section)].head : QVariant();
}

PeopleList::PeopleList(QWidget* parent) : QTableView(parent) {
    setModel(&lines_);
    forms::lookLikeList(*this);
    forms::paleWithoutFocus(*this);
    horizontalHeader()->setStretchLastSection(true);
    forms::fitToFont(*this, [this, before = fontMetrics().height()]() mutable {
        const int now = fontMetrics().height();
        horizontalHeader()->setMinimumSectionSize(forms::lettersWide(*this, leastColumn));
        for (int column = 0; column < lines_.columnCount(); ++column)
            setColumnWidth(column, columnWidth(column) * now / before);
        before = now;
    });
}

void PeopleList::setLines(std::vector<PeopleColumn> columns, int count, PeopleModel::Line line) {
    // Widths that the user has set stay as long as the columns do.
    const auto& before = lines_.columns();
    const bool same =
        std::ranges::equal(before, columns, {}, &PeopleColumn::head, &PeopleColumn::head);
    for (std::size_t column = 0; same && column + 1 < columns.size(); ++column)
        columns[column].width = columnWidth(int(column));
    lines_.setLines(std::move(columns), count, std::move(line));
    for (std::size_t column = 0; column < lines_.columns().size(); ++column) {
        const int width = lines_.columns()[column].width;
        setColumnWidth(int(column), same ? width : forms::scaled(*this, width));
    }
    setLine(0);
}

void PeopleList::setLine(int line) {
    setCurrentIndex(lines_.index(std::clamp(line, 0, std::max(0, count() - 1)), 0));
}

void PeopleList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    Q_EMIT lineChosen();
}

QModelIndex PeopleList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (action == MoveHome)
        return lines_.index(0, 0);
    if (action == MoveEnd)
        return lines_.index(count() - 1, 0);
    return QTableView::moveCursor(action, modifiers);
}

} // namespace statreturn
