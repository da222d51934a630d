#include "PlayedCard.h"
#include "store/Sql.h"
#include "support/TemporaryRegister.h"
#include "validation/modKontrola.h"

#include <gtest/gtest.h>

using namespace clientcard;
using cardtest::text;
using Card = cardtest::PlayedCard;

namespace {

class SaveCycleTest : public testing::Test {
  protected:
    QString saveNew(const char* surname, const char* name, const char* number = "7") {
        Card card(reg.engine, reg.folder);
        card.open(QString());
        card.type(surname, name, number);
        EXPECT_EQ(card.cycle.zapisZaklad(), SaveResult::Saved);
        EXPECT_EQ(modKontrola::gAkcia, 1);
        return modKontrola::gIdKod;
    }
    void insertKeys(const QString& base, int count) {
        auto database = reg.engine.OpenDatabase(reg.folder.database());
        for (int i = 0; i < count; ++i)
            database.Execute(QStringLiteral("insert into k_zaklad (idkod, meno, priezv) values "
                                            "('%1%2', 'x', 'y')")
                                 .arg(base)
                                 .arg(i, 2, 10, QLatin1Char('0')));
    }
    qint64 rowsOf(const char* table, const QString& key) {
        return reg.count(QStringLiteral("select * from %1 where idkod = %2")
                             .arg(QLatin1String(table), store::quoted(key)));
    }

    support::TemporaryRegister reg;
};

} // namespace

TEST_F(SaveCycleTest, KeysOfNewClientsCountUp) {
    EXPECT_EQ(saveNew("Kováčiková", "Eva"), text("KOVÁČIEV00"));
    EXPECT_EQ(saveNew("Kováčiarová", "Evelína"), text("KOVÁČIEV01"));
    EXPECT_EQ(saveNew("Ng", "A"), text("NGA00"));
    EXPECT_EQ(saveNew("O'Neil", "Ján"), text("O'NEILJÁ00"));
    insertKeys(text("NOVÁKJÁ"), 100);
    EXPECT_EQ(saveNew("Novák", "Ján"), text("NOVÁKJÁ100"));
    EXPECT_EQ(rowsOf("k_memo", text("O'NEILJÁ00")), 1);
    EXPECT_EQ(reg.count(text("k_memo")), 5);
}

TEST_F(SaveCycleTest, EmptyMandatoryFieldsStopTheCycleInTheirOrder) {
    Card card(reg.engine, reg.folder);
    card.open(QString());
    card.type("", "  ", " ");
    EXPECT_EQ(card.cycle.zapisZaklad(), SaveResult::NoFirstName);
    card.type(" ", "Eva", " ");
    EXPECT_EQ(card.cycle.zapisZaklad(), SaveResult::NoSurname);
    card.type("Nová", "Eva", " ");
    EXPECT_EQ(card.cycle.zapisZaklad(), SaveResult::NoCatalogueNumber);
    EXPECT_EQ(card.told,
              QStringList({text("Meno je povinný údaj !"), text("Priezvisko je povinný údaj !"),
                           text("Katalógové číslo je povinný údaj !")}));
    EXPECT_EQ(reg.count(text("k_zaklad")) + reg.count(text("k_memo")), 0);
}

TEST_F(SaveCycleTest, AnEditMovesTheKeyOnlyWhenItsLettersChange) {
    struct Case {
        const char *stored, *typed, *key;
        bool writtenAtOnce;
    };
    // Changed behind the sixth letter, the name is written when the source is left.
    for (const Case& c : {Case{"Kováčiková", "Kováčiková", "KOVÁČIEV00", true},
                          Case{"Kováčiková", "Kováčiarová", "KOVÁČIEV00", false},
                          Case{"Kováčiková", "Nová", "NOVÁEV00", true},
                          Case{"Kováčiková", "O'Hara", "O'HARAEV00", true}}) {
        support::TemporaryRegister fresh;
        const QString old = [&] {
            Card card(fresh.engine, fresh.folder);
            card.open(QString());
            card.type(c.stored, "Eva");
            card.cycle.zapisZaklad();
            return modKontrola::gIdKod;
        }();
        for (const char* table : {"k_navstevy", "k_surodenci", "k_vysetrenie", "k_zariad",
                                  "k_zaznam_spc", "k_zaznam_zmeny"})
            fresh.execute({text("insert into %1 (idkod) values ('%2')").arg(text(table), old)});
        Card card(fresh.engine, fresh.folder);
        card.open(old);
        card.type(c.typed, "Eva", "8");
        card.data.datMemo().Recordset().Fields(u"poznamky").setValue(text("<p>x</p>"));
        EXPECT_EQ(card.cycle.zapisZaklad(), SaveResult::Saved);
        EXPECT_EQ(modKontrola::gAkcia, 0);
        EXPECT_EQ(modKontrola::gIdKod, old);
        EXPECT_EQ(fresh.text(text("k_zaklad"), text("katcis")), text(c.writtenAtOnce ? "8" : "7"));
        card.data.datZaklad().Refresh();
        EXPECT_EQ(fresh.text(text("k_zaklad"), text("priezv")), text(c.typed));
        for (const char* table : {"k_zaklad", "k_memo", "k_navstevy", "k_surodenci", "k_vysetrenie",
                                  "k_zariad", "k_zaznam_spc", "k_zaznam_zmeny"})
            EXPECT_EQ(fresh.text(text(table), text("idkod")), text(c.key)) << table;
        EXPECT_EQ(fresh.text(text("k_memo"), text("poznamky")),
                  text(old != text(c.key) ? "<p>x</p>" : ""));
    }
}

TEST_F(SaveCycleTest, AThreeDigitSequenceIsReplacedAtTheNextChangeOfNames) {
    insertKeys(text("NOVÁKJÁ"), 100);
    const QString old = saveNew("Novák", "Ján");
    reg.execute({text("delete from k_zaklad where idkod = 'NOVÁKJÁ42'")});
    Card card(reg.engine, reg.folder);
    card.open(old);
    card.type("Nováček", "Ján");
    card.cycle.zapisZaklad();
    EXPECT_EQ(rowsOf("k_zaklad", text("NOVÁČEJÁ00")), 1);
    card.data.datMemo().Refresh();
    Card again(reg.engine, reg.folder);
    again.open(text("NOVÁČEJÁ00"));
    again.type("Novák", "Ján");
    again.cycle.zapisZaklad();
    EXPECT_EQ(rowsOf("k_memo", text("NOVÁKJÁ42")), 1);
}

TEST_F(SaveCycleTest, AClientSavedOnTheWayStaysNew) {
    saveNew("Novák", "Ján");
    Card card(reg.engine, reg.folder);
    card.open(QString());
    card.type("Novák", "Ján");
    card.cycle.zapisZaklad();
    ASSERT_EQ(modKontrola::gIdKod, text("NOVÁKJÁ01"));
    reg.execute({text("insert into k_navstevy (idkod) values ('NOVÁKJÁ01')")});
    // Saved again as it is, the taken 00 leads back to its own key.
    card.reopenAsNew();
    card.type("Novák", "Ján");
    card.cycle.zapisZaklad();
    EXPECT_EQ(modKontrola::gIdKod, text("NOVÁKJÁ01"));
    // Renamed, row and memo move; rows of the record tabs stay behind.
    card.reopenAsNew();
    card.type("Malý", "Ján");
    card.cycle.zapisZaklad();
    EXPECT_EQ(modKontrola::gIdKod, text("MALÝJÁ00"));
    EXPECT_EQ(rowsOf("k_memo", text("MALÝJÁ00")), 1);
    EXPECT_EQ(rowsOf("k_navstevy", text("NOVÁKJÁ01")), 1);
    EXPECT_EQ(reg.count(text("k_zaklad")), 2);
}

TEST_F(SaveCycleTest, TheCatalogueNumberIsLookedForAmongAllByMode) {
    const QString first = saveNew("Novák", "Ján", "7");
    saveNew("Malý", "Ján", "8");
    Card card(reg.engine, reg.folder);
    card.open(first);
    struct Case {
        quint8 mode;
        const char* number;
        bool taken;
    };
    for (const Case& c :
         {Case{1, "7", true}, Case{1, "8", true}, Case{1, "9", false}, Case{1, "7'", false},
          Case{2, "7", false}, Case{2, "8", true}, Case{2, "8 ", true}, Case{0, "8", false}}) {
        modKontrola::gAkcia = c.mode;
        EXPECT_EQ(card.cycle.kon_katCislo(text(c.number)), c.taken)
            << int(c.mode) << " " << c.number;
    }
}

TEST_F(SaveCycleTest, AnotherErrorOfTheUpdateIsPassedOver) {
    const QString key = saveNew("Novák", "Ján");
    Card card(reg.engine, reg.folder);
    card.open(key);
    card.type("Novák", "Ján");
    card.data.datZaklad().Recordset().CancelUpdate();
    EXPECT_EQ(card.cycle.zapisZaklad(), SaveResult::Saved);
    EXPECT_EQ(card.passed, QList{store::ErrorNumber::NoOpenEdit});
}
