#include "card/Actions.h"

#include "store/Database.h"

namespace card {

Actions::Actions(store::DBEngine& engine, QWidget& window)
    : engine_(engine), route_(forms::ErrorRoute::of(window)) {
    route_.undoIn(engine);
}

void Actions::write(const std::function<void()>& writes, const std::function<void()>& resume) {
    try {
        writes();
        // A step of the writing may have failed in the showing of a row.
        if (const auto error = route_.takeError())
            throw *error;
        engine_.commitPending();
    } catch (const store::EngineError&) {
        engine_.rollBackPending();
        route_.forgetPassedOver();
        resume();
        throw;
    }
}

} // namespace card
