#pragma once

#include <QByteArray>

#include <mdbtools.h>

#include <optional>

namespace oldregister {

/// The bytes of a long text: they lie in the row itself, in a row of another page, or in a chain of
/// such rows. Leaves the loaded page as it is.
/// @param reference what lies in the row
/// @return nothing when not all of its bytes are found
std::optional<QByteArray> readMemo(MdbHandle& file, QByteArrayView reference);

} // namespace oldregister
