#include "report/PageList.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace report {

namespace {

class MadePages : public PageSource {
  public:
    explicit MadePages(std::vector<Page> pages) : pages_(std::move(pages)) {}
    std::size_t known() const override { return pages_.size(); }
    bool isComplete() const override { return true; }
    void lookOn() override {}
    Page make(std::size_t index) override { return pages_.at(index); }

  private:
    std::vector<Page> pages_;
};

} // namespace

PageList::PageList(std::vector<Page> pages)
    : sources_{std::make_shared<MadePages>(std::move(pages))} {}

bool PageList::isComplete() const {
    return std::ranges::all_of(sources_, [](const auto& source) { return source->isComplete(); });
}

std::size_t PageList::known() const {
    std::size_t known = 0;
    for (const auto& source : sources_) {
        known += source->known();
        if (!source->isComplete())
            break;
    }
    return known;
}

std::size_t PageList::size() const {
    while (!isComplete())
        lookOn();
    return known();
}

void PageList::lookOn() const {
    const auto next =
        std::ranges::find_if(sources_, [](const auto& source) { return !source->isComplete(); });
    if (next != sources_.end())
        (*next)->lookOn();
}

Page PageList::make(std::size_t index) const {
    std::size_t before = 0;
    auto source = sources_.begin();
    for (; index - before >= (*source)->known(); ++source)
        before += (*source)->known();
    Page page = (*source)->make(index - before);
    const auto count = isComplete() ? std::optional(known()) : std::nullopt;
    for (const Finish& finish : finishes_)
        finish(page, index, count);
    return page;
}

const Page& PageList::operator[](std::size_t index) const {
    if (index >= size())
        throw std::out_of_range("no such page");
    auto& page = kept_[index];
    if (!page)
        page = std::make_shared<const Page>(make(index));
    return *page;
}

const Page& PageList::at(std::size_t index) const {
    return (*this)[index];
}

void PageList::append(const PageList& other) {
    sources_.insert(sources_.end(), other.sources_.begin(), other.sources_.end());
}

void PageList::finishWith(Finish finish) {
    finishes_.push_back(std::move(finish));
    kept_.clear();
}

} // namespace report
