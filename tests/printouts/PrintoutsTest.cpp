#include "printouts/CardPrints.h"
#include "printouts/TabReports.h"
#include "report/Csv.h"
#include "report/PageCheck.h"
#include "store/Schema.h"
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

/// What each tab prints below its head, line by line, with heights and left edges in twips. The
/// values are the names of their columns, cut to the width of those.
const struct {
    const char16_t* heading;
    const char16_t* lines;
} printedTabs[] = {
    {u"Základné údaje o klientovi :",
     u"0: 0 rodné číslo : | 3402 rodcis\n"
     "283: 0 katalógové číslo : | 3402 katcis\n"
     "566: 0 dátum narodenia : | 3402 06.01.2001\n"
     "849: 0 zdravotná poisťovňa : | 3402 c_zdrpoi\n"
     "1132: 0 národnosť : | 3402 c_narodn\n"
     "1413: 0 štátna príslušnosť : | 3402 c_iczeme\n"
     "1696: 0 jazyk, ktorým klient komunikuje : | 3402 c_jazyk\n"
     "1979: 0 jazyk, ktorým klient komunikuje doma : | 3402 2c_jazyk\n"
     "2262: 0 postihnutie klienta : | 3402 sluchové | 4220 syndróm autizmu | 5038 žiadne\n"
     "3394: 0 bydlisko klienta : | 3402 ulica\n"
     "3677: 3402 psc | 4252 obec\n"
     "3960: 0 škola, zariad.,  ktoré klient navštevuje : | 3402 skola\n"
     "4243: 0 kto klienta odporučil : | 3402 odporu\n"
     "4526: 0 odkedy je v evidencii zariadenia : | 3402 19.01.2001\n"},
    {u"Údaje o rodičoch :",
     u"0: 0 matka : | 3402 vlastná\n"
     "283: 0 meno a priezvisko : | 3402 matka | 7371 dátum narodenia: | 8845 matn\n"
     "566: 0 vzdelanie : | 3402 matvzd\n"
     "849: 0 bydlisko : | 3402 matuli | 6237 matobe | 9639 matps\n"
     "1132: 0 telefón, email : | 3402 mattel | 5670 matmail\n"
     "1415: 0 zamestnanie : | 3402 matzam | 5670 adresa zamestnávateľa : | 7711 mataza\n"
     "1698: 0 telefón zamestnávateľa : | 3402 mattza\n"
     "1981: 0 prekonané vážne choroby : | 3402 matchor\n"
     "2264: 0 postihnutie : | 3402 zrakové | 4220 rečové\n"
     "3175: 0 otec : | 3402 vlastný\n"
     "3458: 0 meno a priezvisko : | 3402 otec | 7371 dátum narodenia: | 8845 oten\n"
     "3741: 0 vzdelanie : | 3402 otevzd\n"
     "4024: 0 bydlisko : | 3402 oteuli | 6237 oteobe | 9639 oteps\n"
     "4307: 0 telefón, email : | 3402 otetel | 5670 otemail\n"
     "4590: 0 zamestnanie : | 3402 otezam | 5670 adresa zamestnávateľa : | 7711 oteaza\n"
     "4873: 0 telefón zamestnávateľa : | 3402 otetza\n"
     "5156: 0 prekonané vážne choroby : | 3402 otechor\n"
     "5439: 0 postihnutie : | 3402 telesné\n"
     "6463: 0 meno kontaktnej osoby : | 3402 kon_meno\n"
     "6746: 0 pomer kontaktnej osoby ku klientovi : | 3402 kon_pomer\n"
     "7029: 0 adresa kontaktnej osoby : | 3402 kon_uli | 6237 kon_obe | 9639 kon_psc\n"
     "7312: 0 telefón, email kontaktnej osoby : | 3402 kon_tel | 5670 kon_mail\n"},
    {u"Zoznam súrodencov klienta :", u"0: 0 meno : | 2835 meno\n"
                                     "283: 0 pohlavie: | 2835 p\n"
                                     "566: 0 rok narodenia : | 2835 rokn\n"
                                     "849: 0 choroby : | 2835 choroby\n"
                                     "1132: 0 postihnutia : | 2835 iné\n"},
    {u"Dieťa v rannom predškolskom veku", u"0: 0 u_dieta\n"},
    {u"Žiak vo výchovno-vyučovacom procese", u"0: 0 u_ziak\n"},
    {u"Zhrnutie výsledkov predchádzajúceho odborného vyšetrenia", u"0: 0 u_zhrn\n"},
    {u"Ďalšie dôležité údaje o klientovi", u"0: 0 u_dolezite\n"},
    {u"Poznámky", u"0: 0 poznamky\n"},
    {u"Individuálny plán klienta tvk.por.zar.", u"0: 0 ip_tvkz\n"},
    {u"Údaje o výchove a vzdelávaní :",
     u"0: 0 Názov zariadenia | 2835 Adresa zariadenia | 6406 v zariadení je od-do\n"
     "287: 0 c_zariad | 2835 adresa | 6406 05.01.2001 | 7426 -- | 7653 06.01.2001\n"},
    {u"Priebeh a závery špeciálneho pedagogického vyšetrenia :",
     u"0: 0 dátum vyšetrenia : | 2835 02.01.2001\n"
     "283: 0 meno vyšetrujúceho psychológa: | 2835 Eva  Malá\n"
     "566: 0 Popis vyšetrenia :\n"
     "850: 0 popis\n"},
    {u"Záznam o špeciálno-pedagogickej činnosti :",
     u"0: 0 dátum : | 680 02.01.2001 | 1984 od - do(hodiny) | 3288 hod_od | 4025 hod_do | 5103 "
     u"meno zamestnanca : | 6860 Eva  Malá\n"
     "283: 0 činnosť :\n"
     "567: 0 cinnost\n"},
    {u"Zaznamenané zmeny :",
     u"0: 0 dátum: | 680 02.01.2001 | 1984 meno zamestnanca: | 3741 Eva  Malá\n"
     "283: 0 zmeny :\n"
     "566: 0 zmeny\n"},
    {u"Zoznam návštev klienta :", u"0: 0 dátum návštevy : | 1984 dátum budúcej návštevy :\n"
                                  "287: 0 02.01.2001 | 1984 03.01.2001\n"},
};

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

TEST_F(PrintoutsTest, eachTabPrintsItsColumnsInTheirPlacesForItsClientAlone) {
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
        EXPECT_TRUE(heads[0].startsWith(u"0: 0 "_s + QString::fromUtf16(printedTabs[tab].heading)));
        EXPECT_TRUE(heads[0].endsWith(u" 23.11.2026"_s));
        EXPECT_EQ(heads[1], u"340: 0 meno  priezv"_s);
        QStringList lines = linesFrom(pages.pages[0], margin + head);
        EXPECT_TRUE(lines.takeLast().endsWith(u"Strana 1 z 1"_s));
        EXPECT_EQ(lines.join(u'\n') + u'\n', QString::fromUtf16(printedTabs[tab].lines)) << tab;
    }
}

TEST_F(PrintoutsTest, aPrintOutWithoutItsStoredQueryOrItsKeyFails) {
    const auto numberOf = [this](int tab) {
        try {
            print(tab);
        } catch (const store::EngineError& error) {
            return error.number();
        }
        return store::ErrorNumber{};
    };
    reg.database().QueryDefs(u"vyp_zazZmeny"_s).setSQL(u"select * from c_jazyk"_s);
    reg.engine.commitPending();
    EXPECT_EQ(numberOf(12), store::ErrorNumber::TooFewParameters);
    sqlite3* file = nullptr;
    sqlite3_open(qPrintable(reg.folder.database()), &file);
    sqlite3_exec(file, "delete from tvk_queries where name = 'vyp_memo'", nullptr, nullptr,
                 nullptr);
    sqlite3_close(file);
    EXPECT_EQ(numberOf(7), store::ErrorNumber::UnknownColumn);
    reg.execute({u"delete from k_zaklad"_s});
    EXPECT_EQ(numberOf(0), store::ErrorNumber::NoCurrentRecord);
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
