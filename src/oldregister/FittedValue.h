#pragma once

#include "oldregister/OldValue.h"
#include "store/Value.h"

#include <QString>

namespace store {
struct ColumnDef;
}

namespace oldregister {

/// What a column of the new register takes of an old value.
struct FittedValue {
    store::Value value;
    /// Why it is not the old value itself, a Slovak sentence; empty when it is.
    QString problem = {};
};

/// Never guesses: of a text that is too long its beginning is taken, of a value of another kind
/// nothing, unless the column can keep it without loss.
FittedValue fit(const OldValue& old, const store::ColumnDef& column);

/// An old value as a reader is shown it; Null is empty.
QString shown(const OldValue& value);

} // namespace oldregister
