#pragma once

#include <QStringList>

#include <functional>

namespace faults {

/// What killing an action left behind.
struct Outcome {
    int kills = 0;
    /// How often the file held the state before.
    int before = 0;
    int hotJournals = 0;
    /// The rows after the run that got through.
    QStringList after;
};

/// What a user sees in all tables, in their order: the table, then the columns, behind "|".
QStringList contents(const QString& path);

/// Kills the action, which runs in a process of its own, at its first writing call, its second one
/// and so on until it gets through. Expects the file to be sound each time and to hold the state
/// before, or the one of the run that got through. What this process has open on the file it must
/// have let go of.
Outcome killEverywhere(const QString& path, const std::function<void()>& action);

} // namespace faults
