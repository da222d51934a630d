#include "forms/RowList.h"

#include "forms/Guard.h"
#include "forms/RowLook.h"
#include "store/DataSource.h"

#include <QFocusEvent>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

namespace forms {

RowList::RowList(QWidget* parent) : QListView(parent) {
    setUniformItemSizes(true);
    setItemDelegate(makeLines(this));
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    const QScopedValueRollback byProgram(byProgram_, true);
    setModel(&rows_);
}

void RowList::setSource(store::DataSource& source, const QString& column) {
    rows_.setSource(source, column);
    refill();
    connect(&source, &store::DataSource::refreshed, this,
            [this] { showGuarded(this, [this] { refill(); }); });
}

void RowList::refill() {
    const QScopedValueRollback byProgram(byProgram_, true);
    rows_.unload();
    rows_.load();
}

void RowList::showCurrentRow() {
    const QScopedValueRollback byProgram(byProgram_, true);
    setCurrentIndex(rows_.index(rows_.sourceRow(), 0));
}

void RowList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    if (!byProgram_ && current.isValid())
        Q_EMIT rowChosen();
}

void RowList::focusInEvent(QFocusEvent* event) {
    // A list without a marked row marks the first one of its own accord.
    const QScopedValueRollback byProgram(byProgram_, true);
    QListView::focusInEvent(event);
}

} // namespace forms
