#include "forms/Binding.h"

#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/Guard.h"
#include "forms/RichText.h"
#include "store/DataSource.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"

#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace Qt::StringLiterals;

class BindingTest : public testing::Test {
  public:
    BindingTest() {
        reg.execute(
            {row(u"A00"_s, u"Anna"_s, u"1.2.2003"_s), row(u"B00"_s, u"Beáta"_s, QString())});
        open();
    }
    /// A screen anew, on the rows of the beginning.
    void open() {
        binding.reset();
        source.reset();
        reg.execute({u"update k_zaklad set meno = 'Anna' where idkod = 'A00'"_s});
        source = std::make_unique<store::DataSource>(reg.engine);
        source->setDatabaseName(reg.folder.database());
        source->setRecordSource(all);
        binding = std::make_unique<forms::Binding>(*source);
        binding->bind(key, u"IDKOD"_s);
        binding->bind(name, u"meno"_s);
        binding->bind(born, u"datnar"_s);
        source->Refresh();
    }
    static QString row(const QString& idkod, const QString& meno, const QString& datnar) {
        return u"insert into k_zaklad (idkod, meno, datnar) values ('%1', '%2', %3)"_s.arg(
            idkod, meno, datnar.isEmpty() ? u"null"_s : u"datevalue('%1')"_s.arg(datnar));
    }
    store::Recordset& rows() { return source->Recordset(); }
    QString stored(const QString& idkod, const QString& column = u"meno"_s) {
        return reg.text(u"select * from k_zaklad where idkod = '%1'"_s.arg(idkod), column);
    }
    void retype(forms::EntryField& field, const char* text) {
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, QString::fromUtf8(text));
    }

    const QString all = u"select * from k_zaklad order by idkod"_s;
    support::TemporaryRegister reg;
    support::ScriptedBoxes boxes;
    QWidget window;
    forms::EntryField key{&window}, name{&window}, born{&window};
    std::unique_ptr<store::DataSource> source;
    std::unique_ptr<forms::Binding> binding;
};

} // namespace

TEST_F(BindingTest, FieldsFollowTheCurrentRowAndTheOpenOne) {
    EXPECT_EQ(name.text(), u"Anna"_s);
    EXPECT_EQ(born.text(), u"01.02.2003"_s);
    rows().MoveNext();
    EXPECT_EQ(name.text(), u"Beáta"_s);
    EXPECT_EQ(born.text(), QString());
    rows().AddNew();
    EXPECT_EQ(name.text(), QString());
    rows().CancelUpdate();
    EXPECT_EQ(name.text(), u"Beáta"_s);
    rows().MoveNext();
    ASSERT_TRUE(rows().Eof());
    EXPECT_EQ(name.text(), QString());
    EXPECT_FALSE(name.dataChanged());
}

TEST_F(BindingTest, UpdateWritesWhatWasChangedAndLeavesTheRestToTheProgram) {
    rows().Edit();
    retype(name, "Zita");
    EXPECT_TRUE(name.dataChanged());
    EXPECT_TRUE(binding->dataChanged());
    retype(name, "123456789012345678901234");
    EXPECT_EQ(name.text().size(), 20) << "the column's width";
    retype(name, "Zita");
    rows().Fields(u"datnar").setValue(store::Value());
    rows().Update();
    EXPECT_FALSE(name.dataChanged());
    EXPECT_EQ(stored(u"A00"_s), u"Zita"_s);
    EXPECT_EQ(stored(u"A00"_s, u"datnar"_s), QString());
}

TEST_F(BindingTest, EveryEndOfAChangedOpenRowWritesItUnlessDropped) {
    const QString other = u"select * from k_zaklad order by priezv"_s;
    for (const char* end : {"refresh", "move", "find", "other rows", "source", "binding", "drop"}) {
        SCOPED_TRACE(end);
        open();
        rows().Edit();
        retype(name, "Zita");
        switch (*end) {
        case 'm':
            rows().MoveFirst();
            break;
        case 'f':
            rows().FindFirst(u"idkod = 'B00'"_s);
            break;
        case 's':
            source.reset();
            break;
        case 'b':
            binding.reset();
            break;
        case 'd':
            rows().CancelUpdate();
            break;
        default:
            source->setRecordSource(*end == 'o' ? other : all);
            source->Refresh();
        }
        EXPECT_EQ(stored(u"A00"_s), *end == 'd' ? u"Anna"_s : u"Zita"_s);
    }
    source->Refresh();
    EXPECT_EQ(stored(u"A00"_s), u"Anna"_s);
}

TEST_F(BindingTest, AnOpenRowWithoutChangesIsDropped) {
    rows().AddNew();
    source->Refresh();
    EXPECT_EQ(reg.count(u"k_zaklad"_s), 2);
}

TEST_F(BindingTest, AKeyTriedAgainIsWrittenEvenWhenItIsTheOldOne) {
    rows().MoveNext();
    rows().Edit();
    key.setText(u"A00"_s);
    EXPECT_THROW(rows().Update(), store::EngineError);
    key.setText(u"B00"_s);
    rows().Update();
    EXPECT_EQ(stored(u"B00"_s), u"Beáta"_s);
    EXPECT_EQ(reg.count(u"k_zaklad"_s), 2);
}

TEST_F(BindingTest, WhatIsRefusedIsToldOnceAndTheRestIsWritten) {
    forms::EntryField age(&window);
    binding->bind(age, u"vek"_s);
    const QString told =
        u"Tieto údaje sa nezapísali:\n\nvek „veľa“\nChyba č. 3421: Hodnota sa nedá previesť "
        "na typ stĺpca vek."_s;
    const auto expectTold = [&](const QString& alsoTold) {
        boxes.expect(
            {.text = told + alsoTold, .title = u"Chybová správa"_s, .icon = QMessageBox::Warning});
    };
    rows().Edit();
    retype(name, "Zita");
    age.setText(u"veľa"_s);
    expectTold({});
    source->Refresh();
    EXPECT_TRUE(QTest::qWaitFor([&] { return boxes.isEmpty(); }));
    EXPECT_EQ(stored(u"A00"_s), u"Zita"_s);
    // The row as a whole, tried twice.
    rows().Edit();
    age.setText(u"veľa"_s);
    key.setText(u"B00"_s);
    expectTold(u"\n\nzáznam\nChyba č. 3022: Zmena sa nedá zapísať, v kľúči by vznikli dve rovnaké "
               "hodnoty."_s);
    forms::guarded(&age, [&] {
        EXPECT_THROW(rows().Update(), store::EngineError);
        source->Refresh();
    });
    EXPECT_EQ(stored(u"A00"_s), u"Zita"_s);
}

TEST_F(BindingTest, LongTextsAreReadWhenTheyAreInSight) {
    reg.execute({u"insert into k_memo (idkod, poznamky) values ('A00', '<p>prvá</p>')"_s});
    store::DataSource memos(reg.engine);
    memos.setDatabaseName(reg.folder.database());
    memos.setRecordSource(u"k_memo"_s);
    forms::RichText notes;
    forms::Binding memoBinding(memos);
    memoBinding.bind(notes, u"poznamky"_s);
    memos.Refresh();
    EXPECT_EQ(notes.text(), QString());
    memos.Recordset().Edit();
    memos.Recordset().Update();
    notes.show();
    EXPECT_EQ(notes.text(), u"<p>prvá</p>"_s);
    memos.Recordset().Edit();
    QTest::keyClicks(&notes.editor(), u"x"_s);
    memos.Refresh();
    EXPECT_EQ(notes.text(), u"<p>xprvá</p>"_s);
}

TEST_F(BindingTest, ADropDownCanBeBoundAndAnEmptiedDateIsNull) {
    forms::DropDown box(nullptr, forms::DropDown::Kind::Editable);
    binding->bind(box, u"meno"_s);
    EXPECT_EQ(box.text(), u"Anna"_s);
    rows().Edit();
    box.setText(u"Eva"_s);
    born.clear();
    rows().Update();
    EXPECT_EQ(stored(u"A00"_s) + stored(u"A00"_s, u"datnar"_s), u"Eva"_s);
}
