#include "CardScreen.h"
#include "store/EngineError.h"

#include <QFile>

using cardtest::CardTest;
using cardtest::text;
using enum QMessageBox::StandardButton;

namespace {

class CardTroubleTest : public CardTest {
  protected:
    void expectNotWritten() {
        expect("Tieto údaje sa nezapísali:\n\nzáznam\n"
               "Chyba č. 3000: Chyba databázového stroja: refused.");
    }
};

} // namespace

TEST_F(CardTroubleTest, WhoHasGoneFromTheRegisterIsNotOpened) {
    insertClient("NOVOTNEV00");
    modKontrola::gAkcia = 2;
    modKontrola::gIdKod = text("MALYJA00");
    try {
        const clientcard::FrmKlientUdaj opened(reg.engine, reg.folder);
        FAIL() << "somebody else was opened";
    } catch (const store::EngineError& error) {
        EXPECT_EQ(error.number(), store::ErrorNumber::NoCurrentRecord);
        EXPECT_EQ(error.description(), text("Klient s kľúčom „MALYJA00“ už v databáze nie je."));
    }
    EXPECT_EQ(stored("meno"), text("Eva"));
}

TEST_F(CardTroubleTest, AClientWithoutAMemoRowIsReportedAndTheRestCanBeEdited) {
    insertClient("NOVOTNEV00");
    reg.execute({text("delete from k_memo")});
    reg.add(text("k_navstevy"), {{u"idkod", text("NOVOTNEV00")}});
    expectEngineError("Chyba č. 3021\n\nNie je žiadny aktuálny záznam.");
    open(text("NOVOTNEV00"));
    boxes.allCame();
    EXPECT_FALSE(at<QWidget>("rtbDUK(1)").isEnabled()) << "the text would go nowhere";
    enterInto(1, "Mala");
    pressByKeys("CmdZap");
    EXPECT_FALSE(card->isVisible());
    EXPECT_EQ(stored("idkod"), text("MALAEV00"));
    EXPECT_EQ(stored("idkod", "k_navstevy"), text("MALAEV00"));
    EXPECT_EQ(reg.count(text("k_memo")), 0);
}

TEST_F(CardTroubleTest, WhatTheSavePassesOverIsToldOnceAfterIt) {
    openClient();
    enterInto(12, "Dlha 1");
    refuse("update on k_zaklad");
    expectNotWritten();
    pressByKeys("CmdZap");
    EXPECT_FALSE(card->isVisible());
    EXPECT_EQ(stored("ulica"), QString());
    refuseNoMore();
    open(text("NOVOTNEV00"));
    takeWordsBack();
    EXPECT_EQ(field(12).text(), text("Dlha 1")) << "what was typed is kept";
}

TEST_F(CardTroubleTest, ANewClientWhoIsNotWrittenStaysInTheCardAndIsNobodyElse) {
    insertClient("NOVOTNEV00");
    refuse("insert on k_zaklad");
    // The second would have the key of the one who is there.
    for (const char* name : {"jana", "eva"}) {
        enterClient(name);
        expectNotWritten();
        pressByKeys("cmdZaklUd");
        EXPECT_EQ(focused(), text("textKrz(0)"));
        EXPECT_EQ(field(1).text(), text("Novotna"));
        EXPECT_EQ(field(6).text(), text("17"));
        EXPECT_FALSE(isEnabled(1));
        EXPECT_TRUE(at<QPushButton>("cmdZaklUd").isVisible());
        EXPECT_FALSE(at<QLabel>("lblZapisane").isVisible());
    }
    answerWords(Qt::Key_H); // Those of the first card, which was not ended.
    expectNotWritten();
    click("cmdZapNew");
    EXPECT_FALSE(at<QLabel>("lblZapisane").isVisible());
    takeWordsBack();
    EXPECT_EQ(field(0).text(), text("Eva"));
    EXPECT_EQ(clients(), 1);
    EXPECT_EQ(reg.count(text("k_memo")), 1);
}

TEST_F(CardTroubleTest, StornoClosesACardWhoseFileHasGone) {
    openClient();
    type("Iva");
    reg.letGo();
    ASSERT_TRUE(QFile::remove(reg.folder.database()));
    key(Qt::Key_Escape);
    EXPECT_FALSE(card->isVisible());
}

TEST_F(CardTroubleTest, TheNumberOfAClientSavedOnTheWayIsOnlyAskedAboutWhenItIsChanged) {
    reg.add(text("k_zaklad"), {{u"idkod", text("MALYJA00")}, {u"katcis", text("7")}});
    enterClient();
    pressByKeys("cmdZaklUd");
    const auto leaves = [&](const char* number) {
        enterInto(6, number);
        return focused() == text("textKrz(7)");
    };
    EXPECT_TRUE(leaves(""));
    expect("V databáze už existuje klient s tým istým kat.číslom!", "Upozornenie",
           QMessageBox::Information);
    EXPECT_FALSE(leaves("7"));
    EXPECT_TRUE(leaves("18"));
    EXPECT_TRUE(leaves("17")) << "back to its own";
}

TEST_F(CardTroubleTest, APressOnATabTurnsToItUnlessItIsDisabledOrTheFieldIsHeld) {
    open();
    goTo(4);
    const auto clickTab = [&](int tab) {
        const QRect row = tabs().visualItemRect(tabs().item(tab));
        support::press(*tabs().viewport(), row.center());
        return focused();
    };
    EXPECT_EQ(clickTab(3), text("textKrz(4)"));
    openClient();
    EXPECT_EQ(clickTab(3), text("rtbDUK(3)"));
    EXPECT_EQ(clickTab(1), text("textKrz(20)"));
    EXPECT_EQ(clickTab(0), text("textKrz(0)"));
    goTo(4);
    type("x");
    expectWrongDate(Retry);
    EXPECT_EQ(clickTab(3), text("textKrz(4)"));
    EXPECT_EQ(tabs().currentRow(), 0);
}

TEST_F(CardTroubleTest, ClosingByTheFrameChecksTheFieldInFocus) {
    openClient();
    goTo(4);
    type("1.13.2000");
    for (const auto answer : {Retry, Cancel}) {
        expectWrongDate(answer);
        EXPECT_EQ(focused(), text("textKrz(4)"));
        card->close();
        EXPECT_EQ(card->isVisible(), answer == Retry);
    }
    EXPECT_EQ(stored("datnar"), QString());
}
