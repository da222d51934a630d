#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace report {

/// The part [from, to) of a band that stands on a page with its upper edge at `top`.
struct Slice {
    std::size_t page = 0;
    double top = 0;
    double from = 0;
    double to = 0;

    bool operator==(const Slice&) const = default;
};

/// The arithmetic of page breaks: bands go one below the other between the upper and the lower edge
/// of the pages. Knows heights only.
class PageFlow {
  public:
    PageFlow(double top, double bottom) : top_(top), bottom_(bottom), next_(top) {}

    /// Lets the pages after the current one begin lower, below a header of that height.
    void repeatHeader(double height) { top_ += height; }

    /// Whether the next band stands on one page if it is that high. A page of which most would stay
    /// blank is begun by what it has room for.
    bool isKeptWhole(double height) const {
        return fits(height) || (height <= page() && room() < page() / 2);
    }

    /// Finds the place of the next band: what is left of the page if it fits there, a new page if
    /// it is kept whole, else as much of each page as the cuts allow. What can't be cut overflows.
    /// @param cuts heights, ascending, at which the band may be broken
    std::vector<Slice> place(double height, const std::vector<double>& cuts = {});

  private:
    bool fits(double height) const { return height <= room(); }
    /// The height of a page.
    double page() const { return bottom_ - top_; }
    /// What is left of the page; nothing, when something overflows it.
    double room() const { return std::max(0.0, bottom_ - next_); }
    void turnPage();
    Slice take(double from, double to);
    double cutAfter(double from, double height, const std::vector<double>& cuts) const;

    double top_;
    double bottom_;
    double next_;
    std::size_t page_ = 0;
    bool fresh_ = true;
};

} // namespace report
