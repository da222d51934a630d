#pragma once

#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace bench {

/// What is timed. Called several times; each call does the whole work anew.
using Work = std::function<void()>;

/// Work that needs something done before each call, which is not timed.
struct PreparedWork {
    Work prepare;
    Work act;
};

/// Times in milliseconds.
struct Times {
    double wall = std::numeric_limits<double>::max();
    /// Of all threads. Tells more where other programs keep the machine busy.
    double processor = std::numeric_limits<double>::max();

    /// Of one part of so many.
    Times over(double parts) const { return {wall / parts, processor / parts}; }
};

/// The least of several timed calls, after one that is not counted.
Times least(const Work& work, int runs);

/// A table of times of ours against a baseline, printed when it is complete.
class Figures {
  public:
    explicit Figures(std::string title) : title_(std::move(title)) {}

    /// Times both in turn, so that what slows the machine down for a while slows both.
    /// @param wanted greatest ratio of ours to the baseline; nothing where none is asked for
    /// @return the least of ours
    Times compare(const std::string& name, const Work& ours, const Work& baseline,
                  std::optional<double> wanted = {}, int runs = 9);
    Times compare(const std::string& name, const PreparedWork& ours, const PreparedWork& baseline,
                  std::optional<double> wanted = {}, int runs = 9);
    /// A ratio of two times measured before, such as the same work at two sizes.
    void ratio(const std::string& name, const Times& ours, const Times& baseline,
               std::optional<double> wanted = {});

    /// Prints the table. @return exit code of the program: 1 when a wanted ratio is missed
    int print() const;

  private:
    struct Line {
        std::string name;
        Times ours;
        Times baseline;
        std::optional<double> wanted;

        double ratio() const { return ours.wall / baseline.wall; }
        bool isMissed() const { return wanted && ratio() > *wanted; }
    };
    static void printLine(const Line& line);

    std::string title_;
    std::vector<Line> lines_;
};

/// Lets a program with windows run where there is no display; to be called before its QApplication.
void needNoDisplay();

} // namespace bench
