#include "report/PageNumbers.h"

namespace report {

namespace {

constexpr TextStyle style{8};
/// From the paper's edge; printers leave some 5 mm blank.
constexpr double edge = 340;

} // namespace

void numberPages(Pages& pages, const TextMeter& meter) {
    const double height = meter.lineHeight(style);
    const double top = pages.paper.height() - edge - height;
    for (std::size_t i = 0; i < pages.pages.size(); ++i) {
        const QString text = QStringLiteral("Strana %1 z %2").arg(i + 1).arg(pages.pages.size());
        const double width = meter.width(text, style);
        const double left = (pages.paper.width() - width) / 2;
        const double ascent = meter.ascent(style);
        pages.pages[i].texts.push_back({QStringLiteral("strana"), text,
                                        QRectF(left, top, width, height), left, top + ascent, width,
                                        ascent, height, style});
    }
}

} // namespace report
