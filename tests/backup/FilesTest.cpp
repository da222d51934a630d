#include "backup/BackupFiles.h"
#include "backup/Zip.h"

#include <QFileInfo>

#include <sys/stat.h>
#include <zip.h>

namespace {

using namespace Qt::StringLiterals;

class Files : public BackupFiles {
  protected:
    void archiveAs(const QString& target) {
        backup::makeArchive(reg.engine, reg.folder);
        backup::placeArchive(reg.folder, target);
    }
    /// Replaces the register by the one of an archive.
    void restore(const QString& archive, const store::TellProgress& tell = {}) {
        backup::Restore one(reg.engine, reg.folder, isRegister);
        ASSERT_EQ(one.extract(archive, {}, tell), backup::Finding::Sound);
        one.replaceLive();
    }
    /// Runs an action that must fail and leave all as it was.
    template <typename Failure, typename Action>
    void expectNothingDone(const Action& action) {
        const QStringList before = names();
        const QByteArray bytes = files::read(reg.folder.database());
        EXPECT_THROW(action(), Failure);
        EXPECT_EQ(names(), before);
        EXPECT_EQ(files::read(reg.folder.database()), bytes);
    }
};

TEST_F(Files, aRegisterComesBackFromWhereverItWasPut) {
    const QString away = elsewhere.filePath(u"záloha č. 1"_s);
    files::write(away, "staršia");
    files::write(path("arch_tvk.zip"), "staršia");
    for (const QString& target : {away, path("arch_tvk.zip")}) {
        files::write(path("arch_tmp.zip"), "zvyšok");
        files::write(path("arch_tmp.zip.a1B2c3"), "zvyšok");
        setClient(u"Prvý"_s);
        archiveAs(target);
        EXPECT_EQ(QFile::exists(path("arch_tmp.zip")), target == away);
        EXPECT_FALSE(QFile::exists(path("arch_tmp.zip.a1B2c3")));
        EXPECT_EQ(QFile::permissions(target) & QFile::Permissions(0x77), QFile::Permissions());
        zip_t* archive = zip_open(target.toUtf8().constData(), ZIP_CHECKCONS, nullptr);
        ASSERT_NE(archive, nullptr);
        EXPECT_EQ(zip_get_num_entries(archive, 0), 1);
        EXPECT_STREQ(zip_get_name(archive, 0, 0), "tvk.mdb");
        zip_discard(archive);

        setClient(u"Druhý"_s);
        files::write(path("tvk_ren.mdb"), "staršie");
        ASSERT_EQ(chmod(reg.folder.database().toUtf8().constData(), 0640), 0);
        restore(target);
        EXPECT_EQ(client(), u"Prvý"_s);
        struct stat status = {};
        ASSERT_EQ(stat(reg.folder.database().toUtf8().constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777U, 0640U);
        EXPECT_FALSE(QFile::exists(path("tvk.mdb.obnova")));
        ASSERT_TRUE(QFile::remove(path("tvk.mdb")) &&
                    QFile::rename(path("tvk_ren.mdb"), path("tvk.mdb")));
        EXPECT_EQ(client(), u"Druhý"_s);
    }
    EXPECT_EQ(files::namesIn(elsewhere.path()), QStringList{u"záloha č. 1"_s});
}

TEST_F(Files, theProgramsOwnFilesAreNoTargets) {
    backup::makeArchive(reg.engine, reg.folder);
    ASSERT_TRUE(QFile::link(path("tvk.mdb"), path("odkaz")));
    for (const char* name : {"tvk.mdb", "tvk_ren.mdb", "tmp.mdb", "arch_tmp.zip", "odkaz"})
        expectNothingDone<store::EngineError>(
            [&] { backup::placeArchive(reg.folder, path(name)); });
}

TEST_F(Files, whatIsGivenUpLeavesAllAsItWas) {
    archiveAs(path("arch_tvk.zip"));
    const QString away = elsewhere.filePath(u"a.zip"_s);
    files::write(away, "staršia");
    const auto giveUp = [](double) {
        return false;
    };
    expectNothingDone<store::GivenUp>([&] { backup::makeArchive(reg.engine, reg.folder, giveUp); });
    expectNothingDone<store::GivenUp>([&] { restore(path("arch_tvk.zip"), giveUp); });
    backup::makeArchive(reg.engine, reg.folder);
    expectNothingDone<store::GivenUp>([&] { backup::placeArchive(reg.folder, away, giveUp); });
    EXPECT_EQ(files::read(away), "staršia");
    EXPECT_EQ(files::namesIn(elsewhere.path()), QStringList{u"a.zip"_s});
}

TEST_F(Files, aJournalOfTheOldRegisterSpoilsNothing) {
    archiveAs(path("arch_tvk.zip"));
    for (const bool live : {true, false}) {
        files::write(path("tvk.mdb-journal"),
                     QByteArray("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8) + QByteArray(2000, '\1'));
        if (live) {
            files::write(path("tvk.mdb"), "poškodený");
            restore(path("arch_tvk.zip"));
            EXPECT_EQ(files::read(path("tvk_ren.mdb")), "poškodený");
        } else {
            QFile::remove(path("tvk.mdb"));
            backup::Restore one(reg.engine, reg.folder, isRegister);
            ASSERT_EQ(one.extract(path("arch_tvk.zip")), backup::Finding::Sound);
            one.placeNew();
            EXPECT_THROW(one.placeNew(), store::EngineError);
        }
        EXPECT_FALSE(QFile::exists(path("tvk.mdb-journal")));
        EXPECT_EQ(client(), u"Prvý"_s);
    }
}

/// A register that is a link to where the data are. @param folder where they lie
class BehindALink : public BackupFiles, public testing::WithParamInterface<const char*> {
  protected:
    void SetUp() override {
        ASSERT_TRUE(QFile::copy(reg.folder.database(), behind));
        ASSERT_TRUE(QFile::remove(reg.folder.database()));
        ASSERT_TRUE(QFile::link(behind, reg.folder.database()));
        backup::makeArchive(reg.engine, reg.folder);
        ASSERT_TRUE(QFile::rename(path("arch_tmp.zip"), path("a.zip")));
    }
    QString clientOf(const QString& file) {
        auto database = reg.engine.OpenDatabase(file);
        return database.OpenRecordset(u"k_zaklad"_s)->Fields(u"priezv"_s).Value().toText();
    }
    QTemporaryDir data{QLatin1String(GetParam()) + u"/tvk-XXXXXX"_s};
    const QString behind = data.filePath(u"data.mdb"_s);
};

TEST_P(BehindALink, aRestoreReplacesTheDataThereAndKeepsTheOldBesideTheProgram) {
    setClient(u"Druhý"_s);
    for (const bool gone : {false, true}) {
        ASSERT_TRUE(!gone || QFile::remove(behind));
        backup::Restore one(reg.engine, reg.folder, isRegister);
        ASSERT_EQ(one.extract(path("a.zip")), backup::Finding::Sound);
        gone ? one.placeNew() : one.replaceLive();
        EXPECT_EQ(clientOf(behind), u"Prvý"_s);
        EXPECT_TRUE(QFileInfo(reg.folder.database()).isSymLink());
        EXPECT_FALSE(QFileInfo(path("tvk_ren.mdb")).isSymLink());
        EXPECT_EQ(clientOf(path("tvk_ren.mdb")), u"Druhý"_s);
    }
    EXPECT_EQ(files::namesIn(data.path()), QStringList{u"data.mdb"_s});
    EXPECT_EQ(names(), (QStringList{u"a.zip"_s, u"tvk.mdb"_s, u"tvk_ren.mdb"_s}));
}

// Memory is another file system than the disk, where no file can have a second name on both.
INSTANTIATE_TEST_SUITE_P(Disks, BehindALink, testing::Values("/tmp", "/dev/shm"));

} // namespace
