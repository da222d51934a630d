#pragma once

#include "report/Pages.h"

#include <QStringList>

namespace report {

/// What a reader would stumble over on a page, each fault told in words for the tests of layouts.
/// Texts that lie on one another.
QStringList overlaps(const Page& page);

/// Texts that reach out of their box and are therefore drawn cut off.
QStringList cutTexts(const Page& page);

/// Texts that a line or the edge of a box runs through.
QStringList struckTexts(const Page& page);

/// All of these faults and texts that leave the paper, on all pages, each with its page number.
QStringList layoutFaults(const Pages& pages);

/// Whether the text reaches out of its box, by more than a rounding.
bool isCut(const PlacedText& text);

} // namespace report
