#pragma once

#include "store/Sql.h"
#include "store/sql/Emitter.h"
#include "store/sql/Scope.h"

#include <QStringList>

namespace store::sql {

/// What the translation of one statement shares with that of the stored queries it reads.
struct Translation {
    const QueryLookup& storedQuery;
    /// Stored queries that are being read, the outermost first.
    QStringList open = {};
    int tables = 0;
};

/// @throws EngineError, see translateSelect()
SelectPlan planSelect(const QString& sql, Translation& translation);

/// @throws EngineError 3360 when SQLite could not read the statement.
void checkComplexity(const QString& sqlite, const QString& sql);

} // namespace store::sql
