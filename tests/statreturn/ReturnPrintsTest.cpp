#include "report/PageCheck.h"
#include "statreturn/ExpertCare.h"
#include "statreturn/Forms.h"
#include "statreturn/ReturnRegister.h"
#include "statreturn/SchoolYear.h"
#include "store/EngineAssertions.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>

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

void unreadable() {
    throw store::EngineError(store::ErrorNumber::ReportSourceUnreadable, u"?"_s);
}

const support::ExpectedBox restartNotice{
    .text =
        u"Po archivácii, resp.po obnove archivovaných dát, je nutný opätovný štart programu, ak "
        "chcete tlačiť zostavu"_s,
    .title = u"Informácia"_s,
    .icon = QMessageBox::Information};

TEST_F(ReturnPrintsTest, whatIsGivenUpLeavesAllAsItWas) {
    tools.print.patience = std::chrono::milliseconds(0);
    reg.execute({u"insert into k_zaklad (idkod, datnar, postih) values ('A', '1.1.2000', '3')"_s,
                 u"insert into k_zaznam_spc (idkod, datum) values ('A', '1.9.2006')"_s});
    reg.engine.commitPending();
    QTimer giveUp;
    giveUp.callOnTimeout([] {
        if (auto* form = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            form->reject();
    });
    giveUp.start(0);
    for (const auto& make : std::initializer_list<std::function<void()>>{
             [this] { print(); }, [this] { printVzd(tools, u"2006/2007"_s, today, nullptr); },
             [this] {
                 printReturn(tools, u"2006/2007"_s, today, nullptr);
             }}) {
        make();
        reg.engine.commitPending();
        EXPECT_EQ(durable(u"z_vek"_s).size() + durable(u"z_vzdelavanie"_s).size(), 0);
        EXPECT_FALSE(durable(u"k_zaklad"_s).at(0).contains(u"vek"_s));
    }
    EXPECT_EQ(previews, 0);
}

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
        atPreview = unreadable;
        EXPECT_THROW(table.print(tools), store::EngineError) << scratchTable.toStdString();
        atPreview = nullptr;
        table.print(tools);
        EXPECT_EQ(rows.size(), 2 * table.rows) << scratchTable.toStdString();
    }
}

TEST_F(ReturnPrintsTest, tableTwoNeedsTypesOfSchoolAndHasRoomForSixteen) {
    const auto printTwo = [this] {
        printVzd(tools, u"2006/2007"_s, today, nullptr);
    };
    reg.execute({u"insert into c_zariad (kod,akronym) values ('17','VYCH')"_s});
    EXPECT_ENGINE_ERROR(printTwo(), 9);
    reg.execute({u"delete from c_zariad where akronym = 'VYCH'"_s});
    EXPECT_ENGINE_ERROR(printTwo(), 3021);
}

TEST_F(ReturnPrintsTest, tableOneLeavesItsRowsWhereItsReportFailsAndTheNextRunAddsToThem) {
    support::ScriptedBoxes boxes;
    atPreview = [] {
        throw std::runtime_error("no preview");
    };
    print();
    boxes.expect(restartNotice);
    atPreview = unreadable;
    print();
    boxes.allCame();
    EXPECT_EQ(durable(u"z_vek"_s).size(), 38);
    atPreview = nullptr;
    print();
    EXPECT_EQ(rows.size(), 57);
    EXPECT_EQ(durable(u"z_vek"_s).size(), 0);
}

TEST_F(ReturnPrintsTest, theWholeReturnIsOneDocumentOfTheFiveTables) {
    reg.execute({u"insert into z_vek (vek) values ('left')"_s});
    printReturn(tools, u"2006/2007"_s, today, nullptr);
    ASSERT_EQ(previews, 1);
    QStringList contents;
    for (const auto& [title, page] : pages.bookmarks)
        contents << title.section(u' ', 0, 0) + QString::number(page);
    EXPECT_EQ(contents.join(u' '), u"I.0 II.1 III.2 IV.3 V.4"_s);
    ASSERT_EQ(pages.pages.size(), 5U);
    const QStringList lastCodes{u"0119"_s, u"0216"_s, u"0316"_s, u"0416"_s, u"0536"_s};
    EXPECT_EQ(report::layoutFaults(pages).join(u'\n'), QString());
    EXPECT_EQ(pages.title, u"Výkaz Škol (MŠ SR) 5 - 01 za školský rok 2006/2007"_s);
    for (std::size_t i = 0; i < 5; ++i) {
        const report::Page& page = pages.pages[i];
        EXPECT_EQ(page.paper.width() > page.paper.height(), i != 3);
        EXPECT_EQ(page.texts.back().text, u"Strana %1 z 5"_s.arg(i + 1));
        const auto has = [&page](const QString& text) {
            return std::ranges::count(page.texts, text, &report::PlacedText::text) > 0;
        };
        const QString first = u"0%1"_s.arg(i + 1) + u"01"_s;
        for (const QString& code : {first, lastCodes[qsizetype(i)]})
            EXPECT_TRUE(has(code)) << code.toStdString();
        EXPECT_FALSE(has(u"left"_s));
    }
    for (const Computed& table : computed)
        EXPECT_EQ(durable(table.scratchTable).size(), 0) << table.scratchTable.toStdString();
}

TEST_F(ReturnPrintsTest, aFailingTableEndsTheWholeReturnByNameAndLeavesNothing) {
    reg.execute({u"delete from c_zariad where akronym = 'VYCH'"_s});
    try {
        printReturn(tools, u"2006/2007"_s, today, nullptr);
        ADD_FAILURE() << "no table failed";
    } catch (const store::EngineError& error) {
        EXPECT_EQ(error.number(), store::ErrorNumber::NoCurrentRecord);
        EXPECT_TRUE(error.description().contains(u"v tabuľke II. "_s));
    }
    EXPECT_EQ(previews, 0);
    for (const Computed& table : computed)
        EXPECT_EQ(durable(table.scratchTable).size(), 0) << table.scratchTable.toStdString();
    reg.execute({u"insert into c_zariad (kod,akronym) values ('01','VYCH')"_s});
    atPreview = unreadable;
    support::ScriptedBoxes boxes;
    boxes.expect(restartNotice);
    printReturn(tools, u"2006/2007"_s, today, nullptr);
}

TEST_F(ReturnPrintsTest, typedTablesHaveTheirWholeFrameBeforeAnythingWasTyped) {
    const auto printedOnce = [this](const QString& text) {
        return std::ranges::count(pages.pages.at(0).texts, text, &report::PlacedText::text) == 1;
    };
    reg.execute({u"delete * from dop_ukaz"_s, u"delete * from odbstar"_s});
    scratchTable = u"dop_ukaz"_s;
    printDopUkaz(tools.print, today, nullptr);
    EXPECT_TRUE(printedOnce(u"0416"_s));
    EXPECT_EQ(durable(scratchTable).size(), 0);
    scratchTable = u"odbstar"_s;
    printOdbStar(tools.print, today, nullptr);
    for (const CareRow& row : careTable())
        EXPECT_TRUE(printedOnce(QString::fromUtf16(row.code)));
    EXPECT_TRUE(printedOnce(u"       psychoterapia"_s));
    EXPECT_EQ(durable(scratchTable).size(), 0);
}

TEST_F(ReturnPrintsTest, aYearThatIsNoneFailsBeforeAnythingIsWritten) {
    for (const auto& year : {u""_s, u"xxxx/2007"_s, u"2006/xxxx"_s})
        EXPECT_THROW(print(year), store::EngineError) << year.toStdString();
    EXPECT_EQ(previews, 0);
    EXPECT_EQ(durable(u"z_vek"_s).size(), 0);
}

} // namespace
