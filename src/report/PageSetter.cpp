#include "report/PageSetter.h"

#include <iterator>
#include <utility>

namespace report {

namespace {

constexpr QSizeF a4(11906, 16838);

QSizeF paperOf(const Layout& layout) {
    return layout.orientation == Orientation::Landscape ? a4.transposed() : a4;
}

template <class T>
void moveAll(std::vector<T>& from, std::vector<T>& to) {
    to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}

} // namespace

PageSetter::PageSetter(Layout layout, const TextMeter& meter, const QDate& today)
    : layout_(std::move(layout)), meter_(meter), today_(today), paper_(paperOf(layout_)),
      footer_(set(layout_.pageFooter)), flow_(layout_.marginTop, footerTop()) {}

Band PageSetter::set(const Section& section, const RowSource* row) const {
    return setBand(section, row, meter_, today_);
}

std::vector<Slice> PageSetter::place(const Band& band) {
    const auto cuts = flow_.isKeptWhole(band.height) ? std::vector<double>() : cutsOf(band);
    return flow_.place(band.height, cuts);
}

std::vector<Slice> PageSetter::placeHeader(const Band& header) {
    auto slices = place(header);
    header_ = header;
    firstRepeated_ = slices.back().page + 1;
    flow_.repeatHeader(header.height);
    return slices;
}

Page PageSetter::paper(std::size_t number) const {
    Page page{.paper = paper_};
    if (number >= firstRepeated_)
        drawAt(page, header_, layout_.marginTop);
    drawAt(page, footer_, footerTop());
    return page;
}

void PageSetter::draw(Page& page, const Band& band, const Slice& slice) const {
    const bool isWhole = slice.from <= 0 && slice.to >= band.height;
    drawAt(page, isWhole ? band : sliceOf(band, slice.from, slice.to), slice.top);
}

void PageSetter::drawAt(Page& page, Band band, double top) const {
    moveBand(band, layout_.marginLeft, top);
    moveAll(band.texts, page.texts);
    moveAll(band.lines, page.lines);
}

} // namespace report
