#pragma once

#include <QDateTime>

#include <vector>

namespace backup {

/// Which copies are not kept any more: of those made until now, the last ten are kept, then the
/// last one of each month for a year, then the last one of each year. A copy that a wrong clock has
/// dated after now is none of the ten; the last ten of such copies are kept, too.
/// @param copies when each was made, in any order
/// @return those that go, the oldest first
std::vector<QDateTime> superfluous(std::vector<QDateTime> copies, const QDateTime& now);

} // namespace backup
