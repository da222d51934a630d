#include "clientcard/CardPages.h"

#include "card/Buttons.h"
#include "clientcard/CardTables.h"
#include "clientcard/TabFamily.h"
#include "clientcard/TabList.h"
#include "forms/Colours.h"
#include "forms/ScrollPage.h"

#include <QHBoxLayout>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace clientcard {

CardPages::CardPages(QWidget* window)
    : QObject(window), SSTab1_(new TabList(window)), pages_(new QStackedWidget(window)) {
    SSTab1_->setObjectName(QStringLiteral("SSTab1"));
    card::setGround(*SSTab1_, QPalette::Base, forms::screenColour);
}

void CardPages::add(TabFamily& family) {
    const int tab = int(families_.size());
    const QString caption = QString::fromUtf16(tabTable()[std::size_t(tab)].caption);
    SSTab1_->addTab(caption, tabKey(tab).toString(QKeySequence::NativeText));
    families_.push_back(&family);
    pages_->addWidget(family.makePage(tab, pages_));
}

QLayout* CardPages::layOut(QLayout* below) {
    SSTab1_->fitToCaptions();
    SSTab1_->setCurrentRow(0);
    connect(SSTab1_, &QListWidget::currentRowChanged, this, [this](int tab) {
        if (tab >= 0)
            Q_EMIT turned(tab);
    });
    connect(&firstPage(), &forms::ScrollPage::resized, this, &CardPages::fitHeight);
    auto* column = new QVBoxLayout;
    column->addWidget(pages_, 1);
    column->addLayout(below);
    column->addStretch();
    auto* line = new QHBoxLayout;
    line->addWidget(SSTab1_);
    line->addLayout(column, 1);
    return line;
}

void CardPages::hugFirstPage(bool hugs) {
    hugsFirst_ = hugs;
    fitHeight();
}

void CardPages::fitHeight() {
    pages_->setMaximumHeight(hugsFirst_ ? firstPage().fullHeight() : QWIDGETSIZE_MAX);
}

forms::ScrollPage& CardPages::firstPage() const {
    return *static_cast<forms::ScrollPage*>(pages_->widget(0));
}

int CardPages::current() const {
    return SSTab1_->currentRow();
}

void CardPages::turnTo(int tab) {
    SSTab1_->setCurrentRow(tab);
}

int CardPages::beside(int step) const {
    const int next = SSTab1_->reachableFrom(current(), step);
    return next != current() ? next : (next + step + SSTab1_->count()) % SSTab1_->count();
}

void CardPages::goTo(int tab) {
    if (!SSTab1_->isReachable(tab))
        SSTab1_->sayWhyLocked(tab);
    else if (tab == current())
        family(tab).turnedTo(tab);
    else
        turnTo(tab);
}

void CardPages::showContents(bool any) {
    std::vector<TabContents> contents;
    for (int tab = 0; tab < SSTab1_->count(); ++tab) {
        contents.push_back(any ? family(tab).contentsOf(tab) : TabContents());
        SSTab1_->setContents(tab, contents.back());
    }
    family(0).contentsRead(contents);
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
