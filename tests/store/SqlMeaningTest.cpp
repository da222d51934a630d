#include "SqlDatabase.h"

using namespace store;
using namespace Qt::StringLiterals;

namespace {

/// Expression and value.
using Meaning = std::pair<const char16_t*, const char16_t*>;

/// One client with a value of each sort.
class SqlMeaning : public testing::Test {
  protected:
    void SetUp() override {
        database_.execute(
            u"insert into k_zaklad(idkod, meno, priezv, katcis, vek, datnar, datevi, matvla, "
            "postih, "
            "skola) values('NOVAKOJA00', 'Ján', 'Nováček ', ' 1 2a', 7, '29.2.2000', "
            "'31.2.2005', true, '30', '')"_s);
    }

    QString value(const QString& expression) {
        const QStringList rows =
            database_.select(u"select %1 as x from k_zaklad"_s.arg(expression));
        return rows.value(0, u"<no row>"_s);
    }

    void check(std::initializer_list<Meaning> meanings) {
        for (const auto& [expression, expected] : meanings)
            EXPECT_EQ(value(QString::fromUtf16(expression)), QString::fromUtf16(expected))
                << QString::fromUtf16(expression).toStdString();
    }

    test::SqlDatabase database_;
};

TEST_F(SqlMeaning, JoiningAndAdding) {
    check({
        {u"meno + priezv", u"JánNováček "},
        {u"meno + psc", u"<Null>"},
        {u"meno & psc & priezv", u"JánNováček "},
        {u"psc & psc", u""},
        {u"vek + '5'", u"12.0"},
        {u"1 + 2 & 3 + 4", u"37"},
        {u"'a' & 1 / 2", u"a0.5"},
        {u"'a' & 3.0", u"a3"},
        {u"meno & matvla", u"Ján-1"},
        {u"meno & datnar", u"Ján29.02.2000"},
        {u"meno & datevi", u"Ján31.2.2005"},
        {u"meno & '''' & \"\"\"x'\"", u"Ján'\"x'"},
        {u"'O''Neil'", u"O'Neil"},
        {u"10 - 3 - 2", u"5"},
        {u"-2 ^ 2", u"-4.0"},
        {u"2 * 3 mod 4", u"2"},
        {u"7 \\ 2 * 1.0", u"3"},
        {u"- -vek", u"7"},
    });
}

TEST_F(SqlMeaning, Booleans) {
    check({
        {u"true", u"-1"},
        {u"vek = 7", u"-1"},
        {u"not vek = 7", u"0"},
        {u"(vek = 7) = true", u"-1"},
        {u"isnull(psc) = false", u"0"},
        {u"matvla = true", u"-1"},
        {u"matvla + 1", u"0"},
        {u"psc = 'x'", u"<Null>"},
        {u"null = null", u"<Null>"},
        {u"psc is null and meno is not null", u"-1"},
        {u"vek = 7 or 1 = 2 and 1 = 2", u"-1"},
        {u"iif(psc = 'x', 'a', 'b')", u"b"},
        {u"iif(vek = 1, 'a', iif(vek = 7, 'b', 'c')) & 'x'", u"bx"},
        {u"vek between 7 and 8", u"-1"},
        {u"vek not in (1, 7)", u"0"},
    });
}

TEST_F(SqlMeaning, Texts) {
    check({
        {u"meno = 'JÁN'", u"-1"},
        {u"meno = 'JAN'", u"0"},
        {u"priezv = 'nováček'", u"-1"},
        {u"' a' = 'a'", u"0"},
        {u"skola = '   '", u"-1"},
        {u"skola = psc", u"<Null>"},
        {u"'Straße' = 'STRASSE'", u"-1"},
        {u"'a' < 'B'", u"-1"},
        {u"'ch' > 'hz' and 'ch' < 'i'", u"-1"},
        {u"meno in ('x', 'JÁN ')", u"-1"},
        {u"'Č' between 'c' and 'D'", u"-1"},
        {u"trim('  a ') & '|'", u"a|"},
        {u"ltrim('  a ') & rtrim(' b ')", u"a  b"},
        {u"left('Čaj', 1)", u"Č"},
        {u"mid('čaj', 2, 1) & mid('čaj', 3)", u"aj"},
        {u"mid('abc', 4, 1) & '.'", u"."},
        {u"right('čaj', 2)", u"aj"},
        {u"right('čaj', 9)", u"čaj"},
        {u"left(vek, 1) & 'x'", u"7x"},
        {u"chr(124) & chr(232) & space(2) & '.'", u"|č  ."},
        {u"ucase('žaba') & lcase('ŽABA')", u"ŽABAžaba"},
        {u"len('čaj')", u"3"},
        {u"instr('Nováček', 'ČE')", u"5"},
        {u"instr(2, 'aba', 'a')", u"3"},
        {u"instr('aba', 'x')", u"0"},
    });
}

TEST_F(SqlMeaning, Like) {
    check({
        {u"meno like 'j*'", u"-1"},
        {u"meno like 'já?'", u"-1"},
        {u"meno like 'ja?'", u"0"},
        {u"meno like '*'", u"-1"},
        {u"skola like '*'", u"-1"},
        {u"psc like '*'", u"<Null>"},
        {u"priezv like 'Nováček'", u"0"},
        {u"priezv like 'Nováček '", u"-1"},
        {u"'a%b' like 'a%b' and not 'axb' like 'a%b'", u"-1"},
        {u"'a_b' like 'a_b' and 'axb' not like 'a_b'", u"-1"},
        {u"'a1' like 'a#' and not 'ab' like 'a#'", u"-1"},
        {u"'b' like '[a-c]' and not 'd' like '[a-c]'", u"-1"},
        {u"'Č' like '[c-d]' and not 'Č' like '[a-c]'", u"-1"},
        {u"'d' like '[!a-c]' and not 'b' like '[!A-C]'", u"-1"},
        {u"'*' like '[*]' and not 'x' like '[*]'", u"-1"},
        {u"'a?b' like 'a[?]b' and 'a#' like 'a[#]'", u"-1"},
        {u"'-' like '[a-]' and 'a' like '[a-]'", u"-1"},
        {u"'aaab' like '*a*b' and not 'aaac' like '*a*b'", u"-1"},
        {u"'x' like '' or '' like '?'", u"0"},
        {u"vek like '7'", u"-1"},
    });
}

/// A pattern of many stars must not take long.
TEST_F(SqlMeaning, LikeDoesNotExplode) {
    const QString pattern = u"*a"_s.repeated(40) + u"*b"_s;
    EXPECT_EQ(value(u"'%1' like '%2'"_s.arg(QString(5000, u'a'), pattern)), u"0"_s);
}

TEST_F(SqlMeaning, Val) {
    check({
        {u"val(katcis)", u"12.0"},
        {u"val(' - 1 2 . 5 e 1 x')", u"-125.0"},
        {u"val('1,5')", u"1.0"},
        {u"val('.5.5')", u"0.5"},
        {u"val('2e')", u"2.0"},
        {u"val('')", u"0.0"},
        {u"val(psc)", u"<Null>"},
        {u"val(psc) <> 0", u"<Null>"},
        {u"val(left(postih, 1))", u"3.0"},
    });
}

TEST_F(SqlMeaning, Format) {
    check({
        {u"format(psc, '@@')", u"<Null>"},
        {u"format(null, 'dd')", u"<Null>"},
        {u"format('a', '@@')", u" a"},
        {u"format(chr(124), '@@@!') & '.'", u"|  ."},
        {u"format('abcd', '@@@!')", u"abcd"},
        {u"format('12', '@@.@')", u" 1.2"},
        {u"format('aB', '>@@') & format('aB', '<@@')", u"ABab"},
        {u"format(idkod, '         ') & '.'", u"NOVAKOJA00."},
        {u"format('5', '00')", u"05"},
        {u"format('123', '00')", u"123"},
        {u"format('x', '00')", u"x"},
        {u"format(-1.256, '0.00')", u"-1.26"},
        {u"format(1.5, '0.0#')", u"1.5"},
        {u"format(0, '#')", u""},
        {u"format(datnar, 'dd') + '.' + format(datnar, 'mm') + '.' + format(datnar, 'yyyy')",
         u"29.02.2000"},
        {u"format(datnar, 'd.m.yy')", u"29.2.00"},
        {u"format('1.9.2006', 'mm')", u"09"},
        {u"format('abc', 'dd')", u"abc"},
        {u"format(psc,'dd') & '.' & format(psc,'mm')", u"."},
        {u"format('neskôr','dd')+'/'+format('neskôr','mm')+' '+format('neskôr','yy')", u"neskôr"},
        {u"'od '+format(datevi,'dd')+'.'+format(datevi,'mm')+'.'+format(datevi,'yyyy')+' - '+"
         u"format(datnar,'dd')+'.'+format(datnar,'mm')+'.'+format(datnar,'yyyy')+'.'",
         u"od 31.2.2005 - 29.02.2000."},
    });
}

TEST_F(SqlMeaning, Dates) {
    check({
        {u"datevalue('1.9.2006')", u"2006-09-01"},
        {u"datevalue('31.2.2005')", u"<Null>"},
        {u"datevalue(psc)", u"<Null>"},
        {u"datevalue('2007-06-05 8:00')", u"2007-06-05"},
        {u"#9/1/2006#", u"2006-01-09"},
        {u"#2006-09-01 10:30#", u"2006-09-01 10:30:00"},
        {u"dateserial(2006, 9, 1)", u"2006-09-01"},
        {u"dateserial(2006, 14, 1)", u"2007-02-01"},
        {u"dateserial(2006, 3, 0)", u"2006-02-28"},
        {u"dateserial(2006, 1, 32)", u"2006-02-01"},
        {u"dateserial(2006, 0, -1)", u"2005-11-29"},
        {u"dateserial(29, 1, 1)", u"2029-01-01"},
        {u"dateserial(30, 1, 1)", u"1930-01-01"},
        {u"dateserial(val(left('2006/2007', 4)), 9, 1)", u"2006-09-01"},
        {u"isdate(datnar)", u"-1"},
        {u"isdate(datevi)", u"0"},
        {u"isdate(null)", u"0"},
        {u"isdate('31.2.2005')", u"0"},
        {u"isdate('28. 2. 05')", u"-1"},
        {u"isdate(7)", u"0"},
        {u"year(datnar) & month(datnar) & day(datnar)", u"2000229"},
        {u"year(datevi)", u"<Null>"},
        {u"datevi = datevi", u"<Null>"},
        {u"datevi > datevalue('1.1.2000')", u"<Null>"},
        {u"max(datevi)", u"<Null>"},
        {u"date() > datevalue('1.1.2020') and now() >= date()", u"-1"},
    });
}

/// No date comparison selects a text that is no date, in whatever sense it is put.
TEST_F(SqlMeaning, DateColumnsThatHoldOtherTexts) {
    const char* const rows[] = {"'A', '31.8.2007'",  "'B', '31.8.2007 10:15'", "'C', '1.9.2007'",
                                "'D', '31.02.2007'", "'E', 'neskôr'",          "'F', null"};
    for (const char* row : rows)
        database_.execute(
            u"insert into k_navstevy(idkod, datum) values(%1)"_s.arg(QString::fromUtf8(row)));
    database_.execute(u"update k_navstevy set dat_budn = 'potom' where idkod = 'A'"_s);
    const Meaning filters[] = {
        {u"datevalue('1.9.2007') between datum and dat_budn", u""},
        {u"datevalue('1.1.2007') not between datum and dat_budn", u"ABC"},
        {u"datevalue('1.10.2007') not between datum and datevalue('1.1.2008')", u""},
        {u"datevalue('1.9.2007') not in (datum)", u"AB"},
        {u"datum <= datevalue('31.8.2007')", u"A"},
        {u"datum > datevalue('31.8.2007')", u"BC"},
        {u"datevalue('31.8.2007') <= datum", u"ABC"},
        {u"datum <> datevalue('31.8.2007')", u"BC"},
        {u"not datum <= datevalue('31.8.2007')", u"BC"},
        {u"not (datum < datevalue('1.9.2007') or idkod = 'x')", u"C"},
        {u"(datum <= datevalue('31.8.2007')) = false", u"BC"},
        {u"iif(datum <= datevalue('31.8.2007'), 1, 2) = 1", u"A"},
        {u"datum between datevalue('31.8.2007') and datevalue('1.9.2007')", u"ABC"},
        {u"datum not between datevalue('1.1.2007') and datevalue('31.8.2007')", u"BC"},
        {u"datum in (datevalue('31.8.2007'), datevalue('1.9.2007'))", u"AC"},
        {u"datum >= #31/8/2007 10:00#", u"BC"},
        {u"isdate(datum)", u"ABC"},
        {u"isdate(datum) = false", u"DEF"},
        {u"isnull(datum) = false", u"ABCDE"},
        {u"datum >= dat_budn", u""},
        {u"datum = datum", u"ABC"},
        {u"datum = datevalue('31.02.2007')", u""},
    };
    const QString selection = u"select idkod from k_navstevy where %1 order by idkod"_s;
    for (const auto& [condition, keys] : filters)
        EXPECT_EQ(database_.select(selection.arg(QString::fromUtf16(condition))).join(QString()),
                  QString::fromUtf16(keys))
            << QString::fromUtf16(condition).toStdString();
}

TEST_F(SqlMeaning, GroupsSortsAndDistinctRowsByTheOrderOfTexts) {
    for (const char16_t* name : {u"čaj", u"cesta", u"Čaj ", u"chata", u"hora", u"ČAJ", u"Cesta"})
        database_.execute(
            u"insert into c_jazyk(kod, nazov) values('x', '%1')"_s.arg(QString::fromUtf16(name)));
    EXPECT_EQ(database_.select(
                  u"select count(*), min(nazov) from c_jazyk group by nazov order by nazov"_s),
              QStringList({u"2|cesta"_s, u"3|čaj"_s, u"1|hora"_s, u"1|chata"_s}));
    EXPECT_EQ(database_.select(u"select distinct nazov from c_jazyk"_s).size(), 4);
    EXPECT_EQ(database_.select(u"select max(nazov) from c_jazyk"_s), QStringList(u"chata"_s));
    EXPECT_EQ(database_.select(u"select nazov & '' as n from c_jazyk order by n desc, 1"_s).first(),
              u"chata"_s);
}

TEST_F(SqlMeaning, JoinsAndTheUniqueKeyIgnoreCaseAndTrailingBlanks) {
    database_.execute(u"update k_zaklad set idkod = 'ŠÁRKA'"_s);
    database_.execute(u"insert into k_memo(idkod, poznamky) values('šárka  ', 'p')"_s);
    EXPECT_EQ(database_.select(u"select poznamky from k_zaklad inner join k_memo on "
                               "k_zaklad.idkod = k_memo.idkod"_s),
              QStringList(u"p"_s));
    EXPECT_THROW(database_.execute(u"insert into k_memo(idkod) values('Šárka')"_s),
                 std::runtime_error);
    EXPECT_NO_THROW(database_.execute(u"insert into k_memo(idkod) values('Sarka')"_s));
}

TEST_F(SqlMeaning, NullsSortFirstAndASumWithOneIsOne) {
    database_.execute(u"insert into k_zaklad(idkod, meno) values('X', 'Adam')"_s);
    EXPECT_EQ(
        database_.select(u"select meno from k_zaklad order by k_zaklad.priezv+k_zaklad.meno"_s),
        QStringList({u"Adam"_s, u"Ján"_s}));
}

/// An assignment, and what lies in the column then or the error that the statement ends with.
TEST_F(SqlMeaning, WritingToColumns) {
    const Meaning writings[] = {
        {u"psc = 'čšťžýá'", u"TVK:3163:psc"},
        {u"meno = datnar", u"29.02.2000"},
        {u"meno = datevi", u"31.2.2005"},
        {u"datnar = '5. 6. 07 8:05'", u"2007-06-05 08:05:00"},
        {u"datnar = '31.02.2005'", u"~31.02.2005"},
        {u"datnar = datevalue('31.2.2005')", u"<Null>"},
        {u"datnar = datevi", u"~31.2.2005"},
        {u"datnar = '  '", u"TVK:3421:datnar"},
        {u"vek = val(psc)", u"<Null>"},
        {u"matvla = (psc = 'x')", u"0"},
        {u"vek = 'x' + 1", u"TVK:3464:x"},
        {u"vek = 1 / 0", u"TVK:3464:0"},
        {u"vek = 1 mod 0", u"TVK:3464:0"},
        {u"meno = left('a', -1)", u"TVK:3464:-1"},
        {u"meno = mid('a', 0)", u"TVK:3464:0"},
        {u"meno = chr(0)", u"TVK:3464:0"},
        {u"meno = space(1e9)", u"TVK:3464:1000000000"},
        {u"datnar = dateserial(99999, 1, 1)", u"TVK:3464:99999"},
    };
    for (const auto& [written, expected] : writings) {
        const QString assignment = QString::fromUtf16(written);
        const QString column = assignment.section(u' ', 0, 0);
        QString result;
        database_.raw(u"SAVEPOINT before"_s);
        try {
            database_.execute(u"update k_zaklad set "_s + assignment);
            result = database_.raw(u"SELECT %1 FROM k_zaklad"_s.arg(column)).first();
        } catch (const std::runtime_error& error) {
            result = QString::fromUtf8(error.what());
        }
        EXPECT_EQ(result, QString::fromUtf16(expected)) << assignment.toStdString();
        database_.raw(u"ROLLBACK TO before"_s);
    }
}

TEST_F(SqlMeaning, QuotedIsReadBackAsItWas) {
    const QString text = u"O'Neil \"x\" '' [*] č"_s;
    EXPECT_EQ(value(quoted(text)), text);
}

} // namespace
