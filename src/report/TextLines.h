#pragma once

#include "report/Pages.h"
#include "report/Paragraphs.h"

#include <limits>
#include <vector>

namespace report {

/// A stretch of a line in one style; `left` in twips from the text's left edge.
struct LineRun {
    Run run;
    double left = 0;
    double width = 0;
};

/// A line of a text in twips; without runs when it is blank.
struct TextLine {
    std::vector<LineRun> runs;
    double ascent = 0;
    double height = 0;

    /// Where the last run ends.
    double width() const { return runs.empty() ? 0 : runs.back().left + runs.back().width; }
};

constexpr double unlimitedWidth = std::numeric_limits<double>::infinity();

/// Breaks paragraphs into lines of at most that width: between words, and within a word only if it
/// is longer than a line. Blanks at the ends of lines go.
std::vector<TextLine> breakLines(const std::vector<Paragraph>& paragraphs, double width,
                                 const TextMeter& meter);

} // namespace report
