#include "forms/ScrollPage.h"

#include "forms/Metrics.h"

#include <QApplication>
#include <QScrollBar>

namespace forms {

namespace {

constexpr int leastLetters = 24;
constexpr int leastLines = 6;

} // namespace

ScrollPage::ScrollPage(QWidget* page, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(page);
    // The ground of the window shows through.
    page->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget* /*old*/, const QWidget* now) { showFocus(now); });
}

void ScrollPage::showFocus(const QWidget* now) {
    if (now == nullptr || !widget()->isAncestorOf(now))
        return;
    // Of what is larger than the page, as a long text, the upper edge counts.
    const QRect place(now->mapTo(widget(), QPoint()), now->size().boundedTo(viewport()->size()));
    ensureVisible(place.right(), place.bottom(), gap, gap);
    ensureVisible(place.left(), place.top(), gap, gap);
}

QSize ScrollPage::sizeHint() const {
    return widget()->sizeHint().expandedTo(minimumSizeHint());
}

QSize ScrollPage::minimumSizeHint() const {
    return QSize(lettersWide(*this, leastLetters), linesHigh(*this, leastLines))
        .boundedTo(widget()->minimumSizeHint());
}

} // namespace forms
