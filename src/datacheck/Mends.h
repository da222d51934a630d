#pragma once

#include "datacheck/Finding.h"
#include "store/Database.h"

namespace datacheck {

/// Gives the rows of a finding another client. Texts of a client who has some are put behind them.
/// Happens wholly or not at all, as all of these. @throws store::EngineError
void giveClient(store::Database& database, const Finding& finding, const QString& key);
/// Gives the rows of a finding an employee. @throws store::EngineError
void giveWorker(store::Database& database, const Finding& finding, const QString& key);
/// Gives the client of a finding a key of the kind that the card makes, and a row of texts.
/// @throws store::EngineError
void makeKey(store::Database& database, const Finding& finding);
/// Makes the empty row of texts that a client lacks. @throws store::EngineError
void addTexts(store::Database& database, const QString& key);
/// Makes one row of all the rows of texts that a client has; nothing of them is lost.
/// @throws store::EngineError
void joinTexts(store::Database& database, const QString& key);

} // namespace datacheck
