#pragma once

#include "report/Layout.h"

#include <QRectF>
#include <QSizeF>
#include <QString>

#include <vector>

namespace report {

/// A stretch of text in one style on a page. `box` is what the text was set into, in twips from the
/// page's corner, and what it is clipped to; the text stands on `baseline`, from `left` on.
struct PlacedText {
    QString control;
    QString text;
    QRectF box;
    double left = 0;
    double baseline = 0;
    double width = 0;
    /// Of the style: from the baseline to the top of the line, and the whole line's height.
    double ascent = 0;
    double height = 0;
    TextStyle style;

    /// The room that the text takes up, which may reach out of its box.
    QRectF extent() const { return {left, baseline - ascent, width, height}; }
};

/// A straight line, or the outline of a box when `isBox`, in twips from the page's corner.
struct PlacedLine {
    QRectF rect;
    bool isBox = false;
};

struct Page {
    std::vector<PlacedText> texts{};
    std::vector<PlacedLine> lines{};
    /// Size of the paper in twips, turned for landscape.
    QSizeF paper{};
};

} // namespace report
