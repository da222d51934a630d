#include "SqlDatabase.h"
#include "support/Lists.h"

using namespace store;
using namespace Qt::StringLiterals;

namespace {

/// One client with a value of each sort, and visits on days and on no days.
class SqlMeaning : public testing::Test {
  protected:
    SqlMeaning() {
        database_.execute(
            u"insert into k_zaklad(idkod, meno, priezv, katcis, vek, datnar, datevi, matvla, "
            "postih, skola) values('NOVAKOJA00', 'Ján', 'Nováček ', ' 1 2a', 7, '29.2.2000', "
            "'31.2.2005', true, '30', '')"_s);
        for (const char16_t* visit : {u"'A', '31.8.2007', 'potom'", u"'B', '31.8.2007 10:15', null",
                                      u"'C', '1.9.2007', null", u"'D', '31.02.2007', null",
                                      u"'E', 'neskôr', null", u"'F', null, null"})
            database_.execute(
                u"insert into k_navstevy values(%1)"_s.arg(QString::fromUtf16(visit)));
        database_.stored[u"vyp_sam"_s] = u"select * from vyp_kruh"_s;
        database_.stored[u"vyp_kruh"_s] = u"select * from VYP_SAM"_s;
        database_.stored[u"vyp_zly"_s] = u"select nic from k_zaklad"_s;
        database_.stored[u"vyp_poradie"_s] = u"select * from k_memo order by idkod"_s;
        database_.stored[u"vyp_dobry"_s] = u"select * from k_zaklad"_s;
    }

    QString value(const QString& expression) {
        return database_.select(u"select %1 as x from k_zaklad"_s.arg(expression)).value(0);
    }
    /// SQLite's message when an action fails.
    QString failureOf(const QString& action) {
        try {
            database_.execute(action);
            return {};
        } catch (const std::runtime_error& error) {
            return QString::fromUtf8(error.what());
        }
    }
    /// What lies in the column behind an assignment, or SQLite's message.
    QString written(const QString& assignment) {
        database_.raw(u"SAVEPOINT before"_s);
        QString result = failureOf(u"update k_zaklad set "_s + assignment);
        if (result.isEmpty())
            result = database_.raw(u"SELECT %1 FROM k_zaklad"_s.arg(assignment.section(u' ', 0, 0)))
                         .first();
        database_.raw(u"ROLLBACK TO before"_s);
        return result;
    }
    /// Number and place of the error that the translation ends with.
    QString refusal(const QString& kind, const QString& sql) {
        const SelectPlan clients = database_.plan(u"select meno as krstne from k_zaklad"_s);
        const auto [number, place] = errorOf([&] {
            if (kind == u"select")
                database_.plan(sql);
            else if (kind == u"action")
                translateAction(sql, database_.lookup());
            else
                translateCriterion(sql, clients);
        });
        return u"%1 %2"_s.arg(number).arg(place);
    }

    QString names(const QString& sql) {
        QStringList names;
        for (const OutputColumn& column : database_.plan(sql).columns)
            names << column.name;
        return names.join(u' ');
    }
    QString use(const QString& sql) {
        const SelectPlan plan = database_.plan(sql);
        database_.raw(plan.rows);
        return QString(plan.updatable ? u"written"_s : u"read"_s) +
               (plan.inRowidOrder ? u" in order of rowids"_s : QString());
    }
    QString stepsOf(const QString& source, const QString& criterion = {}) {
        const SelectPlan plan = database_.plan(source);
        const QStringList conditions =
            criterion.isEmpty() ? QStringList() : QStringList(translateCriterion(criterion, plan));
        return database_.raw(u"EXPLAIN QUERY PLAN "_s + selectKeys(plan, conditions)).join(u'\n');
    }

    test::SqlDatabase database_;
};

/// A line is a kind, what is asked, and what comes: the value of an expression, the keys of the
/// visits that a condition selects, what an assignment leaves, the names of a selection's columns,
/// how its rows are used, the index that a search in it takes, an action and how it fails, the rows
/// that are there then, or the beginning of a refusal.
TEST_F(SqlMeaning, IsThatOfTheList) {
    const QString keys = u"select idkod from k_navstevy where %1 order by idkod"_s;
    for (const QStringList& parts : support::linesOf(u"meanings.tsv"_s)) {
        SCOPED_TRACE(parts.join(u'\t').toStdString());
        ASSERT_EQ(parts.size(), 3);
        if (parts[0] == u"value")
            EXPECT_EQ(value(parts[1]), parts[2]);
        else if (parts[0] == u"keys")
            EXPECT_EQ(database_.select(keys.arg(parts[1])).join(QString()), parts[2]);
        else if (parts[0] == u"write")
            EXPECT_EQ(written(parts[1]), parts[2]);
        else if (parts[0] == u"do")
            EXPECT_EQ(failureOf(parts[1]), parts[2]);
        else if (parts[0] == u"rows")
            EXPECT_EQ(database_.select(parts[1]).join(u'/'), parts[2]);
        else if (parts[0] == u"names")
            EXPECT_EQ(names(parts[1]), parts[2]);
        else if (parts[0] == u"plan")
            EXPECT_EQ(use(parts[1]), parts[2]);
        else if (parts[0] == u"index")
            EXPECT_TRUE(stepsOf(parts[1].section(u" | "_s, 0, 0), parts[1].section(u" | "_s, 1))
                            .contains(parts[2]));
        else
            EXPECT_EQ(refusal(parts[0], parts[1]).left(parts[2].size()), parts[2]);
    }
    const QString text = u"O'Neil \"x\" '' [*] č"_s;
    EXPECT_EQ(value(quoted(text)), text);
    const QString manyStars = u"*a"_s.repeated(40) + u"*b"_s;
    EXPECT_EQ(value(u"'%1' like '%2'"_s.arg(QString(5000, u'a'), manyStars)), u"0"_s);
}

/// What would be too deep, too high or too long for SQLite is refused before it gets there; the
/// translation of a chain grows with its length (doubling at each operand it would not end).
TEST_F(SqlMeaning, TooComplexTextsAreRefused) {
    const auto number = [&](const QString& sql) {
        return errorOf([&] { database_.plan(sql); }).first;
    };
    const QString condition = u"select * from k_zaklad where "_s;
    for (const QString& sql :
         {condition + u"("_s.repeated(5000) + u"1=1"_s + u")"_s.repeated(5000),
          condition + u"not "_s.repeated(5000) + u"1=1"_s,
          condition + u"val("_s.repeated(50) + u"1=1"_s + u")=1"_s.repeated(50),
          u"select "_s + u"-"_s.repeated(5000) + u"1 from k_zaklad"_s,
          u"select * from "_s + u"("_s.repeated(5000) + u"k_zaklad"_s})
        EXPECT_EQ(number(sql), 3360) << sql.left(50).toStdString();
    EXPECT_EQ(number(u"select * from k_zaklad"_s + QString(70000, u' ')), 3075);
    EXPECT_EQ(number(u"select 'a"_s + QChar(0) + u"' from k_zaklad"_s), 3075);
    for (const auto& [term, expected] : {std::pair(u"meno + "_s, 0),
                                         {u"meno & "_s, 0},
                                         {u"'1' - "_s, 0},
                                         {u"'a' + 1 + "_s, 3360}}) {
        const QString chain = u"select %1vek from k_zaklad"_s;
        EXPECT_EQ(number(chain.arg(term.repeated(40))), expected) << term.toStdString();
        EXPECT_EQ(number(chain.arg(term.repeated(400))), 3360) << term.toStdString();
    }
}

TEST_F(SqlMeaning, CriteriaNameOutputColumnsFirst) {
    database_.execute(u"delete from k_zaklad"_s);
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

TEST_F(SqlMeaning, ListsAreReadInTheOrderOfAnIndex) {
    for (const char16_t* order : {u"priezv, meno", u"val(katcis)", u"idkod"}) {
        const QString steps =
            stepsOf(u"select * from k_zaklad order by "_s + QString::fromUtf16(order));
        EXPECT_FALSE(steps.contains(u"TEMP B-TREE")) << steps.toStdString();
    }
}

} // namespace
