#include "card/Draft.h"

#include "store/DataSource.h"
#include "store/EngineError.h"

#include <QSignalBlocker>

#include <utility>

namespace card {

namespace {

void reopen(store::DataSource& source, store::EditState mode, qint64 place) {
    {
        const QSignalBlocker silent(source);
        if (source.isOpen())
            source.Recordset().CancelUpdate();
    }
    source.Refresh();
    if (mode != store::EditState::Edit)
        return source.Recordset().AddNew();
    source.Recordset().setAbsolutePosition(place);
    source.Recordset().Edit();
}

} // namespace

void Draft::keep(Step reopen, Typed typed) {
    reopen_ = std::move(reopen);
    typed_ = std::move(typed);
    isOwed_ = false;
}

void Draft::keepRow(store::DataSource& source, Typed typed) {
    const store::EditState mode = source.Recordset().EditMode();
    // A new row has no place, and the row behind it may be gone.
    const qint64 place =
        mode == store::EditState::Edit ? source.Recordset().AbsolutePosition() : -1;
    keep([&source, mode, place] { reopen(source, mode, place); }, std::move(typed));
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
