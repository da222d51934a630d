#pragma once

#include <QByteArrayView>
#include <QString>

namespace oldregister {

/// A text as its bytes lie in the old format: pairs of bytes, or, behind a mark, letters up to
/// U+00FF as single bytes, with a zero byte switching between both. All code units are kept.
QString textOf(QByteArrayView bytes);

} // namespace oldregister
