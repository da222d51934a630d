#include "ManyClients.h"

#include "oldregister/OldFile.h"

#include <QFile>
#include <QMap>
#include <QtEndian>

#include <set>
#include <stdexcept>

namespace bench {

namespace {

using oldregister::OldFile;
using oldregister::OldTableReader;

constexpr qsizetype pageSize = MDB_PGSIZE;
constexpr qsizetype rowCountAt = 0x10;
constexpr qsizetype mapReferenceAt = 0x37;
constexpr qsizetype rowsOfPageAt = 12;
constexpr int movedFlag = 0x4000;
constexpr int offsetMask = 0x1fff;
constexpr quint32 inRow = 0x80000000;
constexpr quint32 onOnePage = 0x40000000;
/// Pages that one page of a map tells of, and how many such pages a map has.
constexpr quint32 pagesOfMap = (pageSize - 4) * 8;
constexpr int mapPages = 17;

quint32 numberAt(const QByteArray& bytes, qsizetype at) {
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

void setNumber(QByteArray& bytes, qsizetype at, quint32 number) {
    qToLittleEndian(number, bytes.data() + at);
}

quint16 shortAt(const QByteArray& bytes, qsizetype at) {
    return qFromLittleEndian<quint16>(bytes.constData() + at);
}

qsizetype rowStart(const QByteArray& bytes, quint32 page, int row) {
    return page * pageSize + (shortAt(bytes, page * pageSize + 14 + 2 * row) & offsetMask);
}

/// A table of clients: where it is described, and its pages in the sample.
struct ClientTable {
    qsizetype description = 0;
    std::vector<quint32> pages;
};

/// Finds what differs between one copy of the clients' pages and the next.
class Plan {
  public:
    explicit Plan(const QString& path) : file_(QFile::encodeName(path)) {
        QFile bytes(path);
        if (!bytes.open(QIODevice::ReadOnly) || !file_.isOpen())
            throw std::runtime_error("no sample");
        bytes_ = bytes.readAll();
        for (MdbCatalogEntry* entry : file_.catalogue())
            if (mdb_is_user_table(entry) != 0 && QByteArray(entry->object_name).startsWith("k_"))
                addTable(*entry);
        for (quint32 page = 1; page < bytes_.size() / pageSize; ++page)
            if (bytes_.mid(page * pageSize + 4, 4) == "LVAL")
                pages.insert(page);
    }

    const QByteArray& bytes() const { return bytes_; }

    std::vector<ClientTable> tables;
    /// All pages that are copied.
    std::set<quint32> pages;
    /// Where a page and a row of it are named.
    std::set<qsizetype> references;
    /// Where keys begin and end.
    std::set<std::pair<qsizetype, qsizetype>> keys;

  private:
    void addTable(MdbCatalogEntry& entry) {
        const OldTableReader reader(entry);
        const MdbTableDef& table = reader.definition();
        ClientTable& added = tables.emplace_back();
        added.description = qsizetype(entry.table_pg) * pageSize;
        guint32 page = 0;
        for (;;) {
            const gint32 next = mdb_map_find_next(entry.mdb, table.usage_map,
                                                  static_cast<unsigned>(table.map_sz), page);
            if (next <= static_cast<gint32>(page))
                return;
            page = static_cast<guint32>(next);
            added.pages.push_back(page);
            pages.insert(page);
            addRows(reader, page);
        }
    }

    void addRows(const OldTableReader& reader, quint32 page) {
        MdbHandle& handle = *reader.definition().entry->mdb;
        std::vector<MdbField> fields(reader.columns().size());
        const int rows = shortAt(bytes_, page * pageSize + rowsOfPageAt);
        for (int row = 0; row < rows; ++row) {
            mdb_read_pg(&handle, page);
            int start = 0;
            size_t size = 0;
            mdb_find_row(&handle, row, &start, &size);
            if ((start & movedFlag) != 0)
                references.insert(rowStart(bytes_, page, row));
            else if (mdb_crack_row(&reader.definition(), start & offsetMask, size, fields.data()) >=
                     0)
                addFields(reader, fields, page * pageSize);
        }
    }

    void addFields(const OldTableReader& reader, const std::vector<MdbField>& fields,
                   qsizetype page) {
        for (std::size_t index = 0; index < fields.size(); ++index) {
            const MdbColumn& column = *reader.columns()[index];
            if (fields[index].is_null != 0 || fields[index].siz < 4)
                continue;
            if (qstricmp(column.name, "idkod") == 0)
                keys.insert(
                    {page + fields[index].start, page + fields[index].start + fields[index].siz});
            else if (column.col_type == MDB_MEMO && fields[index].siz == MDB_MEMO_OVERHEAD)
                addMemo(page + fields[index].start);
        }
    }

    void addMemo(qsizetype at) {
        const quint32 head = numberAt(bytes_, at);
        if ((head & inRow) != 0)
            return;
        references.insert(at + 4);
        quint32 place = numberAt(bytes_, at + 4);
        if ((head & onOnePage) != 0)
            return;
        // A long text is a chain of rows that each begin with the place of the next.
        while (place != 0) {
            const qsizetype link = rowStart(bytes_, place >> 8, int(place & 0xff));
            place = numberAt(bytes_, link);
            if (place != 0)
                references.insert(link);
        }
    }

    OldFile file_;
    QByteArray bytes_;
};

class Copier {
  public:
    explicit Copier(const Plan& plan) : plan_(plan), bytes_(plan.bytes()) {}

    QByteArray run(int copies) {
        for (const quint32 page : plan_.pages)
            newPages_[page] = {page};
        for (int copy = 1; copy < copies; ++copy)
            add(copy);
        for (const ClientTable& table : plan_.tables)
            describe(table, copies);
        return std::move(bytes_);
    }

  private:
    void add(int copy) {
        const auto first = static_cast<quint32>(bytes_.size() / pageSize);
        QMap<quint32, quint32> moved;
        for (const quint32 page : plan_.pages) {
            moved[page] = first + static_cast<quint32>(moved.size());
            newPages_[page].push_back(moved[page]);
            bytes_ += plan_.bytes().mid(page * pageSize, pageSize);
        }
        const auto there = [&](qsizetype at) {
            return moved[static_cast<quint32>(at / pageSize)] * pageSize + at % pageSize;
        };
        for (const qsizetype at : plan_.references) {
            const quint32 place = numberAt(bytes_, at);
            setNumber(bytes_, there(at), moved[place >> 8] << 8 | (place & 0xff));
        }
        for (const auto& [begin, end] : plan_.keys)
            setKey(there(begin), there(begin) + end - begin, copy);
    }

    /// Changes the two signs before the last digit of a key. Signs take one byte behind a mark, and
    /// two without it.
    void setKey(qsizetype begin, qsizetype end, int copy) {
        const qsizetype width = bytes_.mid(begin, 2) == "\xff\xfe" ? 1 : 2;
        bytes_.replace(end - 3 * width, 2 * width, QByteArray(2 * width, 0));
        bytes_[end - 3 * width] = static_cast<char>('A' + copy / 26);
        bytes_[end - 2 * width] = static_cast<char>('A' + copy % 26);
    }

    /// Gives a table its number of rows and a map of its pages.
    void describe(const ClientTable& table, int copies) {
        const qsizetype rows = table.description + rowCountAt;
        setNumber(bytes_, rows, numberAt(bytes_, rows) * static_cast<quint32>(copies));
        const quint32 reference = numberAt(bytes_, table.description + mapReferenceAt);
        const qsizetype map = rowStart(bytes_, reference >> 8, int(reference & 0xff));
        bytes_[map] = 1;
        for (int index = 0; index < mapPages; ++index)
            setNumber(bytes_, map + 1 + 4 * index, 0);
        for (const quint32 page : table.pages)
            for (const quint32 listed : newPages_[page])
                list(listed, map);
    }

    void list(quint32 page, qsizetype map) {
        const qsizetype entry = map + 1 + 4 * (page / pagesOfMap);
        if (numberAt(bytes_, entry) == 0) {
            setNumber(bytes_, entry, static_cast<quint32>(bytes_.size() / pageSize));
            bytes_ += QByteArray("\5\1\0\0", 4).leftJustified(pageSize, 0);
        }
        const qsizetype bit = page % pagesOfMap;
        const qsizetype at = numberAt(bytes_, entry) * pageSize + 4 + bit / 8;
        bytes_[at] = char(bytes_[at] | 1 << bit % 8);
    }

    const Plan& plan_;
    QByteArray bytes_;
    QMap<quint32, std::vector<quint32>> newPages_;
};

} // namespace

void multiplyClients(const QString& sample, const QString& target, int copies) {
    const Plan plan(sample);
    QFile file(target);
    if (!file.open(QIODevice::WriteOnly) || file.write(Copier(plan).run(copies)) < 0)
        throw std::runtime_error("no room for the register");
}

} // namespace bench
