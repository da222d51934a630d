#include "report/PageCheck.h"

#include <algorithm>

namespace report {

namespace {

/// Twips that may be lost to rounding; a thirtieth of a millimetre.
constexpr double tolerance = 2;

QRectF shrunk(const QRectF& rect) {
    return rect.adjusted(tolerance, tolerance, -tolerance, -tolerance);
}

bool holds(const QRectF& outer, const QRectF& inner) {
    return outer.adjusted(-tolerance, -tolerance, tolerance, tolerance).contains(inner);
}

QString describe(const PlacedText& text) {
    return QStringLiteral("\"%1\" (%2 at %3, %4)")
        .arg(text.text, text.control)
        .arg(text.left)
        .arg(text.baseline);
}

bool crosses(const QRectF& segment, const QRectF& inner) {
    return segment.left() < inner.right() && segment.right() > inner.left() &&
           segment.top() < inner.bottom() && segment.bottom() > inner.top();
}

bool strikes(const PlacedLine& line, const PlacedText& text) {
    const QRectF inner = shrunk(text.extent());
    const QRectF& r = line.rect;
    if (!line.isBox)
        return crosses(r, inner);
    return crosses(r, inner) && !r.contains(inner);
}

} // namespace

QStringList overlaps(const Page& page) {
    std::vector<const PlacedText*> texts;
    for (const auto& text : page.texts)
        texts.push_back(&text);
    std::sort(texts.begin(), texts.end(), [](const PlacedText* a, const PlacedText* b) {
        return a->extent().top() < b->extent().top();
    });
    QStringList found;
    for (auto one = texts.begin(); one != texts.end(); ++one) {
        const QRectF extent = shrunk((*one)->extent());
        for (auto other = one + 1;
             other != texts.end() && (*other)->extent().top() < extent.bottom(); ++other) {
            if (extent.intersects(shrunk((*other)->extent())))
                found << describe(**one) + QStringLiteral(" lies on ") + describe(**other);
        }
    }
    return found;
}

bool isCut(const PlacedText& text) {
    return !holds(text.box, text.extent());
}

QStringList cutTexts(const Page& page) {
    QStringList found;
    for (const auto& text : page.texts) {
        if (isCut(text))
            found << describe(text) + QStringLiteral(" is cut");
    }
    return found;
}

QStringList struckTexts(const Page& page) {
    QStringList found;
    for (const auto& text : page.texts) {
        if (std::any_of(page.lines.begin(), page.lines.end(),
                        [&text](const PlacedLine& line) { return strikes(line, text); }))
            found << describe(text) + QStringLiteral(" is struck through");
    }
    return found;
}

QStringList layoutFaults(const Pages& pages) {
    QStringList found;
    for (std::size_t i = 0; i < pages.pages.size(); ++i) {
        const Page& page = pages.pages[i];
        const QRectF paper(QPointF(0, 0), page.paper);
        QStringList faults = overlaps(page) + cutTexts(page) + struckTexts(page);
        for (const auto& text : page.texts) {
            if (!holds(paper, text.extent()))
                faults << describe(text) + QStringLiteral(" leaves the paper");
        }
        for (const auto& fault : faults)
            found << QStringLiteral("page %1: ").arg(i + 1) + fault;
    }
    return found;
}

} // namespace report
