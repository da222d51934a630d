// Long works on a register that are given up.

#include "store/Database.h"
#include "store/FileBytes.h"
#include "support/TemporaryRegister.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(GiveUp, leavesAllAsItWasWheneverItComes) {
    support::TemporaryRegister file;
    for (int row = 0; row < 3000; ++row)
        file.add(u"k_memo"_s, {{u"idkod", u"K%1"_s.arg(row)}, {u"poznamky", QString(900, u'x')}});
    file.engine.commitPending();
    file.letGo();
    const QString path = file.folder.database();
    const QByteArray before = files::read(path);
    int given = 0;
    bool isCopyingTold = false;
    file.engine.CompactDatabase(path, file.folder.path(u"b.mdb"), {}, [&](double part) {
        isCopyingTold = isCopyingTold || (part > 0 && part < 0.4);
        return true;
    });
    QFile::remove(file.folder.path(u"b.mdb"));
    for (const double most : {-1.0, 0.0, 0.1, 0.3, 0.4, 0.5, 0.9, 2.0}) {
        double last = 0;
        bool isUp = false;
        const auto tell = [&](double part) {
            EXPECT_FALSE(isUp) << "nothing is told after it";
            EXPECT_TRUE(part >= last && part <= 1) << part;
            last = part;
            isUp = part > most;
            return !isUp;
        };
        for (const bool compact : {true, false}) {
            last = 0;
            isUp = false;
            try {
                if (compact)
                    file.engine.CompactDatabase(path, file.folder.path(u"b.mdb"), {}, tell);
                else
                    store::DBEngine::verifyDatabase(path, tell);
                EXPECT_FALSE(isUp);
                QFile::remove(file.folder.path(u"b.mdb"));
            } catch (const store::GivenUp&) {
                EXPECT_TRUE(isUp);
                ++given;
            }
            EXPECT_EQ(files::namesIn(file.directory.path()), QStringList{u"tvk.mdb"_s});
        }
    }
    EXPECT_EQ(files::read(path), before);
    EXPECT_GE(given, 6);
    EXPECT_TRUE(isCopyingTold);
}
