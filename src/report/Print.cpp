#include "report/Print.h"

#include "report/PageCheck.h"
#include "report/PdfContents.h"

#include <QBuffer>
#include <QIODevice>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

namespace report {

namespace {

constexpr double twipsPerInch = 1440;
constexpr double hairline = 10;

void drawLine(QPainter& painter, const PlacedLine& line) {
    if (line.isBox)
        painter.drawRect(line.rect);
    else
        painter.drawLine(line.rect.topLeft(), line.rect.bottomRight());
}

void drawClipped(QPainter& painter, const PlacedText& text) {
    painter.save();
    painter.setClipRect(text.box, Qt::IntersectClip);
    painter.drawText(QPointF(text.left, text.baseline), text.text);
    painter.restore();
}

void drawTexts(QPainter& painter, const std::vector<PlacedText>& texts) {
    const QString family = fontFamily();
    const TextStyle* current = nullptr;
    for (const auto& text : texts) {
        if (!current || *current != text.style)
            painter.setFont(fontFor(text.style, family));
        current = &text.style;
        if (isCut(text))
            drawClipped(painter, text);
        else
            painter.drawText(QPointF(text.left, text.baseline), text.text);
    }
}

bool beginInTwips(QPainter& painter, QPagedPaintDevice& device) {
    if (!painter.begin(&device))
        return false;
    painter.scale(device.logicalDpiX() / twipsPerInch, device.logicalDpiY() / twipsPerInch);
    return true;
}

bool isWanted(const QPageRanges& ranges, int number) {
    return ranges.isEmpty() || ranges.contains(number);
}

} // namespace

void drawPage(QPainter& painter, const Page& page) {
    painter.setPen(QPen(Qt::black, hairline, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    for (const auto& line : page.lines)
        drawLine(painter, line);
    drawTexts(painter, page.texts);
}

QPageLayout paperOf(const Page& page) {
    const bool wide = page.paper.width() > page.paper.height();
    QPageLayout paper(QPageSize(QPageSize::A4),
                      wide ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF());
    paper.setMode(QPageLayout::FullPageMode);
    return paper;
}

bool printPages(const Pages& pages, QPagedPaintDevice& device, const Progress& progress) {
    const QPageRanges ranges = device.pageRanges();
    while (!pages.pages.isComplete()) {
        if (progress && !progress(0, 0))
            return false;
        pages.pages.lookOn();
    }
    const std::size_t count = pages.pages.size();
    QPainter painter;
    for (std::size_t i = 0; i < count; ++i) {
        if (!isWanted(ranges, int(i) + 1))
            continue;
        if (progress && !progress(i, count))
            return false;
        const Page page = pages.pages.make(i);
        // Between two pages only, and not on every device: a preview's sheets are all alike.
        if (const QPageLayout paper = paperOf(page); device.pageLayout() != paper)
            device.setPageLayout(paper);
        if (painter.isActive() ? !device.newPage() : !beginInTwips(painter, device))
            return false;
        drawPage(painter, page);
    }
    return painter.end();
}

bool writePdf(const Pages& pages, QIODevice& device, const Progress& progress) {
    // The writer does not notice a device that takes no more, so it writes into memory first.
    QBuffer memory;
    memory.open(QIODevice::WriteOnly);
    QPdfWriter writer(&memory);
    writer.setResolution(int(twipsPerInch));
    writer.setTitle(pages.name());
    writer.setCreator(QStringLiteral("TVK"));
    if (!printPages(pages, writer, progress))
        return false;
    const auto pdf = withContents(memory.data(), pages.name(), pages.bookmarks);
    return pdf && device.write(*pdf) == pdf->size();
}

} // namespace report
