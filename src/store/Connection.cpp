#include "store/Connection.h"

#include "store/SqlFunctions.h"
#include "store/SqliteErrors.h"

#include <QUrl>

namespace store {

namespace {

/// More than the changes that may be counted in one epoch.
constexpr quint64 epochStep = quint64{1} << 40;

FileIdentity identityOf(const QString& path) {
    const auto identity = fileIdentity(path);
    if (!identity)
        throw EngineError(ErrorNumber::FileNotFound, QStringLiteral("Súbor sa nenašiel."), path);
    return *identity;
}

/// Opens for a connection that is used by one thread at a time. @return also what failed to open
sqlite3* openFile(const QString& path, Connection::Access access, int& code) {
    using Access = Connection::Access;
    const int flags = SQLITE_OPEN_NOMUTEX |
                      (access == Access::ReadWrite ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY) |
                      (access == Access::Unlocked ? SQLITE_OPEN_URI : 0);
    const QByteArray name = access == Access::Unlocked
                                ? "file:" + QUrl::toPercentEncoding(path, "/") + "?immutable=1"
                                : path.toUtf8();
    sqlite3* file = nullptr;
    code = sqlite3_open_v2(name.constData(), &file, flags, nullptr);
    return file;
}

} // namespace

Connection::Connection(const QString& path, Access access, std::shared_ptr<DeferredErrors> deferred)
    : path_(path), identity_(identityOf(path)), deferred_(std::move(deferred)) {
    int code = SQLITE_OK;
    file_.reset(openFile(path, access, code));
    if (code != SQLITE_OK)
        throw sqliteError(code, nullptr, path);
    setPatience(usualPatienceMs);
    sqlite3_extended_result_codes(handle(), 1);
    sqlite3_db_config(handle(), SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    registerSqlFunctions(handle());
    execute("PRAGMA cell_size_check=ON; PRAGMA temp_store=MEMORY");
}

Connection::~Connection() {
    try {
        commit();
    } catch (const EngineError& error) {
        if (deferred_)
            deferred_->add(error);
    }
    lookup_.reset();
}

void Connection::setPatience(int milliseconds) {
    sqlite3_busy_timeout(handle(), milliseconds);
}

void Connection::execute(const char* sql) {
    const int code = sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        throw sqliteError(code, handle(), QString::fromUtf8(sql));
}

qint64 Connection::number(const QString& sql) const {
    Query query(handle(), sql);
    return query.step() ? query.integer(0) : 0;
}

void Connection::beginWrite() {
    if (lost_)
        throw *lost_;
    if (!isIdle() && writing_)
        return;
    try {
        openForWriting();
    } catch (const EngineError& error) {
        noteFailure(error);
        throw;
    }
}

/// From reading to writing there is no waiting for other programs, so begin afresh.
void Connection::openForWriting() {
    if (!isIdle())
        execute("COMMIT");
    writes_ = 0;
    execute("BEGIN IMMEDIATE");
    writing_ = true;
}

void Connection::beginRead() {
    if (!isIdle())
        return;
    execute("BEGIN");
    writing_ = false;
}

bool Connection::isIdle() const {
    return sqlite3_get_autocommit(handle()) != 0;
}

void Connection::noteFailure(const EngineError& error) {
    const bool ofMedium = isOfMedium(error.number());
    if (ofMedium)
        undo();
    if (!isIdle())
        return;
    ++epoch_;
    if (ofMedium || writes_ > 0)
        lost_ = error;
    writes_ = 0;
}

void Connection::undo() noexcept {
    if (isIdle())
        return;
    sqlite3_exec(handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    ++epoch_;
}

void Connection::rollBack() noexcept {
    undo();
    writes_ = 0;
    lost_.reset();
}

void Connection::commit() {
    writes_ = 0;
    if (lost_) {
        const EngineError error = *lost_;
        lost_.reset();
        throw error;
    }
    if (isIdle())
        return;
    ++epoch_;
    try {
        execute("COMMIT");
    } catch (const EngineError&) {
        undo();
        throw;
    }
}

void Connection::rowRead() {
    constexpr quint64 rowsBetween = 512;
    if (betweenRows_ && ++rowsRead_ % rowsBetween == 0)
        betweenRows_();
}

quint64 Connection::changeStamp() const {
    return static_cast<quint64>(sqlite3_total_changes64(handle())) + epoch_ * epochStep;
}

std::optional<QString> Connection::storedQuery(QStringView name) {
    if (!lookup_)
        lookup_.emplace(handle(), QStringLiteral("SELECT sql FROM tvk_queries WHERE name = ?1"));
    lookup_->bind(1, Cell(name.toString().toStdString()));
    std::optional<QString> sql;
    if (lookup_->step())
        sql = lookup_->text(0);
    lookup_->reset();
    return sql;
}

QueryLookup Connection::queryLookup() {
    return [this](QStringView name) {
        return storedQuery(name);
    };
}

Connection::Savepoint::Savepoint(Connection& connection) : connection_(connection) {
    connection_.execute("SAVEPOINT statement");
}

Connection::Savepoint::~Savepoint() {
    if (!open_ || connection_.isIdle())
        return;
    sqlite3_exec(connection_.handle(), "ROLLBACK TO statement; RELEASE statement", nullptr, nullptr,
                 nullptr);
    ++connection_.epoch_;
}

void Connection::Savepoint::release() const {
    connection_.execute("RELEASE statement");
    open_ = false;
}

} // namespace store
