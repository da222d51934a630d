#include "store/Database.h"
#include "store/KillEverywhere.h"
#include "support/TemporaryRegister.h"

#include <gtest/gtest.h>

using support::TemporaryRegister;
using namespace Qt::StringLiterals;

namespace {

constexpr int clients = 60;

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

using Action = void (*)(store::DBEngine&, const QString&);

faults::Outcome kill(Action action) {
    TemporaryRegister file;
    fill(file);
    const QString path = file.folder.database();
    return faults::killEverywhere(path, [&] {
        store::DBEngine engine;
        action(engine, path);
    });
}

} // namespace

TEST(Crash, ADeletionAndAStampingHappenWhollyOrNotAtAll) {
    for (const Action action : {deleteClient, stampAges}) {
        const faults::Outcome outcome = kill(action);
        EXPECT_GT(outcome.kills, 10);
        EXPECT_GT(outcome.hotJournals, 5);
        EXPECT_GT(outcome.before, 5);
    }
}
