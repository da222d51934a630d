#pragma once

#include "report/Pages.h"

#include <QByteArray>

#include <optional>

namespace report {

/// Adds to a PDF of these pages what its writer can't: the language, the bookmarks, and that a
/// viewer names its window after the title. @return nothing when that is no PDF
std::optional<QByteArray> withContents(const QByteArray& pdf, const Pages& pages);

} // namespace report
