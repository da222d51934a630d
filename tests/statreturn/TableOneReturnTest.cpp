#include "statreturn/TableOneReturn.h"

#include "statreturn/RptVek.h"
#include "statreturn/TableOne.h"
#include "store/DataSource.h"
#include "store/EngineError.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"

#include <QDate>
#include <QFile>
#include <QMap>

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace statreturn;

namespace {

const QDate today(2007, 9, 3);

/// Texts of the cells that are not empty.
using Cells = QMap<QString, QString>;

/// As "column=text|column=text", by column.
QString joined(const Cells& cells) {
    QStringList texts;
    for (const auto& [column, text] : cells.asKeyValueRange())
        texts << column + u'=' + text;
    return texts.join(u'|');
}

/// A register with its data source, and a preview that notes what it is shown.
class TableOneReturnTest : public testing::Test {
  protected:
    TableOneReturnTest() {
        datTlac.setDatabaseName(reg.folder.database());
        datTlac.setRecordSource(u"k_zaklad"_s);
        datTlac.Refresh();
    }

    /// @param born as SQL: a datevalue(), or Null
    void addClient(const QString& key, const QString& born, const QString& sex,
                   const QString& postih) {
        reg.execute(
            {u"insert into k_zaklad (idkod,datnar,pohlav,postih) values ('%1',%2,'%3',%4)"_s.arg(
                key, born, sex, postih)});
    }
    void addCare(const QString& key, const QString& day) {
        reg.execute({u"insert into k_zaznam_spc (idkod,datum) values ('%1',datevalue('%2'))"_s.arg(
            key, day)});
    }
    void addClientInCare(const QString& key, const QString& born, const QString& sex,
                         const QString& postih) {
        addClient(key, u"datevalue('%1')"_s.arg(born), sex, u"'%1'"_s.arg(postih));
        addCare(key, u"15.3.2007"_s);
    }
    QString ageOf(const QString& key) {
        return reg.text(u"select vek from k_zaklad where idkod = '%1'"_s.arg(key), u"vek"_s);
    }

    void run() { operation.run(u"2006/2007"_s, today, nullptr); }

    /// Notes the rows of z_vek and the pages while the preview is open.
    void note(const report::Pages& shown) {
        ++previews;
        pages = shown;
        rows.clear();
        // Another engine sees what a crash would leave in the file now.
        store::DBEngine other;
        auto table = other.OpenDatabase(reg.folder.database()).OpenRecordset(u"z_vek"_s);
        for (; !table->Eof(); table->MoveNext())
            rows << cellsOf(*table);
    }
    static Cells cellsOf(store::Recordset& row) {
        Cells cells;
        for (const store::OutputColumn& column : row.columns()) {
            const QString text = row.Fields(column.name).Value().toText();
            if (!text.isEmpty())
                cells[column.name] = text;
        }
        return cells;
    }
    /// The counts alone of the row of an age.
    QString counts(int age) const {
        Cells cells = rows.at(age);
        for (const auto& column : {u"stlpec"_s, u"vek"_s, u"c_riad"_s})
            cells.remove(column);
        return joined(cells);
    }
    QString totals() const {
        Cells cells;
        for (const report::PlacedText& text : pages.pages.at(0).texts) {
            for (const TotalLabel& total : vekTotals) {
                if (text.control == total.control)
                    cells[total.column.toString()] = text.text;
            }
        }
        return joined(cells);
    }
    bool isPrinted(const QString& wording) const {
        const auto& texts = pages.pages.at(0).texts;
        return std::ranges::find(texts, wording, &report::PlacedText::text) != texts.end();
    }

    support::TemporaryRegister reg;
    store::DataSource datTlac{reg.engine};
    std::function<void()> atPreview;
    TableOneReturn operation{{.engine = reg.engine,
                              .datTlac = datTlac,
                              .folder = reg.folder,
                              .showPreview = [this](const report::Pages& shown, QWidget*) {
                                  note(shown);
                                  if (atPreview)
                                      atPreview();
                              }}};
    report::Pages pages;
    QList<Cells> rows;
    int previews = 0;
};

const QString noCounts = u"p_vpsp= "_s;

TEST_F(TableOneReturnTest, withoutClientsAllCountsAreEmpty) {
    run();
    ASSERT_EQ(rows.size(), 19);
    for (int age = 0; age < 19; ++age) {
        const AgeRow& texts = ageRows[static_cast<std::size_t>(age)];
        EXPECT_EQ(counts(age), noCounts);
        EXPECT_EQ(rows[age][u"stlpec"_s], texts.stlpec.toString());
        EXPECT_EQ(rows[age][u"vek"_s], texts.vek.toString());
        EXPECT_EQ(rows[age][u"c_riad"_s], texts.c_riad.toString());
    }
    EXPECT_EQ(totals(), u""_s);
    EXPECT_EQ(reg.count(u"z_vek"_s), 0);
    EXPECT_EQ(pages.pages.size(), 1U);
}

TEST_F(TableOneReturnTest, countsByAgeAndImpairment) {
    addClientInCare(u"AAA00"_s, u"3.9.2000"_s, u"Z"_s, u"3"_s);
    addClientInCare(u"BBB00"_s, u"4.9.2000"_s, u"M"_s, u"35       "_s);
    addClientInCare(u"CCC00"_s, u"1.1.1982"_s, u"z"_s, u"7"_s);
    addClientInCare(u"DDD00"_s, u"5.5.1970"_s, u"Z"_s, u"30"_s);
    addClientInCare(u"EEE00"_s, u"2.9.2007"_s, u"M"_s, u"9"_s);
    run();
    EXPECT_EQ(counts(7), u"p_sluch=1|p_sluch_z=1|p_vpsp= |spolu=1|spolu_zeny=1"_s);
    EXPECT_EQ(counts(6), u"p_viacn=1|p_vpsp= |spolu=1"_s);
    EXPECT_EQ(counts(18), u"p_sluch=1|p_sluch_z=1|p_vpsp=1 |spolu=2|spolu_zeny=1"_s);
    EXPECT_EQ(counts(0), u"p_ine=1|p_vpsp= |spolu=1"_s);
    EXPECT_EQ(totals(), u"p_ine=1|p_sluch=2|p_sluch_z=2|p_viacn=1|p_vpsp=1|spolu=5|spolu_zeny=2"_s);
}

TEST_F(TableOneReturnTest, aClientWithThreeRecordsCountsOnce) {
    addClientInCare(u"AAA00"_s, u"3.9.2000"_s, u"M"_s, u"1"_s);
    addCare(u"AAA00"_s, u"1.9.2006"_s);
    addCare(u"aaa00   "_s, u"31.8.2007"_s);
    run();
    EXPECT_EQ(totals(), u"p_autiz=1|spolu=1"_s);
    EXPECT_EQ(ageOf(u"AAA00"_s), u"7"_s);
}

TEST_F(TableOneReturnTest, onlyCareInTheSchoolYearCounts) {
    const std::pair<const char*, QString> days[] = {
        {"31.8.2006", {}}, {"1.9.2006", u"7"_s}, {"31.8.2007", u"7"_s}, {"1.9.2007", {}}};
    for (const auto& [day, age] : days) {
        addClient(QString::fromUtf8(day), u"datevalue('1.1.2000')"_s, u"M"_s, u"'1'"_s);
        addCare(QString::fromUtf8(day), QString::fromUtf8(day));
    }
    run();
    EXPECT_EQ(totals(), u"p_autiz=2|spolu=2"_s);
    for (const auto& [day, age] : days)
        EXPECT_EQ(ageOf(QString::fromUtf8(day)), age) << day;
}

TEST_F(TableOneReturnTest, clientsWithoutImpairmentOrBirthDateOrAgeAreLeftOut) {
    const std::pair<QString, QString> cases[] = {
        {u"''"_s, u"1.1.2000"_s},   {u"Null"_s, u"1.1.2000"_s}, {u"' 3'"_s, u"1.1.2000"_s},
        {u"'05'"_s, u"1.1.2000"_s}, {u"'x'"_s, u"1.1.2000"_s},  {u"'3'"_s, QString()},
        {u"'3'"_s, u"4.9.2007"_s},
    };
    int number = 10;
    for (const auto& [postih, born] : cases) {
        const QString key = u"K%1"_s.arg(number++);
        addClient(key, born.isEmpty() ? u"Null"_s : u"datevalue('%1')"_s.arg(born), u"M"_s, postih);
        addCare(key, u"15.3.2007"_s);
    }
    run();
    EXPECT_EQ(totals(), u""_s);
    EXPECT_EQ(ageOf(u"K10"_s), u"7"_s);
    EXPECT_EQ(ageOf(u"K15"_s), QString());
    EXPECT_EQ(ageOf(u"K16"_s), u"-1"_s);
}

/// What was typed for a date of birth may be no calendar date; then no age can be stamped.
TEST_F(TableOneReturnTest, aBirthDateThatIsNoDateLeavesTheAge) {
    addClientInCare(u"AAA00"_s, u"1.1.2000"_s, u"M"_s, u"1"_s);
    reg.execute({u"update k_zaklad set datnar = '31.02.2005'"_s});
    run();
    EXPECT_EQ(ageOf(u"AAA00"_s), QString());
    EXPECT_EQ(totals(), u""_s);
}

TEST_F(TableOneReturnTest, theAgeIsThatOfTheRunAndIsStampedAnew) {
    addClientInCare(u"AAA00"_s, u"4.9.2000"_s, u"M"_s, u"1"_s);
    run();
    EXPECT_EQ(counts(6), u"p_autiz=1|p_vpsp= |spolu=1"_s);
    operation.run(u"2006/2007"_s, today.addDays(1), nullptr);
    EXPECT_EQ(counts(6), noCounts);
    EXPECT_EQ(counts(7), u"p_autiz=1|p_vpsp= |spolu=1"_s);
    EXPECT_EQ(ageOf(u"AAA00"_s), u"7"_s);
}

TEST_F(TableOneReturnTest, theReportStaysLoadedAndTakesEachYear) {
    addClientInCare(u"AAA00"_s, u"4.9.2000"_s, u"M"_s, u"1"_s);
    operation.run(u"2006/2007"_s, today, nullptr);
    EXPECT_TRUE(isPrinted(u"za školský rok 2006/2007"_s));
    EXPECT_EQ(totals(), u"p_autiz=1|spolu=1"_s);
    operation.run(u"1999/2000"_s, today, nullptr);
    EXPECT_TRUE(isPrinted(u"za školský rok 1999/2000"_s));
    EXPECT_EQ(totals(), u""_s);
    EXPECT_EQ(reg.count(u"z_vek"_s), 0);
    EXPECT_EQ(previews, 2);
}

TEST_F(TableOneReturnTest, anUnreadableRegisterIsToldAndLeavesTheRows) {
    support::ScriptedBoxes boxes;
    boxes.expect({.text = u"Po archivácii, resp.po obnove archivovaných dát, je nutný opätovný "
                          "štart programu, ak chcete tlačiť zostavu"_s,
                  .title = u"Informácia"_s,
                  .icon = QMessageBox::Information});
    atPreview = [] {
        throw store::EngineError(store::ErrorNumber::ReportSourceUnreadable, u"?"_s);
    };
    run();
    boxes.allCame();
    EXPECT_EQ(reg.count(u"z_vek"_s), 19);
}

/// The engine works on a file that another one has replaced, as after a restore.
TEST_F(TableOneReturnTest, aReplacedRegisterIsUnreadableForTheReport) {
    const QString file = reg.folder.database();
    ASSERT_TRUE(QFile::copy(file, file + u".new"_s));
    ASSERT_TRUE(QFile::rename(file, file + u".old"_s));
    ASSERT_TRUE(QFile::rename(file + u".new"_s, file));
    const ReturnTools tools{.engine = reg.engine, .datTlac = datTlac, .folder = reg.folder};
    try {
        showReturn(tools, report::Report(rptVek()), u"z_vek"_s, today, nullptr);
        ADD_FAILURE() << "the report was shown";
    } catch (const store::EngineError& error) {
        EXPECT_EQ(error.number(), store::ErrorNumber::ReportSourceUnreadable);
    }
}

TEST_F(TableOneReturnTest, otherFailuresOfTheReportAreSilentAndTheNextRunAddsItsRows) {
    const support::ScriptedBoxes noBoxes;
    atPreview = [] {
        throw std::runtime_error("no preview");
    };
    run();
    EXPECT_EQ(reg.count(u"z_vek"_s), 19);
    atPreview = nullptr;
    run();
    EXPECT_EQ(rows.size(), 38);
    EXPECT_EQ(reg.count(u"z_vek"_s), 0);
}

TEST_F(TableOneReturnTest, aWrongYearFailsBeforeAnythingIsWritten) {
    EXPECT_THROW(operation.run(u"xx"_s, today, nullptr), store::EngineError);
    EXPECT_EQ(previews, 0);
    EXPECT_EQ(reg.count(u"z_vek"_s), 0);
}

} // namespace
