#include "mkdb/Register.h"

#include "card/Key.h"
#include "mkdb/BirthNumber.h"
#include "mkdb/Calendar.h"
#include "mkdb/Commands.h"
#include "mkdb/Random.h"
#include "mkdb/TextMaker.h"
#include "store/FileBytes.h"
#include "support/TemporaryRegister.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using namespace Qt::StringLiterals;

const QDate today(2026, 11, 23);

void make(const QString& file, int clients, int seed, const QDate& day = today) {
    mkdb::run({mkdb::Command::Sample,
               file,
               QStringLiteral(TVK_DATA_FOLDER "/ciselniky"),
               QStringLiteral(TVK_DATA_FOLDER "/ukazka"),
               {clients, static_cast<std::uint64_t>(seed), day}});
}

support::TemporaryRegister& sample() {
    static support::TemporaryRegister sample{[](const QString& file) {
        make(file, 300, 1);
    }};
    return sample;
}

void expectRows(const QString& sql, int fewest, int most) {
    const qint64 rows = sample().count(sql);
    EXPECT_TRUE(rows >= fewest && rows <= most) << rows << ": " << qPrintable(sql);
}

TEST(Register, isTheSameForTheSameSeedAlone) {
    const QTemporaryDir folder;
    const auto made = [&](int seed, const QDate& day) {
        const QString file = folder.filePath(u"a.mdb"_s);
        make(file, 40, seed, day);
        const QByteArray bytes = files::read(file);
        QFile::remove(file);
        return bytes;
    };
    const QByteArray first = made(5, today);
    EXPECT_EQ(made(5, today), first);
    EXPECT_NE(made(6, today), first);
    EXPECT_NE(made(5, today.addYears(-3)), first);
    mkdb::Random onEveryMachine(1, 0);
    for (const int drawn : {2, 598, 53, 794, 558})
        EXPECT_EQ(onEveryMachine.below(1000), drawn);
}

TEST(Register, pointsOnlyToWhatIsThere) {
    const std::pair<QString, QStringList> references[] = {
        {u"c_zdrpoi.kod"_s, {u"k_zaklad.zdrpoi"_s}},
        {u"c_narodn.kod"_s, {u"k_zaklad.narodn"_s}},
        {u"c_iczeme.kod"_s, {u"k_zaklad.stprisl"_s}},
        {u"c_jazyk.kod"_s, {u"k_zaklad.jazyk"_s, u"k_zaklad.jaz_doma"_s}},
        {u"c_funkcie.fc_idkod"_s, {u"zamestnanci.prac_zar"_s}},
        {u"c_zariad.kod"_s, {u"k_zariad.nazzar"_s}},
        {u"c_iczuj.nazov"_s,
         {u"k_zaklad.mienar"_s, u"k_zaklad.obec"_s, u"k_zaklad.matobe"_s, u"k_zaklad.oteobe"_s,
          u"k_zaklad.kon_obe"_s}},
        {u"zamestnanci.idkod"_s,
         {u"k_vysetrenie.idkod_p"_s, u"k_zaznam_zmeny.idkod_p"_s, u"k_zaznam_spc.idkod_p"_s}},
        {u"k_zaklad.idkod"_s,
         {u"k_memo.idkod"_s, u"k_surodenci.idkod"_s, u"k_zariad.idkod"_s, u"k_vysetrenie.idkod"_s,
          u"k_zaznam_zmeny.idkod"_s, u"k_zaznam_spc.idkod"_s, u"k_navstevy.idkod"_s}}};
    for (const auto& [target, columns] : references)
        for (const QString& column : columns)
            expectRows(
                u"select %1 from %2 left join %3 on %1 = %4 where %4 is null and len(%1 & '') > 0"_s
                    .arg(column, column.section(u'.', 0, 0), target.section(u'.', 0, 0), target),
                0, 0);
}

/// Rows that may not be, or how many there have to be.
TEST(Register, holdsRowsThatAgree) {
    for (const char16_t* forbidden :
         {u"select * from k_zaklad where rodcis <> '' and (len(rodcis) <> 10 or val(rodcis) mod 11 "
          u"<> 0)",
          u"select rodcis from k_zaklad where rodcis <> '' group by rodcis having count(*) > 1",
          u"select katcis from k_zaklad group by katcis having count(*) > 1",
          u"select * from k_zaklad where rodcis <> '' and (val(left(rodcis, 2)) + 2000 <> "
          u"year(datnar) or val(mid(rodcis, 3, 2)) mod 50 <> month(datnar) or "
          u"val(mid(rodcis, 5, 2)) <> day(datnar) or "
          u"iif(val(mid(rodcis, 3, 2)) > 12, 'Z', 'M') <> pohlav)",
          u"select * from k_zaklad where year(datnar) - val(matnar) <> val(matvek) or val(matvek) "
          u"< 16",
          u"select * from k_zaklad where kon_pomer = 'matka' and kon_meno <> matka",
          u"select k_surodenci.meno from k_surodenci inner join k_zaklad on k_surodenci.idkod = "
          u"k_zaklad.idkod where val(roknar) - val(matnar) < 16",
          u"select idkod, meno from k_surodenci group by idkod, meno having count(*) > 1",
          u"select * from zamestnanci where (pohlavie = 'z') <> (priezv like '*á')",
          u"select * from k_surodenci where (pohlavie = 'Z') <> (meno like '*á')",
          u"select * from k_zaznam_spc where val(hod_od) >= val(hod_do) or cinnost is null",
          u"select * from k_navstevy where datum >= dat_budn",
          u"select * from k_zariad where vzar_do < vzar_od",
          u"select * from k_zariad, k_zaklad where k_zariad.idkod = k_zaklad.idkod and nazzar = "
          u"'14' and akronym = 'VYCH' and not left(postih, 1) in ('1', '2')",
          u"select * from k_memo, k_zaklad where k_memo.idkod = k_zaklad.idkod and u_ziak <> '' "
          u"and "
          u"datnar > dateserial(2020, 11, 23)",
          u"select * from k_memo where poznamky like '*[{|]*'",
          u"select * from k_vysetrenie where popis like '*[{|]*'",
          u"select * from odbstar where val(s_1) <> val(s_2) + val(s_3) + val(s_4) + val(s_5) or "
          u"val(s_6) <> val(s_7) + val(s_8) + val(s_9) + val(s_10)",
          u"select sum(val(s_1)) from odbstar having sum(iif(c_ria = '0536', -val(s_1), val(s_1))) "
          u"<> 0 or sum(iif(c_ria = '0536', -val(s_10), val(s_10))) <> 0",
          u"select count(*) from odbstar where c_ria < '0506' having "
          u"sum(iif(c_ria = '0501', -val(s_2), val(s_2))) <> 0"})
        expectRows(QString::fromUtf16(forbidden), 0, 0);
    const std::tuple<const char16_t*, int, int> counted[] = {
        {u"select * from k_zaklad where rodcis <> ''", 270, 299},
        {u"select * from k_zaklad where pohlav = 'M'", 151, 250},
        {u"select distinct idkod_p from k_zaznam_spc", 7, 11},
        {u"select idkod from k_zariad where akronym = 'VYCH' and vzar_do is null group by idkod "
         u"having count(*) = 1",
         300, 300},
        {u"select distinct left(trim(postih) & '', 1) from k_zaklad", 10, 10},
        {u"select distinct iif(datnar <= dateserial(2008, 11, 23), 18, 2026 - year(datnar) - "
         u"iif(format(datnar, 'mm') & format(datnar, 'dd') > '1123', 1, 0)), pohlav from k_zaklad, "
         u"k_zaznam_spc "
         u"where k_zaklad.idkod = k_zaznam_spc.idkod and datum >= dateserial(2026, 9, 1) and "
         u"isnull(datnar) = false "
         u"and trim(postih) <> ''",
         38, 38},
        {u"odbstar", 28, 28},
        {u"select * from dop_ukaz where r_0401 + r_0402 + r_0403 + r_0404 = r_0416", 1, 1}};
    for (const auto& [sql, fewest, most] : counted)
        expectRows(QString::fromUtf16(sql), fewest, most);
    for (const char16_t* table :
         {u"k_vysetrenie", u"k_zaznam_zmeny", u"k_zaznam_spc", u"k_navstevy"}) {
        const QString name = QString::fromUtf16(table);
        expectRows(
            u"select idkod, datum from %1 group by idkod, datum having count(*) > 1"_s.arg(name), 0,
            0);
        expectRows(u"select datum from %1 inner join k_zaklad on %1.idkod = k_zaklad.idkod where "
                   "datum < datevi or datum > dateserial(2026, 11, 23)"_s.arg(name),
                   0, 0);
        expectRows(u"select distinct year(datum) - iif(month(datum) < 9, 1, 0) from %1"_s.arg(name),
                   7, 7);
    }
}

TEST(Register, makesNamesNumbersAndTexts) {
    EXPECT_EQ(mkdb::schoolYearStart({2026, 8, 31}), QDate(2025, 9, 1));
    EXPECT_EQ(mkdb::fillTemplate(u"{meno} {bol|bola} {rád|rada}."_s, u"Eva"_s, true),
              u"Eva bola rada."_s);
    const auto rows = sample().database().OpenRecordset(u"select * from k_zaklad"_s);
    for (; !rows->Eof(); rows->MoveNext())
        EXPECT_TRUE(rows->Fields(u"idkod").Value().toText().startsWith(card::keyBase(
            {rows->Fields(u"priezv").Value().toText(), rows->Fields(u"meno").Value().toText()})));
    mkdb::BirthNumbers numbers;
    mkdb::Random random(1, 0);
    std::set<QString> given;
    const auto giveAll = [&] {
        for (int tried = 0; tried < 1001; ++tried)
            EXPECT_TRUE(given.insert(numbers.make({2010, 6, 7}, false, random)).second);
    };
    EXPECT_THROW(giveAll(), std::runtime_error);
    EXPECT_GT(given.size(), 900U);
}

} // namespace
