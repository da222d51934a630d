#include "EmployeeScreen.h"
#include "card/TextRules.h"
#include "store/Connection.h"
#include "store/FaultVfs.h"
#include "store/Sql.h"

using cardtest::text;
using enum QMessageBox::StandardButton;

namespace {

class EmployeeTest : private faults::Layer, public cardtest::EmployeeScreen {
  protected:
    forms::DropDown& function() { return at<forms::DropDown>("DBCombo1"); }
};

} // namespace

TEST_F(EmployeeTest, EachFieldAndOptionHasAColumnOfItsOwnAndIsReachedByKeys) {
    constexpr const char* columns[] = {"idkod",   "meno",     "priezv",      "prac_zar",
                                       "int-ext", "pohlavie", "kvalifikacia"};
    struct Case {
        const char *firstName, *surname, *function;
        Qt::Key choice;
        const char *button, *stored;
    };
    open();
    EXPECT_EQ(card->windowTitle(), text("Údaje zamestnanca"));
    EXPECT_EQ(function().text() + at("txtIdKod").text(), QString());
    EXPECT_FALSE(at("txtIdKod").isVisible());
    for (const Case& c :
         {Case{"adam", "biely", "f3", Qt::Key_Down, "cmdzapNew", "BIELYAD00|Adam|Biely|3|e|z|n"},
          Case{"iva", "cierna", "F4", Qt::Key_Up, "cmdZap", "CIERNAIV00|Iva|Cierna|4|i|m|a"}}) {
        EXPECT_EQ(focused(), text("TextPsych(0)"));
        enter({c.firstName, c.surname, c.function});
        for (int pair = 0; pair < 3; ++pair) {
            key(c.choice);
            key(Qt::Key_Return);
        }
        EXPECT_EQ(focused(), text("cmdZap"));
        while (focused() != text(c.button))
            key(Qt::Key_Tab);
        key(Qt::Key_Return);
        QStringList row;
        const QString where = text("select * from zamestnanci where prac_zar = %1");
        for (const char* column : columns)
            row << reg.text(where.arg(text(c.function).back()), text(column));
        EXPECT_EQ(row.join(u'|'), text(c.stored));
    }
    EXPECT_FALSE(card->isVisible());
    modKontrola::gMenoKlienta = text(" : Iva  Cierna");
    open(text("CIERNAIV00"));
    EXPECT_EQ(card->windowTitle(), text("Údaje zamestnanca: Iva  Cierna"));
    EXPECT_EQ(function().text(), text("F4"));
    for (const char* option : {"optZamInt", "optZamMuz", "optZamMaKva"})
        EXPECT_TRUE(at<QRadioButton>(option).isChecked()) << option;
    click("cmdzapNew");
    enter("ota");
    type("maly");
    click("cmdZap");
    EXPECT_EQ(employees("idkod = 'MALYOT00' and [int-ext] = 'i' and isnull(prac_zar)"), 1)
        << "the options were carried on";
}

TEST_F(EmployeeTest, TheKeyFollowsTheNameAndTheRecordsTheKey) {
    struct Case {
        const char *key, *firstName, *surname, *stored;
    };
    for (const char* button : {"cmdZap", "cmdzapNew", "frame"}) {
        const bool byFrame = text(button) == text("frame");
        for (const Case& c : {Case{"NOVOTNEV00", "Eva", "Novotna", "NOVOTNEV00"},
                              {"NOVOTNEV00", "Evelina", "Novotnova", "NOVOTNEV00"},
                              {"NOVOTNEV01", "eva", "mala", "MALAEV00"},
                              {"NOVOTNEV01", "eva", "o'tool", "O'TOOLEV00"},
                              {"NOVOTNEV00", "Ema", "Biela", "BIELAEM01"}}) {
            SCOPED_TRACE(std::string(button) + c.stored);
            restart(c.key);
            addEmployee("BIELAEM00");
            open(text(c.key));
            typeName(0, c.firstName);
            typeName(1, c.surname);
            at<QRadioButton>("optZamMuz").click();
            byFrame ? void(card->close()) : click(button);
            const QString key = text(byFrame ? c.key : c.stored);
            EXPECT_EQ(card->isVisible(), text(button) == text("cmdzapNew"));
            EXPECT_EQ(modKontrola::gAkcia, byFrame ? 2 : card->isVisible() ? 1 : 0);
            for (const char* table : cardtest::workTables)
                EXPECT_EQ(reg.count(text("select * from %1 where idkod_p = %2")
                                        .arg(text(table), store::quoted(key))),
                          1)
                    << table;
            EXPECT_EQ(employees("pohlavie = 'm'"), 1);
            EXPECT_EQ(ofTheMan("idkod"), key);
            EXPECT_EQ(ofTheMan("priezv"), card::capitalised(text(c.surname)));
        }
    }
}

TEST_F(EmployeeTest, AHundredNamesakesHaveKeysOfThreeDigits) {
    for (int i = 0; i < 100; ++i)
        reg.add(text("zamestnanci"), {{u"idkod", text("LIJA%1").arg(i, 2, 10, QLatin1Char('0'))}});
    open();
    enter({"jana", "li", "f1"});
    click("cmdZap");
    EXPECT_EQ(employees("idkod = 'LIJA100' and prac_zar = 1"), 1);
    // Its last two digits alone are taken for the sequence, so each saving looks for a key anew.
    for (const char* key : {"LIJA100", "LIJA07"}) {
        reg.execute({text("delete from k_zaznam_spc"),
                     text("delete from zamestnanci where idkod = 'LIJA07'")});
        if (text(key) == text("LIJA100"))
            reg.add(text("zamestnanci"), {{u"idkod", text("LIJA07")}});
        reg.add(text("k_zaznam_spc"), {{u"idkod_p", text("LIJA100")}});
        open(text("LIJA100"));
        at<QRadioButton>("optZamMuz").click();
        click("cmdZap");
        EXPECT_EQ(ofTheMan("idkod"), text(key));
        EXPECT_EQ(reg.text(text("k_zaznam_spc"), text("idkod_p")), text(key));
    }
}

TEST_F(EmployeeTest, WhatIsNoFunctionOfTheReturnHoldsTheFocusButTowardsStorno) {
    for (const auto& [typed, shown] :
         {std::pair{"F8", "F8"}, {"f1", "F1"}, {"F9", ""}, {"nic", ""}, {"", ""}}) {
        SCOPED_TRACE(typed);
        const bool isTaken = *shown != '\0';
        open();
        function().setFocus();
        type(typed);
        if (!isTaken)
            expect("Nebol zadaný správny údaj");
        key(Qt::Key_Return);
        EXPECT_EQ(focused() == text("DBCombo1"), !isTaken);
        EXPECT_EQ(function().text(), text(isTaken ? shown : typed));
        click("cmdStorno");
        EXPECT_FALSE(card->isVisible());
        EXPECT_EQ(modKontrola::gAkcia, 0);
    }
    open(text("NOVOTNEV00"));
    for (const char* field : {"TextPsych(1)", "DBCombo1", "optZamExt"}) {
        at<QWidget>(field).setFocus();
        key(Qt::Key_PageDown);
        EXPECT_EQ(focused(), text("cmdZap")) << field;
    }
    EXPECT_EQ(function().text(), text("F2"));
    EXPECT_EQ(employees("true"), 1);
}

TEST_F(EmployeeTest, WithoutANameNothingIsWrittenAndNothingGoesUnasked) {
    open();
    for (const auto& [message, field] : {std::pair{"Meno je povinný údaj !", "TextPsych(0)"},
                                         {"Priezvisko je povinný údaj !", "TextPsych(1)"}}) {
        expect(message);
        click("cmdzapNew");
        EXPECT_EQ(focused(), text(field));
        type("iva");
    }
    for (const auto answer : {No, Yes}) {
        expectQuestion(text("Zamestnanec nie je zapísaný. Zahodiť, čo bolo zadané ?"),
                       text("Upozornenie"), answer);
        card->close();
        boxes.allCame();
        EXPECT_EQ(card->isVisible(), answer == No);
    }
    EXPECT_EQ(employees("true"), 1);
    EXPECT_EQ(modKontrola::gAkcia, 1);
    open(text("NOVOTNEV00"));
    typeName(1, "Mala");
    key(Qt::Key_Escape);
    EXPECT_FALSE(card->isVisible());
    EXPECT_EQ(employees("priezv = 'Novotna'"), 1);
    EXPECT_THROW(open(text("NIKTO00")), store::EngineError);
}

TEST_F(EmployeeTest, WhatTheMediumOrATableRefusesLeavesTheCardWithEverythingTyped) {
    // A new one, a change of the key and a change behind its letters.
    const char* mine = "NOVOTNEV00";
    struct Road {
        const char *button, *key, *surname;
    };
    for (const auto& [button, key, surname] :
         {Road{"cmdZap", "", "Mala"}, Road{"cmdZap", mine, "Mala"},
          Road{"cmdZap", mine, "Novotnova"}, Road{"cmdzapNew", "", "Mala"},
          Road{"cmdzapNew", mine, "Mala"}, Road{"cmdzapNew", mine, "Novotnova"},
          Road{"frame", mine, "Mala"}, Road{"frame", mine, "Novotnova"}}) {
        const bool isNew = *key == '\0';
        // Once is enough: the engine waits a while for a file that another program holds.
        const bool isLocked = text(button) == text("cmdZap") && text(surname) != text("Mala");
        SCOPED_TRACE(std::string(button) + key + surname);
        const auto leave = [&, road = button] {
            text(road) == text("frame") ? void(card->close()) : click(road);
            boxes.allCame();
        };
        open(text(key));
        typeName(0, "Eva");
        typeName(1, surname);
        function().setFocus();
        type("F5");
        at<QRadioButton>("optZamMaKva").click();
        reg.letGo();
        reg.engine.commitPending();
        const auto leaveInVain = [&](const char* error) {
            expectEngineError(error);
            leave();
            EXPECT_TRUE(card->isVisible());
            EXPECT_EQ(at("TextPsych(1)").text() + function().text(), text(surname) + text("F5"));
            EXPECT_EQ(modKontrola::gAkcia, isNew ? 1 : 2);
        };
        faults::install({faults::Plan::Fault::DiskFull, 1});
        leaveInVain("Chyba č. 3026\n\nDisk je plný.");
        faults::install({});
        if (isLocked) {
            store::Connection other(reg.folder.database(), store::Connection::Access::ReadWrite);
            other.execute("begin immediate");
            leaveInVain("Chyba č. 3218\n\nSúbor práve používa iný program.");
            other.execute("rollback");
        }
        EXPECT_EQ(employees("true"), 1);
        EXPECT_EQ(employees("idkod = 'NOVOTNEV00' and priezv = 'Novotna' and prac_zar = 2"), 1);
        leave();
        EXPECT_EQ(employees("prac_zar = 5 and kvalifikacia = 'a'"), 1);
        card.reset();
        restart("NOVOTNEV00");
    }
    open(text("NOVOTNEV00"));
    refuse("update on k_zaznam_zmeny");
    typeName(1, "Mala");
    expectEngineError("Chyba č. 3000\n\nChyba databázového stroja: refused.");
    click("cmdZap");
    EXPECT_EQ(at("TextPsych(1)").text(), text("Mala"));
    EXPECT_EQ(reg.text(text("k_vysetrenie"), text("idkod_p")), text("NOVOTNEV00"));
    EXPECT_EQ(employees("idkod = 'NOVOTNEV00'"), 1);
}

TEST_F(EmployeeTest, WhatWasTypedComesBackAfterACrashAndOnceAfterStorno) {
    const auto fill = [this] {
        enter({"adam", "biely", "f3"});
        for (int pair = 0; pair < 3; ++pair) {
            key(Qt::Key_Down);
            key(Qt::Key_Return);
        }
    };
    for (const char* key_ : {"", "NOVOTNEV00"}) {
        for (const bool crashes : {true, false}) {
            open(text(key_));
            typeName(0, "");
            fill();
            crashes ? crash("cmdStorno") : click("cmdStorno");
            open(text(key_));
            EXPECT_TRUE(offersWords());
            takeWordsBack();
            EXPECT_EQ(at("TextPsych(0)").text() + at("TextPsych(1)").text() + function().text(),
                      text("AdamBielyF3"));
            for (const char* option : {"optZamExt", "optZamZena", "optZamNeKva"})
                EXPECT_TRUE(at<QRadioButton>(option).isChecked()) << option;
            EXPECT_EQ(employees("meno = 'Adam'"), 0);
            click("cmdStorno");
            open();
        }
    }
    fill();
    crash("cmdStorno");
    insert("zamestnanci (idkod, meno, priezv, prac_zar, [int-ext], pohlavie, kvalifikacia) values "
           "('BIELYAD00', 'Adam', 'Biely', 3, 'e', 'z', 'n')");
    open();
    EXPECT_FALSE(offersWords()) << "all of it is stored";
}
