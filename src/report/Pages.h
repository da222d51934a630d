#pragma once

#include "report/Layout.h"

#include <QRectF>
#include <QSizeF>
#include <QString>

#include <functional>
#include <vector>

class QDate;

namespace report {

/// A line of text on a page. `box` is what the text was set into, in twips from the page's corner;
/// the text stands on `baseline`, from `left` on.
struct PlacedText {
    QString control;
    QString text;
    QRectF box;
    double left = 0;
    double baseline = 0;
    double width = 0;
    TextStyle style;
};

/// A straight line, or the outline of a box when `isBox`, in twips from the page's corner.
struct PlacedLine {
    QRectF rect;
    bool isBox = false;
};

struct Page {
    std::vector<PlacedText> texts;
    std::vector<PlacedLine> lines;
};

/// A finished report: A4 pages that painter, preview and PDF draw as they are.
struct Pages {
    QString title;
    Orientation orientation = Orientation::Portrait;
    /// Size of the paper in twips, turned for landscape.
    QSizeF paper;
    std::vector<Page> pages;
};

/// The rows that a report prints.
class RowSource {
  public:
    virtual ~RowSource() = default;
    /// Goes to the next row, at first to the first one; false when there is none.
    virtual bool next() = 0;
    /// The text of a column of the current row. @throws what the source throws for unknown columns
    virtual QString text(const QString& column) const = 0;
};

/// Widths and heights of texts in twips; needs no printer.
class TextMeter {
  public:
    virtual ~TextMeter() = default;
    virtual double width(const QString& text, const TextStyle& style) const = 0;
    virtual double ascent(const TextStyle& style) const = 0;
    virtual double lineHeight(const TextStyle& style) const = 0;
};

/// Sets a layout's bands onto pages. @param today the date that "%d" stands for
Pages makePages(const Layout& layout, RowSource& rows, const TextMeter& meter, const QDate& today);

} // namespace report
