#include "clientcard/TabList.h"

#include "forms/FocusGuard.h"
#include "forms/Metrics.h"

#include <QMouseEvent>

namespace clientcard {

namespace {

constexpr int captionPadding = 7;
constexpr Qt::ItemFlags reach = Qt::ItemIsEnabled | Qt::ItemIsSelectable;

} // namespace

TabList::TabList(QWidget* parent) : QListWidget(parent) {
    setAccessibleName(QStringLiteral("Záložky"));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // A click takes the focus only when it hits a tab that can be turned to.
    setFocusPolicy(Qt::TabFocus);
}

void TabList::fitToCaptions() {
    forms::fitToFont(*this, [this] {
        for (int tab = 0; tab < count(); ++tab)
            item(tab)->setSizeHint(
                {fontMetrics().horizontalAdvance(item(tab)->text()) + 2 * forms::gap + 2,
                 fontMetrics().height() + 2 * captionPadding});
        setFixedWidth(sizeHintForColumn(0) + 2 * frameWidth());
    });
}

bool TabList::isReachable(int tab) const {
    return item(tab)->flags().testFlag(Qt::ItemIsEnabled);
}

void TabList::setReachable(int tab, bool reachable) {
    const Qt::ItemFlags flags = item(tab)->flags();
    item(tab)->setFlags(reachable ? flags | reach : flags & ~reach);
}

int TabList::reachableFrom(int tab, int step) const {
    for (int next = tab + step; next >= 0 && next < count(); next += step) {
        if (isReachable(next))
            return next;
    }
    return -1;
}

void TabList::mousePressEvent(QMouseEvent* event) {
    const QListWidgetItem* pressed = itemAt(event->position().toPoint());
    if (pressed != nullptr && isReachable(row(pressed)) && forms::moveFocus(this))
        QListWidget::mousePressEvent(event);
}

} // namespace clientcard
