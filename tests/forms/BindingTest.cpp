#include "forms/Binding.h"

#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/Guard.h"
#include "forms/RichText.h"
#include "store/DataSource.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"

#include <memory>

namespace {

using namespace Qt::StringLiterals;

class BindingTest : public testing::Test {
  public:
    BindingTest() {
        reg.add(u"k_zaklad"_s, {{u"idkod", u"A00"_s}, {u"datnar", QDate(2003, 2, 1)}});
        reg.add(u"k_zaklad"_s, {{u"idkod", u"B00"_s}, {u"meno", u"Beáta"_s}});
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
    store::Recordset& rows() { return source->Recordset(); }
    QString stored(const QString& idkod, const QString& column = u"meno"_s) {
        return reg.text(u"select * from k_zaklad where idkod = '%1'"_s.arg(idkod), column);
    }
    QString shown() const { return name.text() + u' ' + born.text(); }
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
    EXPECT_EQ(shown(), u"Anna 01.02.2003"_s);
    rows().MoveNext();
    EXPECT_EQ(shown(), u"Beáta "_s);
    rows().AddNew();
    EXPECT_EQ(shown(), u" "_s);
    rows().CancelUpdate();
    EXPECT_EQ(shown(), u"Beáta "_s);
    rows().MoveNext();
    ASSERT_TRUE(rows().Eof());
    EXPECT_EQ(shown(), u" "_s);
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
    const auto endsBy = [&](const char* road, const std::function<void()>& end) {
        SCOPED_TRACE(road);
        open();
        rows().Edit();
        retype(name, "Zita");
        end();
        EXPECT_EQ(stored(u"A00"_s), *road == 'd' ? u"Anna"_s : u"Zita"_s);
    };
    endsBy("move", [&] { rows().MoveFirst(); });
    endsBy("find", [&] { rows().FindFirst(u"idkod = 'B00'"_s); });
    endsBy("refresh", [&] { source->Refresh(); });
    endsBy("other rows", [&] {
        source->setRecordSource(u"select * from k_zaklad order by priezv"_s);
        source->Refresh();
    });
    endsBy("source", [&] { source.reset(); });
    endsBy("binding", [&] { binding.reset(); });
    endsBy("drop", [&] { rows().CancelUpdate(); });
    source->Refresh();
    EXPECT_EQ(stored(u"A00"_s), u"Anna"_s);
    rows().AddNew();
    source->Refresh();
    EXPECT_EQ(reg.count(u"k_zaklad"_s), 2) << "an open row without changes";
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
        boxes.expectTold(told + alsoTold, u"Chybová správa"_s, QMessageBox::Warning);
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
