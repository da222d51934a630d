#include "statreturn/Forms.h"
#include "statreturn/ReturnRegister.h"
#include "statreturn/SchoolYear.h"
#include "store/EngineError.h"

#include <QFile>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace statreturn;

namespace {

struct ReturnPrintsTest : testing::Test, ReturnRegister {
    ReturnPrintsTest() : ReturnRegister({u"prazdna"_s}) {}

    void print(const QString& year = u"2006/2007"_s) { printVek(tools, year, today, nullptr); }
};

TEST_F(ReturnPrintsTest, theScratchRowsEndWithTheReport) {
    print();
    print();
    EXPECT_EQ(previews, 2);
    EXPECT_EQ(rows.size(), 19);
    EXPECT_EQ(durable(u"z_vek"_s).size(), 0);
}

TEST_F(ReturnPrintsTest, tableOneLeavesItsRowsWhereItsReportFailsAndTheNextRunAddsToThem) {
    support::ScriptedBoxes boxes;
    atPreview = [] {
        throw std::runtime_error("no preview");
    };
    print();
    boxes.expect({.text = u"Po archivácii, resp.po obnove archivovaných dát, je nutný opätovný "
                          "štart programu, ak chcete tlačiť zostavu"_s,
                  .title = u"Informácia"_s,
                  .icon = QMessageBox::Information});
    atPreview = [] {
        throw store::EngineError(store::ErrorNumber::ReportSourceUnreadable, u"?"_s);
    };
    print();
    boxes.allCame();
    EXPECT_EQ(durable(u"z_vek"_s).size(), 38);
    atPreview = nullptr;
    print();
    EXPECT_EQ(rows.size(), 57);
    EXPECT_EQ(durable(u"z_vek"_s).size(), 0);
}

/// The engine works on a file that another one has replaced, as after a restore.
TEST_F(ReturnPrintsTest, aReplacedRegisterIsUnreadableForAReport) {
    const QString file = reg.folder.database();
    ASSERT_TRUE(QFile::copy(file, file + u".new"_s));
    ASSERT_TRUE(QFile::rename(file, file + u".old"_s));
    ASSERT_TRUE(QFile::rename(file + u".new"_s, file));
    try {
        printing::showReport(tools.print, rptVek(), u"z_vek"_s, today, nullptr);
        ADD_FAILURE() << "the report was shown";
    } catch (const store::EngineError& error) {
        EXPECT_EQ(error.number(), store::ErrorNumber::ReportSourceUnreadable);
    }
}

/// As the program does with what one that was killed has left.
TEST_F(ReturnPrintsTest, scratchTablesAreEmptied) {
    reg.execute({u"insert into z_vek (vek) values ('1')"_s,
                 u"insert into z_zam (fcia) values ('1')"_s,
                 u"insert into z_vzdelavanie (kod) values ('1')"_s});
    emptyScratchTables(reg.database());
    for (const auto& table : {u"z_vek"_s, u"z_zam"_s, u"z_vzdelavanie"_s})
        EXPECT_EQ(reg.count(table), 0) << table.toStdString();
}

TEST_F(ReturnPrintsTest, aYearThatIsNoneFailsBeforeAnythingIsWritten) {
    for (const auto& year : {u""_s, u"xxxx/2007"_s, u"2006/xxxx"_s})
        EXPECT_THROW(print(year), store::EngineError) << year.toStdString();
    EXPECT_EQ(previews, 0);
    EXPECT_EQ(durable(u"z_vek"_s).size(), 0);
}

} // namespace
