#pragma once

#include <QString>

#include <string_view>

namespace store {

/// The text that bytes in UTF-8 stand for. A mark of byte order before it is a sign of the text,
/// as a column holds no files.
inline QString textOfUtf8(std::string_view bytes) {
    const QString text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    return bytes.starts_with("\xEF\xBB\xBF") ? QChar(QChar::ByteOrderMark) + text : text;
}

} // namespace store
