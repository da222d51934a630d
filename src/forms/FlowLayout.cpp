#include "forms/FlowLayout.h"

#include "forms/Metrics.h"

#include <QWidget>

#include <algorithm>

namespace forms {

/// The items that stand side by side, and their least width together.
struct FlowLayout::Row {
    std::vector<QLayoutItem*> items;
    int least = 0;
};

FlowLayout::FlowLayout(Fill fill, QWidget* parent) : QLayout(parent), fill_(fill) {
    setContentsMargins(0, 0, 0, 0);
}

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem* item) {
    items_.emplace_back(item);
    invalidate();
}

void FlowLayout::addLayout(QLayout* layout) {
    addChildLayout(layout);
    addItem(layout);
}

QLayoutItem* FlowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? items_[std::size_t(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
    if (itemAt(index) == nullptr)
        return nullptr;
    QLayoutItem* taken = items_[std::size_t(index)].release();
    items_.erase(items_.begin() + index);
    invalidate();
    return taken;
}

int FlowLayout::space() const {
    return spacing() >= 0 ? spacing() : gap;
}

int FlowLayout::leastWidth(const QLayoutItem& item) const {
    const bool keepsWidth = fill_ == Fill::Left || (fill_ == Fill::First && &item != itemAt(0));
    return keepsWidth ? item.sizeHint().width() : item.minimumSize().width();
}

std::vector<FlowLayout::Row> FlowLayout::rowsFor(int width) const {
    std::vector<Row> rows;
    for (const auto& item : items_) {
        if (item->isEmpty())
            continue;
        const int least = leastWidth(*item);
        if (rows.empty() || rows.back().least + space() + least > width)
            rows.push_back({{item.get()}, least});
        else {
            rows.back().items.push_back(item.get());
            rows.back().least += space() + least;
        }
    }
    return rows;
}

/// Items that share a row are equally wide if they can be. Else what it has beyond the least widths
/// goes to those that may grow.
std::vector<int> FlowLayout::widthsIn(const Row& row, int width) const {
    const int count = int(row.items.size());
    const int equal = (width - space() * (count - 1)) / count;
    const auto fits = [&](const QLayoutItem* item) {
        return leastWidth(*item) <= equal;
    };
    if (fill_ == Fill::Share && std::ranges::all_of(row.items, fits))
        return std::vector<int>(std::size_t(count), equal);
    std::vector<int> widths;
    int rest = std::max(0, width - row.least);
    for (std::size_t i = 0; i < row.items.size(); ++i) {
        int more = 0;
        if (fill_ == Fill::Share)
            more = rest / int(row.items.size() - i);
        else if (fill_ == Fill::First && i == 0)
            more = rest;
        rest -= more;
        widths.push_back(std::min(width, leastWidth(*row.items[i]) + more));
    }
    return widths;
}

int FlowLayout::heightOf(const Row& row, const std::vector<int>& widths) const {
    int height = 0;
    for (std::size_t i = 0; i < row.items.size(); ++i) {
        QLayoutItem& item = *row.items[i];
        height = std::max(height, item.hasHeightForWidth() ? item.heightForWidth(widths[i])
                                                           : item.sizeHint().height());
    }
    return height;
}

int FlowLayout::heightForWidth(int width) const {
    if (width != knownWidth_) {
        const QMargins margins = contentsMargins();
        const int inside = width - margins.left() - margins.right();
        const std::vector<Row> rows = rowsFor(inside);
        knownHeight_ = margins.top() + margins.bottom() + gap * (int(rows.size()) - 1);
        for (const Row& row : rows)
            knownHeight_ += heightOf(row, widthsIn(row, inside));
        knownWidth_ = width;
    }
    return knownHeight_;
}

void FlowLayout::invalidate() {
    knownWidth_ = -1;
    QLayout::invalidate();
}

QSize FlowLayout::sizeHint() const {
    int width = 0;
    for (const auto& item : items_) {
        if (!item->isEmpty())
            width += item->sizeHint().width() + (width > 0 ? space() : 0);
    }
    const QMargins margins = contentsMargins();
    width += margins.left() + margins.right();
    return {width, heightForWidth(width)};
}

QSize FlowLayout::minimumSize() const {
    QSize least;
    for (const auto& item : items_) {
        if (!item->isEmpty())
            least = least.expandedTo({leastWidth(*item), item->minimumSize().height()});
    }
    return least.grownBy(contentsMargins());
}

void FlowLayout::setGeometry(const QRect& place) {
    QLayout::setGeometry(place);
    const QRect inside = place.marginsRemoved(contentsMargins());
    int top = inside.top();
    for (const Row& row : rowsFor(inside.width())) {
        const std::vector<int> widths = widthsIn(row, inside.width());
        const int height = heightOf(row, widths);
        int left = inside.left();
        for (std::size_t i = 0; i < row.items.size(); ++i) {
            row.items[i]->setGeometry({left, top, widths[i], height});
            left += widths[i] + space();
        }
        top += height + gap;
    }
}

} // namespace forms
