// A text is refused with an EngineError, or it is translated into a statement that SQLite reads.

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

sqlite3* openRegister() {
    sqlite3* connection = nullptr;
    sqlite3_open(":memory:", &connection);
    registerSqlFunctions(connection);
    for (const QString& statement : createStatements())
        sqlite3_exec(connection, statement.toUtf8().constData(), nullptr, nullptr, nullptr);
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

void mustPrepare(sqlite3* connection, const QString& statement) {
    sqlite3_stmt* prepared = nullptr;
    const int code =
        sqlite3_prepare_v2(connection, statement.toUtf8().constData(), -1, &prepared, nullptr);
    sqlite3_finalize(prepared);
    if (code == SQLITE_OK)
        return;
    std::fprintf(stderr, "%s\n%s\n", sqlite3_errmsg(connection), statement.toUtf8().constData());
    std::abort();
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
        mustPrepare(connection, plan.rows);
        if (!plan.updatable)
            return;
        mustPrepare(connection, plan.keys);
        mustPrepare(connection, plan.rowByKeys);
    });
    mustTranslate([&] { mustPrepare(connection, translateAction(text, storedQuery)); });
    mustTranslate([&] {
        mustPrepare(connection,
                    QStringLiteral("SELECT %1 FROM %2 WHERE (%3)")
                        .arg(clients.keyColumns, clients.from, translateCriterion(text, clients)));
    });
    return 0;
}
