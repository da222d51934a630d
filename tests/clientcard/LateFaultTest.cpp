#include "CardScreen.h"
#include "forms/RowList.h"
#include "store/FaultVfs.h"

using cardtest::CardTest;
using cardtest::text;
using faults::Plan;

namespace {

/// What is written finds, at its first step or only at its end, that the disk doesn't take it.
class LateFaultTest : private faults::Layer, public CardTest {
  protected:
    void press(const char* button) {
        text(button) == text("frame") ? void(card->close()) : click(button);
        boxes.allCame();
    }
    /// Presses a button, or closes by the frame, while the disk refuses; what was typed must stay.
    void pressInVain(const char* button, Plan::Fault fault = Plan::Fault::SyncFails) {
        reg.engine.commitPending();
        faults::install({fault, 1});
        expectEngineError(fault == Plan::Fault::SyncFails
                              ? "Chyba č. 3043\n\nChyba pri čítaní disku alebo zápise naň."
                              : "Chyba č. 3026\n\nDisk je plný.");
        press(button);
        faults::install({});
        EXPECT_TRUE(card->isVisible());
    }
    void typeInto(const char* name, const char* typed) {
        at(name).setFocus();
        at(name).selectAll();
        type(typed);
    }
    void turnTo(int tab) { tabs().setCurrentRow(tab); }
    void openSiblings(std::initializer_list<const char*> names) {
        for (const char* name : names)
            reg.add(text("k_surodenci"), {{u"idkod", text("NOVOTNEV00")}, {u"meno", text(name)}});
        openClient();
        turnTo(2);
    }
};

} // namespace

TEST_F(LateFaultTest, AClientStaysInTheCardUntilTheDiskTakesAllOfIt) {
    for (const auto& [button, fault] : {std::pair{"cmdZaklUd", Plan::Fault::SyncFails},
                                        {"CmdZap", Plan::Fault::DiskFull},
                                        {"cmdZapNew", Plan::Fault::DiskFull}}) {
        SCOPED_TRACE(button);
        deleteClients();
        enterClient();
        enterInto(18, "3");
        pressInVain(button, fault);
        EXPECT_EQ(clients() + reg.count(text("k_memo")), 0);
        EXPECT_FALSE(isEnabled(1));
        click(button);
        EXPECT_EQ(stored("idkod") + stored("priezv") + stored("katcis") + stored("postih"),
                  text("NOVOTNJA00Novotna173        "));
        EXPECT_EQ(reg.count(text("k_memo")), 1);
    }
}

TEST_F(LateFaultTest, AnEditedClientKeepsKeyOptionsAndTexts) {
    // The second fault also stands in the way of the undoing, and so of the reading behind it.
    for (const auto& [road, fault] : {std::pair{"CmdZap", Plan::Fault::SyncFails},
                                      {"CmdZap", Plan::Fault::DatabaseFull},
                                      {"cmdZapNew", Plan::Fault::SyncFails},
                                      {"frame", Plan::Fault::DiskFull}}) {
        SCOPED_TRACE(road);
        openClient("postih = '5'");
        typeInto("textKrz(1)", "mala");
        turnTo(1);
        at<QRadioButton>("optKrz(0)").setChecked(true);
        turnTo(7);
        type("dolezite");
        turnTo(0);
        pressInVain(road, fault);
        EXPECT_EQ(storedKeys(), text("NOVOTNEV00 NOVOTNEV00"));
        press(road);
        EXPECT_EQ(storedKeys(), text("MALAEV00 MALAEV00"));
        EXPECT_EQ(clients("postih = '5' and matvla = true and priezv = 'Mala'"), 1);
        EXPECT_EQ(stored("poznamky", "k_memo"), text("<p>dolezite</p>"));
    }
}

TEST_F(LateFaultTest, ARecordStaysOpenWithWhatWasTyped) {
    openSiblings({"Adam", "Eva"});
    key(Qt::Key_Down);
    for (const char* opened : {"cmdSurOpr", "cmdSurNovy"}) {
        SCOPED_TRACE(opened);
        click(opened);
        typeInto("textSur(0)", "zora");
        typeInto("textSur(4)", "7");
        enter();
        pressInVain("cmdSurZap");
        EXPECT_EQ(reg.count(text("select * from k_surodenci where meno = 'Zora'")), 0);
        EXPECT_FALSE(at<QPushButton>("cmdStorno").isEnabled());
        click("cmdSurZap");
        EXPECT_EQ(reg.text(text("select * from k_surodenci where meno = 'Zora'"), text("postih")),
                  text("7        "));
        EXPECT_EQ(reg.count(text("select * from k_surodenci where meno = 'Adam'")), 1);
        reg.execute({text("delete from k_surodenci where meno = 'Zora'")});
    }
}

TEST_F(LateFaultTest, ARecordThatCouldNotBeDeletedIsStillInTheList) {
    openSiblings({"Adam"});
    expectQuestion(text("Naozaj chceš vymazať súrodenca : Adam ?"), QString(), QMessageBox::Yes);
    pressInVain("CmdSurVym");
    const auto& list = at<forms::RowList>("DBList1");
    EXPECT_TRUE(list.count() == 1 && list.row() == 0 && at("textSur(0)").text() == text("Adam"));
}

TEST_F(LateFaultTest, ACardThatCannotBeReadIsToldOnceAndClosesUnlessItHoldsWhatWasTyped) {
    reg.add(text("k_surodenci"), {{u"idkod", text("NOVOTNEV00")}, {u"meno", text("Adam")}});
    for (const auto& [typed, saves] :
         {std::pair{false, true}, std::pair{false, false}, std::pair{true, false}}) {
        openClient();
        if (typed)
            typeInto("textKrz(12)", "Dlha 1");
        reg.letGo();
        reg.engine.commitPending();
        faults::install({Plan::Fault::ReadFails});
        expectEngineError("Chyba č. 3043\n\nChyba pri čítaní disku alebo zápise naň.");
        saves ? click("CmdZap") : turnTo(2);
        EXPECT_TRUE(QTest::qWaitFor([&] { return boxes.isEmpty(); }));
        QTest::qWait(0);
        EXPECT_EQ(card->isVisible(), typed);
        EXPECT_EQ(field(12).text(), typed ? text("Dlha 1") : QString());
        EXPECT_FALSE(at<QPushButton>("cmdSurNovy").isEnabled()) << "its fields show no record";
        faults::install({});
    }
    // What could not be read is read when it is turned to again.
    turnTo(0);
    turnTo(2);
    EXPECT_EQ(at("textSur(0)").text() + at<forms::RowList>("DBList1").itemText(0),
              text("AdamAdam"));
}

TEST_F(LateFaultTest, OfASaveThatIsUndoneNothingElseIsToldThanWhy) {
    openClient();
    typeInto("textKrz(12)", "dlha");
    typeNote("pozn");
    refuse("update on k_zaklad");
    pressInVain("CmdZap");
    refuseNoMore();
    click("CmdZap");
    EXPECT_EQ(stored("ulica") + stored("poznamky", "k_memo"), text("Dlha<p>pozn</p>"));
}
