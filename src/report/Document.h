#pragma once

#include "report/Pages.h"

#include <QString>

#include <vector>

/// Several reports as one document.
namespace report {

/// Puts finished reports behind one another, each with its title as a bookmark.
Pages joined(const QString& title, std::vector<Pages> reports);

/// Writes "Strana 2 z 5" into the foot of each page and the subject into its head, in the margins.
/// A subject that is wider than the paper allows ends in an ellipsis.
void addRunningLines(Pages& pages, const TextMeter& meter);

} // namespace report
