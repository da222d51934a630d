#include "validation/Validators.h"

#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "store/DataSource.h"
#include "store/EngineError.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"
#include "validation/modKontrola.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace modKontrola;
using namespace Qt::StringLiterals;

namespace {

using Button = QMessageBox::StandardButton;
using enum QMessageBox::StandardButton;

/// A value that passes, and what it becomes.
using Passing = std::pair<QString, QString>;
/// A box that refuses a value: its words, its buttons and the one that Enter presses.
struct Refusal {
    QString text;
    QMessageBox::StandardButtons buttons;
    Button byDefault;
};

void expectDefault(Button button) {
    const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    EXPECT_EQ(box->standardButton(box->defaultButton()), button);
}

class ValidatorsTest : public testing::Test {
  protected:
    /// Types a text and checks it. The box that refuses it, if it is to come, gets the answer; that
    /// alone tells whether the focus stays, and whether the refused text does.
    void check(const QString& typed, const Refusal& refusal, Button answer,
               const std::function<bool()>& validator) {
        SCOPED_TRACE(typed.toStdString());
        field.setText(typed);
        if (answer != NoButton)
            boxes.expect({.text = refusal.text,
                          .title = u"Chybová správa"_s,
                          .icon = QMessageBox::Warning,
                          .buttons = refusal.buttons,
                          .answer = answer,
                          .meanwhile = std::bind(expectDefault, refusal.byDefault)});
        EXPECT_EQ(validator(), answer == Retry);
        boxes.allCame();
        EXPECT_TRUE(answer == NoButton ||
                    field.text() == (answer == Retry || answer == Ignore ? typed : QString()))
            << field.text().toStdString();
    }

    support::ScriptedBoxes boxes;
    forms::EntryField field, sex, date;
    forms::DropDown holder{nullptr, forms::DropDown::Kind::Editable};
};

} // namespace

TEST(Val, ReadsLeadingDigits) {
    using Case = std::pair<QString, qint64>;
    for (const auto& [text, number] :
         {Case{u""_s, 0}, Case{u"  42"_s, 42}, Case{u"123X"_s, 123}, Case{u"x1"_s, 0},
          Case{u"-5"_s, 0}, Case{u"1 2"_s, 1}, Case{u"007"_s, 7}, Case{u"\t1"_s, 0},
          Case{u"3.7"_s, 3}, Case{u"8055120007"_s, 8055120007},
          Case{u"99999999999999999999"_s, std::numeric_limits<qint64>::max()}})
        EXPECT_EQ(Val(text), number) << text.toStdString();
}

TEST_F(ValidatorsTest, Dates) {
    const Refusal wrong{u"Chybný dátum, zadaj v tvare dd.mm.rrrr!"_s, Retry | Cancel, Retry};
    for (const auto& [typed, written] :
         {Passing{u""_s, u""_s}, Passing{u"   "_s, u""_s}, Passing{u"7 . 5 . 04"_s, u"7.5.2004"_s},
          Passing{u" 1.2.99 "_s, u"1.2.1999"_s}, Passing{u"01.01.70"_s, u"01.01.2070"_s},
          Passing{u"01.01.71"_s, u"01.01.1971"_s}, Passing{u"31.02.2005"_s, u"31.02.2005"_s},
          Passing{u"31.12.0001"_s, u"31.12.0001"_s}}) {
        check(typed, wrong, NoButton, [this] { return kontrolaDatum(field); });
        EXPECT_EQ(field.text(), written);
    }
    for (const QString& typed :
         u"32.1.2000 0.1.2000 00.1.2000 1.13.2000 1.0.2000 1.1.204 .1.2000 100.1.2000 1..2000 1.1 "
         u"1.1. 1.1.20000 a.1.2000 1.b.2000 1.1.2x 1.1.-100 112000 1.1.1.1"_s.split(u' '))
        for (const Button answer : {Retry, Cancel})
            check(typed, wrong, answer, [this] { return kontrolaDatum(field); });
}

TEST_F(ValidatorsTest, BirthNumbers) {
    const auto validator = [this] {
        return kontrolaRodCis(field, sex, holder, date);
    };
    const Refusal wrong{u"Nesprávne rodné číslo ,opraviť ?"_s, Abort | Retry | Ignore, Abort};
    for (const QString& number : {u"8055120008"_s, u"805512000"_s, u"123X"_s, u"80551200X7"_s})
        for (const Button answer : {Retry, Abort, Ignore})
            check(number, wrong, answer, validator);
    check(u""_s, wrong, NoButton, validator);
    field.showBound(u"1"_s);
    EXPECT_FALSE(validator()) << "unchanged";
    EXPECT_EQ(sex.text() + date.text() + holder.text(), QString());

    using Case = std::tuple<QString, QString, QString, QString>;
    for (const auto& [number, dateBefore, itsSex, itsDate] :
         {Case{u"8055120007"_s, u""_s, u"Z"_s, u"12.05.1980"_s},
          Case{u"8055120007"_s, u"1.1.1999"_s, u"Z"_s, u"1.1.1999"_s},
          Case{u"8013320007"_s, u""_s, u"Z"_s, u"32.-37.1980"_s},
          Case{u"0457310007"_s, u""_s, u"Z"_s, u"31.07.2004"_s},
          Case{u"4912010004"_s, u""_s, u"M"_s, u"01.12.2049"_s},
          Case{u"5001010014"_s, u""_s, u"M"_s, u"01.01.1950"_s}}) {
        date.setText(dateBefore);
        check(number, wrong, NoButton, validator);
        EXPECT_EQ(sex.text() + holder.text(), itsSex + itsSex);
        EXPECT_EQ(date.text(), itsDate);
    }
}

TEST_F(ValidatorsTest, TheSex) {
    const std::function validator = [this] {
        return kontrolaPohlavie(field);
    };
    const Refusal wrong{u"Pohlavie môže nadobudnúť len hodnotu M alebo Z!"_s, Retry | Cancel,
                        Cancel};
    for (const auto& [typed, written] : {Passing{u"m"_s, u"M"_s}, Passing{u"Muž"_s, u"M"_s},
                                         Passing{u"z"_s, u"Z"_s}, Passing{u""_s, u""_s}}) {
        check(typed, wrong, NoButton, validator);
        EXPECT_EQ(field.text(), written);
    }
    for (const Button answer : {Retry, Cancel})
        check(u"žena"_s, wrong, answer, validator);
    field.showBound(u"?"_s);
    EXPECT_FALSE(validator()) << "unchanged";
}

TEST_F(ValidatorsTest, OnlyATakenImpairmentIsRefusedAndOnlyWhenDuplicatesMatter) {
    const QStringList taken{u"3"_s, u" "_s, u"5"_s, u""_s, u"0"_s};
    const Refusal wrong{u"Postihnutie môže nadobudnúť len hodnotu 1 až 9 bez duplicít !"_s,
                        Retry | Cancel, Cancel};
    using Case = std::tuple<QString, bool, Button>;
    for (const auto& [code, duplicates, answer] :
         {Case{u"3"_s, false, NoButton}, Case{u"12"_s, false, NoButton},
          Case{u"7"_s, true, NoButton}, Case{u"12"_s, true, NoButton}, Case{u"0"_s, true, NoButton},
          Case{u""_s, true, NoButton}, Case{u" 5 "_s, true, Retry}, Case{u"3"_s, true, Cancel}}) {
        const bool matter = duplicates;
        check(code, wrong, answer, [&] { return kontrolaPostih(field, matter, taken); });
        EXPECT_EQ(field.text(), answer == Cancel ? QString() : code);
    }
    field.showBound(u"3"_s);
    EXPECT_FALSE(kontrolaPostih(field, true, taken)) << "unchanged";
}

TEST_F(ValidatorsTest, ThePromptOfErrors) {
    for (const Button answer : {Yes, No}) {
        boxes.expect(support::ExpectedBox{.text = u"Nesedí kontrolný súčet ! Opraviť ?"_s,
                                          .title = u"Chyba !"_s,
                                          .icon = QMessageBox::Critical,
                                          .buttons = Yes | No,
                                          .answer = answer});
        EXPECT_EQ(opravit(nullptr, u"Nesedí kontrolný súčet !"_s), answer == Yes);
    }
}

TEST(EnterNaTab, ActsAsTabWouldAndLeavesOtherKeys) {
    QWidget window;
    QVBoxLayout column(&window);
    forms::EntryField first, skipped, second;
    for (auto* field : {&first, &skipped, &second})
        column.addWidget(field);
    skipped.setFocusPolicy(Qt::ClickFocus);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (const auto& [pressed, left, focus] : {std::tuple{Qt::Key_Down, int(Qt::Key_Down), &first},
                                               {Qt::Key_Return, 0, &second},
                                               {Qt::Key_Enter, 0, &second}}) {
        first.setFocus();
        int key = pressed;
        enterNaTab(key);
        EXPECT_EQ(key, left);
        EXPECT_TRUE(focus->hasFocus());
    }
}

namespace {

class LookUpTest : public ValidatorsTest {
  protected:
    LookUpTest() {
        addPlace(u"01"_s, u"Žilina"_s);
        addPlace(u"02"_s, u"L'Aquila"_s);
        addPlace(u"03"_s, u"Bardejov"_s);
        source.setDatabaseName(reg.folder.database());
        source.setRecordSource(u"select * from c_iczuj order by kod"_s);
        source.Refresh();
        list.setSource(source, u"nazov"_s);
    }
    void addPlace(const QString& code, const QString& name) {
        reg.add(u"c_iczuj"_s, {{u"kod", code}, {u"nazov", name}});
    }
    bool lookUp(bool byName, const QString& nameColumn = u"nazov"_s) {
        return kontrolaCiselnik(list, field, source, byName, u"c_iczuj"_s, u"kod"_s, nameColumn);
    }
    /// Types a name or a code and looks it up.
    void lookUpTyped(const QString& typed, bool byName, Button answer) {
        const auto& [words, buttons, byDefault] =
            byName
                ? Refusal{u"Zadaný reťazec :%1 nie je v číselníku"_s, Abort | Retry | Ignore, Retry}
                : Refusal{u"Zadaný kód :%1 sa nenašiel v číselníku"_s, Retry | Cancel, Cancel};
        check(typed, {words.arg(typed.trimmed()), buttons, byDefault}, answer,
              [&] { return lookUp(byName); });
    }

    support::TemporaryRegister reg;
    store::DataSource source{reg.engine};
    forms::DropDown list{nullptr, forms::DropDown::Kind::Editable};
};

} // namespace

TEST_F(LookUpTest, ATypedTextIsFoundOrRefused) {
    using Case = std::tuple<QString, bool, QString>;
    for (const auto& [typed, byName, found] :
         {Case{u"Žilina"_s, true, u"01"_s}, Case{u" žilina "_s, true, u"01"_s},
          Case{u"L'Aquila"_s, true, u"02"_s},
          Case{u"Žilina                           x"_s, true, u"01"_s},
          Case{u" 03 "_s, false, u"03"_s}}) {
        lookUpTyped(typed, byName, NoButton);
        EXPECT_EQ(field.text(), typed);
        EXPECT_EQ(source.Recordset().Fields(u"kod").Value().toText(), found);
    }
    lookUpTyped(u""_s, true, NoButton);
    lookUpTyped(u"Zilin'"_s, true, Ignore);
    lookUpTyped(u" Nitra "_s, true, Retry);
    lookUpTyped(u"Nitra"_s, true, Abort);
    lookUpTyped(u"0'"_s, false, Retry);
    lookUpTyped(u"99"_s, false, Cancel);
}

TEST_F(LookUpTest, ANameIsSoughtInAFreshQueryAndACodeInTheRowsThatAreThere) {
    addPlace(u"04"_s, u"Nitra"_s);
    lookUpTyped(u"04"_s, false, Retry);
    lookUpTyped(u"Nitra"_s, true, NoButton);
    EXPECT_EQ(source.RecordSource(), u"select * from c_iczuj order by nazov"_s);
}

TEST_F(LookUpTest, APickIsWrittenIntoTheFieldAndMovesTheSource) {
    for (const bool byName : {false, true}) {
        list.setPick(2);
        lookUpTyped(u"?"_s, byName, NoButton);
        EXPECT_EQ(field.text(), byName ? u"Bardejov"_s : u"03"_s);
        EXPECT_EQ(source.Recordset().AbsolutePosition(), 2);
    }
}

TEST_F(LookUpTest, EscInThePickSparesTheFieldOnce) {
    list.setPick(1);
    gZVyberu = true;
    for (const QString& left : {u"?"_s, u"02"_s}) {
        lookUpTyped(u"?"_s, false, NoButton);
        EXPECT_EQ(field.text(), left);
        EXPECT_FALSE(gZVyberu);
    }
}

TEST_F(LookUpTest, ADisabledFieldIsNotLookedUpAndErrorsGoToTheCaller) {
    field.setEnabled(false);
    lookUpTyped(u"99"_s, false, NoButton);
    field.setEnabled(true);
    EXPECT_THROW(lookUp(true, u"iné"_s), store::EngineError);
}
