#include "store/Database.h"

#include "store/Connection.h"
#include "store/EngineError.h"
#include "store/Files.h"
#include "store/Maintenance.h"
#include "store/OpenCheck.h"
#include "store/Query.h"
#include "store/Sql.h"
#include "store/Watch.h"

#include <QFileInfo>

#include <vector>

namespace store {

namespace {

Connection& opened(const std::shared_ptr<Connection>& connection) {
    if (!connection)
        throw EngineError(ErrorNumber::NoCurrentRecord, QStringLiteral("Databáza je zatvorená."));
    return *connection;
}

qint64 runWrite(Connection& connection, Query& query) {
    return connection.writeAll([&] {
        query.run();
        return qint64{sqlite3_changes64(connection.handle())};
    });
}

} // namespace

QueryDef::QueryDef(std::shared_ptr<Connection> connection, QString name)
    : connection_(std::move(connection)), name_(std::move(name)) {}

QString QueryDef::SQL() const {
    const auto sql = opened(connection_).storedQuery(name_);
    if (!sql)
        throw EngineError(ErrorNumber::UnknownColumn,
                          QStringLiteral("Dotaz %1 v databáze nie je.").arg(name_), name_);
    return *sql;
}

void QueryDef::setSQL(const QString& sql) {
    SQL();
    Query query(connection_->handle(),
                QStringLiteral("UPDATE tvk_queries SET sql = ?2 WHERE name = ?1"));
    query.bind(1, Cell(name_.toStdString()));
    query.bind(2, Cell(sql.toStdString()));
    runWrite(*connection_, query);
}

Database::Database(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}

qint64 Database::Execute(const QString& sql) {
    Connection& connection = opened(connection_);
    Query query(connection.handle(), translateAction(sql, connection.queryLookup()));
    return runWrite(connection, query);
}

std::unique_ptr<Recordset> Database::OpenRecordset(const QString& source) {
    opened(connection_);
    return std::make_unique<Recordset>(connection_, source);
}

QueryDef Database::QueryDefs(const QString& name) {
    opened(connection_);
    return {connection_, name};
}

void Database::whileReading(std::function<void()> between) {
    opened(connection_).whileReading(std::move(between));
}

void Database::CreateQueryDef(const QString& name, const QString& sql) {
    Connection& connection = opened(connection_);
    if (connection.storedQuery(name))
        throw EngineError(ErrorNumber::ObjectExists,
                          QStringLiteral("Objekt %1 už v databáze je.").arg(name), name);
    Query query(connection.handle(), QStringLiteral("INSERT INTO tvk_queries VALUES (?1, ?2)"));
    query.bind(1, Cell(name.toStdString()));
    query.bind(2, Cell(sql.toStdString()));
    runWrite(connection, query);
}

void Database::Close() {
    const auto last = std::move(connection_);
    connection_.reset();
    if (last && last.use_count() == 1)
        last->commit();
}

class DBEngine::Impl {
  public:
    /// The open connection with a file.
    std::shared_ptr<Connection> find(const FileIdentity& file) const;
    std::shared_ptr<Connection> open(const QString& path);
    void commit();
    void rollBack() noexcept;
    void whileOpening(std::function<void(Opening)> working) { opening_ = std::move(working); }
    /// True when a connection still holds a file that was replaced at this path.
    bool holdsReplaced(const QString& path) const;

  private:
    std::vector<std::shared_ptr<Connection>> live() const;
    std::function<void()> workingAt(bool isLong, Opening what) const;

    std::vector<std::weak_ptr<Connection>> connections_;
    std::function<void(Opening)> opening_;
    std::shared_ptr<DeferredErrors> deferred_ = std::make_shared<DeferredErrors>();
};

std::vector<std::shared_ptr<Connection>> DBEngine::Impl::live() const {
    std::vector<std::shared_ptr<Connection>> live;
    for (const auto& weak : connections_)
        if (auto connection = weak.lock())
            live.push_back(std::move(connection));
    return live;
}

std::shared_ptr<Connection> DBEngine::Impl::find(const FileIdentity& file) const {
    for (const auto& connection : live())
        if (connection->identity() == file)
            return connection;
    return nullptr;
}

bool DBEngine::Impl::holdsReplaced(const QString& path) const {
    const auto file = fileIdentity(path);
    for (const auto& connection : live())
        if (connection->path() == path && connection->identity() != file)
            return true;
    return false;
}

namespace {

/// @param working called again and again; may be empty
void searchForDamage(Connection& connection, const std::function<void()>& working) {
    if (!working)
        return checkPages(connection);
    working();
    Watch(connection.handle(), [&working] {
        working();
        return true;
    }).run([&connection] { checkPages(connection); });
}

} // namespace

/// Empty for what takes no time.
std::function<void()> DBEngine::Impl::workingAt(bool isLong, Opening what) const {
    if (!isLong || !opening_)
        return {};
    return [this, what] {
        opening_(what);
    };
}

std::shared_ptr<Connection> DBEngine::Impl::open(const QString& path) {
    checkHeader(path);
    const bool wasCutOff = hasHotJournal(path);
    auto connection = std::make_shared<Connection>(path, Connection::Access::ReadWrite, deferred_);
    checkIdentity(*connection);
    // What a journal puts back may be of another state of the file than what it is put into.
    if (!remakesIndexes(*connection) && (wasCutOff || isQuicklyChecked(path)))
        searchForDamage(*connection, workingAt(wasCutOff, Opening::Checks));
    connection->execute(
        "PRAGMA journal_mode=DELETE; PRAGMA synchronous=EXTRA; PRAGMA cache_size=-65536");
    removeColdJournal(*connection);
    bringUpToDate(*connection, workingAt(true, Opening::Upgrades));
    std::erase_if(connections_, [](const auto& weak) { return weak.expired(); });
    connections_.push_back(connection);
    return connection;
}

void DBEngine::Impl::commit() {
    for (const auto& connection : live()) {
        try {
            connection->commit();
        } catch (const EngineError& error) {
            deferred_->add(error);
        }
    }
    const auto failure = std::exchange(deferred_->first, std::nullopt);
    if (failure)
        throw *failure;
}

void DBEngine::Impl::rollBack() noexcept {
    for (const auto& weak : connections_)
        if (const auto connection = weak.lock())
            connection->rollBack();
    deferred_->first.reset();
}

DBEngine::DBEngine() : impl_(std::make_unique<Impl>()) {}

DBEngine::~DBEngine() = default;

Database DBEngine::OpenDatabase(const QString& path) {
    if (const auto file = fileIdentity(path))
        if (auto connection = impl_->find(*file))
            return Database(std::move(connection));
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return Database(impl_->open(canonical.isEmpty() ? path : canonical));
}

void DBEngine::CompactDatabase(const QString& source, const QString& target, const QString&,
                               const TellProgress& tell) {
    commitPending();
    compactDatabase(source, target, tell);
}

void DBEngine::CreateDatabase(const QString& path) {
    createDatabase(path);
}

void DBEngine::verifyDatabase(const QString& path, const TellProgress& tell) {
    store::verifyDatabase(path, tell);
}

bool DBEngine::owesFullCheck(const QString& path) {
    return !isQuicklyChecked(path);
}

void DBEngine::whileOpening(std::function<void(Opening)> working) {
    impl_->whileOpening(std::move(working));
}

void DBEngine::commitPending() {
    impl_->commit();
}

void DBEngine::rollBackPending() noexcept {
    impl_->rollBack();
}

bool DBEngine::holdsReplacedFile(const QString& path) const {
    return impl_->holdsReplaced(QFileInfo(path).canonicalFilePath());
}

} // namespace store
