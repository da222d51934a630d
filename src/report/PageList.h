#pragma once

#include "report/Placed.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace report {

/// Where pages come from that are made when they are looked at.
class PageSource {
  public:
    virtual ~PageSource() = default;
    /// How many pages are sure to be there, at least one.
    virtual std::size_t known() const = 0;
    virtual bool isComplete() const = 0;
    /// Looks for further pages, for some milliseconds.
    virtual void lookOn() = 0;
    /// Makes a page that is known.
    virtual Page make(std::size_t index) = 0;
};

/// The pages of a report in their order. Copies share what makes them.
class PageList {
  public:
    /// What is put onto each page when all else stands; the number of all pages is unknown until
    /// the list is complete.
    using Finish = std::function<void(Page&, std::size_t index, std::optional<std::size_t> count)>;

    PageList() = default;
    /// Pages that are made already.
    PageList(std::vector<Page> pages);
    PageList(std::shared_ptr<PageSource> source) : sources_{std::move(source)} {}

    /// The number of all pages; looks for those that are not known yet.
    std::size_t size() const;
    /// How many pages are known so far.
    std::size_t known() const;
    bool isComplete() const;
    /// Looks for further pages, for some milliseconds.
    void lookOn() const;

    /// A page that is known, as it looks by now. It is not kept, so long lists take no memory.
    Page make(std::size_t index) const;
    /// A page of the complete list, which is kept as long as the list.
    const Page& operator[](std::size_t index) const;
    /// @throws std::out_of_range
    const Page& at(std::size_t index) const;
    const Page& front() const { return (*this)[0]; }
    const Page& back() const { return (*this)[size() - 1]; }

    /// Puts the pages of another list behind these.
    void append(const PageList& other);
    void finishWith(Finish finish);

    /// Goes over all pages of the complete list.
    class Iterator {
      public:
        using value_type = Page;
        using difference_type = std::ptrdiff_t;
        Iterator() = default;
        Iterator(const PageList& list, std::size_t index) : list_(&list), index_(index) {}
        const Page& operator*() const { return (*list_)[index_]; }
        const Page* operator->() const { return &**this; }
        Iterator& operator++() {
            ++index_;
            return *this;
        }
        Iterator operator++(int) { return {*list_, index_++}; }
        bool operator==(const Iterator& other) const { return index_ == other.index_; }

      private:
        const PageList* list_ = nullptr;
        std::size_t index_ = 0;
    };
    Iterator begin() const { return {*this, 0}; }
    Iterator end() const { return {*this, size()}; }

  private:
    std::vector<std::shared_ptr<PageSource>> sources_;
    std::vector<Finish> finishes_;
    mutable std::map<std::size_t, std::shared_ptr<const Page>> kept_;
};

} // namespace report
