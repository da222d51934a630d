#include "card/Actions.h"

#include "forms/MessageBox.h"
#include "store/Database.h"

#include <utility>

namespace card {

bool Actions::perform(const std::function<void()>& action) {
    bool isDone = true;
    ++depth_;
    try {
        action();
    } catch (const store::EngineError& error) {
        isDone = false;
        if (!error_)
            error_ = error;
    }
    if (--depth_ == 0)
        tell();
    return isDone;
}

void Actions::tell() {
    if (!error_)
        return;
    engine_.rollBackPending();
    const store::EngineError error = *std::exchange(error_, std::nullopt);
    forms::showEngineError(&window_, error);
}

void Actions::write(const std::function<void()>& writes, const std::function<void()>& resume) {
    try {
        writes();
        // A step of the writing may have failed in the showing of a row.
        if (error_)
            throw *std::exchange(error_, std::nullopt);
        engine_.commitPending();
    } catch (const store::EngineError&) {
        engine_.rollBackPending();
        resume();
        throw;
    }
}

} // namespace card
