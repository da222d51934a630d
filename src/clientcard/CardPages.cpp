#include "clientcard/CardPages.h"

#include "card/Buttons.h"
#include "clientcard/CardTables.h"
#include "clientcard/TabFamily.h"
#include "clientcard/TabList.h"
#include "forms/Colours.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace clientcard {

/// Takes either all of the height, or no more than its first page needs in its width.
class CardPages::Stack : public QStackedWidget {
  public:
    using QStackedWidget::QStackedWidget;

    void setHugging(bool hugs) {
        hugs_ = hugs;
        firstPage().installEventFilter(this);
        fit();
    }

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QStackedWidget::resizeEvent(event);
        fit();
    }
    /// A page that scrolls doesn't tell of its own that it needs another height.
    bool eventFilter(QObject* /*page*/, QEvent* event) override {
        if (event->type() == QEvent::LayoutRequest)
            fit();
        return false;
    }

  private:
    QWidget& firstPage() const {
        const auto* scrolled = qobject_cast<const QScrollArea*>(widget(0));
        return scrolled != nullptr ? *scrolled->widget() : *widget(0);
    }
    void fit() {
        const QWidget& page = firstPage();
        setMaximumHeight(!hugs_                     ? QWIDGETSIZE_MAX
                         : page.hasHeightForWidth() ? page.heightForWidth(width())
                                                    : page.sizeHint().height());
    }

    bool hugs_ = false;
};

CardPages::CardPages(QWidget* window)
    : QObject(window), SSTab1_(new TabList(window)), pages_(new Stack(window)) {
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
    pages_->setHugging(hugs);
}

int CardPages::current() const {
    return SSTab1_->currentRow();
}

void CardPages::turnTo(int tab) {
    SSTab1_->setCurrentRow(tab);
}

void CardPages::turnBy(int step) {
    goTo(SSTab1_->reachableFrom(current(), step));
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
    for (int tab = 0; tab < SSTab1_->count(); ++tab)
        SSTab1_->setContents(tab, any ? family(tab).contentsOf(tab) : TabContents());
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
