#include "store/DataSource.h"
#include "store/Database.h"
#include "store/EngineAssertions.h"
#include "support/TemporaryRegister.h"

#include <QDate>
#include <QStringList>

#include <gtest/gtest.h>

#include <cmath>

using store::EditState;
using store::Recordset;
using store::Value;
using support::TemporaryRegister;

namespace {

/// Four clients, of whom two share a name, and three records of care of two of them.
class RecordsetTest : public testing::Test, public TemporaryRegister {
  protected:
    RecordsetTest() {
        const QString client =
            QStringLiteral("insert into k_zaklad (idkod,meno,priezv,datnar,katcis) values "
                           "('%1','%2','%3',%4,'%5')");
        const QString care =
            QStringLiteral("insert into k_zaznam_spc (idkod,datum,hod_od) values ('%1',%2,'%3')");
        const QString day = QStringLiteral("datevalue('%1')");
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
    QStringLiteral("select *,meno+space(2)+priezv as celemeno from k_zaklad order by priezv,meno");
const QString joined =
    QStringLiteral("select k_zaklad.idkod as idk,k_zaklad.vek as vek,k_zaznam_spc.hod_od from "
                   "k_zaklad inner join k_zaznam_spc on k_zaklad.idkod=k_zaznam_spc.idkod");

} // namespace

TEST_F(RecordsetTest, WalksInOrder) {
    auto rows = open(byName);
    EXPECT_EQ(rows->RecordCount(), 4);
    EXPECT_EQ(at(*rows, u"CELEMENO"), QStringLiteral("Eva  Adamová"));
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
    auto rows = open(QStringLiteral("select * from k_memo"));
    EXPECT_TRUE(rows->Eof());
    EXPECT_EQ(rows->RecordCount(), 0);
    EXPECT_ENGINE_ERROR(rows->MoveFirst(), 3021);
    EXPECT_ENGINE_ERROR(rows->Edit(), 3021);
    EXPECT_ENGINE_ERROR(rows->Delete(), 3021);
    EXPECT_ENGINE_ERROR(rows->setAbsolutePosition(0), 3021);
    rows->FindFirst(QStringLiteral("idkod = 'A'"));
    EXPECT_TRUE(rows->NoMatch());
}

TEST_F(RecordsetTest, FindsTheFirstInItsOwnOrder) {
    struct Case {
        QString source;
        QString criterion;
        QString found;
        int position;
    };
    const Case cases[] = {
        {QStringLiteral("k_zaklad"), QStringLiteral("meno='ján'"), QStringLiteral("NOVAKJA00"), 0},
        {QStringLiteral("select * from k_zaklad order by val(katcis)"),
         QStringLiteral("priezv like'Nov*'and meno like'J*'"), QStringLiteral("NOVAKJA01"), 1},
        {byName, QStringLiteral("priezv like 'nov*'"), QStringLiteral("NOVAKJA00"), 2},
        {byName, QStringLiteral("idkod = 'CAPOLA00  '"), QStringLiteral("CAPOLA00"), 1},
        {QStringLiteral("select * from k_zaklad where meno='Ján'"),
         QStringLiteral("trim(katcis) ='3'"), QStringLiteral("NOVAKJA01"), 1},
    };
    for (const Case& find : cases) {
        SCOPED_TRACE(qPrintable(find.source + QStringLiteral(" / ") + find.criterion));
        auto rows = open(find.source);
        rows->FindFirst(find.criterion);
        ASSERT_FALSE(rows->NoMatch());
        EXPECT_EQ(at(*rows, u"idkod"), find.found);
        EXPECT_EQ(rows->AbsolutePosition(), find.position);
    }
}

TEST_F(RecordsetTest, AFailedFindStaysWhereItIs) {
    auto rows = open(byName);
    rows->MoveNext();
    rows->FindFirst(QStringLiteral("idkod = 'NIET'"));
    EXPECT_TRUE(rows->NoMatch());
    EXPECT_EQ(at(*rows, u"idkod"), QStringLiteral("CAPOLA00"));
    EXPECT_ENGINE_ERROR(rows->FindFirst(QStringLiteral("idkod = 'O'Neil'")), 3075);
    EXPECT_EQ(at(*rows, u"idkod"), QStringLiteral("CAPOLA00"));
    rows->FindFirst(QStringLiteral("idkod = 'NOVAKJA01'"));
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
}

TEST_F(RecordsetTest, EditsARow) {
    auto rows = open(byName);
    EXPECT_ENGINE_ERROR(rows->Fields(u"meno").setValue(QStringLiteral("Iva")), 3020);
    EXPECT_ENGINE_ERROR(rows->Update(), 3020);
    rows->Edit();
    EXPECT_EQ(rows->EditMode(), EditState::Edit);
    EXPECT_FALSE(rows->dataChanged());
    rows->Fields(u"meno").setValue(QStringLiteral("Iva"));
    EXPECT_TRUE(rows->dataChanged());
    EXPECT_EQ(at(*rows, u"meno"), QStringLiteral("Iva"));
    EXPECT_EQ(text(QStringLiteral("select meno from k_zaklad where idkod='ADAMEV00'"),
                   QStringLiteral("meno")),
              QStringLiteral("Eva"));
    rows->CancelUpdate();
    EXPECT_EQ(at(*rows, u"meno"), QStringLiteral("Eva"));
    rows->Edit();
    rows->Fields(u"meno").setValue(QStringLiteral("Iva"));
    rows->Update();
    EXPECT_EQ(rows->EditMode(), EditState::None);
    EXPECT_EQ(at(*rows, u"celemeno"), QStringLiteral("Iva  Adamová"));
    EXPECT_ENGINE_ERROR(rows->Edit(); rows->Fields(u"celemeno").setValue(QString()), 3164);
}

TEST_F(RecordsetTest, ValuesComeIntoTheirColumns) {
    const auto text = [](const char16_t* characters) {
        return QString::fromUtf16(characters);
    };
    struct Case {
        const char16_t* column;
        Value given;
        const char16_t* shown;
        int error;
    };
    const Case cases[] = {
        {u"datnar", text(u"7.8.2003"), u"07.08.2003", 0},
        {u"datnar", QDate(2003, 8, 9), u"09.08.2003", 0},
        {u"datnar", text(u"31.2.2005"), u"31.2.2005", 0},
        {u"datnar", Value(), u"", 0},
        {u"datnar", QString(), u"", 3421},
        {u"datnar", text(u"  "), u"", 3421},
        {u"datnar", 5, u"", 3421},
        {u"datnar", QDate(), u"", 3421},
        {u"datnar", QDate(12000, 1, 1), u"", 3421},
        {u"vek", text(u" 17"), u"17", 0},
        {u"vek", 2.5, u"2", 0},
        {u"vek", text(u"1,5"), u"2", 0},
        {u"vek", text(u"12a"), u"", 3421},
        {u"vek", QString(), u"", 3421},
        {u"vek", 3e9, u"", 3421},
        {u"vek", std::nan(""), u"", 3421},
        {u"matvla", true, u"-1", 0},
        {u"matvla", text(u"0"), u"0", 0},
        {u"matvla", text(u"-1"), u"-1", 0},
        {u"matvla", Value(), u"0", 0},
        {u"matvla", text(u"azda"), u"", 3421},
        {u"meno", QString(20, u'ľ'), u"ľľľľľľľľľľľľľľľľľľľľ", 0},
        {u"meno", QString(21, u'ľ'), u"", 3163},
        {u"meno", 12, u"12", 0},
        {u"meno", QDate(2003, 8, 9), u"09.08.2003", 0},
    };
    for (const Case& value : cases) {
        SCOPED_TRACE(qPrintable(QStringView(value.column).toString() + value.given.toText()));
        auto rows = open(QStringLiteral("k_zaklad"));
        rows->Edit();
        if (value.error != 0) {
            EXPECT_ENGINE_ERROR(rows->Fields(value.column).setValue(value.given), value.error);
            continue;
        }
        rows->Fields(value.column).setValue(value.given);
        EXPECT_EQ(at(*rows, value.column), value.shown);
        rows->Update();
        EXPECT_EQ(at(*rows, value.column), value.shown);
    }
}

TEST_F(RecordsetTest, AddsARowBehindAllOthers) {
    for (const QString& source : {QStringLiteral("k_zaklad"), byName}) {
        SCOPED_TRACE(qPrintable(source));
        auto rows = open(source);
        rows->MoveNext();
        const QString current = at(*rows, u"idkod");
        const qint64 before = rows->RecordCount();
        rows->AddNew();
        EXPECT_EQ(rows->EditMode(), EditState::Add);
        EXPECT_EQ(at(*rows, u"idkod"), QString());
        EXPECT_EQ(rows->Fields(u"otevla").Value(), Value(false));
        rows->Fields(u"idkod").setValue(QStringLiteral("A%1").arg(before));
        rows->Update();
        EXPECT_EQ(at(*rows, u"idkod"), current);
        EXPECT_EQ(rows->RecordCount(), before + 1);
        rows->setAbsolutePosition(before);
        EXPECT_EQ(at(*rows, u"idkod"), QStringLiteral("A%1").arg(before));
        EXPECT_EQ(rows->Fields(u"otevla").Value(), Value(false));
        rows->FindFirst(QStringLiteral("idkod='A%1'").arg(before));
        EXPECT_EQ(rows->AbsolutePosition(), before);
    }
}

TEST_F(RecordsetTest, ATakenKeyLeavesTheEditOpen) {
    auto rows = open(QStringLiteral("k_zaklad"));
    rows->AddNew();
    rows->Fields(u"idkod").setValue(QStringLiteral("novakja00 "));
    EXPECT_ENGINE_ERROR(rows->Update(), 3022);
    EXPECT_EQ(rows->EditMode(), EditState::Add);
    rows->Fields(u"idkod").setValue(QStringLiteral("NOVAKJA02"));
    rows->Update();
    EXPECT_EQ(rows->RecordCount(), 5);
    rows->Edit();
    rows->Fields(u"idkod").setValue(QStringLiteral("NOVAKJA01"));
    EXPECT_ENGINE_ERROR(rows->Update(), 3022);
    EXPECT_EQ(rows->EditMode(), EditState::Edit);
    EXPECT_EQ(count(QStringLiteral("k_zaklad")), 5);
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
    EXPECT_EQ(at(*rows, u"idkod"), QStringLiteral("NOVAKJA00"));
    EXPECT_EQ(rows->AbsolutePosition(), 1);

    EXPECT_EQ(other->RecordCount(), 4) << "what others delete stays as a hole";
    EXPECT_ENGINE_ERROR(other->Fields(u"idkod").Value(), 3167);
    EXPECT_ENGINE_ERROR(other->Edit(), 3167);
    EXPECT_ENGINE_ERROR(other->Delete(), 3167);
    other->MoveNext();
    EXPECT_EQ(at(*other, u"idkod"), QStringLiteral("NOVAKJA00"));
}

TEST_F(RecordsetTest, ARowAddedAfterOthersDeletedTheLastComesOnce) {
    for (const QString& source : {QStringLiteral("k_zaklad"), byName}) {
        SCOPED_TRACE(qPrintable(source));
        auto rows = open(source);
        EXPECT_EQ(rows->RecordCount(), 4);
        database.Execute(QStringLiteral("delete from k_zaklad where idkod='CAPOLA00'"));
        rows->AddNew();
        rows->Fields(u"idkod").setValue(QStringLiteral("CAPOLA00"));
        rows->Update();
        rows->MoveFirst();
        EXPECT_EQ(column(*rows, u"idkod").count(QStringLiteral("CAPOLA00")), 1);
        EXPECT_EQ(rows->RecordCount(), 4);
    }
}

TEST_F(RecordsetTest, DeletingTheLastRowLeavesNone) {
    auto rows = open(QStringLiteral("select * from k_zaklad where idkod='ADAMEV00'"));
    rows->Delete();
    EXPECT_TRUE(rows->Eof());
}

TEST_F(RecordsetTest, EditsThroughAJoin) {
    auto rows = open(joined);
    for (int age = 5; !rows->Eof(); rows->MoveNext(), ++age) {
        rows->Edit();
        rows->Fields(u"vek").setValue(age);
        rows->Fields(u"hod_od").setValue(QStringLiteral("h%1").arg(age));
        rows->Update();
    }
    auto clients = open(QStringLiteral("select * from k_zaklad order by idkod"));
    EXPECT_EQ(column(*clients, u"vek").count(QLatin1Char(',')), 3);
    auto care = open(QStringLiteral("select * from k_zaznam_spc order by hod_od"));
    EXPECT_EQ(column(*care, u"hod_od"), u"h5,h6,h7");
    EXPECT_EQ(text(QStringLiteral("select vek from k_zaklad where idkod='ADAMEV00'"),
                   QStringLiteral("vek")),
              QString());
    EXPECT_NE(text(QStringLiteral("select vek from k_zaklad where idkod='NOVAKJA00'"),
                   QStringLiteral("vek")),
              QString());
    rows->MoveFirst();
    EXPECT_ENGINE_ERROR(rows->Delete(), 3164);
}

/// Both records of care of one client stand together, so that the client's part is read once.
TEST_F(RecordsetTest, RowsOfAJoinSeeTheirCommonPartAsItIs) {
    const QString client = QStringLiteral("NOVAKJA00");
    auto rows = open(joined + QStringLiteral(" where k_zaklad.idkod='NOVAKJA00'"));
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
    database.Execute(QStringLiteral("update k_zaklad set vek=8 where idkod='NOVAKJA00'"));
    rows->MoveNext();
    EXPECT_EQ(at(*rows, u"vek"), u"8");
    rows->MoveFirst();
    database.Execute(QStringLiteral("delete from k_zaznam_spc where hod_od<>'%1'").arg(first));
    EXPECT_EQ(at(*rows, u"idk"), client);
    rows->MoveNext();
    EXPECT_ENGINE_ERROR(rows->Fields(u"idk").Value(), 3167);
}

TEST_F(RecordsetTest, FindsInAJoinByItsPosition) {
    auto rows = open(joined + QStringLiteral(" order by k_zaznam_spc.hod_od desc"));
    const QStringList keys = column(*rows, u"idk").split(QLatin1Char(','));
    rows->FindFirst(QStringLiteral("k_zaklad.idkod = 'NOVAKJA00'"));
    ASSERT_FALSE(rows->NoMatch());
    EXPECT_EQ(rows->AbsolutePosition(), keys.indexOf(QStringLiteral("NOVAKJA00")));
}

TEST_F(RecordsetTest, AnOuterJoinHasRowsWithoutARightSide) {
    auto rows = open(QStringLiteral(
        "select k_zaklad.idkod, k_zaznam_spc.hod_od from k_zaklad left join k_zaznam_spc on "
        "k_zaklad.idkod = k_zaznam_spc.idkod order by k_zaklad.idkod, k_zaznam_spc.hod_od"));
    EXPECT_EQ(column(*rows, u"hod_od"), u",9,10,8,");
    rows->MoveFirst();
    rows->Edit();
    rows->Fields(u"hod_od").setValue(QStringLiteral("7"));
    EXPECT_ENGINE_ERROR(rows->Update(), 3164);
}

TEST_F(RecordsetTest, GroupedRowsAreReadOnly) {
    auto rows =
        open(QStringLiteral("select priezv, count(*) as pocet from k_zaklad group by priezv"));
    EXPECT_EQ(column(*rows, u"pocet"), u"1,1,2");
    rows->FindFirst(QStringLiteral("pocet = 2"));
    EXPECT_EQ(rows->AbsolutePosition(), 2);
    const auto mark = rows->Bookmark();
    rows->MoveFirst();
    rows->setBookmark(mark);
    EXPECT_EQ(at(*rows, u"priezv"), QStringLiteral("Novák"));
    rows->Edit();
    EXPECT_ENGINE_ERROR(rows->Fields(u"priezv").setValue(QStringLiteral("X")), 3164);
    EXPECT_ENGINE_ERROR(rows->Delete(), 3164);
}

TEST_F(RecordsetTest, ACloneIsAnotherCursorOnTheSameRows) {
    auto rows = open(byName);
    auto clone = rows->Clone();
    EXPECT_ENGINE_ERROR(clone->Fields(u"idkod").Value(), 3021);
    clone->FindFirst(QStringLiteral("idkod='NOVAKJA01'"));
    EXPECT_EQ(rows->AbsolutePosition(), 0);
    rows->setBookmark(clone->Bookmark());
    EXPECT_EQ(rows->Bookmark(), clone->Bookmark());
    EXPECT_EQ(at(*rows, u"idkod"), QStringLiteral("NOVAKJA01"));
    clone->setAbsolutePosition(1);
    clone->Delete();
    EXPECT_EQ(rows->AbsolutePosition(), 2);
    clone->Close();
    EXPECT_ENGINE_ERROR(clone->MoveFirst(), 3021);
    EXPECT_EQ(rows->RecordCount(), 3);
}

TEST_F(RecordsetTest, SeesWhatWasWrittenBesideIt) {
    auto rows = open(byName);
    EXPECT_EQ(at(*rows, u"meno"), QStringLiteral("Eva"));
    database.Execute(QStringLiteral("update k_zaklad set meno='Iva' where idkod='ADAMEV00'"));
    EXPECT_EQ(at(*rows, u"meno"), QStringLiteral("Iva"));
    database.Execute(QStringLiteral("insert into k_zaklad (idkod,priezv) values ('B','Aa')"));
    EXPECT_EQ(rows->RecordCount(), 4) << "rows of others come with a refresh";
    rows->FindFirst(QStringLiteral("idkod='B'"));
    EXPECT_TRUE(rows->NoMatch());
}

TEST_F(RecordsetTest, KeepsItsRowsWhileItReadsThemLate) {
    for (int row = 0; row < 400; ++row)
        execute({QStringLiteral("insert into c_iczuj (kod,nazov) values ('%1','Obec')")
                     .arg(row, 4, 10, QLatin1Char('0'))});
    for (const QString& source :
         {QStringLiteral("c_iczuj"), QStringLiteral("select * from c_iczuj order by kod desc")}) {
        SCOPED_TRACE(qPrintable(source));
        auto expected = column(*open(source), u"kod");
        auto rows = open(source);
        const qint64 others = expected.count(QLatin1Char(',')) + 1;
        database.Execute(
            QStringLiteral("insert into c_iczuj (kod,nazov) values ('9999','Cudzia')"));
        rows->AddNew();
        rows->Fields(u"kod").setValue(QStringLiteral("5000"));
        rows->Update();
        EXPECT_EQ(column(*rows, u"kod"), expected + QStringLiteral(",5000"));
        EXPECT_EQ(rows->RecordCount(), others + 1);
        rows->FindFirst(QStringLiteral("kod='5000'"));
        EXPECT_EQ(rows->AbsolutePosition(), others);
        database.Execute(QStringLiteral("delete from c_iczuj where kod>='5000'"));
    }
}

TEST_F(RecordsetTest, StoredQueriesAreSources) {
    auto query = database.QueryDefs(QStringLiteral("VYP_ZAKLAD"));
    query.setSQL(byName);
    EXPECT_EQ(at(*open(QStringLiteral("vyp_zaklad")), u"meno"), QStringLiteral("Eva"));
    EXPECT_ENGINE_ERROR(database.QueryDefs(QStringLiteral("vyp_niet")).SQL(), 3265);
    EXPECT_ENGINE_ERROR(database.appendQueryDef(QStringLiteral("Vyp_Memo"), byName), 3012);
    database.appendQueryDef(QStringLiteral("vyp_nova"), byName);
    EXPECT_EQ(open(QStringLiteral("vyp_nova"))->RecordCount(), 4);
    execute(
        {QStringLiteral("insert into zamestnanci (idkod,meno,priezv) values ('Z','Zita','Zlá')"),
         QStringLiteral("insert into k_zaznam_zmeny (idkod,idkod_p,datum,zmeny) values "
                        "('NOVAKJA00','Z',datevalue('1.9.2006'),'nič')")});
    auto notes = open(QStringLiteral("vyp_zazZmeny"));
    EXPECT_EQ(at(*notes, u"datum") + at(*notes, u"Expr1") + at(*notes, u"zmeny"),
              QStringLiteral("01.09.2006Zita  Zlánič"));
}

TEST_F(RecordsetTest, RefusesBadSources) {
    EXPECT_ENGINE_ERROR(open(QStringLiteral("niet")), 3078);
    EXPECT_ENGINE_ERROR(open(QStringLiteral("select * from k_zaklad where")), 3075);
    EXPECT_ENGINE_ERROR(open(QStringLiteral("select niet from k_zaklad")), 3061);
    database.Close();
    EXPECT_ENGINE_ERROR(open(QStringLiteral("k_zaklad")), 3021);
}
