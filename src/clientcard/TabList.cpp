#include "clientcard/TabList.h"

#include "clientcard/TabFamily.h"
#include "forms/FocusGuard.h"
#include "forms/Metrics.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QToolTip>

namespace clientcard {

namespace {

constexpr int captionPadding = 7;
constexpr Qt::ItemFlags reach = Qt::ItemIsEnabled | Qt::ItemIsSelectable;

enum Role { Shown = Qt::UserRole, Said, Key };

/// What stands beside the longest caption, which is that of a tab of records.
const QString widestBeside = QStringLiteral("99");

/// Draws what a tab holds at the end of its line.
class Lines : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        painter->setPen(
            option.palette.color(isEnabled ? QPalette::Active : QPalette::Disabled,
                                 isSelected ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(option.rect.adjusted(0, 0, -forms::gap, 0),
                          Qt::AlignRight | Qt::AlignVCenter, index.data(Shown).toString());
    }
};

} // namespace

TabList::TabList(QWidget* parent) : QListWidget(parent) {
    setAccessibleName(QStringLiteral("Záložky"));
    setItemDelegate(new Lines(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // A click takes the focus only when it hits a tab that can be turned to.
    setFocusPolicy(Qt::TabFocus);
}

void TabList::addTab(const QString& caption, const QString& key) {
    auto* item = new QListWidgetItem(caption, this);
    item->setData(Key, key);
    describe(row(item));
}

void TabList::fitToCaptions() {
    forms::fitToFont(*this, [this] {
        for (int tab = 0; tab < count(); ++tab)
            item(tab)->setSizeHint(
                {fontMetrics().horizontalAdvance(item(tab)->text() + widestBeside) +
                     2 * forms::gap + 2,
                 fontMetrics().height() + 2 * captionPadding});
        setFixedWidth(sizeHintForColumn(0) + 2 * frameWidth());
    });
}

void TabList::setContents(int tab, const TabContents& contents) {
    item(tab)->setData(Shown, contents.shown);
    item(tab)->setData(Said, contents.said);
    describe(tab);
}

void TabList::setWhyLocked(const QString& why) {
    whyLocked_ = why;
    for (int tab = 0; tab < count(); ++tab)
        describe(tab);
}

void TabList::sayWhyLocked(int tab) const {
    QToolTip::showText(viewport()->mapToGlobal(visualItemRect(item(tab)).bottomLeft()), whyLocked_,
                       viewport());
}

void TabList::describe(int tab) const {
    QStringList parts{item(tab)->data(Said).toString(), item(tab)->data(Key).toString()};
    if (!isReachable(tab))
        parts = {whyLocked_};
    parts.removeAll(QString());
    const QString description = parts.join(QStringLiteral("  ·  "));
    item(tab)->setToolTip(description);
    item(tab)->setData(Qt::AccessibleDescriptionRole, description);
}

bool TabList::isReachable(int tab) const {
    return item(tab)->flags().testFlag(Qt::ItemIsEnabled);
}

void TabList::setReachable(int tab, bool reachable) {
    const Qt::ItemFlags flags = item(tab)->flags();
    item(tab)->setFlags(reachable ? flags | reach : flags & ~reach);
    describe(tab);
}

int TabList::reachableFrom(int tab, int step) const {
    int next = tab;
    do
        next = (next + step + count()) % count();
    while (!isReachable(next) && next != tab);
    return next;
}

void TabList::mousePressEvent(QMouseEvent* event) {
    const QListWidgetItem* pressed = itemAt(event->position().toPoint());
    if (pressed == nullptr)
        return;
    if (!isReachable(row(pressed)))
        sayWhyLocked(row(pressed));
    else if (forms::moveFocus(this))
        QListWidget::mousePressEvent(event);
}

} // namespace clientcard
