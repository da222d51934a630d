#pragma once

#include "store/Progress.h"

#include <QString>

#include <functional>

namespace store {

class Connection;

/// See DBEngine::CreateDatabase.
void createDatabase(const QString& path);
/// Copies a register without its free space. @throws EngineError; GivenUp
void vacuumInto(const QString& source, const QString& target, const TellProgress& tell = {});
/// See DBEngine::CompactDatabase.
void compactDatabase(const QString& source, const QString& target, const TellProgress& tell = {});
/// See DBEngine::verifyDatabase.
void verifyDatabase(const QString& path, const TellProgress& tell = {});
/// Whether the tables are of the present version and the indexes of the present order of texts.
bool isUpToDate(Connection& connection);
/// Brings tables of an older version and indexes of another order of texts to the present ones, if
/// the whole file is sound then. An older version that can't be written stays: it is read all the
/// same.
/// @param working see DBEngine::whileUpgrading
/// @throws EngineError
void bringUpToDate(Connection& connection, const std::function<void()>& working = {});

} // namespace store
