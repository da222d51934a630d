#pragma once

#include "report/Pages.h"

#include <QString>

#include <memory>
#include <vector>

/// Several reports as one document.
namespace report {

/// Puts finished reports behind one another, each with its title as a bookmark.
Pages joined(const QString& title, const std::vector<Pages>& reports);

/// Writes "Strana 2 z 5" into the foot of each page and the subject, as it is by now, into its
/// head, in the margins. While the number of pages is unknown, the foot says "Strana 2". A subject
/// that is wider than the paper allows ends in an ellipsis.
void addRunningLines(Pages& pages, const std::shared_ptr<const TextMeter>& meter);

} // namespace report
