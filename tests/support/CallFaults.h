#pragma once

#include <functional>

/// Stands between a test program and the system for all calls that write, sync, rename, link or
/// remove files, of whatever library makes them. Linked into a program, it counts them.
namespace calls {

enum class Fault {
    /// Kills the process before the call.
    Kill,
    /// This call and all later ones that need room find none.
    DiskFull,
};

/// Runs an action in a process of its own, with a fault at its n-th call, from 1.
/// @return false when there was no n-th call: the action got through
bool strike(Fault fault, int n, const std::function<void()>& action);

} // namespace calls
