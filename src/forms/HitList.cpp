#include "forms/HitList.h"

#include "forms/Metrics.h"
#include "forms/RowLook.h"
#include "forms/RowsModel.h"

#include <QEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>

namespace forms {

namespace {

constexpr int hitsShown = 9;
constexpr int leastLetters = 44;

} // namespace

HitList::HitList(RowsModel& rows, QWidget& field) : QListView(&field), rows_(rows), field_(&field) {
    hide();
    setObjectName(QStringLiteral("lstPonuka"));
    setAccessibleName(QStringLiteral("Ponuka z číselníka"));
    setFocusPolicy(Qt::NoFocus);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    setItemDelegate(makeLines(this));
    setModel(&rows);
    field.installEventFilter(this);
}

void HitList::showLine(int row) {
    if (row < 0 || field_ == nullptr)
        return hide();
    if (isHidden())
        description_ = field_->accessibleDescription();
    if (parentWidget() != field_->window())
        setParent(field_->window());
    setGeometry(place());
    const QModelIndex index = rows_.index(row, 0);
    setCurrentIndex(index);
    raise();
    show();
    scrollTo(index, PositionAtCenter);
    field_->setAccessibleDescription(rows_.line(row));
}

void HitList::hideEvent(QHideEvent* event) {
    QListView::hideEvent(event);
    if (field_ != nullptr)
        field_->setAccessibleDescription(description_);
}

/// Below the field, or above it where the window ends.
QRect HitList::place() const {
    const QWidget& window = *field_->window();
    const int lines = std::min(hitsShown, rows_.rowCount());
    const int height = lines * std::max(1, sizeHintForRow(0)) + 2 * frameWidth();
    const int width =
        std::min(window.width(), std::max(field_->width(), lettersWide(*this, leastLetters)));
    const QPoint corner = field_->mapTo(&window, QPoint(0, 0));
    const int below = corner.y() + field_->height();
    const bool fitsBelow = below + height <= window.height();
    return {std::clamp(corner.x(), 0, window.width() - width),
            fitsBelow ? below : std::max(0, corner.y() - height), width, height};
}

bool HitList::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() == QEvent::FocusOut || event->type() == QEvent::Hide ||
        event->type() == QEvent::Move || event->type() == QEvent::Resize)
        hide();
    return false;
}

} // namespace forms
