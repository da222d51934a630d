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

/// A text that a field takes and what it becomes, and one that it refuses.
struct Rule {
    int field;
    const char *good, *taken;
    const char* bad = nullptr;
    const Refusal* refusal = nullptr;
};

class FieldRulesTest : public RecordTest {
  protected:
    FieldRulesTest() {
        addCode("c_iczuj", "500047", "Xanta");
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
        EXPECT_EQ(leave(rule.good), text(rule.taken));
    }

    /// The last field of a record, from which no key leads on.
    int stays = -1;
};

} // namespace

TEST_F(FieldRulesTest, OfTheClientsFields) {
    // clang-format off
    const Rule rules[] = {
        {krz::meno, "eva", "Eva"}, {krz::priezv, "o'neil maly", "O'neil maly"},
        {krz::mienar, "nitra", "Nitra", "Nikde", &noTown},
        {krz::rodcis, "8055120007", "8055120007", "8055120008", &noBirthNumber},
        {krz::datnar, "1.9.99", "1.9.1999", "31.13.2000", &noDate},
        {krz::datnar, "12.5.1985", "12.5.1985"}, {krz::pohlav, "z", "Z", "x", &noSex},
        {krz::katcis, "77", "77"}, {krz::zdrpoi, "25", "25", "99", &noCode},
        {krz::narodn, "01", "01", "99", &noCode}, {krz::stprisl, "SK", "SK", "xx", &noCode},
        {krz::jazyk, "sk", "sk", "xx", &noCode}, {krz::jaz_doma, "sk", "sk", "xx", &noCode},
        {krz::ulica, "dlha 1", "Dlha 1"}, {krz::obec, "bab", "Bab", "Nikde", &noTown},
        {krz::skola, "skola", "Skola"}, {krz::odporu, "lekar", "Lekar"},
        {krz::datevi, "1 . 9 . 99", "1.9.1999", "1.9", &noDate},
        {krz::matka, "anna mala nova", "Anna Mala nova"}, {krz::matnar, "1955", "1955"},
        {krz::matvek, "", "0"}, {krz::matuli, "dlha", "Dlha"},
        {krz::matobe, "xanta", "Xanta", "Nikde", &noTown}, {krz::mataza, "dlha", "Dlha"},
        {krz::otec, "jan maly", "Jan Maly"}, {krz::otenar, "1955", "1955"},
        {krz::otevek, "", "0"}, {krz::oteuli, "dlha", "Dlha"},
        {krz::oteobe, "xanta", "Xanta", "Nikde", &noTown}, {krz::oteaza, "dlha", "Dlha"},
        {krz::kon_meno, "ida mala", "Ida Mala"},
        {krz::kon_obe, "xanta", "Xanta", "Nikde", &noTown}, {krz::kon_uli, "dlha", "Dlha"},
    };
    // clang-format on
    openClient("datnar = #05/12/1985#");
    for (const Rule& rule : rules) {
        if (!field(rule.field).isVisible())
            turnTabs(1);
        tryRule(field(rule.field), rule);
    }
    EXPECT_EQ(field(krz::pohlav).text(), text("Z"));
    EXPECT_EQ(field(krz::matvek).text() + field(krz::otevek).text(), text("00"));
}

TEST_F(FieldRulesTest, OfTheRecordsFields) {
    const Rule day{0, "1.9.05", "1.9.2005", "1.9", &noDate};
    const Rule by{1, worker, "NOVAKJA00", "Nikto", &noCode};
    // clang-format off
    const std::pair<int, std::vector<Rule>> tabs[] = {
        {2, {{0, "adam mal", "Adam Mal"}, {1, "", "0"}, {1, "1999", "1999"},
             {2, "m", "M", "x", &noSex}}},
        {9, {{0, "05", "05", "99", &noCode}, {1, "dlha 1", "Dlha 1"},
             {2, "1.9.05", "1.9.2005", "1.9", &noDate}, {3, "1.9.05", "1.9.2005", "1.9", &noDate}}},
        {10, {day, by}},
        {11, {day, {1, "08:30", "08"}, {2, "9.15", "9."},
              {3, worker, "NOVAKJA00", "Nikto", &noCode}}},
        {12, {day, by}},
        {13, {day, {1, "2.9.05", "2.9.2005", "1.9", &noDate}}},
    };
    // clang-format on
    for (const auto& [tab, rules] : tabs) {
        turnTo(tab);
        press("Novy");
        stays = tab == 2 ? -1 : rules.back().field;
        for (const Rule& rule : rules)
            tryRule(entry(rule.field), rule);
        press("Zap");
    }
    EXPECT_EQ(stored("hod_od", "k_zaznam_spc") + stored("hod_do", "k_zaznam_spc"), text("089."));
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
        if (!field(element).isVisible())
            turnTabs(1);
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
