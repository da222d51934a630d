#include "report/Band.h"
#include "report/PageFlow.h"
#include "report/Pages.h"

#include <algorithm>
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

class PageMaker {
  public:
    PageMaker(const Layout& layout, const TextMeter& meter, const QDate& today)
        : layout_(layout), meter_(meter), today_(today),
          paper_(paperOf(layout)), pages_{layout.title}, footer_(set(layout.pageFooter)),
          flow_(layout.marginTop, footerTop()) {}

    Pages make(RowSource& rows) {
        put(set(layout_.reportHeader));
        beginPageHeader();
        for (const SavedColumn& column : layout_.savedColumns)
            pages_.table.heads << column.head;
        while (rows.next()) {
            put(set(layout_.detail, &rows));
            keep(rows);
        }
        put(set(layout_.reportFooter));
        return std::move(pages_);
    }

  private:
    Band set(const Section& section, const RowSource* row = nullptr) const {
        return setBand(section, row, meter_, today_);
    }

    /// Keeps a row of a plain table, to be saved.
    void keep(const RowSource& row) {
        if (layout_.savedColumns.empty())
            return;
        QStringList cells;
        for (const SavedColumn& column : layout_.savedColumns)
            cells << row.text(column.dataField);
        pages_.table.rows.push_back(std::move(cells));
    }

    double bottom() const { return paper_.height() - layout_.marginBottom; }
    double footerTop() const { return bottom() - footer_.height; }

    /// From here on each new page gets the page header.
    void beginPageHeader() {
        Band header = set(layout_.pageHeader);
        const double height = header.height;
        put(header);
        header_ = std::move(header);
        flow_.repeatHeader(height);
    }

    void put(Band band) {
        const auto cuts = flow_.fitsAPage(band.height) ? std::vector<double>() : cutsOf(band);
        const auto slices = flow_.place(band.height, cuts);
        if (slices.size() == 1)
            return draw(std::move(band), slices.front());
        for (const auto& slice : slices)
            draw(sliceOf(band, slice.from, slice.to), slice);
    }

    void draw(Band band, const Slice& slice) {
        while (pages_.pages.size() <= slice.page)
            addPage();
        drawAt(pages_.pages[slice.page], std::move(band), slice.top);
    }

    void addPage() {
        Page& page = pages_.pages.emplace_back(Page{.paper = paper_});
        drawAt(page, header_, layout_.marginTop);
        drawAt(page, footer_, footerTop());
    }

    void drawAt(Page& page, Band band, double top) const {
        moveBand(band, layout_.marginLeft, top);
        moveAll(band.texts, page.texts);
        moveAll(band.lines, page.lines);
    }

    const Layout& layout_;
    const TextMeter& meter_;
    const QDate& today_;
    QSizeF paper_;
    Pages pages_;
    Band header_;
    Band footer_;
    PageFlow flow_;
};

} // namespace

Pages makePages(const Layout& layout, RowSource& rows, const TextMeter& meter, const QDate& today) {
    return PageMaker(layout, meter, today).make(rows);
}

} // namespace report
