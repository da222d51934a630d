#pragma once

#include "report/Layout.h"
#include "report/Table.h"

#include <QRectF>
#include <QSizeF>
#include <QString>

#include <cstddef>
#include <vector>

class QDate;

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

/// An entry of a document's contents, and the index of the page it leads to.
struct Bookmark {
    QString title;
    std::size_t page = 0;

    bool operator==(const Bookmark&) const = default;
};

/// A finished report, or a document of several: A4 pages that painter, preview and PDF draw as they
/// are.
struct Pages {
    QString title;
    /// Whom the pages are about, as a client's name; empty for nobody.
    QString subject{};
    std::vector<Page> pages{};
    /// What the reader should know of them, told beside them and not printed.
    QString note{};
    /// The reports of a document; a report alone has none.
    std::vector<Bookmark> bookmarks{};
    /// The printed rows as a table to be saved; without heads where the report is no plain table.
    Table table{};

    /// Subject and title, which together tell these pages from others.
    QString name() const;
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

/// Sets a layout's bands onto pages: the report header, the page header below it and on top of each
/// further page, the detail once a row, the report footer, and the page footer at the foot of each
/// page. A band that fits a page stays in one piece; a taller one breaks between its text lines.
/// @param today the date that "%d" stands for
/// @throws std::invalid_argument when a field stands outside the detail
Pages makePages(const Layout& layout, RowSource& rows, const TextMeter& meter, const QDate& today);

} // namespace report
