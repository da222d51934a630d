#include "store/CopyCheck.h"

#include "store/Connection.h"
#include "store/EngineError.h"
#include "store/OpenCheck.h"
#include "store/Query.h"
#include "store/Schema.h"

#include <QStringList>

#include <algorithm>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace store {

namespace {

constexpr unsigned mostReaders = 4;
/// SQLite leaves the page at this place of a file empty.
constexpr qint64 lockedByte = 0x40000000;

using Readers = std::vector<std::unique_ptr<Connection>>;

qint64 number(Connection& connection, const QString& sql) {
    Query query(connection.handle(), sql);
    return query.step() ? query.integer(0) : 0;
}

/// Every page belongs to one table or index alone: what checks of single tables can't see.
void checkUseOfPages(Connection& connection) {
    Query query(connection.handle(),
                QStringLiteral("SELECT count(*), count(DISTINCT pageno) FROM dbstat"));
    query.step();
    const qint64 pages = number(connection, QStringLiteral("PRAGMA page_count"));
    const bool hasEmptyPage =
        pages * number(connection, QStringLiteral("PRAGMA page_size")) > lockedByte;
    const qint64 used = hasEmptyPage ? pages - 1 : pages;
    if (query.integer(0) != used || query.integer(1) != used)
        throw EngineError(ErrorNumber::UnrecognizedFile,
                          QStringLiteral("Súbor databázy je poškodený."), connection.path());
}

/// Tables that wait to be checked, those with many rows first.
class WaitingTables {
  public:
    explicit WaitingTables(Connection& connection) {
        Query query(connection.handle(),
                    QStringLiteral("SELECT name FROM sqlite_schema WHERE type = 'table'"));
        while (query.step())
            waiting_.emplace_back(0, query.text(0));
        for (auto& [rows, name] : waiting_)
            rows = number(connection, QStringLiteral("SELECT max(rowid) FROM ") + sqlName(name));
        waiting_.emplace_back(0, QStringLiteral("sqlite_schema"));
        std::ranges::sort(waiting_);
    }
    std::optional<QString> next() {
        const std::lock_guard lock(mutex_);
        if (waiting_.empty())
            return std::nullopt;
        const QString name = waiting_.back().second;
        waiting_.pop_back();
        return name;
    }

  private:
    std::mutex mutex_;
    std::vector<std::pair<qint64, QString>> waiting_;
};

Readers readersOf(const QString& path) {
    Readers readers(std::clamp(std::thread::hardware_concurrency(), 1U, mostReaders));
    for (auto& reader : readers) {
        reader = std::make_unique<Connection>(path, Connection::Access::ReadOnly);
        reader->execute(roomForChecks);
    }
    return readers;
}

void checkBesideOneAnother(const Readers& readers) {
    WaitingTables tables(*readers.front());
    std::vector<std::future<void>> parts;
    for (const auto& reader : readers)
        parts.push_back(std::async(std::launch::async, [&tables, &reader] {
            while (const auto table = tables.next())
                checkTable(*reader, *table);
        }));
    for (auto& part : parts)
        part.get();
    checkUseOfPages(*readers.front());
}

} // namespace

void checkCopy(const QString& path) {
    checkHeader(path);
    const Readers readers = readersOf(path);
    checkIdentity(*readers.front());
    if (sqlite3_compileoption_used("ENABLE_DBSTAT_VTAB") != 0)
        checkBesideOneAnother(readers);
    else
        checkPages(*readers.front());
}

} // namespace store
