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
using namespace Qt::StringLiterals;

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

const QString tablesOfAClient[] = {u"k_memo"_s,        u"k_navstevy"_s, u"k_surodenci"_s,
                                   u"k_vysetrenie"_s,  u"k_zariad"_s,   u"k_zaznam_spc"_s,
                                   u"k_zaznam_zmeny"_s};

void fill(TemporaryRegister& file) {
    for (int client = 0; client < clients; ++client) {
        const QString key = u"KLIENT%1"_s.arg(client, 2, 10, QChar(u'0'));
        file.execute({u"insert into k_zaklad (idkod,meno) values ('%1','Ján')"_s.arg(key)});
        for (const QString& table : tablesOfAClient)
            file.execute({u"insert into %1 (idkod) values ('%2')"_s.arg(table, key)});
    }
    file.execute({u"update k_memo set poznamky='%1'"_s.arg(QString(900, u'x'))});
    file.letGo();
}

void deleteClient(store::DBEngine& engine, const QString& path) {
    auto database = engine.OpenDatabase(path);
    auto list = database.OpenRecordset(u"select * from k_zaklad"_s);
    list->FindFirst(u"idkod='KLIENT07'"_s);
    for (const QString& table : tablesOfAClient)
        database.Execute(u"delete from %1 where idkod='KLIENT07  '"_s.arg(table));
    list->Delete();
    engine.commitPending();
}

void stampAges(store::DBEngine& engine, const QString& path) {
    auto database = engine.OpenDatabase(path);
    auto rows = database.OpenRecordset(
        u"select k_zaklad.vek as vek from k_zaklad inner join k_zaznam_spc on "
        "k_zaklad.idkod=k_zaznam_spc.idkod"_s);
    for (; !rows->Eof(); rows->MoveNext()) {
        rows->Edit();
        rows->Fields(u"vek").setValue(6);
        rows->Update();
    }
    engine.commitPending();
}

void compactAsAtExit(store::DBEngine& engine, const QString& path) {
    const QString compacted = path + u".tmp"_s;
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
        QFile::remove(path + u".tmp"_s);
        files::write(path, bytes);
        killed = isKilledAt(static_cast<int>(states.size()) + 1, action, path);
        outcome.kills += killed ? 1 : 0;
        outcome.hotJournals += store::hasHotJournal(path) ? 1 : 0;
        states << contents(path);
        EXPECT_FALSE(QFile::exists(path + u"-journal"_s)) << states.size();
        outcome.before += states.last() == before ? 1 : 0;
    }
    for (qsizetype call = 0; call < states.size(); ++call)
        EXPECT_TRUE(states[call] == before || states[call] == states.last())
            << "torn at call " << call + 1;
    return outcome;
}

} // namespace

TEST(Crash, ADeletionAndAStampingHappenWhollyOrNotAtAll) {
    for (const Action& action : {Action(deleteClient), Action(stampAges)}) {
        const Outcome outcome = killEverywhere(action);
        EXPECT_GT(outcome.kills, 10);
        EXPECT_GT(outcome.hotJournals, 5);
        EXPECT_GT(outcome.before, 5);
    }
}

TEST(Crash, CompactionAtExitLosesNothing) {
    const Outcome outcome = killEverywhere(compactAsAtExit);
    EXPECT_GT(outcome.kills, 30);
    EXPECT_EQ(outcome.before, outcome.kills + 1) << "the contents are the same all the time";
}
