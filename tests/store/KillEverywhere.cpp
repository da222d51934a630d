#include "store/KillEverywhere.h"

#include "store/Database.h"
#include "store/FaultVfs.h"
#include "store/FileBytes.h"
#include "store/OpenCheck.h"
#include "store/Schema.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <limits>

namespace faults {

namespace {

/// Spares this process the waiting for the disk: no computer fails in these tests.
struct NoSync {
    NoSync() { install({Plan::Fault::Kill, std::numeric_limits<int>::max()}); }
    ~NoSync() { install({}); }
    NoSync(const NoSync&) = delete;
    NoSync& operator=(const NoSync&) = delete;
};

/// Runs an action in a child process. @return true when it was killed on the way
bool isKilledAt(int call, const std::function<void()>& action) {
    const bool failedBefore = testing::Test::HasFailure();
    const pid_t child = fork();
    if (child == 0) {
        install({Plan::Fault::Kill, call});
        action();
        _exit(testing::Test::HasFailure() && !failedBefore ? EXIT_FAILURE : EXIT_SUCCESS);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE((WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) ||
                (WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS))
        << status;
    return WIFSIGNALED(status);
}

/// The rows of all tables: the table, then the columns, behind "|".
QStringList contents(const QString& path) {
    sqlite3* file = nullptr;
    EXPECT_EQ(sqlite3_open(path.toUtf8().constData(), &file), SQLITE_OK);
    QStringList all;
    const auto add = [](void* rows, int count, char** values, char**) {
        QStringList row;
        for (int i = 0; i < count; ++i)
            row << QString::fromUtf8(values[i]);
        *static_cast<QStringList*>(rows) << row.join(QLatin1Char('|'));
        return 0;
    };
    for (const store::TableDef& table : store::schema()) {
        const QString name = QString::fromUtf16(table.name);
        const QString sql = QStringLiteral("select '%1', * from %1").arg(name);
        EXPECT_EQ(sqlite3_exec(file, sql.toUtf8().constData(), add, &all, nullptr), SQLITE_OK);
    }
    sqlite3_close(file);
    return all;
}

} // namespace

Outcome killEverywhere(const QString& path, const std::function<void()>& action) {
    const NoSync quick;
    const QByteArray bytes = files::read(path);
    const QStringList before = contents(path);
    Outcome outcome;
    QList<QStringList> states;
    for (bool killed = true; killed;) {
        files::write(path, bytes);
        killed = isKilledAt(static_cast<int>(states.size()) + 1, action);
        outcome.kills += killed ? 1 : 0;
        outcome.hotJournals += store::hasHotJournal(path) ? 1 : 0;
        store::DBEngine().OpenDatabase(path);
        states << contents(path);
        EXPECT_NO_THROW(store::DBEngine::verifyDatabase(path)) << states.size();
        EXPECT_FALSE(QFile::exists(path + QStringLiteral("-journal"))) << states.size();
        outcome.before += states.last() == before ? 1 : 0;
    }
    for (qsizetype call = 0; call < states.size(); ++call)
        EXPECT_TRUE(states[call] == before || states[call] == states.last())
            << "torn at call " << call + 1;
    outcome.after = states.last();
    files::write(path, bytes);
    return outcome;
}

} // namespace faults
