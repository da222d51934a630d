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
    /// The rows of all tables after the run that got through: the table, then the columns, behind
    /// "|".
    QStringList after;
};

/// Kills the action, which runs in a process of its own, at its first writing call, its second one
/// and so on until it gets through. Expects the file to be sound each time and to hold the state
/// before, or the one of the run that got through; leaves it as it was. This process must have let
/// go of the file.
Outcome killEverywhere(const QString& path, const std::function<void()>& action);

} // namespace faults
