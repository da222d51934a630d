#include "SqlDatabase.h"

using namespace store;
using namespace Qt::StringLiterals;

namespace {

struct Refused {
    const char16_t* sql;
    int number;
    /// Beginning of the error's place.
    const char16_t* place = u"";
};

const Refused refusedSelects[] = {
    {u"", 3075, u"znak 1:"},
    {u"k_nic", 3078, u"k_nic"},
    {u"sel * from k_zaklad", 3075, u"znak 1: sel"},
    {u"select * k_zaklad", 3075, u"znak 10: k_zaklad"},
    {u"select * from", 3075, u"znak 14:"},
    {u"select 1", 3075, u"znak 9:"},
    {u"select * from k_nic", 3078, u"znak 15: k_nic"},
    {u"select nic from k_zaklad", 3061, u"znak 8: nic"},
    {u"select k_memo.idkod from k_zaklad", 3061, u"znak 8:"},
    {u"select meno as a from k_zaklad where a = 'x'", 3061, u"znak 38: a"},
    {u"select idkod from k_zaklad, k_memo", 3079, u"znak 8: idkod"},
    {u"select * from k_zaklad as a, k_memo as A", 3075, u"znak 30:"},
    {u"select first(meno) from k_zaklad", 3085, u"znak 8: first"},
    {u"select [trim](meno) from k_zaklad", 3075, u"znak 14:"},
    {u"select left(meno) from k_zaklad", 3075, u"znak 8: left"},
    {u"select sum(*) from k_zaklad", 3075, u"znak 8: sum"},
    {u"select * from k_zaklad where vek = '5'", 3464, u"znak 30: vek"},
    {u"select * from k_zaklad where '5' = vek", 3464},
    {u"select * from k_zaklad where vek between 1 and '6'", 3464},
    {u"select * from k_zaklad where datnar = '1.1.2005'", 3464},
    {u"select * from k_zaklad where datnar > 38000", 3464},
    {u"select * from k_zaklad where meno", 3464},
    {u"select * from k_zaklad where meno = 'a' or priezv", 3464},
    {u"select * from k_zaklad inner join k_navstevy on k_zaklad.vek = k_navstevy.idkod", 3464},
    {u"select datnar + 1 from k_zaklad", 3464},
    {u"select format(datnar, '00') from k_zaklad", 3464},
    {u"select format(vek, 'dd') from k_zaklad", 3464},
    {u"select format(datnar, 'ddd') from k_zaklad", 3075, u"znak 23: 'ddd'"},
    {u"select format(datnar, 'hh:mm') from k_zaklad", 3075},
    {u"select * from k_zaklad where meno like '[a'", 3075, u"znak 40:"},
    {u"select * from k_zaklad where meno = 'x", 3075, u"znak 37: 'x"},
    {u"select [int-ext from zamestnanci", 3075, u"znak 8:"},
    {u"select int-ext from zamestnanci", 3061, u"znak 8: int"},
    {u"select * from k_zaklad where datnar = #31.2.2005#", 3075, u"znak 39: #31"},
    {u"select * from k_zaklad where meno = ?", 3075, u"znak 37: ?"},
    {u"select * from k_zaklad where meno not 'x'", 3075, u"znak 39:"},
    {u"select * from k_zaklad where (meno = 'x'", 3075},
    {u"select * from k_zaklad where meno = 'x')", 3075, u"znak 40: )"},
    {u"select * from k_zaklad; delete from k_zaklad", 3075, u"znak 25: delete"},
    {u"select * from k_zaklad -- x", 3075},
    {u"select * from k_zaklad union select * from k_zaklad", 3075},
    {u"select top 5 * from k_zaklad", 3075},
    {u"select * from k_zaklad where idkod in (select idkod from k_memo)", 3075, u"znak 40:"},
    {u"select * from sqlite_master", 3078},
    {u"select rowid from k_zaklad", 3061},
    {u"select sqlite_version() from k_zaklad", 3085},
    {u"pragma user_version", 3075, u"znak 1:"},
    {u"select meno, count(*) from k_zaklad", 3122, u"znak 8: meno"},
    {u"select meno + psc from k_zaklad group by meno", 3122, u"znak 15: psc"},
    {u"select count(*) from k_zaklad group by meno order by psc", 3122, u"znak 54: psc"},
    {u"select * from k_zaklad group by idkod", 3075, u"znak 8: *"},
    {u"select count(*) from k_zaklad where count(*) > 1", 3075, u"znak 37:"},
    {u"select max(min(vek)) from k_zaklad", 3075, u"znak 12:"},
    {u"select meno from k_zaklad having vek > 1", 3075},
    {u"select meno from k_zaklad group by 1", 3075},
    {u"select meno from k_zaklad order by 2", 3075, u"znak 36: 2"},
    {u"select distinct meno from k_zaklad order by vek", 3075, u"znak 45: vek"},
    {u"select * from vyp_sam", 3102},
    {u"select * from vyp_zly", 3061},
    {u"select *, *, *, *, *, * from k_zaklad", 3075, u"znak 20:"},
};

const Refused refusedActions[] = {
    {u"drop table k_zaklad", 3075, u"znak 1: drop"},
    {u"select * from k_zaklad", 3075, u"znak 1: select"},
    {u"delete k_zaklad", 3075},
    {u"delete from k_nic", 3078, u"znak 13: k_nic"},
    {u"delete k_zaklad.* from k_memo", 3061, u"znak 8: k_zaklad"},
    {u"delete from k_memo where idkod = 5", 3464},
    {u"delete from k_memo where nic = 5", 3061},
    {u"delete from vyp_dobry", 3075},
    {u"update k_zaklad set nic = 1", 3061, u"znak 21: nic"},
    {u"update k_zaklad set vek = 1, VEK = 2", 3075, u"znak 30: VEK"},
    {u"update k_zaklad set vek = count(*)", 3075},
    {u"update k_zaklad set datnar = 5", 3421},
    {u"update k_zaklad set vek = datnar", 3421},
    {u"update k_zaklad, k_memo set vek = 1", 3075},
    {u"insert into z_zam(nic) values('a')", 3127, u"znak 19: nic"},
    {u"insert into z_zam(fcia) values('a', 'b')", 3075},
    {u"insert into z_zam values('a', 'b')", 3075},
    {u"insert into z_zam(fcia, fcia) values('a', 'b')", 3075},
    {u"insert into z_zam(fcia) values(cria)", 3061, u"znak 32: cria"},
    {u"insert into z_zam(fcia) select meno from k_zaklad", 3075},
    {u"insert into z_nic(fcia) values('a')", 3078},
};

class SqlRefusal : public testing::Test {
  protected:
    void SetUp() override {
        database_.stored[u"vyp_sam"_s] = u"select * from vyp_kruh"_s;
        database_.stored[u"vyp_kruh"_s] = u"select * from VYP_SAM"_s;
        database_.stored[u"vyp_zly"_s] = u"select nic from k_zaklad"_s;
        database_.stored[u"vyp_dobry"_s] = u"select * from k_zaklad"_s;
    }

    template <class Translate>
    void check(const Refused& refused, Translate translate) {
        const QString sql = QString::fromUtf16(refused.sql);
        SCOPED_TRACE(sql.toStdString());
        const auto [number, place] = test::errorOf([&] { translate(sql); });
        EXPECT_EQ(number, refused.number);
        EXPECT_TRUE(place.startsWith(QString::fromUtf16(refused.place))) << place.toStdString();
    }

    test::SqlDatabase database_;
};

TEST_F(SqlRefusal, OfSelects) {
    for (const Refused& refused : refusedSelects)
        check(refused, [this](const QString& sql) { database_.plan(sql); });
}

TEST_F(SqlRefusal, OfActions) {
    for (const Refused& refused : refusedActions)
        check(refused, [this](const QString& sql) { translateAction(sql, database_.lookup()); });
}

TEST_F(SqlRefusal, OfCriteria) {
    const SelectPlan plan = database_.plan(u"select meno as krstne from k_zaklad"_s);
    const Refused criteria[] = {
        {u"", 3075, u"znak 1:"},      {u"krstne", 3464},
        {u"nic = 'a'", 3061},         {u"krstne = 'a' order by krstne", 3075},
        {u"count(*) = 1", 3075},      {u"krstne like 'O'Neil*'", 3075},
        {u"krstne = 'a'; vek", 3075},
    };
    for (const Refused& refused : criteria)
        check(refused, [&](const QString& sql) { translateCriterion(sql, plan); });
}

/// What would be too deep, too high or too long for SQLite is refused before it gets there.
TEST_F(SqlRefusal, OfWhatIsTooComplex) {
    const auto nested = [](const QString& open, const QString& close, int times) {
        return u"select * from k_zaklad where "_s + open.repeated(times) + u"1=1"_s +
               close.repeated(times);
    };
    const QString statements[] = {
        nested(u"("_s, u")"_s, 5000),
        nested(u"not "_s, {}, 5000),
        nested(u"val("_s, u")=1"_s, 50),
        u"select "_s + u"-"_s.repeated(5000) + u"1 from k_zaklad"_s,
        u"select "_s + u"meno+"_s.repeated(500) + u"meno from k_zaklad"_s,
        u"select * from "_s + u"("_s.repeated(5000) + u"k_zaklad"_s,
    };
    for (const QString& sql : statements)
        EXPECT_EQ(test::errorOf([&] { database_.plan(sql); }).first, 3360)
            << sql.left(50).toStdString();
    const QString longest = u"select * from k_zaklad"_s + QString(70000, u' ');
    EXPECT_EQ(test::errorOf([&] { database_.plan(longest); }).first, 3075);
}

/// The translation of a chain grows with its length (doubling at each operand it would not end),
/// and what SQLite could not read of it is refused.
TEST_F(SqlRefusal, ComesAtOnceForLongChains) {
    const std::pair<const char16_t*, int> chains[] = {
        {u"meno + ", 0}, {u"meno & ", 0}, {u"vek + ", 0},
        {u"'1' - ", 0},  {u"vek * ", 0},  {u"'a' + 1 + ", 3360},
    };
    for (const auto& [term, number] : chains) {
        const QString chain = QString::fromUtf16(term);
        const auto translate = [&](int times) {
            return test::errorOf([&] {
                       database_.plan(u"select %1vek from k_zaklad"_s.arg(chain.repeated(times)));
                   })
                .first;
        };
        EXPECT_EQ(translate(40), number) << chain.toStdString();
        EXPECT_EQ(translate(400), 3360) << chain.toStdString();
    }
}

TEST_F(SqlRefusal, OfASignThatEndsTexts) {
    const QString sql = u"select 'a"_s + QChar(0) + u"' from k_zaklad"_s;
    EXPECT_EQ(test::errorOf([&] { database_.plan(sql); }).first, 3075);
}

} // namespace
