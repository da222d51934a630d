#include "forms/ScrollPage.h"

#include "forms/Metrics.h"

#include <QApplication>
#include <QScrollBar>

namespace forms {

namespace {

constexpr int leastPageLetters = 24;
constexpr int leastPageLines = 6;

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

/// The focus leaves its fields while they end, when it is no page any more.
ScrollPage::~ScrollPage() {
    disconnect(qApp, nullptr, this, nullptr);
}

void ScrollPage::showFocus(const QWidget* now) {
    if (now == nullptr || !widget()->isAncestorOf(now))
        return;
    // Of what is larger than the page, as a long text, the upper edge counts.
    const QRect place(now->mapTo(widget(), QPoint()), now->size().boundedTo(viewport()->size()));
    ensureVisible(place.right(), place.bottom(), gap, gap);
    ensureVisible(place.left(), place.top(), gap, gap);
}

int ScrollPage::fullHeight() const {
    return widget()->hasHeightForWidth() ? widget()->heightForWidth(viewport()->width())
                                         : widget()->sizeHint().height();
}

void ScrollPage::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    Q_EMIT resized();
}

QSize ScrollPage::sizeHint() const {
    return widget()->sizeHint().expandedTo(minimumSizeHint());
}

/// Where it may not scroll sideways it is as wide as the page.
QSize ScrollPage::minimumSizeHint() const {
    const QSize page = widget()->minimumSizeHint();
    const QSize least =
        QSize(lettersWide(*this, leastPageLetters), linesHigh(*this, leastPageLines))
            .boundedTo(page);
    const int bar = verticalScrollBar()->sizeHint().width();
    return horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff
               ? QSize(page.width() + bar, least.height())
               : least;
}

} // namespace forms
