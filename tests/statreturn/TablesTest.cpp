// The computed tables, cell by cell, against counts that this file makes in its own way from the
// rows of the register: the invented one, and clients full of edges among them.
#include "statreturn/ImpairmentTable.h"
#include "statreturn/ReturnRegister.h"
#include "statreturn/TableOne.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;
using namespace statreturn;

namespace {

using Table = QMap<QString, Cells>;

constexpr int edgeClients = 300;

/// Values from the edges of what a column may hold; Null among them.
const std::vector<store::Value> births{
    {},
    u"31.02.2005"_s,
    QDate(2007, 9, 4),
    QDate(2007, 9, 3),
    QDate(2006, 9, 4),
    QDate(2006, 9, 3),
    QDate(2004, 2, 29),
    QDate(2000, 8, 30),
    QDate(1999, 10, 1),
    QDate(1989, 9, 4),
    QDate(1989, 9, 3),
    QDate(1988, 9, 4),
    QDate(1970, 1, 1),
};
const std::vector<store::Value> sexes{{}, u"M"_s, u"Z"_s, u"Z"_s, u"z"_s};
const std::vector<store::Value> impairments{
    {},       u""_s,   u"1"_s,   u"2"_s, u"3"_s,  u"4"_s,  u"5"_s,         u"6"_s,
    u"7"_s,   u"8"_s,  u"9"_s,   u"0"_s, u"30"_s, u"35"_s, u"35       "_s, u"305"_s,
    u"3 5"_s, u"3x"_s, u" 35"_s, u"x"_s, u"7 "_s, u"78"_s};
const std::vector<store::Value> careDays{
    {},
    QDate(2006, 8, 31),
    QDate(2006, 9, 1),
    QDate(2007, 3, 15),
    QDate(2007, 8, 31),
    QDate(2007, 9, 1),
    u"31.04.2007"_s,
};

class TablesTest : public testing::Test {
  protected:
    TablesTest() {
        const auto any = [this](const auto& values) {
            return values[dice.bounded(quint32(values.size()))];
        };
        for (int i = 0; i < edgeClients; ++i) {
            const QString key = u"EDGE%1"_s.arg(i);
            at.reg.add(u"k_zaklad"_s, {{u"idkod", key},
                                       {u"datnar", any(births)},
                                       {u"pohlav", any(sexes)},
                                       {u"postih", any(impairments)}});
            // The engine's comparison of keys knows neither case nor blanks at the end.
            for (quint32 records = dice.bounded(4U); records > 0; --records)
                at.reg.add(u"k_zaznam_spc"_s,
                           {{u"idkod", records == 2 ? key.toLower() + u' ' : key},
                            {u"datum", any(careDays)}});
        }
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

QString sameKey(const Cells& row) {
    return row[u"idkod"_s].trimmed().toUpper();
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
        return sameKey(record) == key && day >= 20060901 && day <= 20070831;
    });
}

/// As "row: column=text|column=text", each blank behind p_vpsp left out.
QString described(const QString& row, const Cells& cells, const QStringList& leading = {}) {
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

TEST_F(TablesTest, TableOne) {
    const QList<Cells> care = all(u"k_zaznam_spc"_s);
    Table expected;
    Cells totals;
    QMap<QString, QString> ages;
    for (const Cells& client : all(u"k_zaklad"_s)) {
        const bool inCare = isInCare(care, sameKey(client));
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
    printVek(at.tools, u"2006/2007"_s, today, nullptr);
    ASSERT_EQ(at.rows.size(), 19);
    for (int age = 0; age < 19; ++age) {
        const Cells& row = at.rows[age];
        const AgeRow& texts = ageRows[std::size_t(age)];
        const QString code = texts.c_riad.toString();
        EXPECT_EQ(described(code, row, {u"stlpec"_s, u"vek"_s, u"c_riad"_s}),
                  described(code, expected.value(code)));
        EXPECT_EQ((QStringList{row[u"stlpec"_s], row[u"vek"_s], row[u"c_riad"_s]}),
                  (QStringList{texts.stlpec.toString(), texts.vek.toString(), code}));
        EXPECT_TRUE(row[u"p_vpsp"_s].endsWith(u' '));
    }
    EXPECT_EQ(described(u"spolu"_s, totalsOnPage(at, tableOne)), described(u"spolu"_s, totals));
    EXPECT_EQ(at.printed(u"Label105"), u"za školský rok 2006/2007"_s);
    for (const Cells& client : all(u"k_zaklad"_s))
        EXPECT_EQ(client[u"vek"_s], ages[client[u"idkod"_s]]) << client[u"idkod"_s].toStdString();
}

} // namespace
