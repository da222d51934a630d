#include "common/Figures.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace bench {

namespace {

double timed(const Work& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> elapsed =
        std::chrono::steady_clock::now() - begin;
    return elapsed.count();
}

double middle(std::vector<double> times) {
    const auto half = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), half, times.end());
    return *half;
}

} // namespace

double median(const Work& work, int runs) {
    work();
    std::vector<double> times;
    for (int run = 0; run < runs; ++run)
        times.push_back(timed(work));
    return middle(times);
}

double Figures::compare(const std::string& name, const Work& ours, const Work& baseline,
                        std::optional<double> wanted, int runs) {
    const auto nothing = [] {
    };
    return compare(name, PreparedWork{nothing, ours}, PreparedWork{nothing, baseline}, wanted,
                   runs);
}

double Figures::compare(const std::string& name, const PreparedWork& ours,
                        const PreparedWork& baseline, std::optional<double> wanted, int runs) {
    std::vector<double> oursTimes;
    std::vector<double> baselineTimes;
    for (int run = -1; run < runs; ++run) {
        for (const auto& [work, times] :
             {std::pair{&ours, &oursTimes}, std::pair{&baseline, &baselineTimes}}) {
            work->prepare();
            const double time = timed(work->act);
            if (run >= 0)
                times->push_back(time);
        }
    }
    lines_.push_back({name, middle(oursTimes), middle(baselineTimes), wanted});
    return lines_.back().ours;
}

void Figures::ratio(const std::string& name, double ours, double baseline,
                    std::optional<double> wanted) {
    lines_.push_back({name, ours, baseline, wanted});
}

void Figures::printLine(const Line& line) {
    std::printf("%-58s %11.3f %11.3f %7.2f", line.name.c_str(), line.ours, line.baseline,
                line.ratio());
    if (line.wanted)
        std::printf("   <= %5.2f  %s", *line.wanted, line.isMissed() ? "MISSED" : "ok");
    std::printf("\n");
}

int Figures::print() const {
    std::printf("\n%s\n%-58s %11s %11s %7s   wanted\n", title_.c_str(), "", "ours [ms]", "baseline",
                "ratio");
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
