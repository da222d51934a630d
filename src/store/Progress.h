#pragma once

#include <functional>

namespace store {

/// Told often how much of a long work is done, from 0 to 1; the work is given up on false.
using TellProgress = std::function<bool(double part)>;

/// What a work tells that goes on and can't say how far it is.
inline constexpr double unknownPart = -1;

/// The user has given a long work up; what it had begun is gone.
struct GivenUp {};

/// Tells one share of a work, from `from` to `to`, as a part of the whole.
class Share {
  public:
    Share(const TellProgress& tell, double from, double to) : tell_(tell), from_(from), to_(to) {}
    /// @throws GivenUp
    void operator()(double part) const {
        if (!tells(part))
            throw GivenUp();
    }
    /// @return false when the work is given up
    bool tells(double part) const {
        return !tell_ || tell_(part == unknownPart ? part : from_ + (to_ - from_) * part);
    }

  private:
    const TellProgress& tell_;
    double from_;
    double to_;
};

} // namespace store
