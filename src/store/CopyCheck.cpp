#include "store/CopyCheck.h"

#include "store/Connection.h"
#include "store/EngineError.h"
#include "store/OpenCheck.h"
#include "store/Pace.h"
#include "store/Query.h"
#include "store/Schema.h"
#include "store/Watch.h"

#include <algorithm>
#include <atomic>
#include <functional>
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

/// Every page belongs to one table or index alone: what checks of single tables can't see.
void checkUseOfPages(Connection& connection) {
    Query query(connection.handle(),
                QStringLiteral("SELECT count(*), count(DISTINCT pageno) FROM dbstat"));
    query.step();
    const qint64 pages = connection.number(QStringLiteral("PRAGMA page_count"));
    const bool hasEmptyPage =
        pages * connection.number(QStringLiteral("PRAGMA page_size")) > lockedByte;
    const qint64 used = hasEmptyPage ? pages - 1 : pages;
    if (query.integer(0) != used || query.integer(1) != used)
        throw EngineError(ErrorNumber::UnrecognizedFile,
                          QStringLiteral("Súbor databázy je poškodený."), connection.path());
}

/// The tables that are to be checked, taken by several readers, and how far they have come.
class WaitingTables {
  public:
    explicit WaitingTables(Connection& connection) : waiting_(checkLoads(connection)) {
        for (const CheckLoad& load : waiting_)
            all_ += load.instructions;
    }
    /// The largest that is left.
    std::optional<QString> next() {
        const std::lock_guard lock(mutex_);
        if (waiting_.empty() || pace_.isStopped())
            return std::nullopt;
        const QString name = waiting_.back().table;
        waiting_.pop_back();
        return name;
    }
    /// Counts what a reader has done. @return false when all are to stop
    bool count() {
        const qint64 done = done_ += Watch::stride;
        return pace_.tells(std::min(1.0, static_cast<double>(done) / static_cast<double>(all_)));
    }
    Pace& pace() { return pace_; }

  private:
    std::mutex mutex_;
    std::vector<CheckLoad> waiting_;
    qint64 all_ = 1;
    std::atomic<qint64> done_ = 0;
    Pace pace_;
};

void checkWaiting(WaitingTables& tables, Connection& reader) {
    Watch(reader.handle(), [&tables] { return tables.count(); }).run([&] {
        while (const auto table = tables.next())
            checkTable(reader, *table);
    });
}

Readers readersOf(const QString& path) {
    Readers readers(std::clamp(std::thread::hardware_concurrency(), 1U, mostReaders));
    for (auto& reader : readers) {
        reader = std::make_unique<Connection>(path, Connection::Access::ReadOnly);
        reader->execute(roomForChecks);
    }
    return readers;
}

void checkBesideOneAnother(const Readers& readers, const TellProgress& tell) {
    WaitingTables tables(*readers.front());
    std::vector<std::future<void>> parts;
    for (const auto& reader : readers)
        parts.push_back(
            std::async(std::launch::async, checkWaiting, std::ref(tables), std::ref(*reader)));
    for (const auto& part : parts)
        tables.pace().waitFor(part, tell);
    for (auto& part : parts)
        part.get();
    if (tables.pace().isStopped())
        throw GivenUp();
    checkUseOfPages(*readers.front());
}

} // namespace

void checkCopy(const QString& path, const TellProgress& tell) {
    checkHeader(path);
    const Readers readers = readersOf(path);
    checkIdentity(*readers.front());
    if (sqlite3_compileoption_used("ENABLE_DBSTAT_VTAB") != 0)
        checkBesideOneAnother(readers, tell);
    else
        checkAllPages(*readers.front(), tell);
}

} // namespace store
