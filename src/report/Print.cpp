#include "report/Print.h"

#include "report/PageCheck.h"

#include <QBuffer>
#include <QIODevice>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

namespace report {

namespace {

constexpr int twipsPerInch = 1440;
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

QPageLayout pageLayout(const Pages& pages) {
    return {QPageSize(QPageSize::A4),
            pages.orientation == Orientation::Landscape ? QPageLayout::Landscape
                                                        : QPageLayout::Portrait,
            QMarginsF(0, 0, 0, 0), QPageLayout::Point};
}

bool drawPdf(const Pages& pages, QIODevice& device) {
    QPdfWriter writer(&device);
    writer.setResolution(twipsPerInch);
    writer.setTitle(pages.title);
    writer.setCreator(QStringLiteral("TVK"));
    writer.setPageLayout(pageLayout(pages));
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    for (std::size_t i = 0; i < pages.pages.size(); ++i) {
        if (i > 0 && !writer.newPage())
            return false;
        drawPage(painter, pages.pages[i]);
    }
    return painter.end();
}

} // namespace

void drawPage(QPainter& painter, const Page& page) {
    painter.setPen(QPen(Qt::black, hairline, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    for (const auto& line : page.lines)
        drawLine(painter, line);
    drawTexts(painter, page.texts);
}

bool writePdf(const Pages& pages, QIODevice& device) {
    // The writer does not notice a device that takes no more, so it writes into memory first.
    QBuffer memory;
    memory.open(QIODevice::WriteOnly);
    if (!drawPdf(pages, memory))
        return false;
    return device.write(memory.data()) == memory.size();
}

} // namespace report
