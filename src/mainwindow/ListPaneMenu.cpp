// What the list itself takes: its keys, its menu and clicks on its heads.
#include "forms/Guard.h"
#include "forms/RecordsetGrid.h"
#include "mainwindow/ListFilter.h"
#include "mainwindow/ListPane.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>

namespace mainwindow {

void ListPane::buildListKeys() {
    connect(new QShortcut(QKeySequence(Qt::Key_F3), this), &QShortcut::activated, this,
            [this] { forms::guarded(this, [this] { hladajOsobuDalej(); }); });
}

bool ListPane::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const bool isPlain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
        return isPlain && !key.isAutoRepeat() && keyInList(key.key());
    }
    if (event->type() != QEvent::ContextMenu)
        return QWidget::eventFilter(watched, event);
    const auto& asked = *static_cast<QContextMenuEvent*>(event);
    const auto& view = *static_cast<forms::RecordsetGrid*>(watched);
    const bool byKey = asked.reason() == QContextMenuEvent::Keyboard;
    openMenu(byKey ? view.viewport()->mapToGlobal(view.visualRect(view.currentIndex()).bottomLeft())
                   : asked.globalPos());
    return true;
}

void ListPane::keyPressEvent(QKeyEvent* event) {
    if (!filter_->take(*event))
        QWidget::keyPressEvent(event);
}

bool ListPane::keyInList(int key) {
    const bool opens = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!opens && key != Qt::Key_Delete)
        return false;
    pressByKey(opens ? *cmdOprava_ : *cmdVymaz_);
    return true;
}

/// Keys may be faster than the filter.
void ListPane::pressByKey(QPushButton& button) {
    forms::guarded(this, [&] {
        filter_->settle();
        button.click();
    });
}

/// Without a search to go on with it begins one.
void ListPane::hladajOsobuDalej() {
    const ListTraits* list = onShow();
    if (list == nullptr)
        return;
    if (hladane_.isEmpty())
        return cmdHladaj_->click();
    hladajDalej(place(), *list, hladane_);
    filter_->giveWay();
    grid(*list).setFocus();
}

void ListPane::openMenu(const QPoint& place) {
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("mnuZoznam"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [menu](const QString& caption, QStringView key, const char16_t* name) {
        QAction* action = menu->addAction(caption.trimmed() + u'\t' + key.toString());
        action->setObjectName(QString::fromUtf16(name));
        return action;
    };
    for (const ListButton& traits : buttons()) {
        QPushButton* button = this->*traits.button;
        if (button->isHidden())
            continue;
        QAction* action =
            add(button->text(), traits.keyInList.isEmpty() ? traits.key : traits.keyInList, u"");
        action->setObjectName(traits.name.toString());
        action->setEnabled(button->isEnabled());
        connect(action, &QAction::triggered, button, &QPushButton::click);
    }
    menu->addSeparator();
    QAction* next = add(QStringLiteral("Hľadaj ďalej"), u"F3", u"mniDalej");
    next->setEnabled(cmdHladaj_->isEnabled());
    connect(next, &QAction::triggered, this,
            [this] { forms::guarded(this, [this] { hladajOsobuDalej(); }); });
    QAction* all = add(QStringLiteral("Zruš filter"), u"Esc", u"mniVsetci");
    all->setEnabled(filter_->isOn());
    connect(all, &QAction::triggered, filter_, &ListFilter::showAll);
    addOrders(*menu->addMenu(QStringLiteral("Zoradiť podľa")));
    menu->popup(place);
}

void ListPane::addOrders(QMenu& menu) {
    const ListTraits& list = *onShow();
    menu.setObjectName(QStringLiteral("mnuZoradit"));
    for (int column = 0; const forms::GridColumn& traits : list.columns) {
        QAction* action = menu.addAction(traits.caption.toString());
        action->setCheckable(true);
        action->setChecked(grid(list).horizontalHeader()->sortIndicatorSection() == column);
        connect(action, &QAction::triggered, this,
                [this, column] { forms::guarded(this, [&] { sortByHead(column); }); });
        ++column;
    }
}

/// A second time by the same column turns the order round.
void ListPane::sortByHead(int column) {
    const bool turns = column == order_.column && order_.way == Qt::AscendingOrder;
    const auto way = turns ? Qt::DescendingOrder : Qt::AscendingOrder;
    showOrder(order_.column, order_.way);
    sources_->datGrid.setRecordSource(sortedBy(*onShow(), column, way));
    readAnew();
    showOrder(column, way);
}

void ListPane::showOrder(int column, Qt::SortOrder way) {
    order_ = {column, way};
    if (const ListTraits* list = onShow())
        grid(*list).horizontalHeader()->setSortIndicator(column, way);
}

} // namespace mainwindow
