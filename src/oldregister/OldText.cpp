#include "oldregister/OldText.h"

namespace oldregister {

namespace {

QChar pairAt(QByteArrayView bytes, qsizetype at) {
    return QChar(static_cast<uchar>(bytes[at]), static_cast<uchar>(bytes[at + 1]));
}

QString pairs(QByteArrayView bytes) {
    QString text;
    text.reserve(bytes.size() / 2);
    for (qsizetype at = 0; at + 1 < bytes.size(); at += 2)
        text += pairAt(bytes, at);
    return text;
}

QString packed(QByteArrayView bytes) {
    QString text;
    text.reserve(bytes.size());
    bool isPacked = true;
    for (qsizetype at = 0; at < bytes.size();) {
        if (bytes[at] == 0) {
            isPacked = !isPacked;
            ++at;
        } else if (isPacked) {
            text += QChar(static_cast<uchar>(bytes[at++]), uchar{0});
        } else if (at + 1 < bytes.size()) {
            text += pairAt(bytes, at);
            at += 2;
        } else {
            break;
        }
    }
    return text;
}

} // namespace

QString textOf(QByteArrayView bytes) {
    return bytes.startsWith("\xff\xfe") ? packed(bytes.sliced(2)) : pairs(bytes);
}

} // namespace oldregister
