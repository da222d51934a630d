// Archive, restore, copy and exit, killed at each of their calls to the system, or finding the disk
// full there.

#include "backup/BackupFiles.h"
#include "backup/Copies.h"
#include "backup/CopyInspection.h"
#include "mainwindow/Exit.h"
#include "store/ContentHash.h"
#include "store/PlainUser.h"
#include "support/CallFaults.h"

#include <QDirIterator>

namespace {

using namespace Qt::StringLiterals;
using backup::CopyState;

const QDateTime now(QDate(2026, 11, 23), QTime(15, 0));

/// The content of a whole register; empty when there is none.
QByteArray contentOf(const QString& path) {
    return isRegister(path, {}) ? store::contentHash(path) : QByteArray();
}

/// Spares the waiting for the disk: no computer fails here.
const bool isInMemory = qputenv("TMPDIR", "/dev/shm");

/// A register of today, and an archive and a copy of it as it was yesterday.
struct Model {
    Model() {
        setClientOf(file, u"Včera"_s);
        yesterday = contentOf(file.folder.database());
        backup::NextCopy(file.folder, now.addDays(-1)).make(true);
        backup::makeArchive(file.engine, file.folder);
        const QString made = file.folder.path(u"arch_tmp.zip");
        EXPECT_TRUE(QFile::rename(made, file.folder.path(u"a.zip")));
        setClientOf(file, u"Dnes"_s);
        today = contentOf(file.folder.database());
    }
    support::TemporaryRegister file;
    QByteArray yesterday;
    QByteArray today;
};

/// A folder like the model's.
class Folder {
  public:
    Folder() {
        EXPECT_TRUE(QDir().mkdir(path(u"zalohy"_s)));
        for (const QString& name : namesIn(model().file.directory.path()))
            EXPECT_TRUE(QFile::copy(model().file.directory.filePath(name), path(name)));
    }
    static const Model& model() {
        static const Model made;
        return made;
    }
    QString path(const QString& name) const { return directory.filePath(name); }
    QStringList names() const { return namesIn(directory.path()); }

    QTemporaryDir directory;
    store::ProgramFolder program{directory.path()};
    const QByteArray& yesterday = model().yesterday;
    const QByteArray& today = model().today;

  private:
    static QStringList namesIn(const QString& folder) {
        QStringList all;
        QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext())
            all << files.next().mid(folder.size() + 1);
        all.sort();
        return all;
    }
};

void archive(const Folder& in, const QString& target) {
    store::DBEngine engine;
    backup::makeArchive(engine, in.program);
    backup::placeArchive(in.program, in.path(target));
}

void restore(const Folder& in, bool overLive) {
    store::DBEngine engine;
    backup::Restore one(engine, in.program, isRegister);
    if (one.extract(in.path(u"a.zip"_s)) == backup::Finding::Sound)
        overLive ? one.replaceLive() : one.placeNew();
}

/// What is done in a folder, and what has to hold whenever it ended early.
struct Deed {
    const char* name;
    std::function<void(const Folder&)> act;
    /// Which contents the register may have; an empty one stands for no register.
    std::function<QList<QByteArray>(const Folder&)> mayBe;
    /// Archives that have to be sound all the time.
    QStringList soundAlways;
    std::function<void(Folder&)> prepare = [](Folder&) {
    };
};

void PrintTo(const Deed& deed, std::ostream* out) {
    *out << deed.name;
}

class Mishaps : public testing::TestWithParam<Deed> {
  protected:
    void expectWhole(Folder& folder, int call) {
        SCOPED_TRACE(call);
        const Deed& deed = GetParam();
        const QByteArray live = contentOf(folder.path(u"tvk.mdb"_s));
        EXPECT_TRUE(deed.mayBe(folder).contains(live));
        if (live == folder.yesterday && deed.mayBe(folder).contains(folder.today)) {
            EXPECT_EQ(contentOf(folder.path(u"tvk_ren.mdb"_s)), folder.today);
        }
        for (const QString& name : deed.soundAlways)
            EXPECT_EQ(backup::inspectCopy(folder.path(name)).kind, CopyState::Kind::Sound)
                << name.toStdString();
        for (const backup::Copy& copy : backup::copies(folder.program))
            EXPECT_EQ(backup::inspectCopy(copy.path).kind, CopyState::Kind::Sound);
    }
    static QStringList namesAfter(const Deed& deed) {
        Folder folder;
        deed.prepare(folder);
        deed.act(folder);
        return folder.names();
    }
};

TEST_P(Mishaps, killedAtAnyCallNothingIsLostAndTheNextRunGetsThrough) {
    const Deed& deed = GetParam();
    const QStringList expected = namesAfter(deed);
    int call = 1;
    for (bool isKilled = true; isKilled; ++call) {
        Folder folder;
        deed.prepare(folder);
        isKilled = calls::strike(calls::Fault::Kill, call, [&] { deed.act(folder); });
        expectWhole(folder, call);
        const bool isDone = deed.mayBe(folder).first() != contentOf(folder.path(u"tvk.mdb"_s));
        if (isKilled && !isDone) {
            deed.act(folder);
            EXPECT_EQ(folder.names(), expected) << "after call " << call;
        }
    }
    EXPECT_GT(call, 15);
    std::printf("%s: %d kills\n", deed.name, call - 2);
}

TEST_P(Mishaps, aDiskThatIsFullFromAnyCallOnCostsNothingAndLeavesNothing) {
    const Deed& deed = GetParam();
    const QStringList expected = namesAfter(deed);
    int call = 1;
    for (bool wasStruck = true; wasStruck; ++call) {
        Folder folder;
        deed.prepare(folder);
        // An archive that was made and found no place is for the next exit to remove.
        const QStringList may = folder.names() + expected + QStringList{u"arch_tmp.zip"_s};
        wasStruck = calls::strike(calls::Fault::DiskFull, call, [&] {
            try {
                deed.act(folder);
            } catch (const store::EngineError& error) {
                EXPECT_FALSE(error.description().isEmpty());
            }
        });
        expectWhole(folder, call);
        for (const QString& name : folder.names())
            EXPECT_TRUE(may.contains(name)) << name.toStdString();
    }
    EXPECT_GT(call, 15);
}

TEST_P(Mishaps, whereNothingMayBeWrittenItIsSaid) {
    const Deed& deed = GetParam();
    Folder folder;
    deed.prepare(folder);
    const QStringList before = folder.names();
    for (const QString& name : before)
        QFile::setPermissions(folder.path(name), QFile::Permissions(0x6644));
    for (const QString& name : {u"zalohy"_s, u"."_s})
        QFile::setPermissions(folder.path(name), QFile::Permissions(0x5555));
    {
        const PlainUser user;
        EXPECT_THROW(deed.act(folder), store::EngineError);
    }
    EXPECT_EQ(folder.names(), before);
    expectWhole(folder, 0);
}

TEST(Archive, takesUpWhatAKilledWriterHasLeft) {
    int journals = 0;
    bool isKilled = true;
    for (int call = 1; isKilled; ++call) {
        const Folder folder;
        isKilled = calls::strike(calls::Fault::Kill, call, [&] {
            store::DBEngine engine;
            engine.OpenDatabase(folder.path(u"tvk.mdb"_s)).Execute(u"delete * from k_zaklad"_s);
            engine.commitPending();
        });
        journals += QFile::exists(folder.path(u"tvk.mdb-journal"_s)) ? 1 : 0;
        archive(folder, u"b.zip"_s);
        EXPECT_EQ(backup::inspectCopy(folder.path(u"b.zip"_s)).kind, CopyState::Kind::Sound)
            << "killed at call " << call;
    }
    EXPECT_GT(journals, 3);
}

const auto onlyToday = [](const Folder& folder) {
    return QList{folder.today};
};

const Deed deeds[] = {
    {"archive", [](const Folder& in) { archive(in, u"a.zip"_s); }, onlyToday, {u"a.zip"_s}},
    {"archive in the folder",
     [](const Folder& in) { archive(in, u"arch_tvk.zip"_s); },
     onlyToday,
     {u"a.zip"_s, u"arch_tvk.zip"_s},
     [](Folder& in) {
         ASSERT_TRUE(QFile::copy(in.path(u"a.zip"_s), in.path(u"arch_tvk.zip"_s)));
     }},
    {"restore",
     [](const Folder& in) { restore(in, true); },
     [](const Folder& in) {
         return QList{in.today, in.yesterday};
     },
     {u"a.zip"_s},
     [](Folder& in) {
         files::write(in.path(u"tvk_ren.mdb"_s), "staršie");
     }},
    {"restore at start",
     [](const Folder& in) { restore(in, false); },
     [](const Folder& in) {
         return QList{QByteArray(), in.yesterday};
     },
     {u"a.zip"_s},
     [](Folder& in) {
         ASSERT_TRUE(QFile::remove(in.path(u"tvk.mdb"_s)));
     }},
    {"exit",
     [](const Folder& in) {
         store::DBEngine engine;
         backup::NextCopy copy(in.program, now);
         mainwindow::compactAndReplace(engine, in.program);
         copy.make(true);
     },
     onlyToday,
     {u"a.zip"_s, u"zalohy/tvk_2026-11-22_15-00-00.zip"_s}},
    {"copy saved elsewhere",
     [](const Folder& in) {
         backup::saveCopy(in.program, backup::copies(in.program).back().path, in.path(u"a.zip"_s),
                          {});
     },
     onlyToday,
     {u"a.zip"_s}},
};

INSTANTIATE_TEST_SUITE_P(Each, Mishaps, testing::ValuesIn(deeds));

} // namespace
