#include "SqlDatabase.h"

using namespace store;
using namespace Qt::StringLiterals;

namespace {

class SqlPlan : public testing::Test {
  protected:
    QStringList names(const QString& sql) {
        QStringList names;
        for (const OutputColumn& column : database_.plan(sql).columns)
            names << column.name;
        return names;
    }

    QString stepsOf(const QString& statement) {
        return database_.raw(u"EXPLAIN QUERY PLAN "_s + statement).join(u'\n');
    }

    test::SqlDatabase database_;
};

TEST_F(SqlPlan, OutputColumnsBearTheNamesToAskFor) {
    const std::pair<QString, QString> selections[] = {
        {u"select Idkod, k_memo.poznamky as p from k_memo"_s, u"Idkod p"_s},
        {u"c_jazyk"_s, u"kod nazov"_s},
        {u"select *, kod + nazov from c_jazyk"_s, u"kod nazov Expr1000"_s},
        {u"select kod + nazov, 1, kod & '' as x from c_jazyk"_s, u"Expr1000 Expr1001 x"_s},
        {u"select c_jazyk.NAZOV, c_jazyk_1.nazov, c_jazyk.kod from c_jazyk left join "
         "c_jazyk as c_jazyk_1 on c_jazyk.kod = c_jazyk_1.kod"_s,
         u"c_jazyk.NAZOV c_jazyk_1.nazov kod"_s},
        {u"select * from c_jazyk as a, c_narodn b"_s, u"a.kod a.nazov b.kod b.nazov"_s},
        {u"select b.* from c_jazyk as a, c_narodn as b"_s, u"kod nazov"_s},
        {u"select kod, nazov as KOD from c_jazyk"_s, u"c_jazyk.kod KOD"_s},
        {u"select kod, kod from c_jazyk"_s, u"c_jazyk.kod Expr1000"_s},
        {u"select [int-ext], [Zamestnanci]![prac_zar] from Zamestnanci"_s, u"int-ext prac_zar"_s}};
    for (const auto& [sql, expected] : selections)
        EXPECT_EQ(names(sql).join(u' '), expected) << sql.toStdString();
}

TEST_F(SqlPlan, TellsWhatCanBeWrittenAndWhatIsInRowidOrder) {
    database_.stored[u"vyp"_s] = u"select * from k_memo order by idkod"_s;
    const std::tuple<const char16_t*, bool, bool> cases[] = {
        {u"k_memo", true, true},
        {u"vyp", true, false},
        {u"select * from k_memo where idkod = 'a'", true, true},
        {u"select * from k_memo order by 1", true, false},
        {u"select * from k_memo, k_zaklad", true, false},
        {u"select * from (k_memo left join k_zaklad on k_memo.idkod = k_zaklad.idkod)", true,
         false},
        {u"select * from vyp", false, false},
        {u"select distinct idkod from k_memo", false, false},
        {u"select count(*) from k_memo", false, false},
        {u"select idkod from k_memo group by idkod", false, false},
        {u"select * from c_jazyk left join (k_memo inner join k_zaklad on k_memo.idkod = "
         u"k_zaklad.idkod) on c_jazyk.kod = k_zaklad.jazyk",
         false, false}};
    for (const auto& [sql, updatable, inRowidOrder] : cases) {
        SCOPED_TRACE(QString::fromUtf16(sql).toStdString());
        const SelectPlan plan = database_.plan(QString::fromUtf16(sql));
        EXPECT_EQ(plan.updatable, updatable);
        EXPECT_EQ(plan.inRowidOrder, inRowidOrder);
        EXPECT_NO_THROW(database_.raw(plan.rows));
    }
}

TEST_F(SqlPlan, JoinsKeepTheSideTheyAreNamedFor) {
    database_.execute(u"insert into c_jazyk values('SK', 'slovenský')"_s);
    database_.execute(u"insert into k_zaklad(idkod, jazyk) values('A', 'xx')"_s);
    const QString join = u"select idkod, kod from k_zaklad %1 join c_jazyk on jazyk = kod"_s;
    EXPECT_EQ(database_.select(join.arg(u"left")), QStringList(u"A|<Null>"_s));
    EXPECT_EQ(database_.select(join.arg(u"right")), QStringList(u"<Null>|SK"_s));
    EXPECT_EQ(database_.select(join.arg(u"inner")), QStringList());
}

TEST_F(SqlPlan, CriteriaNameOutputColumnsFirst) {
    database_.execute(u"insert into k_zaklad(idkod, meno, priezv, vek) "
                      "values('A', 'Ján', 'Novák', 5)"_s);
    const SelectPlan plan = database_.plan(
        u"select priezv as meno, meno+space(2)+priezv as cele from k_zaklad where vek = 5"_s);
    const auto found = [&](const char16_t* criterion) {
        const QString condition = translateCriterion(QString::fromUtf16(criterion), plan);
        return !database_.raw(u"SELECT 1 FROM %1 WHERE %2"_s.arg(plan.from, condition)).isEmpty();
    };
    EXPECT_TRUE(found(u"meno = 'novák'"));
    EXPECT_FALSE(found(u"meno = 'ján'"));
    EXPECT_TRUE(found(u"k_zaklad.meno = 'ján'"));
    EXPECT_TRUE(found(u"cele like 'J*k'"));
    EXPECT_TRUE(found(u"idkod = 'a'and vek = 5"));

    const SelectPlan grouped =
        database_.plan(u"select meno, count(*) as pocet from k_zaklad group by meno"_s);
    const QString condition = translateCriterion(u"pocet = 1 and meno = 'JÁN'"_s, grouped);
    EXPECT_EQ(database_.raw(u"SELECT count(*) FROM (%1) WHERE %2"_s.arg(grouped.rows, condition)),
              QStringList(u"1"_s));
}

TEST_F(SqlPlan, SearchesUseIndexes) {
    const std::tuple<const char16_t*, const char16_t*, const char16_t*> cases[] = {
        {u"k_zaklad", u"idkod= 'A'", u"k_zaklad_idkod (idkod=?)"},
        {u"select * from k_zaklad order by priezv,meno", u"idkod= 'A'",
         u"k_zaklad_idkod (idkod=?)"},
        {u"k_zaklad", u"trim(katcis) ='12'", u"k_zaklad_katcis (<expr>=?)"},
        {u"k_zaklad", u"vek = 5", u"k_zaklad_vek (vek=?)"},
        {u"select * from k_zaklad order by priezv,meno", u"priezv like 'N*'", u"k_zaklad_meno"},
        {u"k_vysetrenie", u"idkod_p='A'", u"k_vysetrenie_idkod_p (idkod_p=?)"},
        {u"c_iczuj", u"nazov='Žilina'", u"c_iczuj_nazov (nazov=?)"},
        {u"k_navstevy", u"idkod = 'A' and datum >= datevalue('1.9.2006') and datum < date()",
         u"k_navstevy_idkod (idkod=? AND datum>? AND datum<?)"}};
    for (const auto& [source, criterion, index] : cases) {
        SCOPED_TRACE(QString::fromUtf16(criterion).toStdString());
        const SelectPlan plan = database_.plan(QString::fromUtf16(source));
        const QString steps =
            stepsOf(selectKeys(plan, {translateCriterion(QString::fromUtf16(criterion), plan)}));
        EXPECT_TRUE(steps.contains(QString::fromUtf16(index))) << steps.toStdString();
    }
}

TEST_F(SqlPlan, ListsAreReadInTheOrderOfAnIndex) {
    for (const char16_t* order : {u"priezv, meno", u"val(katcis)", u"idkod"}) {
        const SelectPlan plan =
            database_.plan(u"select * from k_zaklad order by "_s + QString::fromUtf16(order));
        const QString steps = stepsOf(selectKeys(plan));
        EXPECT_FALSE(steps.contains(u"TEMP B-TREE")) << steps.toStdString();
    }
}

} // namespace
