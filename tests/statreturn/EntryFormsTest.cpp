#include "forms/EntryField.h"
#include "statreturn/FrmDoUkaz.h"
#include "statreturn/FrmOdbStar.h"
#include "store/EngineError.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"

#include <QPushButton>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;
using namespace statreturn;

namespace {

const QString dropQuestion = u"Zadané hodnoty nie sú zapísané. Zahodiť ich ?"_s;

/// A form that is typed into by keys on its window, as a user does.
template <class Form>
class EntryFormTest : public testing::Test {
  protected:
    void open() {
        reg.letGo();
        form = std::make_unique<Form>(reg.engine, reg.folder);
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    QString focused() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return form->isActiveWindow(); }));
        return form->focusWidget()->objectName();
    }
    void key(int code, Qt::KeyboardModifiers modifiers = {}) {
        focused();
        QTest::keyClick(form->windowHandle(), Qt::Key(code), modifiers);
        boxes.allCame();
    }
    /// Types over the field in focus, and presses Enter.
    void enter(const QString& text) {
        for (const QChar character : text)
            QTest::keyClick(form->windowHandle(), character.toLatin1());
        key(Qt::Key_Return);
    }
    void press(const QString& name) {
        auto* button = form->template findChild<QPushButton*>(name);
        QTest::mouseClick(form->windowHandle(), Qt::LeftButton, {},
                          button->mapTo(form.get(), button->rect().center()));
        boxes.allCame();
    }
    forms::EntryField& field(const QString& name) {
        return *form->template findChild<forms::EntryField*>(name);
    }
    void expectQuestion(const QString& message, bool corrects) {
        boxes.expect({.text = message + u" Opraviť ?"_s,
                      .title = u"Chyba !"_s,
                      .icon = QMessageBox::Critical,
                      .buttons = QMessageBox::Yes | QMessageBox::No,
                      .answer = corrects ? QMessageBox::Yes : QMessageBox::No});
    }
    void expectDropQuestion(QMessageBox::StandardButton answer) {
        boxes.expect({.text = dropQuestion,
                      .title = u"Upozornenie"_s,
                      .icon = QMessageBox::Question,
                      .buttons = QMessageBox::Yes | QMessageBox::No,
                      .answer = answer});
    }

    support::TemporaryRegister reg;
    support::ScriptedBoxes boxes;
    std::unique_ptr<Form> form;
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
    for (const char16_t* typed : {u"1x1", u"2", u"30", u"400"})
        enter(QString::fromUtf16(typed));
    QTest::keyClick(form->windowHandle(), '9');
    expectQuestion(u"Nesedí kontrolný súčet !"_s, true);
    key(Qt::Key_Down);
    EXPECT_EQ(focused(), u"TextPsych(0)");
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(form->isVisible());
    const QString row =
        u"select r_0401&'|'&r_0402&'|'&r_0403&'|'&r_0404&'|'&r_0416 as alles from dop_ukaz"_s;
    EXPECT_EQ(reg.text(row, u"alles"_s), u"11|2|30|400|9");

    open();
    EXPECT_EQ(field(u"TextPsych(3)"_s).text(), u"400");
    enter(u"12"_s);
    expectDropQuestion(QMessageBox::No);
    key(Qt::Key_Escape);
    press(u"cmdStorno"_s);
    EXPECT_FALSE(form->isVisible());
    open();
    enter(u"13"_s);
    form->close();
    EXPECT_EQ(reg.text(row, u"alles"_s), u"13|2|30|400|9");
    EXPECT_EQ(reg.count(u"dop_ukaz"_s), 1);
}

TEST_F(FrmDoUkazTest, LeavesNoRowBehindStornoAndKeepsWhatIsRefused) {
    open();
    enter(u"1"_s);
    press(u"cmdStorno"_s);
    EXPECT_EQ(reg.count(u"dop_ukaz"_s), 0);
    open();
    enter(u"99999999999999999999"_s);
    boxes.expect({.text = u"Chyba č. 3421\n\nHodnota sa nedá previesť na typ stĺpca r_0401."_s,
                  .icon = QMessageBox::Critical});
    press(u"cmdZap"_s);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(field(u"TextPsych(0)"_s).text(), u"99999999999999999999");
}

TEST_F(FrmOdbStarTest, WritesEachCellIntoItsColumnAndReadsItBack) {
    for (const bool again : {false, true}) {
        open();
        EXPECT_EQ(focused(), u"txt1(0)");
        for (int row = 0; row < careRows; ++row) {
            for (int column = 0; column < careColumns; ++column) {
                auto& cell = field(u"txt%1(%2)"_s.arg(column + 1).arg(row));
                if (again)
                    EXPECT_EQ(cell.text(), QString::number(row * 20 + column));
                else
                    cell.setText(QString::number(row * 20 + column));
            }
        }
        press(u"cmdOk"_s);
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(reg.count(u"odbstar"_s), careRows);
        EXPECT_EQ(stored(0, u"v_tom naz_ria c_ria s_1 s_2"_s), u"     |Diagnostika|0501| |1");
        EXPECT_EQ(stored(17, u"v_tom naz_ria c_ria s_1 s_10"_s),
                  u"v tom|       reedukcia (edukácia)|0518|340|349");
        EXPECT_EQ(stored(27, u"naz_ria s_10"_s), u"Kontrolný súčet (0501 až 0527)|549");
    }
}

TEST_F(FrmOdbStarTest, ReturnsTheFocusToWhereTheCorrectionBegins) {
    open();
    for (const char16_t* typed : {u"3", u"1", u"1", u"0"})
        enter(QString::fromUtf16(typed));
    expectQuestion(u"Stĺpec 1 <> s2+s3+s4+s5 !"_s, true);
    enter(u"0"_s);
    EXPECT_EQ(focused(), u"txt1(0)");
    enter(u"2"_s);
    EXPECT_EQ(focused(), u"txt2(0)");
    field(u"txt6(4)"_s).setFocus();
    expectQuestion(u"Riadok 0501 stl.6 <> r0502+r0503+r0504+r0505 !"_s, true);
    enter(u"5"_s);
    EXPECT_EQ(focused(), u"txt6(0)");
    field(u"txt6(4)"_s).setFocus();
    expectQuestion(u"Riadok 0501 stl.6 <> r0502+r0503+r0504+r0505 !"_s, false);
    key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(focused(), u"txt6(5)");
    form->resize(form->width(), 400);
    field(u"txt6(25)"_s).setFocus();
    const QPoint place = field(u"txt6(25)"_s).mapTo(form.get(), QPoint(0, 0));
    key(Qt::Key_Up);
    EXPECT_EQ(focused(), u"txt6(25)");
    EXPECT_EQ(field(u"txt6(25)"_s).mapTo(form.get(), QPoint(0, 0)), place) << "nothing scrolls";
    // A press on the button that the check sends back writes nothing.
    field(u"txt6(4)"_s).setFocus();
    expectQuestion(u"Riadok 0501 stl.6 <> r0502+r0503+r0504+r0505 !"_s, true);
    press(u"cmdOk"_s);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(focused(), u"txt6(0)");
    expectDropQuestion(QMessageBox::Yes);
    key(Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(reg.count(u"odbstar"_s), 0);
}

TEST_F(FrmOdbStarTest, ReportsAColumnBeyondAWordAndRowsThatAreIncomplete) {
    open();
    field(u"txt1(3)"_s).setText(u"40000"_s);
    field(u"txt1(27)"_s).setFocus();
    boxes.expect(
        {.text =
             u"Chyba č. 6\n\nSúčet stĺpca je väčší ako 32767, kontrolný súčet sa nedá overiť."_s,
         .icon = QMessageBox::Critical});
    key(Qt::Key_Down);
    EXPECT_EQ(focused(), u"txt2(27)");
    press(u"cmdOk"_s);
    EXPECT_EQ(stored(3, u"s_1"_s), u"40000");
    reg.add(u"odbstar"_s, {{u"s_1", u"7"_s}});
    try {
        open();
        ADD_FAILURE() << "opened on 29 rows";
    } catch (const store::EngineError& error) {
        EXPECT_EQ(error.number(), store::ErrorNumber::NoCurrentRecord);
    }
}

} // namespace
