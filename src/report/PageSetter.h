#pragma once

#include "report/Band.h"
#include "report/PageFlow.h"

#include <QDate>

namespace report {

/// Sets the bands of a report and finds the places where they go, page by page. Bands are placed in
/// the order of the report; they can be drawn at any time later.
class PageSetter {
  public:
    /// @param meter must outlive it
    PageSetter(Layout layout, const TextMeter& meter, const QDate& today);

    const Layout& layout() const { return layout_; }
    Band set(const Section& section, const RowSource* row = nullptr) const;
    /// The places of the next band's parts.
    std::vector<Slice> place(const Band& band);
    /// As place, of the page header, which stands on top of each page after its own.
    std::vector<Slice> placeHeader(const Band& header);

    /// A page with all that does not come from rows; good for pages up to the last placed one.
    Page paper(std::size_t page) const;
    /// Draws the part of a band that stands there.
    void draw(Page& page, const Band& band, const Slice& slice) const;

  private:
    double bottom() const { return paper_.height() - layout_.marginBottom; }
    double footerTop() const { return bottom() - footer_.height; }
    void drawAt(Page& page, Band band, double top) const;

    Layout layout_;
    const TextMeter& meter_;
    QDate today_;
    QSizeF paper_;
    Band footer_;
    PageFlow flow_;
    Band header_;
    /// The first page with the header on top.
    std::size_t firstRepeated_ = std::size_t(-1);
};

} // namespace report
