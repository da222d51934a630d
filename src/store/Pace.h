#pragma once

#include "store/Progress.h"

#include <atomic>
#include <chrono>
#include <future>

namespace store {

/// How far a work in other threads is, and whether it is to stop.
class Pace {
  public:
    /// Called by those who work. @return false when they are to stop
    bool tells(double part) {
        part_ = part;
        return !stopped_;
    }
    void stop() { stopped_ = true; }
    bool isStopped() const { return stopped_; }

    /// Waits until a work ends, also one that was given up, and tells meanwhile how far it is.
    template <class Result>
    void waitFor(const std::future<Result>& work, const TellProgress& tell) {
        constexpr std::chrono::milliseconds pause(30);
        while (work.wait_for(pause) != std::future_status::ready)
            if (!stopped_ && tell && !tell(part_))
                stop();
    }

  private:
    std::atomic<double> part_ = 0;
    std::atomic<bool> stopped_ = false;
};

} // namespace store
