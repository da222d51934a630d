#include "SqlDatabase.h"

using namespace store;

namespace {

class SqlPlan : public testing::Test {
  protected:
    QStringList names(const QString& sql) {
        QStringList names;
        for (const OutputColumn& column : database_.plan(sql).columns)
            names << column.name;
        return names;
    }

    QStringList rowByKeys(const SelectPlan& plan, const QList<qint64>& keys) {
        return database_.raw(plan.rowByKeys, keys);
    }

    test::SqlDatabase database_;
};

TEST_F(SqlPlan, OutputColumnsBearTheNamesToAskFor) {
    const std::pair<QString, QString> selections[] = {
        {QStringLiteral("select Idkod, k_memo.poznamky as p from k_memo"),
         QStringLiteral("Idkod p")},
        {QStringLiteral("c_jazyk"), QStringLiteral("kod nazov")},
        {QStringLiteral("select *, kod + nazov from c_jazyk"),
         QStringLiteral("kod nazov Expr1000")},
        {QStringLiteral("select kod + nazov, 1, kod & '' as x from c_jazyk"),
         QStringLiteral("Expr1000 Expr1001 x")},
        {QStringLiteral("select c_jazyk.NAZOV, c_jazyk_1.nazov, c_jazyk.kod from c_jazyk left join "
                        "c_jazyk as c_jazyk_1 on c_jazyk.kod = c_jazyk_1.kod"),
         QStringLiteral("c_jazyk.NAZOV c_jazyk_1.nazov kod")},
        {QStringLiteral("select * from c_jazyk as a, c_narodn b"),
         QStringLiteral("a.kod a.nazov b.kod b.nazov")},
        {QStringLiteral("select b.* from c_jazyk as a, c_narodn as b"),
         QStringLiteral("kod nazov")},
        {QStringLiteral("select kod, nazov as KOD from c_jazyk"),
         QStringLiteral("c_jazyk.kod KOD")},
        {QStringLiteral("select kod, kod from c_jazyk"), QStringLiteral("c_jazyk.kod Expr1000")},
        {QStringLiteral("select [int-ext], [Zamestnanci]![prac_zar] from Zamestnanci"),
         QStringLiteral("int-ext prac_zar")},
    };
    for (const auto& [sql, expected] : selections)
        EXPECT_EQ(names(sql).join(u' '), expected) << sql.toStdString();
}

TEST_F(SqlPlan, OutputColumnsTellTypeAndBase) {
    const SelectPlan plan = database_.plan(
        QStringLiteral("select vek as rokov, Meno, meno + '' as m, isnull(vek) as n, "
                       "datevalue('1.1.2000') as d from k_zaklad"));
    EXPECT_EQ(plan.columns[0].source, 0);
    EXPECT_EQ(plan.columns[0].baseColumn, QStringLiteral("vek"));
    EXPECT_EQ(plan.columns[0].type, ColumnType::Whole);
    EXPECT_EQ(plan.columns[1].width, 20);
    EXPECT_EQ(plan.columns[2].source, -1);
    EXPECT_FALSE(plan.columns[2].type.has_value());
    EXPECT_EQ(plan.columns[3].type, ColumnType::Boolean);
    EXPECT_EQ(plan.columns[4].type, ColumnType::Date);
}

TEST_F(SqlPlan, TellsWhatCanBeWrittenAndWhatIsInRowidOrder) {
    database_.stored[QStringLiteral("vyp")] = QStringLiteral("select * from k_memo order by idkod");
    struct Case {
        const char16_t* sql;
        bool updatable;
        bool inRowidOrder;
    };
    const Case cases[] = {
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
         false, false},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(QString::fromUtf16(one.sql).toStdString());
        const SelectPlan plan = database_.plan(QString::fromUtf16(one.sql));
        EXPECT_EQ(plan.updatable, one.updatable);
        EXPECT_EQ(plan.inRowidOrder, one.inRowidOrder);
        EXPECT_NO_THROW(database_.raw(plan.rows));
    }
}

TEST_F(SqlPlan, KeysAndRowsTellTheSame) {
    for (const char* statement : {"insert into c_jazyk values('SK', 'slovenský')",
                                  "insert into c_jazyk values('CZ', 'český')",
                                  "insert into k_zaklad(idkod, jazyk) values('B', 'sk ')",
                                  "insert into k_zaklad(idkod, jazyk) values('A', 'xx')"})
        database_.execute(QString::fromUtf8(statement));
    const SelectPlan plan = database_.plan(
        QStringLiteral("select k_zaklad.idkod, nazov from k_zaklad left join c_jazyk "
                       "on k_zaklad.jazyk = c_jazyk.kod order by k_zaklad.idkod"));
    EXPECT_EQ(database_.raw(plan.rows),
              QStringList({QStringLiteral("A|<Null>"), QStringLiteral("B|slovenský")}));
    EXPECT_EQ(database_.raw(plan.keys),
              QStringList({QStringLiteral("2|<Null>"), QStringLiteral("1|1")}));
    // A key of 0 is bound as Null here.
    EXPECT_EQ(rowByKeys(plan, {2, 0}), QStringList(QStringLiteral("A|<Null>")));
    EXPECT_EQ(rowByKeys(plan, {1, 1}), QStringList(QStringLiteral("B|slovenský")));
    EXPECT_EQ(rowByKeys(plan, {1, 7}), QStringList());
    EXPECT_EQ(rowByKeys(plan, {7, 0}), QStringList());
    database_.execute(QStringLiteral("update k_zaklad set jazyk = 'CZ'"));
    EXPECT_EQ(rowByKeys(plan, {1, 1}), QStringList(QStringLiteral("B|slovenský")));
}

TEST_F(SqlPlan, RightJoinsKeepTheRightSide) {
    database_.execute(QStringLiteral("insert into c_jazyk values('SK', 'slovenský')"));
    EXPECT_EQ(
        database_.select(QStringLiteral("select idkod, kod from k_zaklad right join c_jazyk on "
                                        "k_zaklad.jazyk = c_jazyk.kod")),
        QStringList(QStringLiteral("<Null>|SK")));
}

TEST_F(SqlPlan, CriteriaNameOutputColumnsFirst) {
    database_.execute(QStringLiteral("insert into k_zaklad(idkod, meno, priezv, vek) "
                                     "values('A', 'Ján', 'Novák', 5)"));
    const SelectPlan plan = database_.plan(QStringLiteral(
        "select priezv as meno, meno+space(2)+priezv as cele from k_zaklad where vek = 5"));
    const auto found = [&](const char16_t* criterion) {
        const QString condition = translateCriterion(QString::fromUtf16(criterion), plan);
        return !database_.raw(QStringLiteral("SELECT 1 FROM %1 WHERE %2").arg(plan.from, condition))
                    .isEmpty();
    };
    EXPECT_TRUE(found(u"meno = 'novák'"));
    EXPECT_FALSE(found(u"meno = 'ján'"));
    EXPECT_TRUE(found(u"k_zaklad.meno = 'ján'"));
    EXPECT_TRUE(found(u"cele like 'J*k'"));
    EXPECT_TRUE(found(u"idkod = 'a'and vek = 5"));

    const SelectPlan grouped = database_.plan(
        QStringLiteral("select meno, count(*) as pocet from k_zaklad group by meno"));
    const QString condition =
        translateCriterion(QStringLiteral("pocet = 1 and meno = 'JÁN'"), grouped);
    EXPECT_EQ(
        database_.raw(
            QStringLiteral("SELECT count(*) FROM (%1) WHERE %2").arg(grouped.rows, condition)),
        QStringList(QStringLiteral("1")));
}

TEST_F(SqlPlan, StoredQueriesAreSources) {
    database_.execute(QStringLiteral("insert into k_zaklad(idkod, meno, datnar) values('A', 'Ján', "
                                     "'1.9.2006')"));
    database_.stored[QStringLiteral("vyp_a")] =
        QStringLiteral("select meno as m, datnar, vek is null as nic from k_zaklad");
    database_.stored[QStringLiteral("vyp_b")] =
        QStringLiteral("select * from vyp_a where m = 'JÁN'");
    EXPECT_EQ(database_.select(QStringLiteral(
                  "select b.m, format(b.datnar,'mm') as x from vyp_b as b, k_zaklad where "
                  "b.m = k_zaklad.meno and b.nic = true and b.datnar >= datevalue('1.9.2006')")),
              QStringList(QStringLiteral("Ján|09")));
}

TEST_F(SqlPlan, SearchesUseIndexes) {
    struct Case {
        const char16_t* source;
        const char16_t* criterion;
        const char16_t* index;
    };
    const Case cases[] = {
        {u"k_zaklad", u"idkod= 'A'", u"k_zaklad_idkod (idkod=?)"},
        {u"select * from k_zaklad order by priezv,meno", u"idkod= 'A'",
         u"k_zaklad_idkod (idkod=?)"},
        {u"k_zaklad", u"trim(katcis) ='12'", u"k_zaklad_katcis (<expr>=?)"},
        {u"k_zaklad", u"vek = 5", u"k_zaklad_vek (vek=?)"},
        {u"select * from k_zaklad order by priezv,meno", u"priezv like 'N*'", u"k_zaklad_meno"},
        {u"k_vysetrenie", u"idkod_p='A'", u"k_vysetrenie_idkod_p (idkod_p=?)"},
        {u"c_iczuj", u"nazov='Žilina'", u"c_iczuj_nazov (nazov=?)"},
        {u"k_navstevy", u"idkod = 'A' and datum >= datevalue('1.9.2006') and datum < date()",
         u"k_navstevy_idkod (idkod=? AND datum>? AND datum<?)"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(QString::fromUtf16(one.criterion).toStdString());
        const SelectPlan plan = database_.plan(QString::fromUtf16(one.source));
        const QString condition = translateCriterion(QString::fromUtf16(one.criterion), plan);
        const QString steps =
            database_
                .raw(QStringLiteral(
                         "EXPLAIN QUERY PLAN SELECT %1 FROM %2 WHERE %3 ORDER BY %4 LIMIT 1")
                         .arg(plan.keyColumns, plan.from, condition, plan.order))
                .join(u'\n');
        EXPECT_TRUE(steps.contains(QString::fromUtf16(one.index))) << steps.toStdString();
    }
}

TEST_F(SqlPlan, ListsAreReadInTheOrderOfAnIndex) {
    for (const char16_t* order : {u"priezv, meno", u"val(katcis)", u"idkod"}) {
        const SelectPlan plan = database_.plan(QStringLiteral("select * from k_zaklad order by ") +
                                               QString::fromUtf16(order));
        const QString steps =
            database_.raw(QStringLiteral("EXPLAIN QUERY PLAN ") + plan.keys).join(u'\n');
        EXPECT_FALSE(steps.contains(u"TEMP B-TREE")) << steps.toStdString();
    }
}

/// Tables without a key are read back as they were filled.
TEST_F(SqlPlan, RowsStandInTheOrderOfInsertion) {
    for (const char* key : {"C", "A", "B"})
        database_.execute(QStringLiteral("insert into k_zaklad(idkod, vek) values('%1', 1)")
                              .arg(QString::fromUtf8(key)));
    EXPECT_EQ(database_.select(QStringLiteral("select idkod from k_zaklad")).join(QString()),
              QStringLiteral("CAB"));
    EXPECT_EQ(
        database_.select(QStringLiteral("select idkod from k_zaklad order by vek")).join(QString()),
        QStringLiteral("CAB"));
}

} // namespace
