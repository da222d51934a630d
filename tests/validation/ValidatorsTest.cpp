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
    using Validator = std::function<bool()>;

    /// Types a text and checks it; it passes, and becomes another.
    void passes(const Validator& validator, const QString& typed, const QString& written) {
        SCOPED_TRACE(typed.toStdString());
        field.setText(typed);
        EXPECT_FALSE(validator());
        EXPECT_EQ(field.text(), written);
    }
    /// The box that refuses a typed text gets the answer; that alone tells whether the focus stays,
    /// and whether the text does.
    void isRefused(const Validator& validator, const QString& typed, const Refusal& refusal,
                   std::initializer_list<Button> answers) {
        SCOPED_TRACE(typed.toStdString());
        for (const Button answer : answers) {
            field.setText(typed);
            boxes.expect({.text = refusal.text,
                          .title = u"Chybová správa"_s,
                          .icon = QMessageBox::Warning,
                          .buttons = refusal.buttons,
                          .answer = answer,
                          .meanwhile = std::bind(expectDefault, refusal.byDefault)});
            EXPECT_EQ(validator(), answer == Retry);
            boxes.allCame();
            EXPECT_EQ(field.text(), answer == Retry || answer == Ignore ? typed : QString());
        }
    }
    /// What stands in the row already is not asked about.
    void sparesUnchanged(const Validator& validator, const QString& wrong) {
        field.showBound(wrong);
        EXPECT_FALSE(validator());
        field.showBound({});
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
          Case{u"-5"_s, 0}, Case{u"1 2"_s, 1}, Case{u"\t1"_s, 0}, Case{u"3.7"_s, 3},
          Case{u"99999999999999999999"_s, std::numeric_limits<qint64>::max()}})
        EXPECT_EQ(Val(text), number) << text.toStdString();
}

TEST_F(ValidatorsTest, Dates) {
    const Validator validator = std::bind(kontrolaDatum, std::ref(field));
    for (const auto& [typed, written] :
         {Passing{u"   "_s, u""_s}, Passing{u"7 . 5 . 04"_s, u"7.5.2004"_s},
          Passing{u" 1.2.99 "_s, u"1.2.1999"_s}, Passing{u"01.01.70"_s, u"01.01.2070"_s},
          Passing{u"01.01.71"_s, u"01.01.1971"_s}, Passing{u"31.02.2005"_s, u"31.02.2005"_s},
          Passing{u"31.12.0001"_s, u"31.12.0001"_s}})
        passes(validator, typed, written);
    const Refusal wrong{u"Chybný dátum, zadaj v tvare dd.mm.rrrr!"_s, Retry | Cancel, Retry};
    for (const QString& typed :
         u"32.1.2000 0.1.2000 00.1.2000 1.13.2000 1.0.2000 1.1.204 .1.2000 100.1.2000 1..2000 1.1 "
         u"1.1. 1.1.20000 a.1.2000 1.b.2000 1.1.2x 1.1.-100 112000 1.1.1.1"_s.split(u' '))
        isRefused(validator, typed, wrong, {Retry, Cancel});
}

TEST_F(ValidatorsTest, BirthNumbers) {
    const Validator validator =
        std::bind(kontrolaRodCis, std::ref(field), std::ref(sex), std::ref(holder), std::ref(date));
    const Refusal wrong{u"Nesprávne rodné číslo ,opraviť ?"_s, Abort | Retry | Ignore, Abort};
    for (const QString& number : {u"8055120008"_s, u"805512000"_s, u"123X"_s, u"80551200X7"_s})
        isRefused(validator, number, wrong, {Retry, Abort, Ignore});
    passes(validator, u""_s, u""_s);
    sparesUnchanged(validator, u"1"_s);
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
        passes(validator, number, number);
        EXPECT_EQ(sex.text() + holder.text(), itsSex + itsSex);
        EXPECT_EQ(date.text(), itsDate);
    }
}

TEST_F(ValidatorsTest, TheSex) {
    const Validator validator = std::bind(kontrolaPohlavie, std::ref(field));
    for (const auto& [typed, written] :
         {Passing{u"m"_s, u"M"_s}, Passing{u"Muž"_s, u"M"_s}, Passing{u""_s, u""_s}})
        passes(validator, typed, written);
    isRefused(validator, u"žena"_s,
              {u"Pohlavie môže nadobudnúť len hodnotu M alebo Z!"_s, Retry | Cancel, Cancel},
              {Retry, Cancel});
    sparesUnchanged(validator, u"?"_s);
}

TEST_F(ValidatorsTest, OnlyATakenImpairmentIsRefusedAndOnlyWhenDuplicatesMatter) {
    const QStringList taken{u"3"_s, u" "_s, u"5"_s, u""_s, u"0"_s};
    const Validator validator = std::bind(kontrolaPostih, std::ref(field), true, taken);
    passes(std::bind(kontrolaPostih, std::ref(field), false, taken), u"3"_s, u"3"_s);
    for (const QString& code : {u"12"_s, u"7"_s, u"0"_s, u""_s})
        passes(validator, code, code);
    isRefused(validator, u" 5 "_s,
              {u"Postihnutie môže nadobudnúť len hodnotu 1 až 9 bez duplicít !"_s, Retry | Cancel,
               Cancel},
              {Retry, Cancel});
    sparesUnchanged(validator, u"3"_s);
}

TEST_F(ValidatorsTest, ThePromptOfErrors) {
    for (const Button answer : {Yes, No}) {
        boxes.expectAsked(u"Nesedí kontrolný súčet ! Opraviť ?"_s, u"Chyba !"_s,
                          QMessageBox::Critical, Yes | No, answer);
        EXPECT_EQ(opravit(nullptr, u"Nesedí kontrolný súčet !"_s), answer == Yes);
    }
}

TEST(EnterNaTab, ActsAsTabWouldAndLeavesOtherKeys) {
    QWidget window;
    forms::EntryField first{&window}, skipped{&window}, second{&window};
    skipped.setFocusPolicy(Qt::ClickFocus);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    first.setFocus();
    for (int key : {Qt::Key_Down, Qt::Key_Return}) {
        const bool acts = key == Qt::Key_Return;
        enterNaTab(key);
        EXPECT_EQ(key, acts ? 0 : int(Qt::Key_Down));
        EXPECT_TRUE((acts ? second : first).hasFocus());
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
    Validator lookUp(bool byName, const QString& nameColumn = u"nazov"_s) {
        return [this, byName, nameColumn] {
            return kontrolaCiselnik(list, field, source, byName, u"c_iczuj"_s, u"kod"_s,
                                    nameColumn);
        };
    }
    /// Types a name or a code that is found. @return the code of the row found
    QString found(bool byName, const QString& typed) {
        passes(lookUp(byName), typed, typed);
        return source.Recordset().Fields(u"kod").Value().toText();
    }

    const Refusal noName{u"Zadaný reťazec :Nitra' nie je v číselníku"_s, Abort | Retry | Ignore,
                         Retry};
    const Refusal noCode{u"Zadaný kód :04 sa nenašiel v číselníku"_s, Retry | Cancel, Cancel};
    support::TemporaryRegister reg;
    store::DataSource source{reg.engine};
    forms::DropDown list{nullptr, forms::DropDown::Kind::Editable};
};

} // namespace

TEST_F(LookUpTest, ATypedTextIsFoundOrRefused) {
    const QString longName = u"Bratislava-Podunajské Biskupice"_s;
    addPlace(u"05"_s, longName);
    for (const auto& [typed, code] :
         {Passing{u"Žilina"_s, u"01"_s}, Passing{u" žilina "_s, u"01"_s},
          Passing{u"L'Aquila"_s, u"02"_s},
          Passing{u"Žilina                           x"_s, u"01"_s}, Passing{longName, u"05"_s},
          Passing{longName.left(30), u"05"_s}})
        EXPECT_EQ(found(true, typed), code);
    isRefused(lookUp(true), u" Nitra' "_s, noName, {Retry, Ignore, Abort});
    passes(lookUp(true), u""_s, u""_s);
    EXPECT_EQ(found(false, u" 03 "_s), u"03"_s);
}

TEST_F(LookUpTest, ANameIsSoughtInAFreshQueryAndACodeInTheRowsThatAreThere) {
    addPlace(u"04"_s, u"Nitra"_s);
    isRefused(lookUp(false), u"04"_s, noCode, {Retry, Cancel});
    EXPECT_EQ(found(true, u"Nitra"_s), u"04"_s);
    EXPECT_EQ(source.RecordSource(), u"select * from c_iczuj order by nazov"_s);
}

TEST_F(LookUpTest, APickIsWrittenIntoTheFieldUnlessEscHasSparedIt) {
    for (const bool byName : {false, true}) {
        list.setPick(2);
        gZVyberu = true;
        passes(lookUp(byName), u"?"_s, u"?"_s);
        EXPECT_FALSE(gZVyberu);
        passes(lookUp(byName), u"?"_s, byName ? u"Bardejov"_s : u"03"_s);
        EXPECT_EQ(source.Recordset().AbsolutePosition(), 2);
    }
}

TEST_F(LookUpTest, ADisabledFieldIsNotLookedUpAndErrorsGoToTheCaller) {
    field.setEnabled(false);
    passes(lookUp(false), u"99"_s, u"99"_s);
    field.setEnabled(true);
    EXPECT_THROW(lookUp(true, u"iné"_s)(), store::EngineError);
}
