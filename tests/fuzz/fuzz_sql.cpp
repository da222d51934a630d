// A text is refused with an EngineError, or it is translated into a statement that SQLite reads;
// running it on a few rows ends well, or with an error of a function of ours.

#include "store/EngineError.h"
#include "store/Schema.h"
#include "store/Sql.h"
#include "store/SqlFunctions.h"

#include <sqlite3.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>

using namespace store;

namespace {

constexpr int mostRows = 50;
constexpr int mostSteps = 200'000;

void execute(sqlite3* connection, const QString& statement) {
    sqlite3_exec(connection, statement.toUtf8().constData(), nullptr, nullptr, nullptr);
}

int interruptStatement(void* /*unused*/) {
    return 1;
}

sqlite3* openRegister() {
    sqlite3* connection = nullptr;
    sqlite3_open(":memory:", &connection);
    registerSqlFunctions(connection);
    for (const QString& statement : createStatements())
        execute(connection, statement);
    for (const char* action :
         {"insert into k_zaklad(idkod, meno, priezv, katcis, vek, datnar, datevi, matvla) "
          "values('A', 'Ján', 'Chudý-Šoltés ', ' 1 2a', 7, '29.2.2000', '31.02.2005', true)",
          "insert into k_zaklad(idkod, meno) values('B', 'ß\t')",
          "insert into k_navstevy values('a ', '1.9.2006 10:00', 'neskôr')",
          "insert into c_jazyk values('SK', 'slovenský')",
          "insert into c_zariad values('5', 'škola', 'VYCH', '')",
          "insert into zamestnanci values('Z', 'Éva', 'Oľgová', 1, 'z', 'i', 'a')"})
        execute(connection, translateAction(QString::fromUtf8(action)));
    return connection;
}

std::optional<QString> storedQuery(QStringView name) {
    if (name.compare(u"q1", Qt::CaseInsensitive) == 0)
        return QStringLiteral("select meno, priezv & '' as cele, datnar, count(*) as pocet "
                              "from k_zaklad group by meno, priezv & '', datnar order by meno");
    if (name.compare(u"q2", Qt::CaseInsensitive) == 0)
        return QStringLiteral("select * from q1, q2");
    return {};
}

[[noreturn]] void fail(sqlite3* connection, const QString& statement) {
    std::fprintf(stderr, "%s\n%s\n", sqlite3_errmsg(connection), statement.toUtf8().constData());
    std::abort();
}

/// What a statement may end with when its values do not fit.
bool isFair(sqlite3* connection, int code) {
    const int primary = code & 0xff;
    const bool isOwn = QByteArray(sqlite3_errmsg(connection)).startsWith("TVK:") ||
                       QByteArray(sqlite3_errmsg(connection)) == "integer overflow";
    return code == SQLITE_DONE || code == SQLITE_ROW || primary == SQLITE_INTERRUPT ||
           code == SQLITE_CONSTRAINT_UNIQUE || isOwn;
}

void mustRun(sqlite3* connection, const QString& statement) {
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(connection, statement.toUtf8().constData(), -1, &prepared, nullptr) !=
        SQLITE_OK)
        fail(connection, statement);
    sqlite3_progress_handler(connection, mostSteps, interruptStatement, nullptr);
    int code = SQLITE_ROW;
    for (int i = 0; i < mostRows && code == SQLITE_ROW; ++i)
        code = sqlite3_step(prepared);
    if (!isFair(connection, code == SQLITE_ERROR || code == SQLITE_CONSTRAINT
                                ? sqlite3_extended_errcode(connection)
                                : code))
        fail(connection, statement);
    sqlite3_finalize(prepared);
    sqlite3_progress_handler(connection, 0, nullptr, nullptr);
}

void mustTranslate(const std::function<void()>& translate) {
    try {
        translate();
    } catch (const EngineError& error) {
        if (error.description().isEmpty())
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static sqlite3* const connection = openRegister();
    static const SelectPlan clients =
        translateSelect(QStringLiteral("select *, meno+space(2)+priezv as celemeno from k_zaklad"));
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    mustTranslate([&] {
        const SelectPlan plan = translateSelect(text, storedQuery);
        mustRun(connection, plan.rows);
        if (!plan.updatable)
            return;
        mustRun(connection, selectKeys(plan));
        mustRun(connection, selectRow(plan));
    });
    execute(connection, QStringLiteral("SAVEPOINT before"));
    mustTranslate([&] { mustRun(connection, translateAction(text, storedQuery)); });
    execute(connection, QStringLiteral("ROLLBACK TO before"));
    execute(connection, QStringLiteral("RELEASE before"));
    mustTranslate([&] {
        mustRun(connection,
                QStringLiteral("SELECT %1 FROM %2 WHERE (%3)")
                    .arg(clients.keyColumns, clients.from, translateCriterion(text, clients)));
    });
    return 0;
}
