#include "statreturn/Forms.h"
#include "statreturn/ReturnRegister.h"
#include "statreturn/SchoolYear.h"
#include "store/EngineError.h"

#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <span>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace statreturn;

namespace {

struct ReturnPrintsTest : testing::Test, ReturnRegister {
    ReturnPrintsTest() : ReturnRegister({u"prazdna"_s}) {}

    void print(const QString& year = u"2006/2007"_s) { printVek(tools, year, today, nullptr); }
};

/// The computed tables: how they are printed, and how many rows they have.
struct Computed {
    QString scratchTable;
    std::function<void(const ReturnTools&)> print;
    int rows;
};

const Computed computed[] = {
    {u"z_vek"_s, [](const auto& tools) { printVek(tools, u"2006/2007"_s, today, nullptr); }, 19},
    {u"z_vzdelavanie"_s, [](const auto& tools) { printVzd(tools, u"2006/2007"_s, today, nullptr); },
     16},
    {u"z_zam"_s, [](const auto& tools) { printZam(tools, today, nullptr); }, 9},
};

TEST_F(ReturnPrintsTest, theScratchRowsEndWithTheReport) {
    for (const Computed& table : computed) {
        scratchTable = table.scratchTable;
        for (int run = 0; run < 2; ++run)
            table.print(tools);
        EXPECT_EQ(rows.size(), table.rows) << scratchTable.toStdString();
        EXPECT_EQ(durable(scratchTable).size(), 0) << scratchTable.toStdString();
    }
    EXPECT_EQ(previews, 6);
    print(u"1999/2000"_s);
    EXPECT_EQ(printed(u"Label105"), u"za školský rok 1999/2000"_s);
}

TEST_F(ReturnPrintsTest, tablesTwoAndThreeTellWhateverFailsAndTheNextRunAddsToTheirRows) {
    for (const Computed& table : std::span(computed).subspan(1)) {
        scratchTable = table.scratchTable;
        atPreview = [] {
            throw store::EngineError(store::ErrorNumber::ReportSourceUnreadable, u"?"_s);
        };
        EXPECT_THROW(table.print(tools), store::EngineError) << scratchTable.toStdString();
        atPreview = nullptr;
        table.print(tools);
        EXPECT_EQ(rows.size(), 2 * table.rows) << scratchTable.toStdString();
    }
}

TEST_F(ReturnPrintsTest, tableTwoNeedsTypesOfSchoolAndHasRoomForSixteen) {
    const auto numberOf = [this] {
        try {
            printVzd(tools, u"2006/2007"_s, today, nullptr);
        } catch (const store::EngineError& error) {
            return error.number();
        }
        return store::ErrorNumber{};
    };
    reg.execute({u"insert into c_zariad (kod,akronym) values ('17','VYCH')"_s});
    EXPECT_EQ(numberOf(), store::ErrorNumber::SubscriptOutOfRange);
    reg.execute({u"delete from c_zariad where akronym = 'VYCH'"_s});
    EXPECT_EQ(numberOf(), store::ErrorNumber::NoCurrentRecord);
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

TEST_F(ReturnPrintsTest, tableFourHasItsWholeFrameBeforeAnythingWasTyped) {
    reg.execute({u"delete * from dop_ukaz"_s});
    scratchTable = u"dop_ukaz"_s;
    printDopUkaz(tools.print, today, nullptr);
    EXPECT_EQ(std::ranges::count(pages.pages.at(0).texts, u"0416"_s, &report::PlacedText::text), 1);
    EXPECT_EQ(durable(scratchTable).size(), 0);
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
