#pragma once

#include "forms/ErrorRoute.h"

#include <functional>

class QWidget;

namespace store {
class DBEngine;
}

namespace card {

/// Runs what the users of a screen do. An action that an error stops keeps nothing of what it
/// wrote: it is undone first, and only then a box tells of it.
class Actions {
  public:
    /// @param engine, window must outlive it
    Actions(store::DBEngine& engine, QWidget& window);

    /// See forms::ErrorRoute::perform().
    bool perform(const std::function<void()>& action) { return route_.perform(action); }
    /// See forms::ErrorRoute::passOver().
    void passOver(const store::EngineError& error) { route_.passOver({{}, {}, error}); }
    /// See forms::ErrorRoute::passedOverRow().
    bool passedOverRow() const { return route_.passedOverRow(); }

    /// Runs what writes, as a part of an action, and makes it durable: all of it or nothing. The
    /// disk may refuse it only at the end.
    /// @param resume opens again, with what was typed, the edit that the failed writing may have
    /// closed; called when all is undone and before anything is told
    /// @throws store::EngineError why nothing was written
    void write(const std::function<void()>& writes, const std::function<void()>& resume);

  private:
    store::DBEngine& engine_;
    forms::ErrorRoute& route_;
};

} // namespace card
