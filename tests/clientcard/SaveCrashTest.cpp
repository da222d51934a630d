#include "PlayedCard.h"
#include "store/FaultVfs.h"
#include "store/FileBytes.h"
#include "store/Schema.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <limits>

using cardtest::PlayedCard;
using cardtest::text;
using faults::Plan;

namespace {

using Action = std::function<void(PlayedCard&)>;

/// The keys in all tables of clients, and what the saves below write beside them.
QStringList contents(const store::ProgramFolder& folder) {
    store::DBEngine engine;
    auto database = engine.OpenDatabase(folder.database());
    QStringList all;
    for (const store::TableDef& table : store::schema()) {
        const QString name = QString::fromUtf16(table.name);
        if (!name.startsWith(u"k_"))
            continue;
        const auto rows = database.OpenRecordset(name);
        for (; !rows->Eof(); rows->MoveNext())
            all << name + u' ' + rows->Fields(u"idkod").Value().toText() + u' ' +
                       (name == u"k_zaklad" ? rows->Fields(u"katcis").Value().toText()
                        : name == u"k_memo" ? rows->Fields(u"poznamky").Value().toText()
                                            : QString());
    }
    return all;
}

/// Runs an action in a child process that dies at a writing call. @return true when it was killed
bool isKilledAt(int call, const support::TemporaryRegister& file, const Action& action) {
    const pid_t child = fork();
    if (child == 0) {
        faults::install({Plan::Fault::Kill, call});
        store::DBEngine engine;
        PlayedCard card(engine, file.folder);
        action(card);
        engine.commitPending();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

/// Kills the action at every writing call; the file must hold all of it or nothing.
void killEverywhere(const Action& action, const QString& newKey) {
    // This process itself never fails and need not wait for the disk.
    faults::install({Plan::Fault::Kill, std::numeric_limits<int>::max()});
    support::TemporaryRegister file;
    file.execute(
        {text("insert into k_zaklad (idkod, meno, priezv) values ('NOVAKJA00', 'Jan', 'Novak')"),
         text("insert into k_memo (idkod) values ('NOVAKJA00')")});
    for (const char* table : {"k_navstevy", "k_surodenci", "k_vysetrenie", "k_zariad",
                              "k_zaznam_spc", "k_zaznam_zmeny"})
        file.execute({text("insert into %1 (idkod) values ('NOVAKJA00')").arg(text(table))});
    file.engine.commitPending();
    const QStringList before = contents(file.folder);
    const QByteArray bytes = files::read(file.folder.database());
    QList<QStringList> states;
    for (bool killed = true; killed;) {
        files::write(file.folder.database(), bytes);
        killed = isKilledAt(int(states.size()) + 1, file, action);
        states << contents(file.folder);
    }
    faults::install({});
    EXPECT_GT(states.size(), 8);
    EXPECT_EQ(states.first(), before);
    EXPECT_EQ(states.last().filter(newKey).size(),
              states.last().size() - before.size() == 0 ? 8 : 2);
    for (const QStringList& state : states)
        EXPECT_TRUE(state == before || state == states.last()) << state.join(u',').toStdString();
}

} // namespace

TEST(SaveCrash, AKeyChangesInAllTablesOrInNone) {
    killEverywhere(
        [](PlayedCard& card) {
            card.open(text("NOVAKJA00"));
            card.type("Malik", "Jan");
            card.cycle.zapisZaklad();
        },
        text("MALIKJA00"));
}

TEST(SaveCrash, ANewClientHasBothRowsOrNone) {
    killEverywhere(
        [](PlayedCard& card) {
            card.open(QString());
            card.type("Malik", "Jan");
            card.cycle.zapisZaklad();
        },
        text("MALIKJA00"));
}

TEST(SaveCrash, AClientsRowAndTextAreSavedBothOrNeither) {
    killEverywhere(
        [](PlayedCard& card) {
            card.open(text("NOVAKJA00"));
            card.type("Novak", "Jan", "9");
            card.data.datMemo().Recordset().Fields(u"poznamky").setValue(text("<p>9</p>"));
            card.cycle.zapisZaklad();
            // As the button that closes the card does it.
            card.data.datZaklad().Refresh();
            card.data.datMemo().Recordset().Update();
        },
        text("NOVAKJA00"));
}
