#include "oldregister/ReaderMain.h"

#include "oldregister/FileKind.h"
#include "oldregister/Messages.h"
#include "oldregister/OldRows.h"
#include "store/Process.h"
#include "store/Schema.h"

#include <QFile>

#include <cstring>
#include <deque>

namespace oldregister {

namespace {

/// Nobody who listens is left.
struct Unheard {};

/// Sends messages to the program, many at a time.
class Pipe {
  public:
    void send(const Message& message) {
        buffer_ += packed(message);
        if (buffer_.size() > enough)
            flush();
    }
    void flush() {
        if (!output_.write(buffer_))
            throw Unheard();
        buffer_.clear();
    }

  private:
    static constexpr qsizetype enough = 60'000;
    store::OutputPipe output_;
    QByteArray buffer_;
};

/// The end of the file is missing.
struct CutOff {};

/// The tables of a register that were found in the file.
struct Found {
    TableList list;
    std::deque<OldTableReader> readers;
    /// Pages of the file.
    quint64 pages = 0;
    int descriptionsBehindEnd = 0;
};

bool isListed(const TableList& list, const QString& name) {
    for (const OldTable& table : list.tables)
        if (table.name.compare(name, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

void look(MdbCatalogEntry& entry, Found& found) {
    const bool isTable = mdb_is_user_table(&entry) != 0;
    if (!isTable && entry.object_type != MDB_LINKED_TABLE)
        return;
    found.descriptionsBehindEnd += isTable && entry.table_pg >= found.pages ? 1 : 0;
    const QString name = QString::fromUtf8(entry.object_name);
    if (!isTable || store::findTable(name) == nullptr || isListed(found.list, name)) {
        found.list.foreign.push_back(name);
        return;
    }
    OldTableReader reader(entry);
    if (!reader.isOpen()) {
        found.list.unreadable.push_back(name);
        return;
    }
    found.list.tables.push_back(reader.describe());
    found.readers.push_back(std::move(reader));
}

/// @throws CutOff when rows are missing that lay behind the end; a lone place there is no more than
/// a damaged number
void sendRows(const Found& found, quint32 table, Pipe& pipe) {
    quint32 read = 0;
    bool leadsBehindEnd = false;
    OldRows rows(
        found.readers[table],
        [&](std::vector<OldValue> values) {
            ++read;
            pipe.send(OldRow{table, std::move(values)});
        },
        [&](quint32 page, quint32 lost) {
            leadsBehindEnd = leadsBehindEnd || page >= found.pages;
            pipe.send(BrokenPage{table, page, lost});
        });
    rows.readAll();
    if (leadsBehindEnd && read < found.list.tables[table].rows)
        throw CutOff();
}

std::optional<QString> sendAll(const QByteArray& path, Pipe& pipe) {
    const qint64 size = QFile(QFile::decodeName(path)).size();
    if (size % MDB_PGSIZE != 0)
        throw CutOff();
    OldFile file(path);
    if (!file.isOpen())
        return QStringLiteral("Hlavička súboru je poškodená.");
    const auto catalogue = file.catalogue();
    if (catalogue.empty())
        return QStringLiteral("Súbor je poškodený: zoznam jeho tabuliek sa nedá prečítať.");
    Found found;
    found.pages = static_cast<quint64>(size / MDB_PGSIZE);
    for (MdbCatalogEntry* entry : catalogue)
        look(*entry, found);
    if (found.descriptionsBehindEnd > 1)
        throw CutOff();
    pipe.send(found.list);
    for (quint32 table = 0; table < found.readers.size(); ++table)
        sendRows(found, table, pipe);
    return std::nullopt;
}

std::optional<QString> sendAllOrRefuse(const QByteArray& path, Pipe& pipe) {
    try {
        return sendAll(path, pipe);
    } catch (const CutOff&) {
        return QStringLiteral("Súbor je neúplný: chýba jeho koniec.");
    }
}

} // namespace

std::optional<int> runAsReader(int argc, char** argv) {
    if (argc != 3 || std::strcmp(argv[1], readerWord) != 0)
        return std::nullopt;
    try {
        Pipe pipe;
        if (const auto refused = sendAllOrRefuse(argv[2], pipe))
            pipe.send(Refusal{*refused});
        else
            pipe.send(EndOfFile());
        pipe.flush();
    } catch (const Unheard&) {
        return 1;
    }
    return 0;
}

} // namespace oldregister
