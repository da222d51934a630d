#include "store/DataSource.h"
#include "store/Database.h"
#include "store/EngineAssertions.h"
#include "support/Lists.h"
#include "support/TemporaryRegister.h"

#include <QDate>
#include <QStringList>

#include <gtest/gtest.h>

#include <cmath>

using store::EditState;
using store::Recordset;
using store::Value;
using support::TemporaryRegister;
using namespace Qt::StringLiterals;

namespace {

/// Four clients, of whom two share a name, and three records of care of two of them.
class RecordsetTest : public testing::Test, public TemporaryRegister {
  protected:
    RecordsetTest() {
        const QString client = u"insert into k_zaklad (idkod,meno,priezv,datnar,katcis) values "
                               "('%1','%2','%3',%4,'%5')"_s;
        const QString care =
            u"insert into k_zaznam_spc (idkod,datum,hod_od) values ('%1',%2,'%3')"_s;
        const QString day = u"datevalue('%1')"_s;
        execute({client.arg(u"NOVAKJA00", u"Ján", u"Novák", day.arg(u"1.2.2000"), u"10"),
                 client.arg(u"ADAMEV00", u"Eva", u"Adamová", day.arg(u"3.4.2001"), u"2"),
                 client.arg(u"NOVAKJA01", u"Ján", u"Novák", u"null", u"3"),
                 client.arg(u"CAPOLA00", u"Ľala", u"Čapová", day.arg(u"5.6.1999"), u"4"),
                 care.arg(u"NOVAKJA00", day.arg(u"2.9.2006"), u"8"),
                 care.arg(u"CAPOLA00", day.arg(u"3.9.2006"), u"9"),
                 care.arg(u"NOVAKJA00", day.arg(u"4.9.2006"), u"10")});
    }

    std::unique_ptr<Recordset> open(const QString& source) {
        return database.OpenRecordset(source);
    }

    static QString at(Recordset& rows, QStringView column) {
        return rows.Fields(column).Value().toText();
    }
    /// A column of the rows from here on, parted by commas.
    static QString column(Recordset& rows, QStringView name) {
        QStringList values;
        for (; !rows.Eof(); rows.MoveNext())
            values << at(rows, name);
        return values.join(QLatin1Char(','));
    }

    store::Database database = engine.OpenDatabase(folder.database());
};

const QString byName =
    u"select *,meno+space(2)+priezv as celemeno from k_zaklad order by priezv,meno"_s;
const QString joined = u"select k_zaklad.idkod as idk,k_zaklad.vek as vek,k_zaznam_spc.hod_od from "
                       "k_zaklad inner join k_zaznam_spc on k_zaklad.idkod=k_zaznam_spc.idkod"_s;

} // namespace

TEST_F(RecordsetTest, WalksInOrder) {
    auto rows = open(byName);
    EXPECT_EQ(rows->RecordCount(), 4);
    EXPECT_EQ(at(*rows, u"CELEMENO"), u"Eva  Adamová"_s);
    EXPECT_EQ(column(*rows, u"idkod"), u"ADAMEV00,CAPOLA00,NOVAKJA00,NOVAKJA01");
    EXPECT_TRUE(rows->Eof());
    EXPECT_EQ(rows->AbsolutePosition(), -1);
    EXPECT_ENGINE_ERROR(rows->MoveNext(), 3021);
    EXPECT_ENGINE_ERROR(rows->Fields(u"idkod").Value(), 3021);
    EXPECT_ENGINE_ERROR(rows->Fields(u"niet"), 3265);
    rows->MoveFirst();
    EXPECT_EQ(rows->AbsolutePosition(), 0);
}

TEST_F(RecordsetTest, AnEmptyOneHasNoRows) {
    auto rows = open(u"select * from k_memo"_s);
    EXPECT_TRUE(rows->Eof());
    EXPECT_EQ(rows->RecordCount(), 0);
    EXPECT_ENGINE_ERROR(rows->MoveFirst(), 3021);
    EXPECT_ENGINE_ERROR(rows->Edit(), 3021);
    EXPECT_ENGINE_ERROR(rows->Delete(), 3021);
    EXPECT_ENGINE_ERROR(rows->setAbsolutePosition(0), 3021);
    rows->FindFirst(u"idkod = 'A'"_s);
    EXPECT_TRUE(rows->NoMatch());
    rows = open(u"select * from k_zaklad where idkod='ADAMEV00'"_s);
    rows->Delete();
    EXPECT_TRUE(rows->Eof()) << "the last row is gone";
}

TEST_F(RecordsetTest, FindsTheFirstInItsOwnOrder) {
    const std::tuple<QString, QString, QString, int> cases[] = {
        {u"k_zaklad"_s, u"meno='ján'"_s, u"NOVAKJA00"_s, 0},
        {u"select * from k_zaklad order by val(katcis)"_s, u"priezv like'Nov*'and meno like'J*'"_s,
         u"NOVAKJA01"_s, 1},
        {byName, u"priezv like 'nov*'"_s, u"NOVAKJA00"_s, 2},
        {byName, u"idkod = 'CAPOLA00  '"_s, u"CAPOLA00"_s, 1},
        {u"select * from k_zaklad where meno='Ján'"_s, u"trim(katcis) ='3'"_s, u"NOVAKJA01"_s, 1}};
    for (const auto& [source, criterion, found, position] : cases) {
        SCOPED_TRACE(qPrintable(source + u" / "_s + criterion));
        auto rows = open(source);
        rows->FindFirst(criterion);
        ASSERT_FALSE(rows->NoMatch());
        EXPECT_EQ(at(*rows, u"idkod"), found);
        EXPECT_EQ(rows->AbsolutePosition(), position);
    }
}

TEST_F(RecordsetTest, FindNextGoesOnBehindTheCurrentRowInTheOrderOfTheRows) {
    const std::tuple<QString, QString, QList<qint64>> cases[] = {
        {byName, u"priezv like 'nov*'"_s, {2, 3}},
        {u"k_zaklad"_s, u"priezv like 'nov*'"_s, {0, 2}},
        {u"select priezv, count(*) as pocet from k_zaklad group by priezv"_s,
         u"pocet = 1"_s,
         {0, 1}}};
    for (const auto& [source, criterion, positions] : cases) {
        auto rows = open(source);
        rows->FindFirst(criterion);
        QList<qint64> found;
        for (; !rows->NoMatch(); rows->FindNext(criterion))
            found << rows->AbsolutePosition();
        EXPECT_EQ(found, positions) << qPrintable(source);
        EXPECT_EQ(rows->AbsolutePosition(), positions.back()) << "stays where it is";
    }
}

TEST_F(RecordsetTest, AFailedFindStaysWhereItIs) {
    auto rows = open(byName);
    rows->MoveNext();
    rows->FindFirst(u"idkod = 'NIET'"_s);
    EXPECT_TRUE(rows->NoMatch());
    EXPECT_EQ(at(*rows, u"idkod"), u"CAPOLA00"_s);
    EXPECT_ENGINE_ERROR(rows->FindFirst(u"idkod = 'O'Neil'"_s), 3075);
    EXPECT_EQ(at(*rows, u"idkod"), u"CAPOLA00"_s);
    rows->FindFirst(u"idkod = 'NOVAKJA01'"_s);
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
}

TEST_F(RecordsetTest, EditsARow) {
    auto rows = open(byName);
    EXPECT_ENGINE_ERROR(rows->Fields(u"meno").setValue(u"Iva"_s), 3020);
    EXPECT_ENGINE_ERROR(rows->Update(), 3020);
    rows->Edit();
    EXPECT_EQ(rows->EditMode(), EditState::Edit);
    EXPECT_FALSE(rows->dataChanged());
    rows->Fields(u"meno").setValue(u"Iva"_s);
    EXPECT_TRUE(rows->dataChanged());
    EXPECT_EQ(at(*rows, u"meno"), u"Iva"_s);
    EXPECT_EQ(text(u"select meno from k_zaklad where idkod='ADAMEV00'"_s, u"meno"_s), u"Eva"_s);
    rows->CancelUpdate();
    EXPECT_EQ(at(*rows, u"meno"), u"Eva"_s);
    rows->Edit();
    rows->Fields(u"meno").setValue(u"Iva"_s);
    rows->Update();
    EXPECT_EQ(rows->EditMode(), EditState::None);
    EXPECT_EQ(at(*rows, u"celemeno"), u"Iva  Adamová"_s);
    EXPECT_ENGINE_ERROR(rows->Edit(); rows->Fields(u"celemeno").setValue(QString()), 3164);
}

TEST_F(RecordsetTest, ValuesAreReadAsWhatTheyAreNot) {
    EXPECT_EQ(text(u"select 5/2 as pol from k_zaklad"_s, u"pol"_s), u"2.5"_s);
    EXPECT_EQ(Value(QDate(1900, 1, 1)).toNumber(), 2);
    EXPECT_EQ(Value(u"1.9.2006"_s).toDate(), QDate(2006, 9, 1));
    EXPECT_FALSE(Value(u"31.2.2005"_s).toDate().isValid());
}

/// The same values come in the same way by an edit and by an action statement. A line is a column,
/// a value as a statement writes it, the same as an edit gives it, how it is shown, and the
/// refusal.
TEST_F(RecordsetTest, ValuesComeIntoTheirColumns) {
    const auto setting = u"update k_zaklad set %1=%2 where idkod='NOVAKJA00'"_s;
    for (const QStringList& line : support::linesOf(u"values.tsv"_s)) {
        const QString& column = line[0];
        const QString& shown = line[3];
        SCOPED_TRACE(qPrintable(column + u" = "_s + line[1]));
        const Value given = support::valueOf(line[2]);
        auto rows = open(u"k_zaklad"_s);
        rows->Edit();
        const QString statement = setting.arg(column, line[1]);
        if (line.size() == 5) {
            const int refusal = line[4].toInt();
            EXPECT_ENGINE_ERROR(rows->Fields(column).setValue(given), refusal);
            EXPECT_ENGINE_ERROR(database.Execute(statement), refusal);
            continue;
        }
        rows->Fields(column).setValue(given);
        EXPECT_EQ(at(*rows, column), shown);
        rows->Update();
        const Value stored = rows->Fields(column).Value();
        EXPECT_EQ(stored.toText(), shown);
        database.Execute(setting.arg(column, u"null"_s));
        database.Execute(statement);
        EXPECT_EQ(rows->Fields(column).Value(), stored);
    }
}

TEST_F(RecordsetTest, AddsARowBehindAllOthers) {
    for (const QString& source : {u"k_zaklad"_s, byName}) {
        SCOPED_TRACE(qPrintable(source));
        auto rows = open(source);
        rows->MoveNext();
        const QString current = at(*rows, u"idkod");
        const qint64 before = rows->RecordCount();
        rows->AddNew();
        EXPECT_EQ(rows->EditMode(), EditState::Add);
        EXPECT_EQ(at(*rows, u"idkod"), QString());
        EXPECT_EQ(rows->Fields(u"otevla").Value(), Value(false));
        rows->Fields(u"idkod").setValue(u"A%1"_s.arg(before));
        rows->Update();
        EXPECT_EQ(at(*rows, u"idkod"), current);
        EXPECT_EQ(rows->RecordCount(), before + 1);
        rows->setAbsolutePosition(before);
        EXPECT_EQ(at(*rows, u"idkod"), u"A%1"_s.arg(before));
        EXPECT_EQ(rows->Fields(u"otevla").Value(), Value(false));
        rows->FindFirst(u"idkod='A%1'"_s.arg(before));
        EXPECT_EQ(rows->AbsolutePosition(), before);
    }
}

TEST_F(RecordsetTest, ARowAddedAfterOneThatIsGoneComesOnce) {
    const auto add = [this](Recordset& rows) {
        rows.AddNew();
        rows.Fields(u"idkod").setValue(u"BARANJA00"_s);
        rows.Update();
        rows.MoveFirst();
        return rows.RecordCount();
    };
    for (const QString& source : {u"k_zaklad"_s, byName}) {
        engine.commitPending();
        auto rows = open(source);
        EXPECT_EQ(add(*rows), 5);
        engine.rollBackPending();
        EXPECT_EQ(add(*rows), 5) << "added again where it was undone";
        EXPECT_EQ(column(*rows, u"idkod").count(u"BARANJA00"_s), 1);
        execute({u"delete from k_zaklad where idkod='BARANJA00'"_s});
        EXPECT_EQ(add(*rows), 6) << "and behind its hole";
        execute({u"delete from k_zaklad where idkod='BARANJA00'"_s});
    }
}

TEST_F(RecordsetTest, ATakenKeyLeavesTheEditOpen) {
    auto rows = open(u"k_zaklad"_s);
    rows->AddNew();
    rows->Fields(u"idkod").setValue(u"novakja00 "_s);
    EXPECT_ENGINE_ERROR(rows->Update(), 3022);
    EXPECT_EQ(rows->EditMode(), EditState::Add);
    rows->Fields(u"idkod").setValue(u"NOVAKJA02"_s);
    rows->Update();
    EXPECT_EQ(rows->RecordCount(), 5);
    rows->Edit();
    rows->Fields(u"idkod").setValue(u"NOVAKJA01"_s);
    EXPECT_ENGINE_ERROR(rows->Update(), 3022);
    EXPECT_EQ(rows->EditMode(), EditState::Edit);
    EXPECT_EQ(count(u"k_zaklad"_s), 5);
}

TEST_F(RecordsetTest, DeletesAndLeavesNoRowUntilAMove) {
    auto rows = open(byName);
    rows->MoveNext();
    const auto mark = rows->Bookmark();
    auto other = open(byName);
    other->setAbsolutePosition(1);
    rows->Delete();
    EXPECT_ENGINE_ERROR(rows->Fields(u"idkod").Value(), 3021);
    EXPECT_EQ(rows->AbsolutePosition(), -1);
    EXPECT_FALSE(rows->Eof());
    EXPECT_EQ(rows->RecordCount(), 3);
    EXPECT_ENGINE_ERROR(rows->setBookmark(mark), 3021);
    rows->MoveNext();
    EXPECT_EQ(at(*rows, u"idkod"), u"NOVAKJA00"_s);
    EXPECT_EQ(rows->AbsolutePosition(), 1);

    EXPECT_EQ(other->RecordCount(), 4) << "what others delete stays as a hole";
    EXPECT_ENGINE_ERROR(other->Fields(u"idkod").Value(), 3167);
    EXPECT_ENGINE_ERROR(other->Edit(), 3167);
    EXPECT_ENGINE_ERROR(other->Delete(), 3167);
    other->MoveNext();
    EXPECT_EQ(at(*other, u"idkod"), u"NOVAKJA00"_s);
}

TEST_F(RecordsetTest, EditsThroughAJoin) {
    auto rows = open(joined);
    for (int age = 5; !rows->Eof(); rows->MoveNext(), ++age) {
        rows->Edit();
        rows->Fields(u"vek").setValue(age);
        rows->Fields(u"hod_od").setValue(u"h%1"_s.arg(age));
        rows->Update();
    }
    auto clients = open(u"select * from k_zaklad order by idkod"_s);
    EXPECT_EQ(column(*clients, u"vek").count(QLatin1Char(',')), 3);
    auto care = open(u"select * from k_zaznam_spc order by hod_od"_s);
    EXPECT_EQ(column(*care, u"hod_od"), u"h5,h6,h7");
    EXPECT_EQ(text(u"select vek from k_zaklad where idkod='ADAMEV00'"_s, u"vek"_s), QString());
    EXPECT_NE(text(u"select vek from k_zaklad where idkod='NOVAKJA00'"_s, u"vek"_s), QString());
    rows->MoveFirst();
    EXPECT_ENGINE_ERROR(rows->Delete(), 3164);
    for (const auto& [order, first] : {std::pair(u"asc"_s, 1), {u"desc"_s, 0}}) {
        rows = open(joined + u" order by k_zaznam_spc.hod_od "_s + order);
        rows->FindFirst(u"k_zaklad.idkod = 'NOVAKJA00'"_s);
        EXPECT_EQ(rows->AbsolutePosition(), first) << qPrintable(order);
    }
}

/// Both records of care of one client stand together, so that the client's part is read once.
TEST_F(RecordsetTest, RowsOfAJoinSeeTheirCommonPartAsItIs) {
    const QString client = u"NOVAKJA00"_s;
    auto rows = open(joined + u" where k_zaklad.idkod='NOVAKJA00'"_s);
    const QString first = at(*rows, u"hod_od");
    rows->Edit();
    rows->Fields(u"vek").setValue(7);
    rows->Update();
    EXPECT_EQ(at(*rows, u"idk"), client);
    rows->MoveNext();
    EXPECT_EQ(at(*rows, u"vek"), u"7");
    EXPECT_NE(at(*rows, u"hod_od"), first);
    rows->MoveFirst();
    EXPECT_EQ(at(*rows, u"vek"), u"7");
    database.Execute(u"update k_zaklad set vek=8 where idkod='NOVAKJA00'"_s);
    rows->MoveNext();
    EXPECT_EQ(at(*rows, u"vek"), u"8");
    rows->MoveFirst();
    database.Execute(u"delete from k_zaznam_spc where hod_od<>'%1'"_s.arg(first));
    EXPECT_EQ(at(*rows, u"idk"), client);
    rows->MoveNext();
    EXPECT_ENGINE_ERROR(rows->Fields(u"idk").Value(), 3167);
}

TEST_F(RecordsetTest, AnOuterJoinHasRowsWithoutARightSide) {
    auto rows =
        open(u"select k_zaklad.idkod, k_zaznam_spc.hod_od from k_zaklad left join k_zaznam_spc on "
             "k_zaklad.idkod = k_zaznam_spc.idkod order by k_zaklad.idkod, k_zaznam_spc.hod_od"_s);
    EXPECT_EQ(column(*rows, u"hod_od"), u",9,10,8,");
    rows->MoveFirst();
    rows->Edit();
    rows->Fields(u"hod_od").setValue(u"7"_s);
    EXPECT_ENGINE_ERROR(rows->Update(), 3164);
}

TEST_F(RecordsetTest, GroupedRowsAreReadOnly) {
    auto rows = open(u"select priezv, count(*) as pocet from k_zaklad group by priezv"_s);
    EXPECT_EQ(column(*rows, u"pocet"), u"1,1,2");
    rows->FindFirst(u"pocet = 2"_s);
    EXPECT_EQ(rows->AbsolutePosition(), 2);
    const auto mark = rows->Bookmark();
    rows->MoveFirst();
    rows->setBookmark(mark);
    EXPECT_EQ(at(*rows, u"priezv"), u"Novák"_s);
    rows->Edit();
    EXPECT_ENGINE_ERROR(rows->Fields(u"priezv").setValue(u"X"_s), 3164);
    EXPECT_ENGINE_ERROR(rows->Delete(), 3164);
}

TEST_F(RecordsetTest, ACloneIsAnotherCursorOnTheSameRows) {
    auto rows = open(byName);
    auto clone = rows->Clone();
    EXPECT_ENGINE_ERROR(clone->Fields(u"idkod").Value(), 3021);
    clone->FindFirst(u"idkod='NOVAKJA01'"_s);
    EXPECT_EQ(rows->AbsolutePosition(), 0);
    rows->setBookmark(clone->Bookmark());
    EXPECT_EQ(rows->Bookmark(), clone->Bookmark());
    EXPECT_EQ(at(*rows, u"idkod"), u"NOVAKJA01"_s);
    clone->setAbsolutePosition(1);
    clone->Delete();
    EXPECT_EQ(rows->AbsolutePosition(), 2);
    rows->MoveFirst();
    clone->MoveFirst();
    clone->Delete();
    rows->MoveNext();
    EXPECT_EQ(at(*rows, u"idkod"), u"NOVAKJA00"_s) << "what a clone deletes leaves no gap";
    clone->Close();
    EXPECT_ENGINE_ERROR(clone->MoveFirst(), 3021);
    EXPECT_EQ(rows->RecordCount(), 2);
}

TEST_F(RecordsetTest, KeepsItsRowsWhileItReadsThemLate) {
    for (int row = 0; row < 400; ++row)
        execute({u"insert into c_iczuj (kod,nazov) values ('%1','Obec')"_s.arg(row, 4, 10,
                                                                               QLatin1Char('0'))});
    for (const QString& source : {u"c_iczuj"_s, u"select * from c_iczuj order by kod desc"_s}) {
        SCOPED_TRACE(qPrintable(source));
        auto expected = column(*open(source), u"kod");
        auto rows = open(source);
        const qint64 others = expected.count(QLatin1Char(',')) + 1;
        database.Execute(u"insert into c_iczuj (kod,nazov) values ('9999','Cudzia')"_s);
        rows->AddNew();
        rows->Fields(u"kod").setValue(u"5000"_s);
        rows->Update();
        EXPECT_EQ(column(*rows, u"kod"), expected + u",5000"_s);
        EXPECT_EQ(rows->RecordCount(), others + 1);
        rows->FindFirst(u"kod='5000'"_s);
        EXPECT_EQ(rows->AbsolutePosition(), others);
        database.Execute(u"delete from c_iczuj where kod>='5000'"_s);
    }
}

TEST_F(RecordsetTest, StoredQueriesAreSources) {
    auto query = database.QueryDefs(u"VYP_ZAKLAD"_s);
    query.setSQL(byName);
    EXPECT_EQ(at(*open(u"vyp_zaklad"_s), u"meno"), u"Eva"_s);
    EXPECT_ENGINE_ERROR(database.QueryDefs(u"vyp_niet"_s).SQL(), 3265);
    EXPECT_EQ(open(u"vyp_zaklad"_s)->RecordCount(), 4);
    EXPECT_ENGINE_ERROR(database.CreateQueryDef(u"VYP_ZAKLAD"_s, u"select 1"_s), 3012);
    database.CreateQueryDef(u"vyp_nova"_s, byName);
    EXPECT_EQ(open(u"vyp_nova"_s)->RecordCount(), 4);
    execute({u"insert into zamestnanci (idkod,meno,priezv) values ('Z','Zita','Zlá')"_s,
             u"insert into k_zaznam_zmeny (idkod,idkod_p,datum,zmeny) values "
             "('NOVAKJA00','Z',datevalue('1.9.2006'),'nič')"_s});
    auto notes = open(u"vyp_zazZmeny"_s);
    EXPECT_EQ(at(*notes, u"idkod") + at(*notes, u"datum") + at(*notes, u"Expr1") +
                  at(*notes, u"zmeny"),
              u"NOVAKJA0001.09.2006Zita  Zlánič"_s);
}
