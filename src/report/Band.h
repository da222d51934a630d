#pragma once

#include "report/Pages.h"

#include <vector>

namespace report {

/// A section set with its texts; positions in twips from its own left top corner.
struct Band {
    double height = 0;
    std::vector<PlacedText> texts;
    std::vector<PlacedLine> lines;
};

/// Sets a section: grows its growing controls and moves what stands below them.
/// @param row where fields find their values; null where no fields are allowed
/// @throws std::invalid_argument when there is a field and no row
Band setBand(const Section& section, const RowSource* row, const TextMeter& meter,
             const QDate& today);

/// The heights at which the band can be broken without going through a text, ascending.
std::vector<double> cutsOf(const Band& band);

/// Moves a band's texts and lines by that much.
void moveBand(Band& band, double dx, double dy);

/// The part of the band between two heights: texts that stand in it, lines and boxes as far as
/// they reach into it. Boxes of texts are cut down to it.
Band sliceOf(const Band& band, double from, double to);

} // namespace report
