#pragma once

namespace faults {

/// What happens to the writing calls of all SQLite connections of this process from now on.
struct Plan {
    enum class Fault {
        None,
        /// The call writes half of its bytes and the process is killed.
        Kill,
        /// This call and all later ones that write bytes find the disk full.
        DiskFull,
        /// As DiskFull, but for databases alone: their journals take all, so what has begun to be
        /// written can't be undone before the fault has gone.
        DatabaseFull,
        /// This call and all later ones fail to make bytes durable.
        SyncFails,
        /// Reads fail from now on; `at` says nothing.
        ReadFails
    };
    Fault fault = Fault::None;
    /// The call that the fault strikes first, from 1.
    int at = 0;
};

/// Puts a layer under all connections opened from now on; calls count from 1 again.
void install(const Plan& plan);
/// Puts the layer under what is made after it, and takes the faults away at its end.
struct Layer {
    Layer() { install({}); }
    ~Layer() { install({}); }
};
/// Writes, syncs, truncations and deletions since install().
int callCount();
/// Counts a step of the program's own as a call.
void step();

} // namespace faults
