#pragma once

#include <QString>

namespace clientcard {

/// Why what changes a record can't be used while none is open.
inline QString recordIsClosedText() {
    return QStringLiteral("Záznam sa len číta. Píše sa po stlačení Nový alebo Oprava.");
}

/// Why what leads away from a record can't be used while it is open.
inline QString recordIsOpenText() {
    return QStringLiteral("Najprv ukončite záznam: Zápis alebo Storno.");
}

} // namespace clientcard
