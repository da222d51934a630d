#include "mainwindow/Exit.h"
#include "store/FileBytes.h"
#include "store/KillEverywhere.h"
#include "support/TemporaryRegister.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ExitCrash, NothingIsLostAndNothingStopsTheNextExit) {
    support::TemporaryRegister file;
    for (int row = 0; row < 60; ++row)
        file.add(u"k_memo"_s, {{u"idkod", u"K%1"_s.arg(row)}, {u"poznamky", QString(900, u'x')}});
    file.execute({u"delete from k_memo where idkod like '*3'"_s});
    file.letGo();
    for (const QString& left : {u"tvk.mdb.kopia"_s, u"tvk.mdb.tabulky"_s})
        files::write(file.directory.filePath(left), "po zabitom programe");
    const auto outcome = faults::killEverywhere(file.folder.database(), [&] {
        store::DBEngine engine;
        mainwindow::compactAndReplace(engine, file.folder);
    });
    EXPECT_GT(outcome.kills, 30);
    EXPECT_EQ(outcome.before, outcome.kills + 1) << "the contents are the same all the time";
    EXPECT_EQ(files::namesIn(file.directory.path()), QStringList{u"tvk.mdb"_s});
}
