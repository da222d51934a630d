#include "store/Maintenance.h"

#include "store/Connection.h"
#include "store/CopyCheck.h"
#include "store/Dates.h"
#include "store/EngineError.h"
#include "store/Files.h"
#include "store/OpenCheck.h"
#include "store/Query.h"
#include "store/Schema.h"
#include "store/SqlFunctions.h"
#include "store/Watch.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <future>
#include <string>
#include <utility>
#include <vector>

namespace store {

namespace {

struct StoredQuery {
    const char* name;
    const char16_t* sql;
};

/// The program puts its own statement into all of them before use, but for vyp_zazZmeny.
constexpr StoredQuery storedQueries[] = {
    {"vyp_zaklad", u"select * from k_zaklad"},
    {"vyp_rodicia", u"select * from k_zaklad"},
    {"vyp_memo", u"select * from k_memo"},
    {"vyp_vysetrenie", u"select * from k_vysetrenie"},
    {"vyp_zariad", u"select * from k_zariad"},
    {"vyp_zazspc", u"select * from k_zaznam_spc"},
    {"vyp_surodenci", u"select * from k_surodenci"},
    {"vyp_navstevy", u"select * from k_navstevy"},
    {"vyp_zoz_klient", u"SELECT k_zaklad.meno,k_zaklad.priezv,k_zaklad.rodcis,k_zaklad.katcis,"
                       u"k_zaklad.datnar,k_zaklad.ulica,k_zaklad.obec,k_zaklad.psc FROM k_zaklad  "
                       u"ORDER BY k_zaklad.priezv+k_zaklad.meno"},
    {"vyp_zazZmeny", u"select k_zaznam_zmeny.idkod, k_zaznam_zmeny.datum, trim(zamestnanci.meno) & "
                     u"'  ' & trim(zamestnanci.priezv) as Expr1, k_zaznam_zmeny.zmeny "
                     u"from k_zaznam_zmeny left join zamestnanci on "
                     u"k_zaznam_zmeny.idkod_p = zamestnanci.idkod order by k_zaznam_zmeny.datum"},
};

/// What vyp_zazZmeny was before it told whose the changes are.
constexpr auto keylessChanges =
    u"select k_zaznam_zmeny.datum, trim(zamestnanci.meno) & '  ' & trim(zamestnanci.priezv) as "
    u"Expr1, k_zaznam_zmeny.zmeny from k_zaznam_zmeny left join zamestnanci on "
    u"k_zaznam_zmeny.idkod_p = zamestnanci.idkod order by k_zaznam_zmeny.datum";

struct IndexFigures {
    const char* table;
    const char* index;
    /// Rows of the table, then rows that one value of the index has, of its first column, of its
    /// first two and so on.
    const char* figures;
};

/// What the planner of queries shall reckon with: a large register, whatever this one holds, so
/// that a query runs in the same way in all of them.
constexpr IndexFigures figures[] = {
    {"k_zaklad", "k_zaklad_idkod", "10000 1"},
    {"k_zaklad", "k_zaklad_meno", "10000 5 1"},
    {"k_zaklad", "k_zaklad_vek", "10000 500 1"},
    {"k_zaklad", "k_zaklad_katcis", "10000 1"},
    {"k_zaklad", "k_zaklad_katcis_val", "10000 1"},
    {"k_memo", "k_memo_idkod", "10000 1"},
    {"k_surodenci", "k_surodenci_idkod", "20000 2 1"},
    {"k_zariad", "k_zariad_idkod", "30000 3 1"},
    {"k_zariad", "k_zariad_nazzar", "30000 1000"},
    {"k_vysetrenie", "k_vysetrenie_idkod", "50000 5 1"},
    {"k_vysetrenie", "k_vysetrenie_idkod_p", "50000 2000"},
    {"k_zaznam_zmeny", "k_zaznam_zmeny_idkod", "50000 5 1"},
    {"k_zaznam_zmeny", "k_zaznam_zmeny_idkod_p", "50000 2000"},
    {"k_zaznam_spc", "k_zaznam_spc_idkod", "100000 10 1"},
    {"k_zaznam_spc", "k_zaznam_spc_idkod_p", "100000 5000"},
    {"k_navstevy", "k_navstevy_idkod", "100000 10 1"},
    {"zamestnanci", "zamestnanci_idkod", "50 1"},
    {"zamestnanci", "zamestnanci_meno", "50 1 1"},
};

/// Removes a file that was begun, and a journal that a full disk left of it, unless its maker is
/// through with it.
class BegunFile {
  public:
    explicit BegunFile(const QString& path) : path_(path) { createPrivateFile(path); }
    ~BegunFile() {
        if (kept_)
            return;
        QFile::remove(path_);
        QFile::remove(path_ + QStringLiteral("-journal"));
    }
    BegunFile(const BegunFile&) = delete;
    BegunFile& operator=(const BegunFile&) = delete;
    void keep() { kept_ = true; }

  private:
    QString path_;
    bool kept_ = false;
};

void refuseExisting(const QString& path) {
    const QFileInfo info(path);
    if (info.exists() || info.isSymLink())
        throw EngineError(ErrorNumber::TargetExists, QStringLiteral("Cieľový súbor už existuje."),
                          path);
}

bool isTextOrderCurrent(Connection& connection) {
    Query known(connection.handle(),
                QStringLiteral("SELECT 1 FROM tvk_meta WHERE name='text_order' AND value=?1"));
    known.bind(1, Cell(textOrderVersion().toStdString()));
    return known.step();
}

void noteTextOrder(Connection& connection) {
    Query note(connection.handle(),
               QStringLiteral("INSERT OR REPLACE INTO tvk_meta VALUES ('text_order', ?1)"));
    note.bind(1, Cell(textOrderVersion().toStdString()));
    note.run();
}

void fillMeta(Connection& connection) {
    noteTextOrder(connection);
    Query query(connection.handle(), QStringLiteral("INSERT INTO tvk_queries VALUES (?1, ?2)"));
    for (const StoredQuery& stored : storedQueries) {
        query.bind(1, Cell(std::string(stored.name)));
        query.bind(2, Cell(QString::fromUtf16(stored.sql).toStdString()));
        query.run();
    }
}

void fillFigures(Connection& connection) {
    connection.execute("ANALYZE sqlite_schema");
    Query query(connection.handle(),
                QStringLiteral("INSERT INTO sqlite_stat1 VALUES (?1, ?2, ?3)"));
    for (const IndexFigures& row : figures) {
        query.bind(1, Cell(std::string(row.table)));
        query.bind(2, Cell(std::string(row.index)));
        query.bind(3, Cell(std::string(row.figures)));
        query.run();
    }
}

void run(Connection& connection, const QString& sql) {
    connection.execute(sql.toUtf8().constData());
}

void run(Connection& connection, const QStringList& statements) {
    for (const QString& statement : statements)
        run(connection, statement);
}

void noteVersion(Connection& connection) {
    run(connection, QStringLiteral("PRAGMA user_version=%1").arg(schemaVersion));
}

void fillDatabase(Connection& connection) {
    connection.execute("PRAGMA journal_mode=MEMORY; BEGIN;"
                       "CREATE TABLE tvk_queries (name TEXT COLLATE NOCASE PRIMARY KEY, sql TEXT);"
                       "CREATE TABLE tvk_meta (name TEXT PRIMARY KEY, value TEXT)");
    run(connection, createStatements());
    fillMeta(connection);
    fillFigures(connection);
    noteVersion(connection);
    run(connection, QStringLiteral("PRAGMA application_id=%1; COMMIT").arg(applicationId));
}

/// Makes a table anew as the schema has it now; its rows keep their numbers.
void makeAnew(Connection& connection, const TableDef& table) {
    const QString beside = QString::fromUtf16(table.name) + QStringLiteral("_nova");
    QStringList columns{rowNumber.toString()};
    for (const ColumnDef& column : table.columns)
        columns << sqlName(column.name);
    const QString list = columns.join(QStringLiteral(", "));
    run(connection,
        {createTable(table, beside),
         QStringLiteral("INSERT INTO %1 (%2) SELECT %2 FROM %3")
             .arg(sqlName(beside), list, sqlName(table.name)),
         QStringLiteral("DROP TABLE ") + sqlName(table.name),
         QStringLiteral("ALTER TABLE %1 RENAME TO %2").arg(sqlName(beside), sqlName(table.name))});
}

/// An older version took fewer ways of typing a date for one: reads the texts that it left anew.
void readDatesAnew(Connection& connection, const QString& table, const QString& column) {
    Query texts(connection.handle(),
                QStringLiteral("SELECT rowid, %1 FROM %2 WHERE %1 >= ?1").arg(column, table));
    texts.bind(1, Cell(nonDateToColumn(u"")));
    std::vector<std::pair<qint64, std::string>> changes;
    while (texts.step()) {
        const Value typed = dateFromColumn(texts.text(1).toStdString());
        if (const auto date = readDate(typed.toText()))
            changes.emplace_back(texts.integer(0), dateToColumn(*date));
    }
    Query update(connection.handle(),
                 QStringLiteral("UPDATE %1 SET %2 = ?2 WHERE rowid = ?1").arg(table, column));
    for (const auto& [rowid, date] : changes) {
        update.bind(1, rowid);
        update.bind(2, Cell(date));
        update.run();
    }
}

double bytesInUse(const Connection& connection) {
    const qint64 pages = connection.number(QStringLiteral("PRAGMA page_count")) -
                         connection.number(QStringLiteral("PRAGMA freelist_count"));
    return static_cast<double>(pages * connection.number(QStringLiteral("PRAGMA page_size")));
}

void makeAllAnew(Connection& connection) {
    for (const TableDef& table : schema()) {
        makeAnew(connection, table);
        for (const ColumnDef& column : table.columns)
            if (column.type == ColumnType::Date)
                readDatesAnew(connection, sqlName(table.name), sqlName(column.name));
    }
    run(connection, createIndexes());
    fillFigures(connection);
}

/// Gives the stored query of changes the client's key, unless somebody has put another statement
/// there.
void renewChanges(Connection& connection) {
    const auto current =
        std::ranges::find(storedQueries, QLatin1String("vyp_zazZmeny"),
                          [](const StoredQuery& query) { return QLatin1String(query.name); });
    Query renew(connection.handle(),
                QStringLiteral("UPDATE tvk_queries SET sql = ?1 WHERE name = ?2 AND sql = ?3"));
    renew.bind(1, Cell(QString::fromUtf16(current->sql).toStdString()));
    renew.bind(2, Cell(std::string(current->name)));
    renew.bind(3, Cell(QString::fromUtf16(keylessChanges).toStdString()));
    renew.run();
}

void renewFrom(quint32 version, Connection& connection) {
    if (version < 2)
        makeAllAnew(connection);
    renewChanges(connection);
    noteVersion(connection);
}

/// Calls now, and again and again as long as it lives, while SQLite works.
class Heartbeat {
  public:
    Heartbeat(Connection& connection, const std::function<void()>& call) : connection_(connection) {
        if (!call)
            return;
        call();
        sqlite3_progress_handler(connection.handle(), stride, beat,
                                 const_cast<std::function<void()>*>(&call));
    }
    ~Heartbeat() { sqlite3_progress_handler(connection_.handle(), 0, nullptr, nullptr); }
    Heartbeat(const Heartbeat&) = delete;
    Heartbeat& operator=(const Heartbeat&) = delete;

  private:
    /// Instructions of SQLite between two calls: some milliseconds.
    static constexpr int stride = 100'000;

    static int beat(void* call) {
        (*static_cast<const std::function<void()>*>(call))();
        return 0;
    }

    Connection& connection_;
};

} // namespace

void createDatabase(const QString& path) {
    refuseExisting(path);
    const QString beside = path + QStringLiteral(".nova");
    QFile::remove(beside);
    BegunFile begun(beside);
    {
        Connection connection(beside, Connection::Access::ReadWrite);
        fillDatabase(connection);
    }
    moveToFreeName(beside, path);
    begun.keep();
}

void vacuumInto(const QString& source, const QString& target, const TellProgress& tell) {
    Connection connection(source, Connection::Access::ReadWrite);
    checkIdentity(connection);
    const double bytes = bytesInUse(connection);
    Query query(connection.handle(), QStringLiteral("VACUUM INTO ?1"));
    query.bind(1, Cell(target.toStdString()));
    Watch(connection.handle(), [&] {
        return !tell || tell(std::min(1.0, static_cast<double>(QFileInfo(target).size()) / bytes));
    }).run([&query] { query.run(); });
}

void compactDatabase(const QString& source, const QString& target, const TellProgress& tell) {
    constexpr double copying = 0.4;
    refuseExisting(target);
    checkHeader(source);
    BegunFile begun(target);
    const Share copied(tell, 0, copying);
    copied(0);
    vacuumInto(source, target, [&copied](double part) { return copied.tells(part); });
    auto synced = std::async(std::launch::async, [&target] { syncFile(target); });
    const Share checked(tell, copying, 1);
    checked(0);
    try {
        checkCopy(target, [&checked](double part) { return checked.tells(part); });
    } catch (const EngineError& error) {
        throw EngineError(ErrorNumber::UnrecognizedFile, error.description(), target);
    }
    synced.get();
    begun.keep();
}

void verifyDatabase(const QString& path, const TellProgress& tell) {
    checkHeader(path);
    try {
        Connection connection(path, Connection::Access::ReadOnly);
        connection.execute(roomForChecks);
        checkIdentity(connection);
        checkAllPages(connection, tell);
    } catch (const EngineError& error) {
        throw EngineError(ErrorNumber::UnrecognizedFile, error.description(), path);
    }
}

bool isUpToDate(Connection& connection) {
    return versionOf(connection) == schemaVersion && isTextOrderCurrent(connection);
}

void bringUpToDate(Connection& connection, const std::function<void()>& working) {
    const quint32 version = versionOf(connection);
    const bool isOld = version != schemaVersion;
    if (!isOld && isTextOrderCurrent(connection))
        return;
    const Heartbeat heartbeat(connection, working);
    try {
        connection.writeAll([&] {
            if (isOld)
                renewFrom(version, connection);
            else
                connection.execute("REINDEX");
            noteTextOrder(connection);
            checkShape(connection);
            return true;
        });
        connection.commit();
    } catch (const EngineError& error) {
        if (!isOld || error.number() != ErrorNumber::ReadOnly)
            throw;
        checkPages(connection);
    }
}

} // namespace store
