#include "RecordScreen.h"
#include "clientcard/EntryTable.h"

using cardtest::RecordTest;
using cardtest::text;
using cardtest::worker;
using enum QMessageBox::StandardButton;

namespace {

using Boxes = QMessageBox::StandardButtons;

/// The box that refuses a text, where %1 stands for it, and the answer that empties the field.
struct Refusal {
    const char* text;
    Boxes buttons;
    QMessageBox::StandardButton empties;
};

const Refusal noTown{"Zadaný reťazec :%1 nie je v číselníku", Abort | Retry | Ignore, Abort};
const Refusal noCode{"Zadaný kód :%1 sa nenašiel v číselníku", Retry | Cancel, Cancel};
const Refusal noBirthNumber{"Nesprávne rodné číslo ,opraviť ?", Abort | Retry | Ignore, Abort};
const Refusal noDate{"Chybný dátum, zadaj v tvare dd.mm.rrrr!", Retry | Cancel, Cancel};
const Refusal noSex{"Pohlavie môže nadobudnúť len hodnotu M alebo Z!", Retry | Cancel, Cancel};

/// What is typed into a field, its column, and what the field and the column hold then; null: the
/// same as before. And a text that the field refuses.
struct Rule {
    int field;
    const char *typed, *column = nullptr;
    const char *taken = nullptr, *stored = nullptr;
    const char* bad = nullptr;
    const Refusal* refusal = nullptr;

    Rule refusing(const char* text, const Refusal& how) const {
        Rule rule = *this;
        rule.bad = text;
        rule.refusal = &how;
        return rule;
    }
    QString shown() const { return text(taken != nullptr ? taken : typed); }
};

class FieldRulesTest : public RecordTest {
  protected:
    FieldRulesTest() {
        for (const char* town : {"A25", "A40", "A52"})
            addCode("c_iczuj", town, town);
        for (const auto& [list, code] : {std::pair{"c_zdrpoi", "31"},
                                         {"c_narodn", "32"},
                                         {"c_iczeme", "33"},
                                         {"c_jazyk", "34"},
                                         {"c_jazyk", "35"}})
            addCode(list, code, "x");
        insert("k_zaklad (idkod, katcis) values ('MALYJA00', '7')");
    }
    /// Leaves the field by a key, and types into it anew each time.
    void tryRule(forms::EntryField& entry, const Rule& rule) {
        SCOPED_TRACE(entry.objectName().toStdString());
        const auto leave = [&](const char* typed) {
            entry.setFocus();
            entry.selectAll();
            *typed == '\0' ? key(Qt::Key_Delete) : type(typed);
            key(Qt::Key_Down);
            return entry.text();
        };
        if (rule.bad != nullptr) {
            for (const auto answer : {Retry, rule.refusal->empties}) {
                boxes.expectAsked(text(rule.refusal->text).replace(text("%1"), text(rule.bad)),
                                  text("Chybová správa"), QMessageBox::Warning,
                                  rule.refusal->buttons, answer);
                EXPECT_EQ(leave(rule.bad), answer == Retry ? text(rule.bad) : QString());
                EXPECT_EQ(focused() == entry.objectName(), answer == Retry || rule.field == stays);
            }
        }
        EXPECT_EQ(leave(rule.typed), rule.shown());
    }
    /// Once they are written.
    void expectStored(const auto& rules, const char* table) {
        for (const Rule& rule : rules) {
            if (rule.column != nullptr) {
                EXPECT_EQ(stored(rule.column, table),
                          rule.stored != nullptr ? text(rule.stored) : rule.shown())
                    << rule.column;
            }
        }
    }

    /// The last field of a record, from which no key leads on.
    int stays = -1;
};

} // namespace

TEST_F(FieldRulesTest, EachFieldOfTheClientHasItsRuleAndAColumnOfItsOwn) {
    // clang-format off
    const Rule rules[] = {
        {0, "eva", "Meno", "Eva"}, {1, "o'neil maly", "Priezv", "O'neil maly"},
        Rule{2, "nitra", "mienar", "Nitra"}.refusing("Nikde", noTown),
        Rule{3, "8055120007", "rodcis"}.refusing("8055120008", noBirthNumber),
        Rule{4, "13.5.81", "datnar", "13.5.1981", "13.05.1981"}.refusing("31.13.2000", noDate),
        Rule{5, "m", "pohlav", "M"}.refusing("x", noSex), {6, "606", "katcis"},
        Rule{7, "31", "zdrpoi"}.refusing("99", noCode), Rule{8, "32", "narodn"}.refusing("99", noCode),
        Rule{9, "33", "stprisl"}.refusing("xx", noCode), Rule{10, "34", "jazyk"}.refusing("xx", noCode),
        Rule{11, "35", "jaz_doma"}.refusing("xx", noCode), {12, "n12", "ulica", "N12"},
        Rule{13, "bab", "obec", "Bab"}.refusing("Nikde", noTown), {14, "1014", "psc"},
        {15, "n15", "skola", "N15"}, {16, "n16", "odporu", "N16"},
        Rule{17, "17 . 9 . 99", "datevi", "17.9.1999", "17.09.1999"}.refusing("1.9", noDate),
        {18, "3", "postih", "", "35       "}, {19, "5", "postih", "", "35       "},
        {20, "anna mala nova", "matka", "Anna Mala nova"}, {21, "1951", "matnar"},
        {22, "", nullptr, "0"}, {22, "22", "matvek"}, {23, "n23", "matvzd"},
        {24, "n24", "matuli", "N24"}, Rule{25, "a25", "matobe", "A25"}.refusing("Nikde", noTown),
        {26, "1026", "matpsc"}, {27, "n27", "mattel"}, {28, "n28", "matmail"}, {29, "n29", "matzam"},
        {30, "n30", "mataza", "N30"}, {31, "n31", "mattza"}, {32, "n32", "matchor"},
        {33, "4", "matpos", "", "46       "}, {34, "6", "matpos", "", "46       "},
        {35, "jan maly", "otec", "Jan Maly"}, {36, "1952", "otenar"},
        {37, "", nullptr, "0"}, {37, "37", "otevek"}, {38, "n38", "otevzd"},
        {39, "n39", "oteuli", "N39"}, Rule{40, "a40", "oteobe", "A40"}.refusing("Nikde", noTown),
        {41, "1041", "otepsc"}, {42, "n42", "otetel"}, {43, "n43", "otemail"}, {44, "n44", "otezam"},
        {45, "n45", "oteaza", "N45"}, {46, "n46", "otetza"}, {47, "n47", "otechor"},
        {48, "7", "otepos", "", "78       "}, {49, "8", "otepos", "", "78       "},
        {50, "ida mala", "kon_meno", "Ida Mala"}, {51, "n51", "kon_pomer"},
        Rule{52, "a52", "kon_obe", "A52"}.refusing("Nikde", noTown), {53, "n53", "kon_uli", "N53"},
        {54, "1054", "kon_psc"}, {55, "n55", "kon_tel"}, {56, "n56", "kon_mail"},
    };
    // clang-format on
    constexpr std::pair<const char*, const char*> memos[] = {
        {"rtbDUK(3)", "u_dieta"},    {"rtbDUK(4)", "u_ziak"},   {"rtbDUK(5)", "u_zhrn"},
        {"rtbDUK(0)", "u_dolezite"}, {"rtbDUK(1)", "poznamky"}, {"rtbDUK(2)", "ip_tvkz"},
    };
    openClient();
    for (const Rule& rule : rules) {
        goTo(rule.field);
        tryRule(field(rule.field), rule);
    }
    at<QRadioButton>("optKrz(0)").setChecked(true);
    turnTabs(1);
    for (const auto& [name, column] : memos) {
        turnTabs(1);
        EXPECT_EQ(focused(), text(name));
        type(name);
    }
    while (focused() != text("CmdZap"))
        key(Qt::Key_Tab);
    key(Qt::Key_Return);
    EXPECT_FALSE(card->isVisible());
    expectStored(rules, "k_zaklad");
    for (const auto& [name, column] : memos)
        EXPECT_TRUE(stored(column, "k_memo").contains(text(name))) << column;
    EXPECT_EQ(clients("matvla = true and otevla = false"), 1);
}

TEST_F(FieldRulesTest, EachFieldOfARecordHasItsRuleAndAColumnOfItsOwn) {
    struct Tab {
        int number;
        std::vector<Rule> rules;
        const char* richColumn = nullptr;
    };
    const Rule day = Rule{0, "1.9.05", "datum", "1.9.2005", "01.09.2005"}.refusing("1.9", noDate);
    const Rule by = Rule{1, worker, "idkod_p"}.refusing("Nikto", noCode);
    // clang-format off
    const Tab tabs[] = {
        {2, {{0, "adam mal", "Meno", "Adam Mal"}, {1, "", nullptr, "0"}, {1, "1991", "roknar"},
             Rule{2, "z", "pohlavie", "Z"}.refusing("x", noSex), {3, "n3", "choroby"},
             {4, "3", "postih", "", "35       "}, {5, "5", "postih", "", "35       "}}},
        {9, {Rule{0, "05", "nazzar"}.refusing("99", noCode), {1, "n1", "adresa", "N1"},
             Rule{2, "2.9.05", "vzar_od", "2.9.2005", "02.09.2005"}.refusing("1.9", noDate),
             Rule{3, "3.6.06", "vzar_do", "3.6.2006", "03.06.2006"}.refusing("1.9", noDate)}},
        {10, {day, by}, "popis"},
        {11, {day, {1, "08:30", "hod_od", "08"}, {2, "9.15", "hod_do", "9."},
              Rule{3, worker, "idkod_P"}.refusing("Nikto", noCode)}, "cinnost"},
        {12, {day, by}, "zmeny"},
        {13, {day, Rule{1, "8.9.05", "dat_budn", "8.9.2005", "08.09.2005"}.refusing("1.9", noDate)}},
    };
    // clang-format on
    for (const Tab& tab : tabs) {
        SCOPED_TRACE(tab.number);
        turnTo(tab.number);
        press("Novy");
        if (tab.richColumn != nullptr)
            type("dlhy");
        stays = tab.number == 2 ? -1 : tab.rules.back().field;
        for (const Rule& rule : tab.rules)
            tryRule(entry(rule.field), rule);
        press("Zap");
        expectStored(tab.rules, m->table);
        EXPECT_EQ(value("idkod"), text("NOVOTNEV00"));
        EXPECT_TRUE(tab.richColumn == nullptr || value(tab.richColumn).contains(text("dlhy")));
    }
}

TEST_F(FieldRulesTest, EachPickHasAFieldOfItsOwn) {
    constexpr int served[] = {2, 8, 9, 10, 13, 25, 40, 52, 7, 11};
    openClient();
    for (const int element : {2, 7, 8, 9, 10, 11, 13, 25, 40, 52}) {
        SCOPED_TRACE(element);
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

TEST_F(FieldRulesTest, WhatTheClientsFieldsTake) {
    constexpr int digitsOnly[] = {3,  6,  7,  8,  14, 18, 19, 21, 22,
                                  26, 33, 34, 36, 37, 41, 48, 49, 54};
    // 0 is no limit.
    constexpr int limits[krz::count] = {20, 30, 40, 10, 12, 1,  0,  50, 30, 30, 30, 0, 25, 40, 5,
                                        70, 30, 12, 1,  1,  50, 4,  2,  20, 25, 40, 5, 15, 0,  20,
                                        50, 15, 50, 1,  1,  50, 4,  2,  20, 25, 40, 5, 15, 0,  30,
                                        50, 15, 50, 1,  1,  50, 20, 40, 25, 0,  15, 0};
    openClient("postih = '3', matpos = '3', otepos = '3'");
    for (int element = 0; element < krz::count; ++element) {
        SCOPED_TRACE(element);
        goTo(element);
        field(element).clear();
        const bool refuses = std::ranges::find(digitsOnly, element) != std::end(digitsOnly);
        if (refuses)
            expect("Zadávaj len číselné hodnoty !");
        type("x");
        boxes.allCame();
        EXPECT_EQ(field(element).text(), refuses ? QString() : text("x"));
        field(element).clear();
        QApplication::clipboard()->setText(QString(99, u'1'));
        field(element).paste();
        EXPECT_EQ(field(element).text().size(), limits[element] > 0 ? limits[element] : 99);
        field(element).clear();
    }
}
