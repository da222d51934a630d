#pragma once

#include <QString>

namespace oldregister {

/// What lies under a file's name, told by its first bytes.
enum class FileKind {
    Missing,
    /// A folder, or a file that the system doesn't let read.
    Unreadable,
    Empty,
    /// A file of the program's own format, sound or not.
    Register,
    /// The old format, in the one version that registers were kept in.
    OldRegister,
    /// The old format in an older version.
    OlderVersion,
    /// The old format in a newer version.
    NewerVersion,
    Foreign,
};

FileKind kindOf(const QString& path);

/// Why a file of this kind can't be taken over, a Slovak sentence; empty for OldRegister.
QString refusalOf(FileKind kind);

} // namespace oldregister
