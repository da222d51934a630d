#include "oldregister/OldMemo.h"

#include <QtEndian>

namespace oldregister {

namespace {

constexpr quint32 inRow = 0x80000000;
constexpr quint32 onOnePage = 0x40000000;
constexpr quint32 lengthMask = 0x3fffffff;
constexpr qsizetype linkSize = 4;
/// More is no text that a person wrote.
constexpr quint32 longest = 30'000'000;

/// A row of another page; nothing when it can't be found.
std::optional<QByteArray> rowAt(MdbHandle& file, quint32 pageAndRow) {
    void* page = nullptr;
    int start = 0;
    size_t size = 0;
    if (mdb_find_pg_row(&file, static_cast<int>(pageAndRow), &page, &start, &size) != 0 ||
        static_cast<const char*>(page)[0] != MDB_PAGE_DATA || size > MDB_PGSIZE ||
        start + static_cast<qsizetype>(size) > file.fmt->pg_size)
        return std::nullopt;
    return QByteArray(static_cast<const char*>(page) + start, static_cast<qsizetype>(size));
}

std::optional<QByteArray> chainFrom(MdbHandle& file, quint32 pageAndRow, qsizetype length) {
    QByteArray bytes;
    while (bytes.size() < length) {
        const auto row = rowAt(file, pageAndRow);
        // A chain makes headway at each link, or it would go round.
        if (!row || row->size() <= linkSize)
            return std::nullopt;
        bytes += QByteArrayView(*row).sliced(linkSize);
        pageAndRow = qFromLittleEndian<quint32>(row->constData());
    }
    return bytes;
}

} // namespace

std::optional<QByteArray> readMemo(MdbHandle& file, QByteArrayView reference) {
    if (reference.size() < MDB_MEMO_OVERHEAD)
        return reference.isEmpty() ? std::optional(QByteArray()) : std::nullopt;
    const auto head = qFromLittleEndian<quint32>(reference.data());
    const auto place = qFromLittleEndian<quint32>(reference.data() + 4);
    if ((head & lengthMask) > longest)
        return std::nullopt;
    const auto length = static_cast<qsizetype>(head & lengthMask);
    std::optional<QByteArray> bytes;
    if ((head & inRow) != 0)
        bytes = reference.sliced(MDB_MEMO_OVERHEAD).toByteArray();
    else if ((head & onOnePage) != 0)
        bytes = rowAt(file, place);
    else
        bytes = chainFrom(file, place, length);
    if (!bytes || bytes->size() < length)
        return std::nullopt;
    return bytes->first(length);
}

} // namespace oldregister
