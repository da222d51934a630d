#include "printouts/CardPrints.h"
#include "printouts/TabReports.h"
#include "report/Csv.h"
#include "report/PageCheck.h"
#include "store/EngineAssertions.h"
#include "store/Schema.h"
#include "support/Lists.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"

#include <QBuffer>
#include <QDate>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;
using namespace printouts;

namespace {

const QDate today(2026, 11, 23);
const QString ours = u"NOVAKOJA00"_s;
const QString another = u"O'NEILSE00"_s;
const QString visitsOf =
    u"select *,(format(datum,'dd') + '.' + format(datum,'mm') + '.' + format(datum,'yyyy')) as "
    "kedy from k_navstevy where idkod= '%1' order by datum"_s;

/// A register where every column of our client holds its own name, and the other client's "cudzie".
struct PrintoutsTest : testing::Test {
    PrintoutsTest() {
        for (const QStringView table :
             {u"c_zdrpoi", u"c_narodn", u"c_jazyk", u"c_iczeme", u"c_zariad"})
            addCode(table, u"kod"_s);
        addCode(u"c_jazyk", u"2"_s);
        reg.add(u"zamestnanci"_s,
                {{u"idkod", u"Z"_s}, {u"meno", u" Eva "_s}, {u"priezv", u" Malá "_s}});
        for (const QStringView table :
             {u"k_zaklad", u"k_memo", u"k_surodenci", u"k_zariad", u"k_vysetrenie",
              u"k_zaznam_zmeny", u"k_zaznam_spc", u"k_navstevy"}) {
            addRow(table, ours, {});
            addRow(table, another, u"cudzie"_s);
        }
        for (const char* column : {"zdrpoi", "narodn", "stprisl", "jazyk"})
            reg.execute({u"update k_zaklad set %1 = 'kod'"_s.arg(QLatin1String(column))});
        reg.execute(
            {u"update k_zaklad set jaz_doma = '2', meno = ' ' & meno & ' ', postih = '310', "
             "matpos = '45', otepos = '6'"_s,
             u"update k_surodenci set postih = '9'"_s, u"update k_zariad set nazzar = 'kod'"_s});
    }

    void addCode(QStringView table, const QString& code) {
        reg.add(table.toString(),
                {{u"kod", code}, {u"nazov", (code == u"kod" ? u""_s : code) + table.toString()}});
    }

    void addRow(QStringView table, const QString& key, const QString& filler) {
        const auto rows = reg.database().OpenRecordset(table.toString());
        rows->AddNew();
        int number = 0;
        for (const store::ColumnDef& column : store::findTable(table)->columns) {
            const QString name = QString::fromUtf16(column.name).toLower();
            const QString text = filler.isEmpty() ? name : filler;
            store::Value value = column.width > 0 ? text.left(column.width) : text;
            ++number;
            if (column.type == store::ColumnType::Date)
                value = QDate(filler.isEmpty() ? 2001 : 1999, 1, number);
            else if (column.type == store::ColumnType::Boolean)
                value = filler.isEmpty();
            else if (column.type == store::ColumnType::Whole)
                value = qint64(number);
            rows->Fields(name).setValue(name == u"idkod"     ? store::Value(key)
                                        : name == u"idkod_p" ? store::Value(u"Z"_s)
                                                             : value);
        }
        rows->Update();
    }

    void print(int tab, const QString& key = ours, bool isChanged = false) {
        printTab(tools, tab, {key, visitsOf.arg(QString(key).replace(u'\'', u"''"_s)), isChanged},
                 today, nullptr);
    }

    /// What stands on a page from that height on, a line as "top: left text | left text".
    static QStringList linesFrom(const report::Page& page, double upper) {
        std::map<int, std::map<int, QString>> texts;
        for (const report::PlacedText& text : page.texts)
            texts[qRound(text.box.top() - upper)][qRound(text.box.left() - margin)] +=
                u' ' + text.text;
        QStringList lines;
        for (auto line = texts.lower_bound(0); line != texts.end(); ++line) {
            QStringList parts;
            for (const auto& [left, text] : line->second)
                parts << QString::number(left) + text;
            lines << QString::number(line->first) + u": "_s + parts.join(u" | "_s);
        }
        return lines;
    }

    static constexpr double margin = 567;
    support::TemporaryRegister reg;
    report::Pages pages;
    int previews = 0;
    printing::PrintTools tools{.engine = reg.engine,
                               .folder = reg.folder,
                               .showPreview = [this](const report::Pages& shown, QWidget*) {
                                   ++previews;
                                   pages = shown;
                               }};
};

/// The list says what each tab prints: its heading, and below its head, behind a tab, each line
/// with heights and left edges in twips. The values are the names of their columns, cut to their
/// width.
TEST_F(PrintoutsTest, eachTabPrintsItsColumnsInTheirPlacesForItsClientAlone) {
    std::vector<std::pair<QString, QStringList>> printed;
    for (const QStringList& line : support::linesOf(u"tabs.txt"_s)) {
        if (line.size() == 1)
            printed.emplace_back(line[0], QStringList());
        else
            printed.back().second << line[1];
    }
    ASSERT_EQ(printed.size(), 14U);
    for (int tab = 0; tab < 14; ++tab) {
        const TabReport& row = tabReports()[std::size_t(tab)];
        const int head = formOf(row).reportHeader.height;
        // Whatever a program that was killed in a print has left.
        print(tab, another);
        print(tab);
        EXPECT_EQ(pages.name(), u"priezv meno – "_s + QString::fromUtf16(row.title));
        EXPECT_EQ(pages.note, QString());
        ASSERT_EQ(pages.pages.size(), 1U);
        EXPECT_TRUE(std::ranges::is_sorted(pages.pages[0].texts, {},
                                           [](const auto& text) { return qRound(text.box.top()); }))
            << "not in the order of reading: " << tab;
        const QStringList heads = linesFrom(pages.pages[0], margin).first(2);
        EXPECT_TRUE(heads[0].startsWith(u"0: 0 "_s + printed[std::size_t(tab)].first));
        EXPECT_TRUE(heads[0].endsWith(u" 23.11.2026"_s));
        EXPECT_EQ(heads[1], u"340: 0 meno  priezv"_s);
        QStringList lines = linesFrom(pages.pages[0], margin + head);
        EXPECT_TRUE(lines.takeLast().endsWith(u"Strana 1 z 1"_s));
        EXPECT_EQ(lines.join(u'\n'), printed[std::size_t(tab)].second.join(u'\n')) << tab;
    }
}

TEST_F(PrintoutsTest, aPrintOutWithoutItsStoredQueryOrItsKeyFails) {
    reg.database().QueryDefs(u"vyp_zazZmeny"_s).setSQL(u"select * from c_jazyk"_s);
    reg.engine.commitPending();
    EXPECT_ENGINE_ERROR(print(12), 3061);
    sqlite3* file = nullptr;
    sqlite3_open(qPrintable(reg.folder.database()), &file);
    sqlite3_exec(file, "delete from tvk_queries where name = 'vyp_memo'", nullptr, nullptr,
                 nullptr);
    sqlite3_close(file);
    EXPECT_ENGINE_ERROR(print(7), 3265);
    reg.execute({u"delete from k_zaklad"_s});
    EXPECT_ENGINE_ERROR(print(0), 3021);
    EXPECT_EQ(previews, 0);
}

TEST_F(PrintoutsTest, saysWhatIsNotOnThePaper) {
    reg.execute({u"update k_zaznam_spc set idkod_p = 'X' where idkod = '%1'"_s.arg(ours)});
    print(11, ours, true);
    EXPECT_TRUE(pages.note.contains(u"nezapísané"_s));
    EXPECT_TRUE(pages.note.endsWith(u"nie sú: 1."_s)) << pages.note.toStdString();
    print(11, another);
    EXPECT_EQ(pages.note, QString());
    // One record without a name and one with two.
    addCode(u"c_zariad", u"kod"_s);
    reg.add(u"k_zariad"_s, {{u"idkod", ours}, {u"nazzar", u"xx"_s}});
    print(9);
    EXPECT_EQ(pages.note.count(u": 1."_s), 2) << pages.note.toStdString();
}

TEST_F(PrintoutsTest, aLongTextGoesOnOverPagesAsItWasTyped) {
    const QString words = u"<p>Začiatok %d <b>tučné</b></p><ul><li>bod</li></ul><p>"_s +
                          QString(3000, u'm') + u' ' + u"slovo "_s.repeated(20000) +
                          u"</p><p></p><p><u>Koniec</u></p>"_s;
    reg.add(u"k_zaklad"_s, {{u"idkod", u"L"_s}, {u"meno", u"%d"_s}, {u"priezv", u"Dlhý"_s}});
    reg.add(u"k_memo"_s, {{u"idkod", u"L"_s}, {u"poznamky", words}});
    print(7, u"L"_s);
    EXPECT_GT(pages.pages.size(), 15U);
    EXPECT_EQ(report::layoutFaults(pages), QStringList());
    qsizetype letters = 0;
    for (const report::Page& page : pages.pages) {
        EXPECT_EQ(page.texts.front().text, u"Dlhý %d"_s);
        for (const report::PlacedText& text : page.texts)
            letters +=
                text.control == u"txtPolozka" ? text.text.count(u'm') + text.text.count(u'v') : 0;
    }
    EXPECT_EQ(letters, 23000);
    EXPECT_EQ(linesFrom(pages.pages[0], margin).at(1), u"340: 0 %d  Dlhý"_s);
    EXPECT_TRUE(std::ranges::any_of(pages.pages.back().texts, [](const auto& text) {
        return text.text == u"Koniec" && text.style.underline;
    }));
}

TEST_F(PrintoutsTest, theWholeCardHoldsTheTabsThatHoldSomething) {
    reg.execute({u"update k_memo set poznamky = '', u_ziak = null"_s, u"delete from k_navstevy"_s});
    const auto queries = [this] {
        QString all;
        for (const TabReport& tab : tabReports())
            all += *tab.query ? reg.database().QueryDefs(QString::fromUtf16(tab.query)).SQL()
                              : QString();
        return all;
    };
    const QString before = queries();
    printCard(tools, {ours, visitsOf.arg(ours)}, today, nullptr);
    QStringList titles;
    for (const report::Bookmark& bookmark : pages.bookmarks)
        titles << bookmark.title;
    EXPECT_EQ(titles.join(u", "),
              u"Základné údaje, Rodičia, Súrodenci, Dieťa v rannom predškolskom veku, Zhrnutie "
              "výsledkov vyšetrenia, Ďalšie dôležité údaje, Individuálny plán, Výchova a "
              "vzdelávanie, Vyšetrenia, Záznam o činnosti, Zaznamenané zmeny"_s);
    EXPECT_EQ(pages.name(), u"priezv meno – Celá karta"_s);
    for (const report::Page& page : pages.pages) {
        EXPECT_EQ(page.texts.front().text, u"priezv meno"_s);
        EXPECT_FALSE(linesFrom(page, 0).join(u' ').contains(u"cudzie"_s));
    }
    EXPECT_EQ(queries(), before);
}

TEST_F(PrintoutsTest, theListHasAllClientsWithoutAWholeNameFirst) {
    reg.execute({u"delete from k_zaklad where idkod = '%1'"_s.arg(ours)});
    for (const auto& [name, surname] :
         {std::pair{u"Žofia"_s, u"Adamová"_s}, {u"Ján"_s, u"Bez"_s}, {u"Eva"_s, u"Čierna"_s}}) {
        reg.add(u"k_zaklad"_s, {{u"idkod", surname},
                                {u"meno", name},
                                {u"priezv", surname},
                                {u"datnar", QDate(2001, 2, 3)},
                                {u"katcis", u"=1+1"_s}});
    }
    reg.execute({u"update k_zaklad set priezv = null where idkod = 'Bez'"_s});
    for (int run = 0; run < 2; ++run)
        printClientList(tools, today, nullptr);
    const QStringList lines = linesFrom(pages.pages[0], margin);
    EXPECT_EQ(lines[0], u"0: 0 Zoznam klientov TVK : | 9298 23.11.2026"_s);
    EXPECT_EQ(lines[1], u"906: 0 Meno | 1247 Priezvisko | 3402 K.číslo | 4252 Dat.narodenia | "
                        "5273 R.číslo | 6236 Ulica | 7824 Mesto | 10091 Psč"_s);
    EXPECT_EQ(lines.mid(2, 4).join(u'\n'),
              u"1193: 0 Ján | 3402 =1+1 | 4252 03.02.2001\n"
              "1476: 0 Žofia | 1247 Adamová | 3402 =1+1 | 4252 03.02.2001\n"
              "1759: 0  cudzie | 1247 cudzie | 3402 cudzie | 4252 06.01.1999 | 5329 cudzie | "
              "6236 cudzie | 7823 cudzie | 10091 cudzi\n"
              "2042: 0 Eva | 1247 Čierna | 3402 =1+1 | 4252 03.02.2001"_s);
    QBuffer csv;
    csv.open(QIODevice::WriteOnly);
    EXPECT_TRUE(report::writeCsv(pages.table, csv));
    const QList<QByteArray> rows = csv.data().split('\n');
    EXPECT_EQ(rows.size(), 6);
    EXPECT_EQ(rows[2], "Žofia;Adamová;'=1+1;03.02.2001;;;;\r");
}

} // namespace
