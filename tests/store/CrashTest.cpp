#include "store/Database.h"
#include "store/FaultVfs.h"
#include "store/FileBytes.h"
#include "store/Files.h"
#include "store/OpenCheck.h"
#include "store/Schema.h"
#include "support/TemporaryRegister.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <limits>

using faults::Plan;
using support::TemporaryRegister;

namespace {

constexpr int clients = 60;

/// What a user sees in all tables, in their order.
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

void fill(TemporaryRegister& file) {
    auto database = file.engine.OpenDatabase(file.folder.database());
    for (int client = 0; client < clients; ++client) {
        const QString key = QStringLiteral("KLIENT%1").arg(client, 2, 10, QLatin1Char('0'));
        database.Execute(
            QStringLiteral("insert into k_zaklad (idkod,meno,datnar) values ('%1','Ján',"
                           "datevalue('1.2.2000'))")
                .arg(key));
        database.Execute(QStringLiteral("insert into k_memo (idkod,poznamky) values ('%1','%2')")
                             .arg(key, QString(900, QLatin1Char('x'))));
        for (const char* table : {"k_navstevy", "k_surodenci", "k_vysetrenie", "k_zariad",
                                  "k_zaznam_spc", "k_zaznam_zmeny"})
            database.Execute(QStringLiteral("insert into %1 (idkod) values ('%2')")
                                 .arg(QLatin1String(table), key));
    }
}

void deleteClient(store::DBEngine& engine, const QString& path) {
    auto database = engine.OpenDatabase(path);
    auto list = database.OpenRecordset(QStringLiteral("select * from k_zaklad"));
    list->FindFirst(QStringLiteral("idkod='KLIENT07'"));
    for (const char* table : {"k_memo", "k_navstevy", "k_surodenci", "k_vysetrenie", "k_zariad",
                              "k_zaznam_spc", "k_zaznam_zmeny"})
        database.Execute(
            QStringLiteral("delete from %1 where idkod='KLIENT07  '").arg(QLatin1String(table)));
    list->Delete();
    engine.commitPending();
}

void stampAges(store::DBEngine& engine, const QString& path) {
    auto database = engine.OpenDatabase(path);
    auto rows = database.OpenRecordset(
        QStringLiteral("select k_zaklad.vek as vek from k_zaklad inner join k_zaznam_spc on "
                       "k_zaklad.idkod=k_zaznam_spc.idkod"));
    for (; !rows->Eof(); rows->MoveNext()) {
        rows->Edit();
        rows->Fields(u"vek").setValue(6);
        rows->Update();
    }
    engine.commitPending();
}

void compactAsAtExit(store::DBEngine& engine, const QString& path) {
    const QString compacted = path + QStringLiteral(".tmp");
    engine.CompactDatabase(path, compacted, {});
    store::DBEngine::verifyDatabase(compacted);
    faults::step();
    store::replaceFile(compacted, path);
    faults::step();
}

using Action = std::function<void(store::DBEngine&, const QString&)>;

/// Spares this process the waiting for the disk: no computer fails in these tests.
struct NoSync {
    NoSync() { faults::install({Plan::Fault::Kill, std::numeric_limits<int>::max()}); }
    ~NoSync() { faults::install({}); }
    NoSync(const NoSync&) = delete;
    NoSync& operator=(const NoSync&) = delete;
};

/// Runs an action in a child process. @return true when it was killed on the way
bool isKilledAt(int call, const Action& action, const QString& path) {
    const pid_t child = fork();
    if (child == 0) {
        faults::install({Plan::Fault::Kill, call});
        store::DBEngine engine;
        action(engine, path);
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE((WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) ||
                (WIFEXITED(status) && WEXITSTATUS(status) == 0))
        << status;
    return WIFSIGNALED(status);
}

struct Outcome {
    int kills = 0;
    int before = 0;
    int hotJournals = 0;
};

/// Kills the action at its first writing call, its second one and so on until it gets through;
/// expects the file to hold the state before or the one of the run that got through.
Outcome killEverywhere(const Action& action) {
    const NoSync quick;
    TemporaryRegister model;
    fill(model);
    const QByteArray bytes = files::read(model.folder.database());
    const QStringList before = contents(model.folder.database());
    const QString path = model.folder.path(u"obet.mdb");
    Outcome outcome;
    QList<QStringList> states;
    for (bool killed = true; killed;) {
        QFile::remove(path + QStringLiteral(".tmp"));
        files::write(path, bytes);
        killed = isKilledAt(static_cast<int>(states.size()) + 1, action, path);
        outcome.kills += killed ? 1 : 0;
        outcome.hotJournals += store::hasHotJournal(path) ? 1 : 0;
        states << contents(path);
        EXPECT_FALSE(QFile::exists(path + QStringLiteral("-journal"))) << states.size();
        outcome.before += states.last() == before ? 1 : 0;
    }
    for (qsizetype call = 0; call < states.size(); ++call)
        EXPECT_TRUE(states[call] == before || states[call] == states.last())
            << "torn at call " << call + 1;
    return outcome;
}

} // namespace

TEST(Crash, AClientIsDeletedWhollyOrNotAtAll) {
    const Outcome outcome = killEverywhere(deleteClient);
    EXPECT_GT(outcome.kills, 10);
    EXPECT_GT(outcome.hotJournals, 5);
    EXPECT_GT(outcome.before, 5);
}

TEST(Crash, AgesAreStampedAllOrNone) {
    const Outcome outcome = killEverywhere(stampAges);
    EXPECT_GT(outcome.kills, 10);
    EXPECT_GT(outcome.hotJournals, 5);
    EXPECT_GT(outcome.before, 5);
}

TEST(Crash, CompactionAtExitLosesNothing) {
    const Outcome outcome = killEverywhere(compactAsAtExit);
    EXPECT_GT(outcome.kills, 30);
    EXPECT_EQ(outcome.before, outcome.kills + 1) << "the contents are the same all the time";
}
