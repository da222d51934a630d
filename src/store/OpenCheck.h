#pragma once

#include "store/Progress.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace store {

class Connection;

/// What tells our files from those of other programs: "TVK1".
inline constexpr quint32 applicationId = 0x54564B31;
/// Grows with every change of the tables and of the stored queries that the program only reads.
/// 2: no number of a row is given twice. 3: vyp_zazZmeny gives the client's key.
inline constexpr quint32 schemaVersion = 3;
/// The oldest version that is still read, and brought to the present one where it can be written.
inline constexpr quint32 oldestVersion = 1;

/// Looks at a file before SQLite opens it and refuses what can't be a whole register of this
/// version. A file whose last write was cut off is let pass, as it heals when it is read.
///
/// Must not be called while a connection of this process holds the file: closing the file here
/// would take that connection's locks away.
/// @throws EngineError 3024 when there is no file, 3051 when it can't be read or something that is
/// no file lies in the place of its journal, 3343
void checkHeader(const QString& path);

/// Refuses a file with other tables or another version, as far as SQLite's own reading tells, and
/// one with triggers or views, which would act behind the program's back.
/// @throws EngineError 3343
void checkIdentity(Connection& connection);

/// The version of the tables that a file holds. @throws EngineError
quint32 versionOf(Connection& connection);

/// True when a full check of a file is done before its user would notice.
bool isQuicklyChecked(const QString& path);

/// Lets a connection that checks keep the pages of an index, of which it looks up every entry.
inline constexpr const char* roomForChecks = "PRAGMA cache_size=-65536";

/// Reads every page and every index entry. @throws EngineError 3343
void checkPages(Connection& connection);
/// As checkPages, but takes it that indexes which were just made hold what their tables do.
/// @throws EngineError 3343
void checkShape(Connection& connection);
/// As checkPages, and tells how far it is. @throws EngineError 3343; GivenUp
void checkAllPages(Connection& connection, const TellProgress& tell);
/// As checkPages, of one table and its indexes. @throws EngineError 3343
void checkTable(Connection& connection, const QString& name);

struct CheckLoad {
    /// About how many instructions of SQLite the check of the table takes.
    qint64 instructions = 0;
    QString table;
};
/// What there is to check: all tables, those with little work first. @throws EngineError
std::vector<CheckLoad> checkLoads(Connection& connection);

/// True when the file's last write was cut off by the end of its program after it had begun to
/// change the file, so that reading will first take it back.
bool hasHotJournal(const QString& path);

/// Removes what a write left beside the file that was cut off before it changed the file. SQLite
/// passes over it. @throws EngineError
void removeColdJournal(Connection& connection);

} // namespace store
