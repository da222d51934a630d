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
/// Whether bringUpToDate makes all indexes anew, whatever they hold.
bool remakesIndexes(Connection& connection);
/// Brings tables of an older version and indexes of another order of texts to the present ones, if
/// what was made anew is sound then. An older version that can't be written stays: it is read all
/// the same.
/// @param working called now and then while that takes its time; empty for nothing
/// @throws EngineError
void bringUpToDate(Connection& connection, const std::function<void()>& working = {});

} // namespace store
