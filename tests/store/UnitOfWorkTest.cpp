#include "store/Database.h"
#include "store/EngineAssertions.h"
#include "store/FaultVfs.h"
#include "store/FileBytes.h"
#include "support/TemporaryRegister.h"

#include <gtest/gtest.h>

using faults::Plan;
using support::TemporaryRegister;

namespace {

class UnitOfWork : public testing::Test {
  protected:
    UnitOfWork() { faults::install({}); }
    ~UnitOfWork() override { faults::install({}); }

    void add(const QString& key) {
        database.Execute(QStringLiteral("insert into k_zaklad (idkod) values ('%1')").arg(key));
    }
    /// Rows that another reader of the file sees.
    qint64 durableRows() const {
        store::DBEngine other;
        return other.OpenDatabase(file.folder.database())
            .OpenRecordset(QStringLiteral("k_zaklad"))
            ->RecordCount();
    }

    TemporaryRegister file;
    store::Database database = file.engine.OpenDatabase(file.folder.database());
};

} // namespace

TEST_F(UnitOfWork, IsDurableOnlyWhenCommitted) {
    add(QStringLiteral("A"));
    add(QStringLiteral("B"));
    EXPECT_EQ(durableRows(), 0);
    file.engine.commitPending();
    EXPECT_EQ(durableRows(), 2);
    file.engine.commitPending();
    EXPECT_EQ(files::namesIn(file.directory.path()).size(), 1);
}

TEST_F(UnitOfWork, ClosingWritesWhatIsPending) {
    add(QStringLiteral("A"));
    database.Close();
    EXPECT_EQ(durableRows(), 1);
    EXPECT_ENGINE_ERROR(add(QStringLiteral("B")), 3021);
    database.Close();
}

TEST_F(UnitOfWork, AFailedStatementUndoesItselfAlone) {
    add(QStringLiteral("A"));
    add(QStringLiteral("B"));
    add(QStringLiteral("C"));
    EXPECT_ENGINE_ERROR(database.Execute(QStringLiteral(
                            "update k_zaklad set idkod = iif(idkod='C','XA','X' & idkod)")),
                        3022);
    EXPECT_ENGINE_ERROR(
        database.Execute(QStringLiteral("update k_zaklad set psc = space(len(idkod)+5)")), 3163);
    auto rows = database.OpenRecordset(QStringLiteral("k_zaklad"));
    EXPECT_EQ(rows->Fields(u"idkod").Value().toText(), QStringLiteral("A"));
    file.engine.commitPending();
    EXPECT_EQ(durableRows(), 3);
}

TEST_F(UnitOfWork, SaysHowManyRowsAStatementTouched) {
    add(QStringLiteral("A"));
    add(QStringLiteral("B"));
    EXPECT_EQ(database.Execute(QStringLiteral("update k_zaklad set meno='X'")), 2);
    EXPECT_EQ(database.Execute(QStringLiteral("delete from k_zaklad where idkod='C'")), 0);
    EXPECT_EQ(database.Execute(QStringLiteral("delete * from k_zaklad")), 2);
}

TEST_F(UnitOfWork, AFullDiskAtTheCommitLeavesNothing) {
    add(QStringLiteral("A"));
    faults::install({Plan::Fault::DiskFull, 1});
    EXPECT_ENGINE_ERROR(file.engine.commitPending(), 3026);
    faults::install({});
    EXPECT_EQ(file.count(QStringLiteral("k_zaklad")), 0);
    add(QStringLiteral("B"));
    file.engine.commitPending();
    EXPECT_EQ(durableRows(), 1);
}

TEST_F(UnitOfWork, AFailedSyncLeavesNothing) {
    add(QStringLiteral("A"));
    faults::install({Plan::Fault::SyncFails, 1});
    EXPECT_ENGINE_ERROR(file.engine.commitPending(), 3043);
    faults::install({});
    EXPECT_EQ(file.count(QStringLiteral("k_zaklad")), 0);
    EXPECT_EQ(durableRows(), 0);
}

TEST_F(UnitOfWork, ClosingOnAFullDiskSaysSo) {
    add(QStringLiteral("A"));
    faults::install({Plan::Fault::DiskFull, 1});
    EXPECT_ENGINE_ERROR(database.Close(), 3026);
    faults::install({});
    {
        auto rows = file.engine.OpenDatabase(file.folder.database())
                        .OpenRecordset(QStringLiteral("k_zaklad"));
        rows->AddNew();
        rows->Update();
        faults::install({Plan::Fault::DiskFull, 1});
    }
    EXPECT_ENGINE_ERROR(file.engine.commitPending(), 3026);
    EXPECT_EQ(durableRows(), 0);
}

TEST_F(UnitOfWork, CompactionOnAFullDiskRemovesWhatItBegan) {
    add(QStringLiteral("A"));
    file.engine.commitPending();
    const QByteArray before = files::read(file.folder.database());
    for (int call = 1; call <= 12; ++call) {
        faults::install({Plan::Fault::DiskFull, call});
        EXPECT_ENGINE_ERROR(
            file.engine.CompactDatabase(file.folder.database(), file.folder.path(u"tmp.mdb"), {}),
            3026);
        EXPECT_EQ(files::namesIn(file.directory.path()), QStringList{QStringLiteral("tvk.mdb")})
            << "full from call " << call;
        EXPECT_EQ(files::read(file.folder.database()), before);
    }
}

TEST_F(UnitOfWork, NothingFollowsWritesThatWereLost) {
    // More pages than the cache holds force the unit out to the disk before its commit.
    add(QStringLiteral("A"));
    faults::install({Plan::Fault::DiskFull, 1});
    const QString page(4'000'000, QLatin1Char('x'));
    const auto addUntilFull = [&] {
        const auto notes = database.OpenRecordset(QStringLiteral("k_memo"));
        for (int row = 0; row < 40; ++row) {
            notes->AddNew();
            notes->Fields(u"poznamky").setValue(page);
            notes->Update();
        }
    };
    EXPECT_ENGINE_ERROR(addUntilFull(), 3026);
    faults::install({});
    const bool lost = file.count(QStringLiteral("k_zaklad")) == 0;
    if (lost) {
        EXPECT_ENGINE_ERROR(add(QStringLiteral("B")), 3026);
        EXPECT_ENGINE_ERROR(file.engine.commitPending(), 3026);
    } else {
        add(QStringLiteral("B"));
        file.engine.commitPending();
    }
    EXPECT_EQ(durableRows(), lost ? 0 : 2);
    add(QStringLiteral("C"));
    file.engine.commitPending();
    EXPECT_EQ(durableRows(), lost ? 1 : 3);
}
