#include "store/Database.h"
#include "store/EngineAssertions.h"
#include "store/FaultVfs.h"
#include "store/FileBytes.h"
#include "support/TemporaryRegister.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

using faults::Plan;
using support::TemporaryRegister;
using namespace Qt::StringLiterals;

namespace {

class UnitOfWork : private faults::Layer, public testing::Test {
  protected:
    void add(const QString& key) {
        database.Execute(u"insert into k_zaklad (idkod) values ('%1')"_s.arg(key));
    }
    /// Rows that another reader of the file sees.
    qint64 durableRows() const {
        store::DBEngine other;
        return other.OpenDatabase(file.folder.database())
            .OpenRecordset(u"k_zaklad"_s)
            ->RecordCount();
    }

    TemporaryRegister file;
    store::Database database = file.engine.OpenDatabase(file.folder.database());
};

} // namespace

TEST_F(UnitOfWork, IsDurableOnlyWhenCommitted) {
    add(u"A"_s);
    add(u"B"_s);
    EXPECT_EQ(durableRows(), 0);
    file.engine.commitPending();
    EXPECT_EQ(durableRows(), 2);
    EXPECT_EQ(files::namesIn(file.directory.path()).size(), 1);
    EXPECT_EQ(faults::unsyncedRemovals(), 0) << "a power cut would bring the journal back";
    add(u"C"_s);
    database.Close();
    EXPECT_EQ(durableRows(), 3);
    EXPECT_ENGINE_ERROR(add(u"D"_s), 3021);
    database.Close();
}

TEST_F(UnitOfWork, AFailedStatementUndoesItselfAlone) {
    add(u"A"_s);
    add(u"B"_s);
    add(u"C"_s);
    EXPECT_ENGINE_ERROR(
        database.Execute(u"update k_zaklad set idkod = iif(idkod='C','XA','X' & idkod)"_s), 3022);
    EXPECT_ENGINE_ERROR(database.Execute(u"update k_zaklad set psc = space(len(idkod)+5)"_s), 3163);
    EXPECT_EQ(file.text(u"k_zaklad"_s, u"idkod"_s), u"A"_s);
    file.engine.commitPending();
    EXPECT_EQ(durableRows(), 3);
    EXPECT_EQ(database.Execute(u"update k_zaklad set meno='X'"_s), 3) << "rows touched";
    EXPECT_EQ(database.Execute(u"delete from k_zaklad where idkod='X'"_s), 0);
}

TEST_F(UnitOfWork, AFailedCommitLeavesNothing) {
    for (const auto& [fault, number] :
         {std::pair(Plan::Fault::DiskFull, 3026), {Plan::Fault::SyncFails, 3043}}) {
        add(u"A"_s);
        faults::install({fault, 1});
        EXPECT_ENGINE_ERROR(file.engine.commitPending(), number);
        faults::install({});
        EXPECT_EQ(file.count(u"k_zaklad"_s), 0);
        EXPECT_EQ(durableRows(), 0);
    }
    add(u"B"_s);
    file.engine.commitPending();
    EXPECT_EQ(durableRows(), 1);
}

TEST_F(UnitOfWork, ClosingOnAFullDiskSaysSo) {
    add(u"A"_s);
    faults::install({Plan::Fault::DiskFull, 1});
    EXPECT_ENGINE_ERROR(database.Close(), 3026);
    faults::install({});
    {
        auto rows = file.engine.OpenDatabase(file.folder.database()).OpenRecordset(u"k_zaklad"_s);
        rows->AddNew();
        rows->Update();
        faults::install({Plan::Fault::DiskFull, 1});
    }
    EXPECT_ENGINE_ERROR(file.engine.commitPending(), 3026);
    EXPECT_EQ(durableRows(), 0);
    const QString copy = file.folder.path(u"tmp.mdb");
    EXPECT_ENGINE_ERROR(file.engine.CompactDatabase(file.folder.database(), copy, {}), 3026);
    EXPECT_EQ(files::namesIn(file.directory.path()), QStringList{u"tvk.mdb"_s});
}

TEST_F(UnitOfWork, NothingFollowsWritesThatWereLost) {
    // More pages than the cache holds force the unit out to the disk before its commit.
    add(u"A"_s);
    faults::install({Plan::Fault::DiskFull, 1});
    const QString page(4'000'000, QLatin1Char('x'));
    const auto addUntilFull = [&] {
        const auto notes = database.OpenRecordset(u"k_memo"_s);
        for (int row = 0; row < 40; ++row) {
            notes->AddNew();
            notes->Fields(u"poznamky").setValue(page);
            notes->Update();
        }
    };
    EXPECT_ENGINE_ERROR(addUntilFull(), 3026);
    faults::install({});
    const bool lost = file.count(u"k_zaklad"_s) == 0;
    if (lost) {
        EXPECT_ENGINE_ERROR(add(u"B"_s), 3026);
        EXPECT_ENGINE_ERROR(file.engine.commitPending(), 3026);
    } else {
        add(u"B"_s);
        file.engine.commitPending();
    }
    EXPECT_EQ(durableRows(), lost ? 0 : 2);
    add(u"C"_s);
    file.engine.commitPending();
    EXPECT_EQ(durableRows(), lost ? 1 : 3);
}

TEST_F(UnitOfWork, AWriteThatTheMediumRefusesFailsTheWholeUnitWhoeverPassesOverIt) {
    sqlite3* other = nullptr;
    sqlite3_open(qPrintable(file.folder.database()), &other);
    sqlite3_exec(other, "begin immediate", nullptr, nullptr, nullptr);
    EXPECT_ENGINE_ERROR(add(u"A"_s), 3218);
    sqlite3_close(other);
    EXPECT_ENGINE_ERROR(add(u"B"_s), 3218);
    EXPECT_ENGINE_ERROR(file.engine.commitPending(), 3218);
    EXPECT_EQ(durableRows(), 0);
    add(u"C"_s);
    file.engine.rollBackPending();
    file.engine.commitPending();
    EXPECT_EQ(durableRows(), 0) << "undone on demand";
}
