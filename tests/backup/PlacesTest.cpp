// A register that is a link to where the data are.

#include "backup/BackupFiles.h"

#include <QFileInfo>

namespace {

using namespace Qt::StringLiterals;

/// @param folder where the data lie behind the link
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
