#pragma once

#include <QString>

namespace store {

class Connection;

/// See DBEngine::CreateDatabase.
void createDatabase(const QString& path);
/// See DBEngine::CompactDatabase.
void compactDatabase(const QString& source, const QString& target);
/// See DBEngine::verifyDatabase.
void verifyDatabase(const QString& path);
/// Brings the tables of an older version to the present one. What can't be written stays as it is:
/// it is read all the same. @throws EngineError
void upgradeSchema(Connection& connection);
/// Makes the indexes anew when they were made under another order of texts. @throws EngineError
void updateTextOrder(Connection& connection);

} // namespace store
