#include "report/PageSetter.h"
#include "report/Pages.h"

#include <utility>

namespace report {

namespace {

class PageMaker {
  public:
    PageMaker(const Layout& layout, const TextMeter& meter, const QDate& today)
        : setter_(layout, meter, today), pages_{layout.title} {}

    Pages make(RowSource& rows) {
        const Layout& layout = setter_.layout();
        put(setter_.set(layout.reportHeader));
        const Band header = setter_.set(layout.pageHeader);
        draw(header, setter_.placeHeader(header));
        for (const SavedColumn& column : layout.savedColumns)
            pages_.table.heads << column.head;
        while (rows.next()) {
            put(setter_.set(layout.detail, &rows));
            keep(rows);
        }
        put(setter_.set(layout.reportFooter));
        pages_.pages = PageList(std::move(made_));
        return std::move(pages_);
    }

  private:
    /// Keeps a row of a plain table, to be saved.
    void keep(const RowSource& row) {
        if (!setter_.layout().savedColumns.empty())
            pages_.table.rows.push_back(savedCells(setter_.layout(), row));
    }

    void put(const Band& band) { draw(band, setter_.place(band)); }

    void draw(const Band& band, const std::vector<Slice>& slices) {
        for (const Slice& slice : slices) {
            while (made_.size() <= slice.page)
                made_.push_back(setter_.paper(made_.size()));
            setter_.draw(made_[slice.page], band, slice);
        }
    }

    PageSetter setter_;
    Pages pages_;
    std::vector<Page> made_;
};

} // namespace

QStringList savedCells(const Layout& layout, const RowSource& row) {
    QStringList cells;
    for (const SavedColumn& column : layout.savedColumns)
        cells << row.text(column.dataField);
    return cells;
}

Pages makePages(const Layout& layout, RowSource& rows, const TextMeter& meter, const QDate& today) {
    return PageMaker(layout, meter, today).make(rows);
}

} // namespace report
