#include "store/OpenCheck.h"

#include "store/Connection.h"
#include "store/EngineError.h"
#include "store/Query.h"
#include "store/Schema.h"
#include "store/Watch.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QtEndian>

#include <algorithm>

namespace store {

namespace {

/// The first bytes of a database file, as its format lays them out.
class Header {
  public:
    explicit Header(QByteArray bytes) : bytes_(std::move(bytes)) {}

    bool isDatabase() const {
        return bytes_.size() == size && bytes_.startsWith(QByteArray("SQLite format 3\0", 16));
    }
    qint64 pageSize() const {
        const qint64 stored = at<quint16>(16);
        return stored == 1 ? 65536 : stored;
    }
    /// Zero when the count is out of date and so unknown.
    qint64 pageCount() const { return at<quint32>(24) == at<quint32>(92) ? at<quint32>(28) : 0; }
    /// Neither a write-ahead log nor a format from the future.
    bool hasRollbackJournal() const { return at<quint16>(18) == 0x0101; }
    quint32 version() const { return at<quint32>(60); }
    quint32 application() const { return at<quint32>(68); }

    static constexpr qsizetype size = 100;

  private:
    template <class Number>
    Number at(qsizetype offset) const {
        return qFromBigEndian<Number>(bytes_.constData() + offset);
    }
    QByteArray bytes_;
};

[[noreturn]] void refuse(const QString& path, const QString& why) {
    throw EngineError(ErrorNumber::UnrecognizedFile, why, path);
}

/// About 2,000 clients.
constexpr qint64 quicklyChecked = qint64{8} << 20;

QString journalOf(const QString& path) {
    return path + QStringLiteral("-journal");
}

void checkOwner(const QString& path, quint32 application, quint32 version) {
    if (application != applicationId)
        refuse(path, QStringLiteral("Súbor je databáza iného programu."));
    if (version > schemaVersion)
        refuse(path, QStringLiteral("Súbor je z novšej verzie programu."));
    if (version < oldestVersion)
        refuse(path, QStringLiteral("Súbor je z nepodporovanej verzie programu."));
}

/// A pipe in the place of a journal would let SQLite wait for ever.
void refuseOddCompanions(const QString& path) {
    for (const QString& companion : {journalOf(path), path + QStringLiteral("-wal")}) {
        const QFileInfo info(companion);
        if (info.exists() && !info.isFile())
            throw EngineError(ErrorNumber::CannotOpen,
                              QStringLiteral("Na mieste žurnálu databázy leží niečo iné."),
                              companion);
    }
}

void checkHeaderOf(QFile& file) {
    const QString path = file.fileName();
    if (file.size() == 0)
        refuse(path, QStringLiteral("Súbor je prázdny."));
    const Header header(file.read(Header::size));
    if (!header.isDatabase())
        refuse(path, QStringLiteral("Súbor nie je databáza."));
    if (hasHotJournal(path))
        return;
    checkOwner(path, header.application(), header.version());
    if (!header.hasRollbackJournal())
        refuse(path, QStringLiteral("Súbor má neznámy formát."));
    if (header.pageSize() < 512 || file.size() < header.pageSize() * header.pageCount())
        refuse(path, QStringLiteral("Súbor je neúplný."));
}

bool hasTable(Connection& connection, const QString& name, const QStringList& columns) {
    Query query(connection.handle(), QStringLiteral("SELECT name FROM pragma_table_info(?1)"));
    query.bind(1, Cell(name.toStdString()));
    QStringList found;
    while (query.step())
        found << query.text(0);
    found.removeOne(rowNumber);
    return found == columns;
}

QStringList namesOf(const TableDef& table) {
    QStringList names;
    for (const ColumnDef& column : table.columns)
        names << QString::fromUtf16(column.name);
    return names;
}

void refuseActingParts(Connection& connection) {
    Query query(connection.handle(),
                QStringLiteral("SELECT name FROM sqlite_schema WHERE type IN ('trigger', 'view') "
                               "OR sql LIKE 'CREATE VIRTUAL%'"));
    if (query.step())
        refuse(connection.path(),
               QStringLiteral("V súbore je cudzia súčasť %1.").arg(query.text(0)));
}

void checkTables(Connection& connection) {
    const auto demand = [&](const QString& name, const QStringList& columns) {
        if (!hasTable(connection, name, columns))
            refuse(connection.path(), QStringLiteral("V súbore chýba tabuľka %1.").arg(name));
    };
    for (const TableDef& table : schema())
        demand(QString::fromUtf16(table.name), namesOf(table));
    demand(QStringLiteral("tvk_queries"), {QStringLiteral("name"), QStringLiteral("sql")});
    demand(QStringLiteral("tvk_meta"), {QStringLiteral("name"), QStringLiteral("value")});
}

/// Whatever SQLite says of a file that it can't make sense of, the file is no register.
template <class Check>
void asUnrecognized(Connection& connection, Check&& check) {
    try {
        check();
    } catch (const EngineError& error) {
        if (error.number() == ErrorNumber::Internal || error.number() == ErrorNumber::DiskError)
            refuse(connection.path(), error.description());
        throw EngineError(error.number(), error.description(), connection.path());
    }
}

void checkIntegrity(Connection& connection, const QString& check) {
    Query query(connection.handle(), QStringLiteral("PRAGMA ") + check);
    if (!query.step() || query.text(0) != QStringLiteral("ok"))
        refuse(connection.path(), QStringLiteral("Súbor databázy je poškodený."));
}

} // namespace

bool hasHotJournal(const QString& path) {
    QFile journal(journalOf(path));
    char first = 0;
    return journal.open(QIODevice::ReadOnly) && journal.getChar(&first) && first != 0;
}

void removeColdJournal(Connection& connection) {
    const QString journal = journalOf(connection.path());
    if (!QFileInfo::exists(journal) || sqlite3_db_readonly(connection.handle(), "main") != 0)
        return;
    connection.setPatience(0);
    try {
        // Nobody writes while this lock is held, and what was to be taken back has been.
        connection.execute("BEGIN EXCLUSIVE");
        QFile::remove(journal);
        connection.execute("ROLLBACK");
    } catch (const EngineError& error) {
        // Then the journal belongs to another program that is writing just now.
        if (error.number() != ErrorNumber::Busy)
            throw;
    }
    connection.setPatience(Connection::usualPatienceMs);
}

bool isQuicklyChecked(const QString& path) {
    return QFileInfo(path).size() <= quicklyChecked;
}

void checkHeader(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists() || info.isDir())
        throw EngineError(ErrorNumber::FileNotFound, QStringLiteral("Súbor sa nenašiel."), path);
    refuseOddCompanions(path);
    QFile file(path);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        throw EngineError(ErrorNumber::CannotOpen, QStringLiteral("Súbor sa nedá čítať."), path);
    checkHeaderOf(file);
}

void checkIdentity(Connection& connection) {
    asUnrecognized(connection, [&] {
        const qint64 application = connection.number(QStringLiteral("PRAGMA application_id"));
        checkOwner(connection.path(), static_cast<quint32>(application), versionOf(connection));
        checkTables(connection);
        refuseActingParts(connection);
    });
}

quint32 versionOf(Connection& connection) {
    return static_cast<quint32>(connection.number(QStringLiteral("PRAGMA user_version")));
}

void checkPages(Connection& connection) {
    asUnrecognized(connection,
                   [&] { checkIntegrity(connection, QStringLiteral("integrity_check")); });
}

void checkShape(Connection& connection) {
    asUnrecognized(connection, [&] { checkIntegrity(connection, QStringLiteral("quick_check")); });
}

namespace {

/// Instructions for each row, for each of its columns and for each entry in an index.
qint64 perRow(Connection& connection, const QString& table) {
    Query parts(connection.handle(),
                QStringLiteral("SELECT 3 + (SELECT count(*) FROM pragma_table_info(?1)) + "
                               "4 * (SELECT count(*) FROM pragma_index_list(?1))"));
    parts.bind(1, Cell(table.toStdString()));
    return parts.step() ? parts.integer(0) : 0;
}

qint64 rowsOf(const Connection& connection, const QString& table) {
    return connection.number(QStringLiteral("SELECT max(rowid) FROM ") + sqlName(table));
}

} // namespace

std::vector<CheckLoad> checkLoads(Connection& connection) {
    std::vector<CheckLoad> loads{{0, QStringLiteral("sqlite_schema")}};
    Query tables(connection.handle(),
                 QStringLiteral("SELECT name FROM sqlite_schema WHERE type = 'table'"));
    while (tables.step())
        loads.push_back({0, tables.text(0)});
    for (CheckLoad& load : loads)
        load.instructions = rowsOf(connection, load.table) * perRow(connection, load.table);
    std::ranges::sort(loads, {}, &CheckLoad::instructions);
    return loads;
}

void checkAllPages(Connection& connection, const TellProgress& tell) {
    qint64 all = 1;
    for (const CheckLoad& load : checkLoads(connection))
        all += load.instructions;
    qint64 done = 0;
    Watch(connection.handle(), [&] {
        done += Watch::stride;
        return !tell || tell(std::min(1.0, static_cast<double>(done) / static_cast<double>(all)));
    }).run([&connection] { checkPages(connection); });
}

void checkTable(Connection& connection, const QString& name) {
    asUnrecognized(connection, [&] {
        checkIntegrity(connection, QStringLiteral("integrity_check(%1)").arg(sqlName(name)));
    });
}

} // namespace store
