#include "report/Document.h"

#include <iterator>
#include <utility>

namespace report {

namespace {

const TextStyle runningStyle{8};

/// What printers leave white at the edges of the paper, and the room beside it, in twips.
constexpr double edge = 284;
constexpr double side = 567;

QString elided(QString text, double room, const TextMeter& meter) {
    if (meter.width(text, runningStyle) <= room)
        return text;
    const QString ellipsis = QStringLiteral("…");
    while (!text.isEmpty() && meter.width(text + ellipsis, runningStyle) > room)
        text.chop(1);
    return text + ellipsis;
}

/// A line of text in the middle of the page, its upper edge at `top`.
PlacedText centred(const Page& page, const QString& control, const QString& text, double top,
                   const TextMeter& meter) {
    const double width = meter.width(text, runningStyle);
    const double height = meter.lineHeight(runningStyle);
    const double left = (page.paper.width() - width) / 2;
    const double ascent = meter.ascent(runningStyle);
    return {.control = control,
            .text = text,
            .box = {left, top, width, height},
            .left = left,
            .baseline = top + ascent,
            .width = width,
            .ascent = ascent,
            .height = height,
            .style = runningStyle};
}

void addHead(Page& page, const QString& subject, const TextMeter& meter) {
    const QString text = elided(subject, page.paper.width() - 2 * side, meter);
    // What is read first comes first for whoever has the page read aloud.
    page.texts.insert(page.texts.begin(),
                      centred(page, QStringLiteral("runningHead"), text, edge, meter));
}

void addFoot(Page& page, const QString& text, const TextMeter& meter) {
    const double top = page.paper.height() - edge - meter.lineHeight(runningStyle);
    page.texts.push_back(centred(page, QStringLiteral("runningFoot"), text, top, meter));
}

} // namespace

QString Pages::name() const {
    return subject.isEmpty() ? title : subject + QStringLiteral(" – ") + title;
}

Pages joined(const QString& title, std::vector<Pages> reports) {
    Pages document{.title = title};
    for (Pages& report : reports) {
        document.bookmarks.push_back({report.title, document.pages.size()});
        std::move(report.pages.begin(), report.pages.end(), std::back_inserter(document.pages));
    }
    return document;
}

void addRunningLines(Pages& pages, const TextMeter& meter) {
    const auto count = pages.pages.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (!pages.subject.isEmpty())
            addHead(pages.pages[i], pages.subject, meter);
        addFoot(pages.pages[i], QStringLiteral("Strana %1 z %2").arg(i + 1).arg(count), meter);
    }
}

} // namespace report
