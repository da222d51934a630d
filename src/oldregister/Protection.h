#pragma once

#include <QString>

namespace oldregister {

/// What to say of the password and the encoding of a file of the old format, Slovak sentences:
/// neither locks its data. Empty when it has none of them, or can't be read.
QString protectionOf(const QString& path);

} // namespace oldregister
