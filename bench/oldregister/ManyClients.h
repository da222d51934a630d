#pragma once

#include <QString>

namespace bench {

/// Writes a register of the old format with many times the clients of another one, each with all
/// that belongs to it. The ends of their keys differ from copy to copy.
/// @param copies at most 676
void multiplyClients(const QString& sample, const QString& target, int copies);

} // namespace bench
