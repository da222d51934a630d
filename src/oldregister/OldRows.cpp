#include "oldregister/OldRows.h"

#include "oldregister/OldMemo.h"
#include "oldregister/OldText.h"

#include <QtEndian>

namespace oldregister {

namespace {

// What stands beside the offset of a row.
constexpr int deletedFlag = 0x8000;
constexpr int movedFlag = 0x4000;
constexpr int offsetMask = 0x1fff;

constexpr int pageReferenceSize = 4;
constexpr int mostRowsOfPage = 2048;
constexpr double moneyParts = 10000;

template <class Number>
Number numberAt(const uchar* bytes) {
    return qFromLittleEndian<Number>(bytes);
}

} // namespace

OldRows::OldRows(const OldTableReader& table, TakeRow takeRow, TakeBroken takeBroken)
    : table_(table), file_(*table.definition().entry->mdb), takeRow_(std::move(takeRow)),
      takeBroken_(std::move(takeBroken)), fields_(table.columns().size()) {}

void OldRows::readAll() {
    const MdbTableDef& definition = table_.definition();
    gint32 page = 0;
    for (;;) {
        const gint32 next =
            mdb_map_find_next(&file_, definition.usage_map,
                              static_cast<unsigned>(definition.map_sz), static_cast<guint32>(page));
        if (next < 0)
            takeBroken_(static_cast<quint32>(page), 0);
        if (next <= page)
            return;
        page = next;
        readPage(static_cast<quint32>(page));
    }
}

/// @return false when the page is none of this table
bool OldRows::loadPage(quint32 page) const {
    return mdb_read_pg(&file_, page) == file_.fmt->pg_size && file_.pg_buf[0] == MDB_PAGE_DATA &&
           numberAt<quint32>(file_.pg_buf + 4) == table_.definition().entry->table_pg;
}

void OldRows::readPage(quint32 page) {
    if (!loadPage(page))
        return takeBroken_(page, 0);
    const int rows = numberAt<quint16>(file_.pg_buf + file_.fmt->row_count_offset);
    if (rows > mostRowsOfPage)
        return takeBroken_(page, 0);
    quint32 lost = 0;
    for (int row = 0; row < rows; ++row)
        lost += readRow(page, row) ? 0 : 1;
    if (lost > 0)
        takeBroken_(page, lost);
}

std::optional<OldRows::Place> OldRows::placeOf(int row) const {
    Place place;
    size_t size = 0;
    if (mdb_find_row(&file_, row, &place.start, &size) != 0 || size > MDB_PGSIZE)
        return std::nullopt;
    place.isDeleted = (place.start & deletedFlag) != 0;
    place.isMoved = (place.start & movedFlag) != 0;
    place.start &= offsetMask;
    place.size = static_cast<int>(size);
    if (place.start + place.size > file_.fmt->pg_size)
        return std::nullopt;
    return place;
}

/// Reads a row of the page that is loaded. @return false when there is one that can't be read
bool OldRows::readRow(quint32 page, int row) {
    const auto place = placeOf(row);
    if (!place)
        return false;
    // A moved row's new place is marked as deleted, so that it is only met through the old one.
    if (place->isDeleted)
        return true;
    if (!place->isMoved)
        return readAt(*place);
    if (place->size < pageReferenceSize)
        return false;
    const bool isRead = readMoved(numberAt<quint32>(file_.pg_buf + place->start));
    return loadPage(page) && isRead;
}

bool OldRows::readMoved(quint32 pageAndRow) {
    if (!loadPage(pageAndRow >> 8))
        return false;
    const int row = static_cast<int>(pageAndRow & 0xff);
    const int rows = numberAt<quint16>(file_.pg_buf + file_.fmt->row_count_offset);
    const auto place = row < rows ? placeOf(row) : std::nullopt;
    return place && !place->isMoved && readAt(*place);
}

bool OldRows::readAt(const Place& place) {
    if (place.size < 3 || mdb_crack_row(&table_.definition(), place.start,
                                        static_cast<size_t>(place.size), fields_.data()) < 0)
        return false;
    std::vector<OldValue> values;
    const auto columns = table_.columns();
    for (std::size_t index = 0; index < columns.size(); ++index)
        values.push_back(valueOf(*columns[index], fields_[index], place));
    takeRow_(std::move(values));
    return true;
}

OldValue OldRows::valueOf(const MdbColumn& column, const MdbField& field,
                          const Place& place) const {
    // A row is older than the columns that were added after it.
    const bool isOlder = column.col_num >= numberAt<quint16>(file_.pg_buf + place.start);
    const bool isNull = field.is_null != 0 || isOlder;
    if (column.col_type == MDB_BOOL)
        return !isNull;
    if (isNull)
        return {};
    if (field.siz < 0 || field.start < place.start ||
        field.start + field.siz > place.start + place.size)
        return Unreadable();
    const uchar* bytes = file_.pg_buf + field.start;
    const QByteArrayView whole(bytes, field.siz);
    const auto fits = [&](int size) {
        return field.siz >= size;
    };
    switch (column.col_type) {
    case MDB_TEXT:
        return textOf(whole);
    case MDB_MEMO:
        return memoOf(whole);
    case MDB_BYTE:
        return fits(1) ? OldValue(qint64{*bytes}) : Unreadable();
    case MDB_INT:
        return fits(2) ? OldValue(qint64{numberAt<qint16>(bytes)}) : Unreadable();
    case MDB_LONGINT:
        return fits(4) ? OldValue(qint64{numberAt<qint32>(bytes)}) : Unreadable();
    case MDB_MONEY:
        return fits(8) ? OldValue(static_cast<double>(numberAt<qint64>(bytes)) / moneyParts)
                       : Unreadable();
    case MDB_FLOAT:
        return fits(4) ? OldValue(double{numberAt<float>(bytes)}) : Unreadable();
    case MDB_DOUBLE:
        return fits(8) ? OldValue(numberAt<double>(bytes)) : Unreadable();
    case MDB_DATETIME:
        return fits(8) ? OldValue(RawDate{numberAt<double>(bytes)}) : Unreadable();
    default:
        return Unreadable();
    }
}

OldValue OldRows::memoOf(QByteArrayView reference) const {
    const auto bytes = readMemo(file_, reference);
    return bytes ? OldValue(textOf(*bytes)) : Unreadable();
}

} // namespace oldregister
