#include "report/PageSetter.h"
#include "report/Pages.h"

#include <QElapsedTimer>

#include <algorithm>
#include <optional>
#include <utility>

namespace report {

namespace {

/// Long enough to be worth a start, short enough for nobody to wait.
constexpr int lookingMs = 20;

/// Remembers where each band goes, and draws bands anew when their page is looked at.
class OnDemand : public PageSource {
  public:
    OnDemand(const Layout& layout, std::shared_ptr<RowTable> rows,
             std::shared_ptr<const TextMeter> meter, const QDate& today)
        : rows_(std::move(rows)), meter_(std::move(meter)), setter_(layout, *meter_, today) {
        remember(reportHeader, setter_.place(set(reportHeader)));
        remember(pageHeader, setter_.placeHeader(set(pageHeader)));
        while (!complete_ && lastPage() == 0)
            lookAtNext();
    }

    std::size_t known() const override { return complete_ ? lastPage() + 1 : lastPage(); }
    bool isComplete() const override { return complete_; }

    void lookOn() override {
        QElapsedTimer timer;
        timer.start();
        while (!complete_ && timer.elapsed() < lookingMs)
            lookAtNext();
    }

    Page make(std::size_t index) override {
        Page page = setter_.paper(index);
        auto part = std::ranges::lower_bound(parts_, index, {},
                                             [](const Part& each) { return each.slice.page; });
        for (; part != parts_.end() && part->slice.page == index; ++part)
            setter_.draw(page, bandOf(*part), part->slice);
        return page;
    }

  private:
    /// Bands are named by their row; those that are no rows have names below 0.
    static constexpr qint64 reportHeader = -3;
    static constexpr qint64 pageHeader = -2;
    static constexpr qint64 reportFooter = -1;

    /// A part of a band, and whether there are others of it.
    struct Part {
        qint64 band;
        bool isWhole;
        Slice slice;
    };

    Band set(qint64 band) {
        switch (band) {
        case reportHeader:
            return setter_.set(setter_.layout().reportHeader);
        case pageHeader:
            return setter_.set(setter_.layout().pageHeader);
        case reportFooter:
            return setter_.set(setter_.layout().reportFooter);
        default:
            rows_->goTo(band);
            return setter_.set(setter_.layout().detail, rows_.get());
        }
    }

    void remember(qint64 band, const std::vector<Slice>& slices) {
        for (const Slice& slice : slices)
            parts_.push_back({band, slices.size() == 1, slice});
    }

    void lookAtNext() {
        const qint64 band = nextRow_ < rows_->count() ? nextRow_++ : reportFooter;
        complete_ = band == reportFooter;
        Band next = set(band);
        auto slices = setter_.place(next);
        remember(band, slices);
        if (slices.size() > 1)
            keep(band, std::move(next));
    }

    std::size_t lastPage() const { return parts_.back().slice.page; }

    /// A band that goes over many pages is not set anew for each of them.
    void keep(qint64 band, Band set) { kept_.emplace(band, std::move(set)); }

    const Band& bandOf(const Part& part) {
        if (part.isWhole)
            return whole_ = set(part.band);
        if (!kept_ || kept_->first != part.band)
            keep(part.band, set(part.band));
        return kept_->second;
    }

    std::shared_ptr<RowTable> rows_;
    std::shared_ptr<const TextMeter> meter_;
    PageSetter setter_;
    /// In the order of the pages.
    std::vector<Part> parts_;
    qint64 nextRow_ = 0;
    bool complete_ = false;
    std::optional<std::pair<qint64, Band>> kept_;
    Band whole_;
};

} // namespace

Pages pagesOnDemand(const Layout& layout, std::shared_ptr<RowTable> rows,
                    std::shared_ptr<const TextMeter> meter, const QDate& today) {
    Pages pages{.title = layout.title};
    for (const SavedColumn& column : layout.savedColumns)
        pages.table.heads << column.head;
    if (!pages.table.heads.isEmpty())
        pages.table.read = [layout, rows](qint64 row, QStringList& cells) {
            if (row >= rows->count())
                return false;
            rows->goTo(row);
            cells = savedCells(layout, *rows);
            return true;
        };
    pages.pages = PageList(std::make_shared<OnDemand>(layout, rows, std::move(meter), today));
    return pages;
}

} // namespace report
