#include "common/Figures.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace bench {

namespace {

Times timed(const Work& work) {
    const auto begin = std::chrono::steady_clock::now();
    const std::clock_t processorBegin = std::clock();
    work();
    const std::chrono::duration<double, std::milli> elapsed =
        std::chrono::steady_clock::now() - begin;
    return {elapsed.count(), 1000.0 * double(std::clock() - processorBegin) / CLOCKS_PER_SEC};
}

void keepLeast(Times& least, const Times& times) {
    least.wall = std::min(least.wall, times.wall);
    least.processor = std::min(least.processor, times.processor);
}

} // namespace

Times least(const Work& work, int runs) {
    work();
    Times least;
    for (int run = 0; run < runs; ++run)
        keepLeast(least, timed(work));
    return least;
}

Times Figures::compare(const std::string& name, const Work& ours, const Work& baseline,
                       std::optional<double> wanted, int runs) {
    const auto nothing = [] {
    };
    return compare(name, PreparedWork{nothing, ours}, PreparedWork{nothing, baseline}, wanted,
                   runs);
}

Times Figures::compare(const std::string& name, const PreparedWork& ours,
                       const PreparedWork& baseline, std::optional<double> wanted, int runs) {
    Times oursTimes;
    Times baselineTimes;
    for (int run = -1; run < runs; ++run) {
        for (const auto& [work, times] :
             {std::pair{&ours, &oursTimes}, std::pair{&baseline, &baselineTimes}}) {
            work->prepare();
            const Times time = timed(work->act);
            if (run >= 0)
                keepLeast(*times, time);
        }
    }
    lines_.push_back({name, oursTimes, baselineTimes, wanted});
    return lines_.back().ours;
}

void Figures::ratio(const std::string& name, const Times& ours, const Times& baseline,
                    std::optional<double> wanted) {
    lines_.push_back({name, ours, baseline, wanted});
}

void Figures::printLine(const Line& line) {
    std::printf("%-58s %11.3f %11.3f %7.2f %10.2f", line.name.c_str(), line.ours.wall,
                line.baseline.wall, line.ratio(), line.ours.processor / line.baseline.processor);
    if (line.wanted)
        std::printf("   <= %5.2f  %s", *line.wanted, line.isMissed() ? "MISSED" : "ok");
    std::printf("\n");
}

int Figures::print() const {
    std::printf("\n%s\n%-58s %11s %11s %7s %10s   wanted\n", title_.c_str(), "", "ours [ms]",
                "baseline", "ratio", "processor");
    std::for_each(lines_.begin(), lines_.end(), printLine);
    return std::any_of(lines_.begin(), lines_.end(),
                       [](const Line& line) { return line.isMissed(); })
               ? 1
               : 0;
}

void needNoDisplay() {
    constexpr int keep = 0;
    setenv("QT_QPA_PLATFORM", "offscreen", keep);
}

} // namespace bench
