#pragma once

#include "store/EngineError.h"
#include "store/Progress.h"

#include <sqlite3.h>

#include <functional>

namespace store {

/// Asks now and then, while statements run on a connection, whether to go on. One at a time for a
/// connection; ends before it.
class Watch {
  public:
    /// Instructions of SQLite between two questions, some milliseconds.
    static constexpr int stride = 20000;

    /// @param goOn stops the statement that runs, and all further ones, with false
    Watch(sqlite3* connection, std::function<bool()> goOn)
        : connection_(connection), goOn_(std::move(goOn)) {
        sqlite3_progress_handler(connection_, stride, ask, this);
    }
    ~Watch() { sqlite3_progress_handler(connection_, 0, nullptr, nullptr); }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    /// Runs what works on the connection. @throws GivenUp when it was stopped; what the action does
    template <class Action>
    void run(const Action& action) {
        try {
            action();
        } catch (const EngineError&) {
            if (!stopped_)
                throw;
        }
        if (stopped_)
            throw GivenUp();
    }

  private:
    static int ask(void* self) {
        auto& watch = *static_cast<Watch*>(self);
        watch.stopped_ = watch.stopped_ || !watch.goOn_();
        return watch.stopped_ ? 1 : 0;
    }

    sqlite3* connection_;
    std::function<bool()> goOn_;
    bool stopped_ = false;
};

} // namespace store
