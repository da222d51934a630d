#include "clientcard/CardPages.h"

#include "card/Buttons.h"
#include "clientcard/CardTables.h"
#include "clientcard/TabFamily.h"
#include "clientcard/TabList.h"
#include "forms/Colours.h"

#include <QHBoxLayout>
#include <QStackedWidget>

namespace clientcard {

CardPages::CardPages(QWidget* window)
    : QObject(window), SSTab1_(new TabList(window)), pages_(new QStackedWidget(window)) {
    SSTab1_->setObjectName(QStringLiteral("SSTab1"));
    card::setGround(*SSTab1_, QPalette::Base, forms::screenColour);
}

void CardPages::add(TabFamily& family) {
    const int tab = int(families_.size());
    const QString caption = QString::fromUtf16(tabTable()[std::size_t(tab)].caption);
    SSTab1_->addItem(caption);
    families_.push_back(&family);
    pages_->addWidget(family.makePage(tab, pages_));
}

QLayout* CardPages::layOut() {
    SSTab1_->fitToCaptions();
    SSTab1_->setCurrentRow(0);
    connect(SSTab1_, &QListWidget::currentRowChanged, this, [this](int tab) {
        if (tab >= 0)
            Q_EMIT turned(tab);
    });
    auto* line = new QHBoxLayout;
    line->addWidget(SSTab1_);
    line->addWidget(pages_, 1);
    return line;
}

int CardPages::current() const {
    return SSTab1_->currentRow();
}

void CardPages::turnTo(int tab) {
    SSTab1_->setCurrentRow(tab);
}

void CardPages::turnBy(int step) {
    const int tab = SSTab1_->reachableFrom(current(), step);
    if (tab >= 0)
        turnTo(tab);
    else
        family(current()).turnedTo(current());
}

void CardPages::show(int tab) {
    // From a page the focus would come in passing to the field that was last in focus on the next.
    if (pages_->isAncestorOf(pages_->window()->focusWidget()))
        SSTab1_->setFocus();
    pages_->setCurrentIndex(tab);
    family(tab).turnedTo(tab);
}

void CardPages::enable(int from, bool enabled) {
    for (int tab = from; tab < SSTab1_->count(); ++tab)
        SSTab1_->setReachable(tab, enabled);
}

void CardPages::setReachable(int tab, bool reachable) {
    SSTab1_->setReachable(tab, reachable);
}

} // namespace clientcard
