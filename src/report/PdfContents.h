#pragma once

#include "report/Bookmark.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace report {

/// Adds to a PDF what its writer can't: the language, the bookmarks, and that a viewer names its
/// window after the title. @return nothing when that is no PDF
std::optional<QByteArray> withContents(const QByteArray& pdf, const QString& title,
                                       const std::vector<Bookmark>& bookmarks);

} // namespace report
