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

#include <optional>

namespace {

using Button = QMessageBox::StandardButton;

QString q(const char16_t* text) {
    return QString::fromUtf16(text);
}

void expectDefault(Button button) {
    const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->standardButton(box->defaultButton()), button);
}

/// The box that a refusal shows, and the answer to it.
support::ExpectedBox refusal(const QString& text, QMessageBox::StandardButtons buttons,
                             Button answer, Button byDefault) {
    return {.text = text,
            .title = QStringLiteral("Chybová správa"),
            .icon = QMessageBox::Warning,
            .buttons = buttons,
            .answer = answer,
            .meanwhile = [byDefault] {
                expectDefault(byDefault);
            }};
}

constexpr auto retryCancel = QMessageBox::Retry | QMessageBox::Cancel;
constexpr auto abortRetryIgnore = QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;

class ValidatorsTest : public testing::Test {
  protected:
    support::ScriptedBoxes boxes;
    forms::EntryField field, sex, date;
    forms::DropDown holder{nullptr, forms::DropDown::Kind::Editable};
};

} // namespace

TEST(Val, ReadsLeadingDigits) {
    const std::pair<const char16_t*, qint64> cases[] = {
        {u"", 0},
        {u"  42", 42},
        {u"123X", 123},
        {u"x1", 0},
        {u"-5", 0},
        {u"1 2", 1},
        {u"007", 7},
        {u"8055120007", 8055120007},
        {u"3.7", 3},
        {u"\t1", 0},
        {u"99999999999999999999", std::numeric_limits<qint64>::max()},
    };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(modKontrola::Val(text), number) << q(text).toStdString();
}

TEST_F(ValidatorsTest, DatesThatPass) {
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"", u""},
        {u"   ", u""},
        {u"7 . 5 . 04", u"7.5.2004"},
        {u" 1.2.99 ", u"1.2.1999"},
        {u"01.01.70", u"01.01.2070"},
        {u"01.01.71", u"01.01.1971"},
        {u"31.02.2005", u"31.02.2005"},
        {u"31.12.0001", u"31.12.0001"},
    };
    for (const auto& [typed, written] : cases) {
        date.setText(q(typed));
        EXPECT_FALSE(modKontrola::kontrolaDatum(date));
        EXPECT_EQ(date.text(), q(written));
    }
}

TEST_F(ValidatorsTest, DatesThatAreRefused) {
    for (const char16_t* typed :
         {u"32.1.2000", u"0.1.2000", u"00.1.2000", u"1.13.2000", u"1.0.2000", u"1.1.204",
          u".1.2000", u"100.1.2000", u"1..2000", u"1.1", u"1.1.", u"1.1.20000", u"a.1.2000",
          u"1.b.2000", u"1.1.2x", u"1.1.-100", u"112000", u"1.1.1.1"}) {
        for (const Button answer : {QMessageBox::Retry, QMessageBox::Cancel}) {
            SCOPED_TRACE(q(typed).toStdString());
            date.setText(q(typed));
            boxes.expect(refusal(q(u"Chybný dátum, zadaj v tvare dd.mm.rrrr!"), retryCancel, answer,
                                 QMessageBox::Retry));
            EXPECT_EQ(modKontrola::kontrolaDatum(date), answer == QMessageBox::Retry);
            EXPECT_EQ(date.text(), answer == QMessageBox::Retry ? q(typed) : QString());
            boxes.allCame();
        }
    }
}

TEST_F(ValidatorsTest, BirthNumbersThatPass) {
    struct Case {
        const char16_t *number, *dateBefore, *sex, *date;
    };
    const Case cases[] = {
        {u"8055120007", u"", u"Z", u"12.05.1980"},  {u"8055120007", u"1.1.1999", u"Z", u"1.1.1999"},
        {u"8013320007", u"", u"Z", u"32.-37.1980"}, {u"0457310007", u"", u"Z", u"31.07.2004"},
        {u"4912010004", u"", u"M", u"01.12.2049"},  {u"5001010014", u"", u"M", u"01.01.1950"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(q(one.number).toStdString());
        field.setText(q(one.number));
        sex.setText(QStringLiteral("?"));
        date.setText(q(one.dateBefore));
        EXPECT_FALSE(modKontrola::kontrolaRodCis(field, sex, holder, date));
        EXPECT_EQ(sex.text(), q(one.sex));
        EXPECT_EQ(holder.text(), q(one.sex));
        EXPECT_EQ(date.text(), q(one.date));
    }
}

TEST_F(ValidatorsTest, WrongBirthNumbersByAnswer) {
    struct Case {
        Button answer;
        bool stays, kept;
    };
    for (const char16_t* number : {u"8055120008", u"805512000", u"123X", u"80551200X7"}) {
        for (const Case& one : {Case{QMessageBox::Retry, true, true},
                                {QMessageBox::Abort, false, false},
                                {QMessageBox::Ignore, false, true}}) {
            field.setText(q(number));
            boxes.expect(refusal(q(u"Nesprávne rodné číslo ,opraviť ?"), abortRetryIgnore,
                                 one.answer, QMessageBox::Abort));
            EXPECT_EQ(modKontrola::kontrolaRodCis(field, sex, holder, date), one.stays);
            EXPECT_EQ(field.text(), one.kept ? q(number) : QString());
            EXPECT_EQ(sex.text() + date.text() + holder.text(), QString());
            boxes.allCame();
        }
    }
}

TEST_F(ValidatorsTest, AnEmptyOrUnchangedBirthNumberIsLeftAlone) {
    EXPECT_FALSE(modKontrola::kontrolaRodCis(field, sex, holder, date));
    field.showBound(QStringLiteral("1"));
    EXPECT_FALSE(modKontrola::kontrolaRodCis(field, sex, holder, date));
    EXPECT_EQ(sex.text(), QString());
}

TEST_F(ValidatorsTest, TheSex) {
    const std::pair<const char16_t*, const char16_t*> passing[] = {
        {u"m", u"M"}, {u"Muž", u"M"}, {u"z", u"Z"}, {u"žena", u""}, {u"", u""}};
    field.showBound(QStringLiteral("?"));
    EXPECT_FALSE(modKontrola::kontrolaPohlavie(field)) << "unchanged";
    for (const auto& [typed, written] : passing) {
        field.setText(q(typed));
        if (q(written).isEmpty() && !q(typed).isEmpty())
            boxes.expect(refusal(q(u"Pohlavie môže nadobudnúť len hodnotu M alebo Z!"), retryCancel,
                                 QMessageBox::Cancel, QMessageBox::Cancel));
        EXPECT_FALSE(modKontrola::kontrolaPohlavie(field));
        EXPECT_EQ(field.text(), q(written));
    }
    field.setText(QStringLiteral("x"));
    boxes.expect(refusal(q(u"Pohlavie môže nadobudnúť len hodnotu M alebo Z!"), retryCancel,
                         QMessageBox::Retry, QMessageBox::Cancel));
    EXPECT_TRUE(modKontrola::kontrolaPohlavie(field));
    EXPECT_EQ(field.text(), QStringLiteral("x"));
}

TEST_F(ValidatorsTest, OnlyATakenImpairmentIsRefusedAndOnlyWhenDuplicatesMatter) {
    const QStringList taken{q(u"3"), q(u" "), q(u"5"), q(u""), q(u"0")};
    struct Case {
        const char16_t* code;
        bool duplicates;
        std::optional<Button> answer;
    };
    for (const Case& one : {Case{u"3", false, {}},
                            {u"12", false, {}},
                            {u"7", true, {}},
                            {u"12", true, {}},
                            {u"0", true, {}},
                            {u"", true, {}},
                            {u" 5 ", true, QMessageBox::Retry},
                            {u"3", true, QMessageBox::Cancel}}) {
        SCOPED_TRACE(q(one.code).toStdString());
        field.setText(q(one.code));
        if (one.answer)
            boxes.expect(
                refusal(q(u"Postihnutie môže nadobudnúť len hodnotu 1 až 9 bez duplicít !"),
                        retryCancel, *one.answer, QMessageBox::Cancel));
        EXPECT_EQ(modKontrola::kontrolaPostih(field, one.duplicates, taken),
                  one.answer == QMessageBox::Retry);
        EXPECT_EQ(field.text(), one.answer == QMessageBox::Cancel ? QString() : q(one.code));
        boxes.allCame();
    }
    field.showBound(QStringLiteral("3"));
    EXPECT_FALSE(modKontrola::kontrolaPostih(field, true, taken)) << "unchanged";
}

TEST_F(ValidatorsTest, ThePromptOfErrors) {
    for (const Button answer : {QMessageBox::Yes, QMessageBox::No}) {
        boxes.expect(support::ExpectedBox{.text = q(u"Nesedí kontrolný súčet ! Opraviť ?"),
                                          .title = q(u"Chyba !"),
                                          .icon = QMessageBox::Critical,
                                          .buttons = QMessageBox::Yes | QMessageBox::No,
                                          .answer = answer});
        EXPECT_EQ(modKontrola::opravit(nullptr, q(u"Nesedí kontrolný súčet !")),
                  answer == QMessageBox::Yes);
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
    first.setFocus();
    int key = Qt::Key_Down;
    modKontrola::enterNaTab(key);
    EXPECT_EQ(key, Qt::Key_Down);
    EXPECT_TRUE(first.hasFocus());
    key = Qt::Key_Return;
    modKontrola::enterNaTab(key);
    EXPECT_EQ(key, 0);
    EXPECT_TRUE(second.hasFocus());
}

namespace {

class LookUpTest : public ValidatorsTest {
  protected:
    LookUpTest() {
        reg.execute({QStringLiteral("insert into c_iczuj (kod, nazov) values ('01', 'Žilina')"),
                     QStringLiteral("insert into c_iczuj (kod, nazov) values ('02', 'L''Aquila')"),
                     QStringLiteral("insert into c_iczuj (kod, nazov) values ('03', 'Bardejov')")});
        source.setDatabaseName(reg.folder.database());
        source.setRecordSource(QStringLiteral("select * from c_iczuj order by kod"));
        source.Refresh();
        list.setSource(source, QStringLiteral("nazov"));
    }
    bool lookUp(bool byName) {
        return modKontrola::kontrolaCiselnik(list, field, source, byName, QStringLiteral("c_iczuj"),
                                             QStringLiteral("kod"), QStringLiteral("nazov"));
    }

    support::TemporaryRegister reg;
    store::DataSource source{reg.engine};
    forms::DropDown list{nullptr, forms::DropDown::Kind::Editable};
};

} // namespace

TEST_F(LookUpTest, TypedTexts) {
    struct Case {
        const char16_t* typed;
        bool byName;
        std::optional<Button> answer;
        /// Code of the source's row afterwards when found.
        const char16_t* found;
    };
    for (const Case& one : {Case{u"", true, {}, nullptr},
                            {u"Žilina", true, {}, u"01"},
                            {u" žilina ", true, {}, u"01"},
                            {u"L'Aquila", true, {}, u"02"},
                            {u"Žilina                           x", true, {}, u"01"},
                            {u"Zilin'", true, QMessageBox::Ignore, nullptr},
                            {u" Nitra ", true, QMessageBox::Retry, nullptr},
                            {u"Nitra", true, QMessageBox::Abort, nullptr},
                            {u" 03 ", false, {}, u"03"},
                            {u"0'", false, QMessageBox::Retry, nullptr},
                            {u"99", false, QMessageBox::Cancel, nullptr}}) {
        SCOPED_TRACE(q(one.typed).toStdString());
        field.setText(q(one.typed));
        const QString words = one.byName ? q(u"Zadaný reťazec :%1 nie je v číselníku")
                                         : q(u"Zadaný kód :%1 sa nenašiel v číselníku");
        if (one.answer)
            boxes.expect(refusal(words.arg(field.text().trimmed()),
                                 one.byName ? abortRetryIgnore : retryCancel, *one.answer,
                                 one.byName ? QMessageBox::Retry : QMessageBox::Cancel));
        EXPECT_EQ(lookUp(one.byName), one.answer == QMessageBox::Retry);
        const bool emptied = one.answer == QMessageBox::Abort || one.answer == QMessageBox::Cancel;
        EXPECT_EQ(field.text(), emptied ? QString() : q(one.typed));
        if (one.found != nullptr) {
            EXPECT_EQ(source.Recordset().Fields(u"kod").Value().toText(), q(one.found));
        }
        boxes.allCame();
    }
}

TEST_F(LookUpTest, ANameIsSoughtInAFreshQueryAndACodeInTheRowsThatAreThere) {
    reg.execute({QStringLiteral("insert into c_iczuj (kod, nazov) values ('04', 'Nitra')")});
    field.setText(QStringLiteral("04"));
    boxes.expect(refusal(q(u"Zadaný kód :04 sa nenašiel v číselníku"), retryCancel,
                         QMessageBox::Retry, QMessageBox::Cancel));
    EXPECT_TRUE(lookUp(false));
    field.setText(QStringLiteral("Nitra"));
    EXPECT_FALSE(lookUp(true));
    EXPECT_EQ(source.RecordSource(), QStringLiteral("select * from c_iczuj order by nazov"));
}

TEST_F(LookUpTest, APickIsWrittenIntoTheFieldAndMovesTheSource) {
    for (const bool byName : {false, true}) {
        list.setPick(2);
        field.setText(QStringLiteral("?"));
        EXPECT_FALSE(lookUp(byName));
        EXPECT_EQ(field.text(), byName ? QStringLiteral("Bardejov") : QStringLiteral("03"));
        EXPECT_EQ(source.Recordset().AbsolutePosition(), 2);
    }
}

TEST_F(LookUpTest, EscInThePickSparesTheFieldOnce) {
    list.setPick(1);
    field.setText(QStringLiteral("?"));
    modKontrola::gZVyberu = true;
    EXPECT_FALSE(lookUp(false));
    EXPECT_EQ(field.text(), QStringLiteral("?"));
    EXPECT_FALSE(modKontrola::gZVyberu);
    EXPECT_FALSE(lookUp(false));
    EXPECT_EQ(field.text(), QStringLiteral("02"));
}

TEST_F(LookUpTest, ADisabledFieldIsNotLookedUpAndErrorsGoToTheCaller) {
    field.setText(QStringLiteral("99"));
    field.setEnabled(false);
    EXPECT_FALSE(lookUp(false));
    field.setEnabled(true);
    EXPECT_THROW(modKontrola::kontrolaCiselnik(list, field, source, true, QStringLiteral("c_iczuj"),
                                               QStringLiteral("kod"), QStringLiteral("iné")),
                 store::EngineError);
}
