// The computed tables, cell by cell, against counts that this file makes in its own way from the
// rows of the register: the invented one, and clients full of edges among them.
#include "report/PageCheck.h"
#include "statreturn/ImpairmentTable.h"
#include "statreturn/LeftOut.h"
#include "statreturn/ReturnRegister.h"
#include "statreturn/TableOne.h"
#include "statreturn/TableTwo.h"
#include "support/Lists.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

using namespace Qt::StringLiterals;
using namespace statreturn;

namespace {

using Table = QMap<QString, Cells>;

constexpr int edgeClients = 300;

class TablesTest : public testing::Test {
  protected:
    TablesTest() {
        // Values from the edges of what a column may hold; Null among them.
        std::map<QString, QStringList> edges;
        for (QStringList& line : support::linesOf(u"edges.tsv"_s))
            edges[line.takeFirst()] = line;
        const auto any = [&](const char16_t* column) {
            const QStringList& values = edges.at(QString::fromUtf16(column));
            const QString& value = values[dice.bounded(quint32(values.size()))];
            return std::pair(column, support::valueOf(value));
        };
        for (int i = 0; i < edgeClients; ++i) {
            const QString key = u"EDGE%1"_s.arg(i);
            at.reg.add(
                u"k_zaklad"_s,
                {{u"idkod", key}, any(u"datnar"), any(u"pohlav"), any(u"postih"), {u"vek", 5}});
            // The engine's comparison of keys knows neither case nor blanks at the end.
            for (quint32 records = dice.bounded(4U); records > 0; --records)
                at.reg.add(u"k_zaznam_spc"_s,
                           {{u"idkod", records == 2 ? key.toLower() + u' ' : key}, any(u"datum")});
            for (quint32 placed = dice.bounded(4U); placed > 0; --placed)
                at.reg.add(u"k_zariad"_s,
                           {{u"idkod", key}, any(u"akronym"), any(u"nazzar"), any(u"vzar_do")});
        }
        for (int i = 0; i < edgeClients; ++i)
            at.reg.add(u"zamestnanci"_s, {{u"idkod", u"EMPL%1"_s.arg(i)},
                                          any(u"prac_zar"),
                                          any(u"int-ext"),
                                          any(u"pohlavie"),
                                          any(u"kvalifikacia")});
        at.reg.engine.commitPending();
    }

    QList<Cells> all(const QString& table) const { return at.durable(table); }

    ReturnRegister at{{u"ukazka"_s, u"--klienti"_s, u"100"_s}};
    QRandomGenerator dice{20070903};
};

int dayNumber(const QString& text) {
    const QDate date = QDate::fromString(text, u"dd.MM.yyyy"_s);
    return date.isValid() ? date.year() * 10000 + date.month() * 100 + date.day() : 0;
}

QString keyAt(const Cells& row, const QString& column) {
    return row[column].trimmed().toUpper();
}

void count(Cells& cells, const QString& column, bool girl) {
    const auto add = [&cells](const QString& name) {
        cells[name] = QString::number(cells[name].toInt() + 1);
    };
    add(column);
    if (girl)
        add(column == u"spolu"_s ? u"spolu_zeny"_s : column + u"_z"_s);
}

const QString columnsByCode[] = {u"p_autiz"_s, u"p_menta"_s, u"p_sluch"_s, u"p_zrak"_s, u"p_rec"_s,
                                 u"p_teles"_s, u"p_vpsp"_s,  u"p_vpuc"_s,  u"p_ine"_s};

void countClientOf(const Cells& client, bool several, Cells& cells, Cells& totals) {
    const QChar first = client[u"postih"_s][0];
    const bool girl = client[u"pohlav"_s] == u"Z"_s;
    for (Cells* each : {&cells, &totals}) {
        count(*each, u"spolu"_s, girl);
        count(*each, several ? u"p_viacn"_s : columnsByCode[first.digitValue() - 1], girl);
    }
}

/// Whether the engine's selection takes the client: a first character of 1 to 9.
bool isImpaired(const Cells& client) {
    return client[u"postih"_s].left(1) >= u"1"_s && client[u"postih"_s].left(1) <= u"9"_s;
}

bool isInCare(const QList<Cells>& care, const QString& key) {
    return std::ranges::any_of(care, [&key](const Cells& record) {
        const int day = dayNumber(record[u"datum"_s]);
        return keyAt(record, u"idkod"_s) == key && day >= 20060901 && day <= 20070831;
    });
}

/// The counts as "row: column=text|column=text", each blank behind p_vpsp left out.
QString described(const QString& row, const Cells& cells) {
    static const QStringList leading =
        u"stlpec vek c_riad stlpec_1 stlpec_2 kod kod_txt"_s.split(u' ');
    QStringList texts;
    for (const auto& [column, text] : cells.asKeyValueRange()) {
        const QString cell = column == u"p_vpsp"_s && text.endsWith(u' ') ? text.chopped(1) : text;
        if (!cell.isEmpty() && !leading.contains(column))
            texts << column + u'=' + cell;
    }
    return row + u": "_s + texts.join(u'|');
}

Cells totalsOnPage(const ReturnRegister& at, const ImpairmentTable& table) {
    Cells totals;
    for (std::size_t i = 0; i < table.totals.size(); ++i)
        totals[printedColumns[i].column.toString()] = at.printed(table.totals[i]);
    return totals;
}

/// The numbers on screen against what was printed just now, cell by cell.
void expectPrinted(const ReturnRegister& at, const NumberGrid& numbers,
                   const ImpairmentTable& table) {
    ASSERT_EQ(numbers.rows.size(), std::size_t(at.rows.size()) + 1);
    for (std::size_t row = 0; row < numbers.rows.size(); ++row) {
        for (std::size_t i = 0; i < printedColumns.size(); ++i) {
            const QString cell =
                row < std::size_t(at.rows.size())
                    ? at.rows[qsizetype(row)][printedColumns[i].column.toString()].trimmed()
                    : at.printed(table.totals[i]);
            const QString shown = countText(int(numbers.behind(row, i).size()));
            EXPECT_EQ(numbers.rows[row].applies ? shown : u"x"_s, cell)
                << numbers.nameOf(row, i).toStdString();
        }
    }
}

/// What is on screen is what was printed; and who is counted and who is told to be left out are
/// together everybody, each once.
void expectAgreement(const ReturnRegister& at, const ReturnPeople& people,
                     const NumberGrid& numbers, const ImpairmentTable& printed, ReturnTable table) {
    expectPrinted(at, numbers, printed);
    std::set<std::uint32_t> counted;
    for (const Counted& client : numbers.behind(numbers.rows.size() - 1, 0))
        counted.insert(client.who);
    const LeftOut leftOut(people);
    for (const Counted& out : leftOut.numbers.behind(0, std::size_t(table)))
        EXPECT_TRUE(counted.insert(std::uint32_t(leftOut.remarks[out.who].who)).second);
    EXPECT_EQ(counted.size(), people.clients.size());
}

TEST_F(TablesTest, TableOne) {
    const QList<Cells> care = all(u"k_zaznam_spc"_s);
    Table expected;
    Cells totals;
    QMap<QString, QString> ages;
    for (const Cells& client : all(u"k_zaklad"_s)) {
        const bool inCare = isInCare(care, keyAt(client, u"idkod"_s));
        if (!inCare || !client.contains(u"datnar"_s)) {
            ages[client[u"idkod"_s]] = client[u"vek"_s];
            continue;
        }
        const int birth = dayNumber(client[u"datnar"_s]);
        if (birth == 0)
            continue;
        const int age = birth > 20070903 ? -1 : std::min(18, (20070903 - birth) / 10000);
        ages[client[u"idkod"_s]] = QString::number(age);
        const QChar second = client[u"postih"_s].trimmed().leftJustified(2)[1];
        if (age >= 0 && isImpaired(client))
            countClientOf(client, second >= u'1' && second <= u'9',
                          expected[u"%1"_s.arg(101 + age, 4, 10, QChar(u'0'))], totals);
    }
    const ReturnPeople people = readPeople(at.datTlac, u"2006/2007"_s, today);
    printVek(at.tools, u"2006/2007"_s, today, nullptr);
    expectAgreement(at, people, tableOneNumbers(people), tableOne, ReturnTable::One);
    ASSERT_EQ(at.rows.size(), 19);
    for (int age = 0; age < 19; ++age) {
        const Cells& row = at.rows[age];
        const AgeRow& texts = ageRows[std::size_t(age)];
        const QString code = texts.c_riad.toString();
        EXPECT_EQ(described(code, row), described(code, expected.value(code)));
        EXPECT_EQ((QStringList{row[u"stlpec"_s], row[u"vek"_s], row[u"c_riad"_s]}),
                  (QStringList{texts.stlpec.toString(), texts.vek.toString(), code}));
        EXPECT_TRUE(row[u"p_vpsp"_s].endsWith(u' '));
    }
    EXPECT_EQ(described(u"spolu"_s, totalsOnPage(at, tableOne)), described(u"spolu"_s, totals));
    EXPECT_EQ(at.printed(u"Label105"), u"za školský rok 2006/2007"_s);
    for (const Cells& client : all(u"k_zaklad"_s))
        EXPECT_EQ(client[u"vek"_s], ages[client[u"idkod"_s]]) << client[u"idkod"_s].toStdString();
}

TEST_F(TablesTest, TableTwo) {
    at.scratchTable = u"z_vzdelavanie"_s;
    // The second of the codes that have no figures; it comes last.
    at.reg.execute({u"update c_zariad set kod = '23' where kod = '09'"_s});
    at.reg.engine.commitPending();
    const QList<Cells> care = all(u"k_zaznam_spc"_s);
    const QList<Cells> placements = all(u"k_zariad"_s);
    Table expected;
    Cells totals;
    for (const Cells& client : all(u"k_zaklad"_s)) {
        if (!isImpaired(client) || !isInCare(care, keyAt(client, u"idkod"_s)))
            continue;
        QStringList open;
        for (const Cells& placement : placements) {
            if (keyAt(placement, u"idkod"_s) == keyAt(client, u"idkod"_s) &&
                placement[u"akronym"_s] == u"VYCH" && dayNumber(placement[u"vzar_do"_s]) == 0)
                open << placement[u"nazzar"_s];
        }
        open.removeDuplicates();
        for (const QString& code : open) {
            if (code != u"16" && code != u"23" && code != u"51" && code.size() == 2)
                countClientOf(client, client[u"postih"_s].trimmed().size() > 1, expected[code],
                              totals);
        }
    }
    printVzd(at.tools, u"2006/2007"_s, today, nullptr);
    const ReturnPeople people = readPeople(at.datTlac, u"2006/2007"_s, today);
    expectAgreement(at, people, tableTwoNumbers(people), tableTwo, ReturnTable::Two);
    ASSERT_EQ(at.rows.size(), 16);
    for (int place = 0; place < 16; ++place) {
        const Cells& row = at.rows[place];
        const EducationRow& texts = educationRows[std::size_t(place)];
        const int number = place < 8 ? place + 1 : place < 15 ? place + 2 : 23;
        const QString code = u"%1"_s.arg(number, 2, 10, QChar(u'0'));
        EXPECT_EQ(
            (QStringList{row[u"stlpec_1"_s], row[u"stlpec_2"_s], row[u"c_riad"_s], row[u"kod"_s],
                         row[u"kod_txt"_s]}),
            (QStringList{texts.stlpec_1.toString(), texts.stlpec_2.toString(),
                         texts.c_riad.toString(), code,
                         at.reg.text(u"select v_nazov from c_zariad where kod = '%1'"_s.arg(code),
                                     u"v_nazov"_s)}));
        if (code == u"16" || code == u"23")
            EXPECT_EQ(row.values().count(u"  x"_s), 22);
        else
            EXPECT_EQ(described(code, row), described(code, expected.value(code)));
    }
    EXPECT_EQ(described(u"spolu"_s, totalsOnPage(at, tableTwo)), described(u"spolu"_s, totals));
    EXPECT_EQ(report::layoutFaults(at.pages).join(u'\n'), QString());
}

TEST_F(TablesTest, TableThree) {
    at.scratchTable = u"z_zam"_s;
    const QStringList names = support::linesOf(u"functions.tsv"_s).first();
    QList<Cells> expected(9);
    for (const Cells& employee : all(u"zamestnanci"_s)) {
        const QString kind = employee[u"int-ext"_s].toLower();
        const int function = employee[u"prac_zar"_s].toInt();
        if (function < 1 || function > 8 || (kind != u"i" && kind != u"e"))
            continue;
        for (Cells* cells : {&expected[function - 1], &expected[8]}) {
            count(*cells, kind + u"_spolu"_s, false);
            if (employee[u"pohlavie"_s].toLower() == u"z")
                count(*cells, kind + u"_zeny"_s, false);
            if (employee[u"kvalifikacia"_s] == u"a")
                count(*cells, kind + u"_kval"_s, false);
        }
    }
    for (const auto& column : {u"e_spolu"_s, u"e_zeny"_s, u"e_kval"_s})
        expected[0][column] = u"   x"_s;
    printZam(at.tools, today, nullptr);
    const ReturnPeople people = readPeople(at.datTlac, u"2006/2007"_s, today);
    const std::size_t leftOut = LeftOut(people).numbers.behind(0, 2).size();
    EXPECT_EQ(people.employees.size() - leftOut,
              std::size_t(at.rows[8][u"i_spolu"_s].toInt() + at.rows[8][u"e_spolu"_s].toInt()));
    ASSERT_EQ(at.rows.size(), 9);
    for (int i = 0; i < 9; ++i) {
        expected[i][u"fcia"_s] = names[i];
        expected[i][u"cria"_s] = u"03"_s + (i == 8 ? u"16"_s : u"0%1"_s.arg(i + 1));
        EXPECT_EQ(described(names[i], at.rows[i]), described(names[i], expected[i]));
    }
    EXPECT_EQ(report::layoutFaults(at.pages).join(u'\n'), QString());
}

} // namespace
