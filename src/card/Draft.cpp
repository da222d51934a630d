#include "card/Draft.h"

#include "store/EngineError.h"

#include <utility>

namespace card {

void Draft::keep(Step reopen, Typed typed) {
    reopen_ = std::move(reopen);
    typed_ = std::move(typed);
    isOwed_ = false;
}

void Draft::resume() {
    try {
        isOwed_ = true;
        reopen_();
        isOwed_ = false;
    } catch (const store::EngineError&) {
        // The error that stopped the save is told; this one has the same cause.
    }
    putBack();
}

void Draft::openOwed(Typed typed) {
    typed_ = std::move(typed);
    reopen_();
    isOwed_ = false;
    putBack();
}

void Draft::putBack() const {
    for (const Step& put : typed_)
        put();
}

} // namespace card
