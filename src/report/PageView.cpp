#include "report/PageView.h"

#include "report/PageAccess.h"
#include "report/Pages.h"
#include "report/Print.h"

#include <QAccessible>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStringList>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace report {

namespace {

constexpr double twipsPerInch = 1440;
/// Pixels around the sheet.
constexpr int border = 12;
constexpr double smallestZoom = 0.1;
constexpr double largestZoom = 8;
constexpr double zoomOfAWheelTurn = 1.1;

} // namespace

PageView::PageView(const Pages& pages, QWidget* parent)
    : QAbstractScrollArea(parent), pages_(pages) {
    letPagesBeRead();
    setAccessibleName(QStringLiteral("Náhľad strany"));
    viewport()->setBackgroundRole(QPalette::Mid);
    viewport()->setCursor(Qt::OpenHandCursor);
    // Or its coming and going would change the width that the sheet is fitted to.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setCurrentPage(1);
}

QString PageView::pageText() const {
    QStringList texts;
    for (const PlacedText& text : page_.texts)
        texts << text.text;
    return texts.join(u'\n');
}

int PageView::pageCount() const {
    return static_cast<int>(pages_.pages.known());
}

void PageView::setCurrentPage(int number) {
    const int wanted = std::clamp(number, 1, pageCount());
    const bool turned = std::exchange(current_, wanted) != wanted;
    refresh();
    adjust(0);
    verticalScrollBar()->setValue(0);
    if (turned)
        Q_EMIT pageChanged(current_);
}

void PageView::refresh() {
    page_ = pages_.pages.make(static_cast<std::size_t>(current_ - 1));
    QAccessibleValueChangeEvent changed(this, pageText());
    QAccessible::updateAccessibility(&changed);
    viewport()->update();
}

double PageView::fittingZoom() const {
    const QSizeF paper = page_.paper * logicalDpiX() / twipsPerInch;
    const QSizeF room = viewport()->size() - QSize(2 * border, 2 * border);
    const double wide = room.width() / paper.width();
    return fit_ == Fit::Width ? wide : std::min(wide, room.height() / paper.height());
}

double PageView::zoom() const {
    return std::clamp(fit_ == Fit::Free ? zoom_ : fittingZoom(), smallestZoom, largestZoom);
}

void PageView::zoomBy(double factor) {
    zoom_ = std::clamp(zoom() * factor, smallestZoom, largestZoom);
    setFit(Fit::Free);
}

void PageView::setFit(Fit fit) {
    fit_ = fit;
    adjust(0.5);
    viewport()->update();
}

QSizeF PageView::sheetSize() const {
    return page_.paper * zoom() * logicalDpiX() / twipsPerInch;
}

/// The sheet stands in the middle, or where it was moved to when it is larger than the view.
QPointF PageView::sheetCorner() const {
    const QSizeF free = (QSizeF(viewport()->size()) - sheetSize()) / 2;
    return {std::max<double>(free.width(), border) - horizontalScrollBar()->value(),
            std::max<double>(free.height(), border) - verticalScrollBar()->value()};
}

/// Fits the scroll bars to the sheet.
/// @param anchor what stays in its place while the sheet grows or shrinks: 0 is the view's upper
/// left corner, 0.5 its middle
void PageView::adjust(double anchor) {
    const QSize whole = sheetSize().toSize() + QSize(2 * border, 2 * border);
    const auto stretch = [anchor](QScrollBar* bar, int length, int room) {
        const double kept =
            (bar->value() + anchor * bar->pageStep()) / (bar->maximum() + bar->pageStep());
        bar->setPageStep(room);
        bar->setSingleStep(room / 12);
        bar->setRange(0, std::max(0, length - room));
        bar->setValue(qRound(kept * (bar->maximum() + room) - anchor * room));
    };
    stretch(horizontalScrollBar(), whole.width(), viewport()->width());
    stretch(verticalScrollBar(), whole.height(), viewport()->height());
}

void PageView::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    // Lines are a pixel wide and look broken where they fall between two.
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.translate(sheetCorner());
    painter.fillRect(QRectF(QPointF(0, 0), sheetSize()), Qt::white);
    const double scale = zoom() * logicalDpiX() / twipsPerInch;
    painter.scale(scale, scale);
    drawPage(painter, page_);
}

void PageView::resizeEvent(QResizeEvent*) {
    adjust(0);
}

/// @return false while there is more of the page to be seen in that direction
bool PageView::turnByWheel(int delta) {
    const QScrollBar& bar = *verticalScrollBar();
    const int next = current_ + (delta < 0 ? 1 : -1);
    const bool atItsEnd = bar.value() == (delta < 0 ? bar.maximum() : bar.minimum());
    if (delta == 0 || !atItsEnd || next < 1 || next > pageCount())
        return false;
    setCurrentPage(next);
    if (delta > 0)
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    return true;
}

void PageView::wheelEvent(QWheelEvent* event) {
    const int delta = event->angleDelta().y();
    if (event->modifiers() & Qt::ControlModifier)
        zoomBy(delta > 0 ? zoomOfAWheelTurn : 1 / zoomOfAWheelTurn);
    else if (!turnByWheel(delta))
        QAbstractScrollArea::wheelEvent(event);
}

void PageView::mousePressEvent(QMouseEvent* event) {
    grip_ = event->pos();
}

void PageView::mouseMoveEvent(QMouseEvent* event) {
    const QPoint moved = grip_ - std::exchange(grip_, event->pos());
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + moved.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + moved.y());
}

} // namespace report
