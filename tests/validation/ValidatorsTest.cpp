#include "validation/Validators.h"

#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "store/DataSource.h"
#include "store/EngineError.h"
#include "support/Lists.h"
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

/// What is typed, and the code that it finds.
using Found = std::pair<QString, QString>;
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
        field.setText(typed);
        EXPECT_FALSE(validator());
        EXPECT_EQ(field.text(), written);
    }
    /// The box that refuses a typed text gets each answer; that alone tells whether the focus
    /// stays, and whether the text does.
    void isRefused(const Validator& validator, const QString& typed, const Refusal& refusal) {
        for (const Button answer : {Retry, Cancel, Abort, Ignore}) {
            if (!refusal.buttons.testFlag(answer))
                continue;
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

    support::ScriptedBoxes boxes;
    forms::EntryField field, sex, date;
    forms::DropDown holder{nullptr, forms::DropDown::Kind::Editable};
    const Validator checkBirthNumber =
        std::bind(kontrolaRodCis, std::ref(field), std::ref(sex), std::ref(holder), std::ref(date));
};

} // namespace

/// A line is the rule of a field, what is typed into it, and what that becomes; without the last it
/// is refused. What stands in the row already is not asked about, but for dates.
TEST_F(ValidatorsTest, WhatIsTypedPassesOrIsRefusedAsListed) {
    const QStringList taken{u"3"_s, u" "_s, u"5"_s, u""_s, u"0"_s};
    const std::map<QString, std::pair<Validator, Refusal>> rules{
        {u"val"_s,
         {[this] {
              field.setText(QString::number(Val(field.text())));
              return false;
          },
          {}}},
        {u"date"_s,
         {std::bind(kontrolaDatum, std::ref(field)),
          {u"Chybný dátum, zadaj v tvare dd.mm.rrrr!"_s, Retry | Cancel, Retry}}},
        {u"birth number"_s,
         {checkBirthNumber,
          {u"Nesprávne rodné číslo ,opraviť ?"_s, Abort | Retry | Ignore, Abort}}},
        {u"sex"_s,
         {std::bind(kontrolaPohlavie, std::ref(field)),
          {u"Pohlavie môže nadobudnúť len hodnotu M alebo Z!"_s, Retry | Cancel, Cancel}}},
        {u"impairment"_s, {std::bind(kontrolaPostih, std::ref(field), false, taken), {}}},
        {u"impairment alone"_s,
         {std::bind(kontrolaPostih, std::ref(field), true, taken),
          {u"Postihnutie môže nadobudnúť len hodnotu 1 až 9 bez duplicít !"_s, Retry | Cancel,
           Cancel}}}};
    for (const QStringList& line : support::linesOf(u"fields.tsv"_s)) {
        SCOPED_TRACE(line.join(u": "_s).toStdString());
        const auto& [validator, refusal] = rules.at(line[0]);
        if (line.size() == 3) {
            passes(validator, line[1], line[2]);
            continue;
        }
        isRefused(validator, line[1], refusal);
        if (line[0] != u"date") {
            field.showBound(line[1]);
            EXPECT_FALSE(validator());
        }
    }
}

/// A line is a birth number, the date of birth before it, and the sex and the date behind it.
TEST_F(ValidatorsTest, ABirthNumberTellsSexAndBirth) {
    for (const QStringList& line : support::linesOf(u"births.tsv"_s)) {
        date.setText(line[1]);
        passes(checkBirthNumber, line[0], line[0]);
        EXPECT_EQ(sex.text() + holder.text(), line[2] + line[2]);
        EXPECT_EQ(date.text(), line[3]);
    }
}

TEST(EnterNaTab, ActsAsTabWouldAndLeavesOtherKeys) {
    QWidget window;
    forms::EntryField first{&window}, second{&window};
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
         {Found{u"Žilina"_s, u"01"_s}, Found{u" žilina "_s, u"01"_s}, Found{u"L'Aquila"_s, u"02"_s},
          Found{u"Žilina                           x"_s, u"01"_s}, Found{longName, u"05"_s},
          Found{longName.left(30), u"05"_s}})
        EXPECT_EQ(found(true, typed), code);
    isRefused(lookUp(true), u" Nitra' "_s, noName);
    passes(lookUp(true), u""_s, u""_s);
    EXPECT_EQ(found(false, u" 03 "_s), u"03"_s);
}

TEST_F(LookUpTest, ANameIsSoughtInAFreshQueryAndACodeInTheRowsThatAreThere) {
    addPlace(u"04"_s, u"Nitra"_s);
    isRefused(lookUp(false), u"04"_s, noCode);
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
