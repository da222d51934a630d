#include "RecordScreen.h"
#include "forms/RichText.h"

#include <QRadioButton>
#include <QTextEdit>

using cardtest::RecordTest;
using cardtest::text;
using cardtest::worker;

namespace {

/// What is typed into a field, and what lies in its column then; null: the same.
struct Entered {
    int field;
    const char *typed, *column;
    const char* stored = nullptr;
};

using ColumnsTest = RecordTest;

} // namespace

TEST_F(ColumnsTest, EachFieldOfTheClientHasAColumnOfItsOwn) {
    for (const char* town : {"A2", "A13", "A25", "A40", "A52"})
        addCode("c_iczuj", town, town);
    addCode("c_zdrpoi", "31", "x");
    addCode("c_narodn", "32", "x");
    addCode("c_iczeme", "33", "x");
    addCode("c_jazyk", "34", "x");
    addCode("c_jazyk", "35", "x");
    // clang-format off
    const Entered fields[] = {
        {0, "N0", "Meno"}, {1, "N1", "Priezv"}, {2, "A2", "mienar"}, {3, "8055120007", "rodcis"},
        {4, "13.5.1981", "datnar", "13.05.1981"}, {5, "M", "pohlav"}, {6, "606", "katcis"},
        {7, "31", "zdrpoi"}, {8, "32", "narodn"}, {9, "33", "stprisl"}, {10, "34", "jazyk"},
        {11, "35", "jaz_doma"}, {12, "N12", "ulica"}, {13, "A13", "obec"}, {14, "1014", "psc"},
        {15, "N15", "skola"}, {16, "N16", "odporu"}, {17, "17.9.1999", "datevi", "17.09.1999"},
        {18, "3", "postih", "35       "}, {19, "5", "postih", "35       "}, {20, "N20", "matka"},
        {21, "1951", "matnar"}, {22, "22", "matvek"}, {23, "n23", "matvzd"},
        {24, "N24", "matuli"}, {25, "A25", "matobe"}, {26, "1026", "matpsc"},
        {27, "n27", "mattel"}, {28, "n28", "matmail"}, {29, "n29", "matzam"},
        {30, "N30", "mataza"}, {31, "n31", "mattza"}, {32, "n32", "matchor"},
        {33, "4", "matpos", "46       "}, {34, "6", "matpos", "46       "}, {35, "N35", "otec"},
        {36, "1952", "otenar"}, {37, "37", "otevek"}, {38, "n38", "otevzd"},
        {39, "N39", "oteuli"}, {40, "A40", "oteobe"}, {41, "1041", "otepsc"},
        {42, "n42", "otetel"}, {43, "n43", "otemail"}, {44, "n44", "otezam"},
        {45, "N45", "oteaza"}, {46, "n46", "otetza"}, {47, "n47", "otechor"},
        {48, "7", "otepos", "78       "}, {49, "8", "otepos", "78       "},
        {50, "N50", "kon_meno"}, {51, "n51", "kon_pomer"}, {52, "A52", "kon_obe"},
        {53, "N53", "kon_uli"}, {54, "1054", "kon_psc"}, {55, "n55", "kon_tel"},
        {56, "n56", "kon_mail"},
    };
    // clang-format on
    constexpr std::pair<const char*, const char*> memos[] = {
        {"rtbDUK(3)", "u_dieta"},    {"rtbDUK(4)", "u_ziak"},   {"rtbDUK(5)", "u_zhrn"},
        {"rtbDUK(0)", "u_dolezite"}, {"rtbDUK(1)", "poznamky"}, {"rtbDUK(2)", "ip_tvkz"},
    };
    openClient();
    for (const Entered& entered : fields) {
        if (!field(entered.field).isVisible())
            turnTabs(1);
        goTo(entered.field);
        field(entered.field).selectAll();
        enter(entered.typed);
    }
    at<QRadioButton>("optKrz(0)").setChecked(true);
    turnTabs(1);
    for (const auto& [name, column] : memos) {
        turnTabs(1);
        EXPECT_EQ(focused(), text(name));
        type(name);
    }
    click("CmdZap");
    EXPECT_FALSE(card->isVisible());
    for (const Entered& entered : fields)
        EXPECT_EQ(stored(entered.column),
                  text(entered.stored != nullptr ? entered.stored : entered.typed))
            << entered.column;
    for (const auto& [name, column] : memos)
        EXPECT_TRUE(stored(column, "k_memo").contains(text(name))) << column;
    EXPECT_EQ(clients("matvla = true and otevla = false"), 1);
}

TEST_F(ColumnsTest, EachPickHasAFieldOfItsOwn) {
    constexpr int served[] = {2, 8, 9, 10, 13, 25, 40, 52, 7, 11};
    openClient();
    for (const int element : {2, 7, 8, 9, 10, 11, 13, 25, 40, 52}) {
        SCOPED_TRACE(element);
        if (!field(element).isVisible())
            turnTabs(1);
        goTo(element);
        key(Qt::Key_F4);
        const auto pick = std::ranges::find(served, element) - served;
        EXPECT_EQ(focused(), text("dbcvolby(%1)").arg(pick));
        key(Qt::Key_Home);
        // The picker of insurers gives the focus back at once.
        if (element != 7)
            enter();
        EXPECT_EQ(focused(), field(element).objectName());
        const QString taken = field(element).text();
        EXPECT_NE(taken, QString());
        // What is typed behind a pick replaces it.
        const bool isTown = taken == text("Bab");
        if (isTown)
            enterInto(element, "Nitra");
        goTo(element);
        if (element != 7) {
            key(Qt::Key_F4);
            key(Qt::Key_Up);
            key(Qt::Key_Escape);
            EXPECT_TRUE(std::exchange(modKontrola::gZVyberu, false));
        }
        EXPECT_EQ(field(element).text(), isTown ? text("Nitra") : taken);
    }
}

TEST_F(ColumnsTest, EachFieldOfARecordHasAColumnOfItsOwn) {
    struct Tab {
        int number;
        std::vector<Entered> fields;
        const char *rich = nullptr, *richColumn = nullptr;
    };
    // clang-format off
    const Tab tabs[] = {
        {2, {{0, "N0", "Meno"}, {1, "1991", "roknar"}, {2, "Z", "pohlavie"}, {3, "n3", "choroby"},
             {4, "3", "postih", "35       "}, {5, "5", "postih", "35       "}}},
        {9, {{0, "05", "nazzar"}, {1, "N1", "adresa"}, {2, "2.9.2005", "vzar_od", "02.09.2005"},
             {3, "3.6.2006", "vzar_do", "03.06.2006"}}},
        {10, {{0, "1.9.2005", "datum", "01.09.2005"}, {1, worker, "idkod_p"}}, "rtbPza", "popis"},
        {11, {{0, "1.9.2005", "datum", "01.09.2005"}, {1, "08", "hod_od"}, {2, "09", "hod_do"},
              {3, worker, "idkod_P"}}, "rtbZsc", "cinnost"},
        {12, {{0, "1.9.2005", "datum", "01.09.2005"}, {1, worker, "idkod_p"}}, "rtbZaz", "zmeny"},
        {13, {{0, "1.9.2005", "datum", "01.09.2005"}, {1, "8.9.2005", "dat_budn", "08.09.2005"}}},
    };
    // clang-format on
    for (const Tab& tab : tabs) {
        SCOPED_TRACE(tab.number);
        turnTo(tab.number);
        press("Novy");
        if (tab.rich != nullptr) {
            at<forms::RichText>(tab.rich).editor().setFocus();
            type("dlhy");
        }
        for (const Entered& entered : tab.fields) {
            entry(entered.field).setFocus();
            enter(entered.typed);
        }
        press("Zap");
        for (const Entered& entered : tab.fields)
            EXPECT_EQ(value(entered.column),
                      text(entered.stored != nullptr ? entered.stored : entered.typed))
                << entered.column;
        EXPECT_EQ(value("idkod"), text("NOVOTNEV00"));
        if (tab.rich != nullptr) {
            EXPECT_TRUE(value(tab.richColumn).contains(text("dlhy"))) << tab.richColumn;
        }
    }
}
