#include "store/KillEverywhere.h"

#include "store/Database.h"
#include "store/FaultVfs.h"
#include "store/FileBytes.h"
#include "store/OpenCheck.h"
#include "store/Schema.h"

#include <QFile>

#include <gtest/gtest.h>
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
    const pid_t child = fork();
    if (child == 0) {
        install({Plan::Fault::Kill, call});
        action();
        _exit(testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE((WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) ||
                (WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS))
        << status;
    return WIFSIGNALED(status);
}

} // namespace

QStringList contents(const QString& path) {
    store::DBEngine engine;
    auto database = engine.OpenDatabase(path);
    QStringList all;
    for (const store::TableDef& table : store::schema()) {
        const QString name = QString::fromUtf16(table.name);
        const auto rows = database.OpenRecordset(name);
        for (; !rows->Eof(); rows->MoveNext()) {
            QStringList row{name};
            for (const auto& column : rows->columns())
                row << rows->Fields(column.name).Value().toText();
            all << row.join(QLatin1Char('|'));
        }
    }
    return all;
}

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
        states << contents(path);
        EXPECT_NO_THROW(store::DBEngine::verifyDatabase(path)) << states.size();
        EXPECT_FALSE(QFile::exists(path + QStringLiteral("-journal"))) << states.size();
        outcome.before += states.last() == before ? 1 : 0;
    }
    for (qsizetype call = 0; call < states.size(); ++call)
        EXPECT_TRUE(states[call] == before || states[call] == states.last())
            << "torn at call " << call + 1;
    outcome.after = states.last();
    return outcome;
}

} // namespace faults
