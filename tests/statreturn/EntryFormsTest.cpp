#include "statreturn/FrmDoUkaz.h"
#include "statreturn/FrmOdbStar.h"
#include "store/EngineAssertions.h"
#include "store/FileBytes.h"
#include "support/CardDriver.h"

using namespace Qt::StringLiterals;
using namespace statreturn;

namespace {

template <class Form>
class EntryFormTest : public cardtest::CardDriver<Form> {
  protected:
    void expectFault(const char* message, bool corrects) {
        this->boxes.expectAsked(cardtest::text(message) + u" Opraviť ?"_s, u"Chyba !"_s,
                                QMessageBox::Critical, QMessageBox::Yes | QMessageBox::No,
                                corrects ? QMessageBox::Yes : QMessageBox::No);
    }
    void expectDropQuestion(QMessageBox::StandardButton answer) {
        this->expectQuestion(u"Zadané hodnoty nie sú zapísané. Zahodiť ich ?"_s, u"Upozornenie"_s,
                             answer);
    }
};

using FrmDoUkazTest = EntryFormTest<FrmDoUkaz>;

class FrmOdbStarTest : public EntryFormTest<FrmOdbStar> {
  protected:
    QString stored(int row, const QString& columns) {
        const auto rows = reg.database().OpenRecordset(u"odbstar"_s);
        for (int i = 0; i < row; ++i)
            rows->MoveNext();
        QStringList texts;
        for (const QString& column : columns.split(u' '))
            texts += rows->Fields(column).Value().toText();
        return texts.join(u'|');
    }
};

TEST_F(FrmDoUkazTest, TypesItsRowAndItsSumIsAskedAboutOnce) {
    open();
    EXPECT_EQ(focused(), u"TextPsych(0)");
    for (const char* typed : {"1x1", "2", "30", "400"})
        enter(typed);
    type("9");
    expectFault("Nesedí kontrolný súčet !", true);
    key(Qt::Key_Down);
    EXPECT_EQ(focused(), u"TextPsych(0)");
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(card->isVisible());
    const QString row =
        u"select r_0401&'|'&r_0402&'|'&r_0403&'|'&r_0404&'|'&r_0416 as alles from dop_ukaz"_s;
    EXPECT_EQ(reg.text(row, u"alles"_s), u"11|2|30|400|9");

    open();
    EXPECT_EQ(at("TextPsych(3)").text(), u"400");
    enter("12");
    expectDropQuestion(QMessageBox::No);
    key(Qt::Key_Escape);
    click("cmdStorno");
    EXPECT_FALSE(card->isVisible());
    open();
    enter("13");
    card->close();
    EXPECT_EQ(reg.text(row, u"alles"_s), u"13|2|30|400|9");
    EXPECT_EQ(reg.count(u"dop_ukaz"_s), 1);
}

TEST_F(FrmDoUkazTest, LeavesNoRowBehindStornoAndKeepsWhatIsRefused) {
    open();
    enter("1");
    click("cmdStorno");
    EXPECT_EQ(reg.count(u"dop_ukaz"_s), 0);
    open();
    enter("99999999999999999999");
    expectEngineError("Chyba č. 3421\n\nHodnota sa nedá previesť na typ stĺpca r_0401.");
    click("cmdZap");
    EXPECT_TRUE(card->isVisible());
    EXPECT_EQ(at("TextPsych(0)").text(), u"99999999999999999999");
}

TEST_F(FrmOdbStarTest, WritesEachCellIntoItsColumnAndReadsItBack) {
    for (const bool again : {false, true}) {
        open();
        EXPECT_EQ(focused(), u"txt1(0)");
        for (int row = 0; row < careRows; ++row) {
            for (int column = 0; column < careColumns; ++column) {
                auto& cell = at(qPrintable(u"txt%1(%2)"_s.arg(column + 1).arg(row)));
                if (again)
                    EXPECT_EQ(cell.text(), QString::number(row * 20 + column));
                else
                    cell.setText(QString::number(row * 20 + column));
            }
        }
        click("cmdOk");
        EXPECT_FALSE(card->isVisible());
        EXPECT_EQ(reg.count(u"odbstar"_s), careRows);
        EXPECT_EQ(stored(0, u"v_tom naz_ria c_ria s_1 s_2"_s), u"     |Diagnostika|0501| |1");
        EXPECT_EQ(stored(17, u"v_tom naz_ria c_ria s_1 s_10"_s),
                  u"v tom|       reedukcia (edukácia)|0518|340|349");
        EXPECT_EQ(stored(27, u"naz_ria s_10"_s), u"Kontrolný súčet (0501 až 0527)|549");
    }
}

TEST_F(FrmDoUkazTest, OffersWhatWasTypedAfterACrash) {
    open();
    enter("11");
    enter("2");
    crash("cmdStorno");
    open();
    takeWordsBack();
    EXPECT_EQ(at("TextPsych(0)").text() + at("TextPsych(1)").text(), u"112");
    EXPECT_EQ(reg.count(u"dop_ukaz"_s), 0);
    click("cmdZap");
    EXPECT_EQ(reg.text(u"dop_ukaz"_s, u"r_0401"_s) + reg.text(u"dop_ukaz"_s, u"r_0402"_s), u"112");
    open();
    EXPECT_FALSE(offersWords());
}

TEST_F(FrmOdbStarTest, OffersWhatWasTypedOnceAfterStornoAndNotWhatIsStored) {
    open();
    at("txt3(4)").setText(u"77"_s);
    at("txt10(27)").setText(u"78"_s);
    click("cmdZrusit");
    open();
    takeWordsBack();
    EXPECT_EQ(at("txt3(4)").text() + at("txt10(27)").text(), u"7778");
    EXPECT_EQ(reg.count(u"odbstar"_s), 0);
    crash("cmdZrusit");
    for (const bool isStored : {false, true}) {
        const QByteArray left = files::read(words::Book::fileOf(reg.folder));
        open();
        EXPECT_EQ(offersWords(), !isStored);
        if (isStored)
            break;
        takeWordsBack();
        click("cmdOk");
        EXPECT_EQ(stored(4, u"s_3"_s) + stored(27, u"s_10"_s), u"7778");
        card.reset();
        files::write(words::Book::fileOf(reg.folder), left);
    }
}

TEST_F(FrmOdbStarTest, ReturnsTheFocusToWhereTheCorrectionBegins) {
    open();
    for (const char* typed : {"3", "1", "1", "0"})
        enter(typed);
    expectFault("Stĺpec 1 <> s2+s3+s4+s5 !", true);
    enter("0");
    EXPECT_EQ(focused(), u"txt1(0)");
    enter("2");
    EXPECT_EQ(focused(), u"txt2(0)");
    at("txt6(4)").setFocus();
    expectFault("Riadok 0501 stl.6 <> r0502+r0503+r0504+r0505 !", true);
    enter("5");
    EXPECT_EQ(focused(), u"txt6(0)");
    at("txt6(4)").setFocus();
    expectFault("Riadok 0501 stl.6 <> r0502+r0503+r0504+r0505 !", false);
    key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(focused(), u"txt6(5)");
    card->resize(card->width(), 400);
    auto& low = at("txt6(25)");
    low.setFocus();
    const QPoint place = low.mapTo(&*card, QPoint(0, 0));
    key(Qt::Key_Up);
    EXPECT_EQ(focused(), u"txt6(25)");
    EXPECT_EQ(low.mapTo(&*card, QPoint(0, 0)), place) << "nothing scrolls";
    // A press on the button that the check sends back writes nothing.
    at("txt6(4)").setFocus();
    expectFault("Riadok 0501 stl.6 <> r0502+r0503+r0504+r0505 !", true);
    click("cmdOk");
    EXPECT_TRUE(card->isVisible());
    EXPECT_EQ(focused(), u"txt6(0)");
    expectDropQuestion(QMessageBox::Yes);
    key(Qt::Key_Escape);
    EXPECT_FALSE(card->isVisible());
    EXPECT_EQ(reg.count(u"odbstar"_s), 0);
}

TEST_F(FrmOdbStarTest, ReportsAColumnBeyondAWordAndRowsThatAreIncomplete) {
    open();
    at("txt1(3)").setText(u"40000"_s);
    at("txt1(27)").setFocus();
    expectEngineError(
        "Chyba č. 6\n\nSúčet stĺpca je väčší ako 32767, kontrolný súčet sa nedá overiť.");
    key(Qt::Key_Down);
    EXPECT_EQ(focused(), u"txt2(27)");
    click("cmdOk");
    EXPECT_EQ(stored(3, u"s_1"_s), u"40000");
    reg.add(u"odbstar"_s, {{u"s_1", u"7"_s}});
    EXPECT_ENGINE_ERROR(open(), 3021);
}

} // namespace
