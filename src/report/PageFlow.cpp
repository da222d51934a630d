#include "report/PageFlow.h"

#include <algorithm>
#include <iterator>

namespace report {

void PageFlow::turnPage() {
    ++page_;
    next_ = top_;
    fresh_ = true;
}

Slice PageFlow::take(double from, double to) {
    const Slice slice{page_, next_, from, to};
    next_ += to - from;
    fresh_ = false;
    return slice;
}

/// The furthest cut that this page has room for, else the next one, the band's end being the last.
double PageFlow::cutAfter(double from, double height, const std::vector<double>& cuts) const {
    if (fits(height - from))
        return height;
    const auto first = std::upper_bound(cuts.begin(), cuts.end(), from);
    const auto beyond = std::upper_bound(first, cuts.end(), from + room());
    if (beyond != first)
        return *std::prev(beyond);
    return first != cuts.end() ? std::min(*first, height) : height;
}

std::vector<Slice> PageFlow::place(double height, const std::vector<double>& cuts) {
    if (!fits(height) && isKeptWhole(height))
        turnPage();
    std::vector<Slice> slices;
    double from = 0;
    do {
        double to = cutAfter(from, height, cuts);
        if (!fits(to - from) && !fresh_) {
            turnPage();
            to = cutAfter(from, height, cuts);
        }
        slices.push_back(take(from, to));
        from = to;
    } while (from < height);
    return slices;
}

} // namespace report
