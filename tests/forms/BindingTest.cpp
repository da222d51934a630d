#include "forms/Binding.h"

#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/RichText.h"
#include "store/DataSource.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"

#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace {

class BindingTest : public testing::Test {
  public:
    BindingTest() {
        reg.execute({row(QStringLiteral("A00"), QStringLiteral("Anna"), QStringLiteral("1.2.2003")),
                     row(QStringLiteral("B00"), QStringLiteral("Beáta"), QString())});
        open();
    }
    /// A screen anew, on the rows of the beginning.
    void open() {
        binding.reset();
        source.reset();
        reg.execute({QStringLiteral("update k_zaklad set meno = 'Anna' where idkod = 'A00'")});
        source = std::make_unique<store::DataSource>(reg.engine);
        source->setDatabaseName(reg.folder.database());
        source->setRecordSource(all);
        binding = std::make_unique<forms::Binding>(*source);
        binding->bind(key, QStringLiteral("IDKOD"));
        binding->bind(name, QStringLiteral("meno"));
        binding->bind(born, QStringLiteral("datnar"));
        source->Refresh();
    }
    static QString row(const QString& idkod, const QString& meno, const QString& datnar) {
        return QStringLiteral("insert into k_zaklad (idkod, meno, datnar) values ('%1', '%2', %3)")
            .arg(idkod, meno,
                 datnar.isEmpty() ? QStringLiteral("null")
                                  : QStringLiteral("datevalue('%1')").arg(datnar));
    }
    store::Recordset& rows() { return source->Recordset(); }
    QString stored(const QString& idkod, const QString& column = QStringLiteral("meno")) {
        return reg.text(QStringLiteral("select * from k_zaklad where idkod = '%1'").arg(idkod),
                        column);
    }
    void retype(forms::EntryField& field, const char* text) {
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, QString::fromUtf8(text));
    }

    const QString all = QStringLiteral("select * from k_zaklad order by idkod");
    support::TemporaryRegister reg;
    support::ScriptedBoxes boxes;
    forms::EntryField key, name, born;
    std::unique_ptr<store::DataSource> source;
    std::unique_ptr<forms::Binding> binding;
};

} // namespace

TEST_F(BindingTest, FieldsFollowTheCurrentRowAndTheOpenOne) {
    EXPECT_EQ(name.text(), QStringLiteral("Anna"));
    EXPECT_EQ(born.text(), QStringLiteral("01.02.2003"));
    rows().MoveNext();
    EXPECT_EQ(name.text(), QStringLiteral("Beáta"));
    EXPECT_EQ(born.text(), QString());
    rows().AddNew();
    EXPECT_EQ(name.text(), QString());
    rows().CancelUpdate();
    EXPECT_EQ(name.text(), QStringLiteral("Beáta"));
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
    rows().Fields(u"datnar").setValue(store::Value());
    rows().Update();
    EXPECT_FALSE(name.dataChanged());
    EXPECT_EQ(stored(QStringLiteral("A00")), QStringLiteral("Zita"));
    EXPECT_EQ(stored(QStringLiteral("A00"), QStringLiteral("datnar")), QString());
}

TEST_F(BindingTest, TypingIsLimitedByTheColumn) {
    retype(name, "123456789012345678901234");
    EXPECT_EQ(name.text().size(), 20);
}

TEST_F(BindingTest, EveryEndOfAChangedOpenRowWritesItUnlessDropped) {
    struct End {
        const char* name;
        std::function<void(BindingTest&)> leave;
        bool writes;
    };
    const End ends[] = {
        {"refresh", [](auto& t) { t.source->Refresh(); }, true},
        {"move", [](auto& t) { t.rows().MoveFirst(); }, true},
        {"find", [](auto& t) { t.rows().FindFirst(QStringLiteral("idkod = 'B00'")); }, true},
        {"other record source",
         [](auto& t) {
             t.source->setRecordSource(QStringLiteral("select * from k_zaklad order by priezv"));
             t.source->Refresh();
         },
         true},
        {"end of source", [](auto& t) { t.source.reset(); }, true},
        {"end of binding", [](auto& t) { t.binding.reset(); }, true},
        {"dropped",
         [](auto& t) {
             t.rows().CancelUpdate();
             t.source->Refresh();
         },
         false},
    };
    for (const End& end : ends) {
        SCOPED_TRACE(end.name);
        open();
        rows().Edit();
        retype(name, "Zita");
        end.leave(*this);
        EXPECT_EQ(stored(QStringLiteral("A00")),
                  end.writes ? QStringLiteral("Zita") : QStringLiteral("Anna"));
    }
}

TEST_F(BindingTest, AnOpenRowWithoutChangesIsDropped) {
    rows().AddNew();
    source->Refresh();
    EXPECT_EQ(reg.count(QStringLiteral("k_zaklad")), 2);
}

TEST_F(BindingTest, AKeyTriedAgainIsWrittenEvenWhenItIsTheOldOne) {
    rows().MoveNext();
    rows().Edit();
    key.setText(QStringLiteral("A00"));
    EXPECT_THROW(rows().Update(), store::EngineError);
    key.setText(QStringLiteral("B00"));
    rows().Update();
    EXPECT_EQ(stored(QStringLiteral("B00")), QStringLiteral("Beáta"));
    EXPECT_EQ(reg.count(QStringLiteral("k_zaklad")), 2);
}

TEST_F(BindingTest, AnUnboundFieldNeitherShowsNorWrites) {
    rows().Edit();
    born.clear();
    binding->unbind(born);
    rows().Fields(u"datnar").setValue(store::Value());
    rows().Update();
    EXPECT_EQ(born.text(), QString());
    born.setText(QStringLiteral("x"));
    binding->bind(born, QStringLiteral("datnar"));
    EXPECT_EQ(born.text(), QString());
    EXPECT_TRUE(binding->takeErrors().empty());
}

TEST_F(BindingTest, AnEmptiedDateIsNull) {
    rows().Edit();
    born.clear();
    rows().Update();
    EXPECT_TRUE(binding->takeErrors().empty());
    EXPECT_EQ(stored(QStringLiteral("A00"), QStringLiteral("datnar")), QString());
}

TEST_F(BindingTest, WhatIsRefusedIsToldOnceAndTheRestIsWritten) {
    forms::EntryField age;
    binding->bind(age, QStringLiteral("vek"));
    rows().Edit();
    retype(name, "Zita");
    age.setText(QStringLiteral("veľa"));
    EXPECT_FALSE(binding->writeBack());
    EXPECT_EQ(stored(QStringLiteral("A00")), QStringLiteral("Zita"));
    const auto errors = binding->takeErrors();
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_TRUE(binding->takeErrors().empty());
    const QString error = QStringLiteral("Chyba č. %1: %2")
                              .arg(int(errors[0].error.number()))
                              .arg(errors[0].error.description());
    boxes.expect(support::ExpectedBox{
        .text = QStringLiteral("Tieto údaje sa nezapísali:\n\nvek „veľa“\n") + error,
        .title = QStringLiteral("Chybová správa"),
        .icon = QMessageBox::Warning});
    forms::showNotWritten(nullptr, errors);
}

TEST_F(BindingTest, ARefusedRowOfALeavingIsToldAsAWhole) {
    rows().Edit();
    key.setText(QStringLiteral("B00"));
    source->Refresh();
    const auto errors = binding->takeErrors();
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors[0].error.number(), store::ErrorNumber::DuplicateKey);
    EXPECT_EQ(stored(QStringLiteral("A00")), QStringLiteral("Anna"));
}

TEST_F(BindingTest, LongTextsAreReadWhenTheyAreInSight) {
    reg.execute(
        {QStringLiteral("insert into k_memo (idkod, poznamky) values ('A00', '<p>prvá</p>')")});
    store::DataSource memos(reg.engine);
    memos.setDatabaseName(reg.folder.database());
    memos.setRecordSource(QStringLiteral("k_memo"));
    forms::RichText notes;
    forms::Binding memoBinding(memos);
    memoBinding.bind(notes, QStringLiteral("poznamky"));
    memos.Refresh();
    EXPECT_EQ(notes.text(), QString());
    memos.Recordset().Edit();
    memos.Recordset().Update();
    notes.show();
    EXPECT_EQ(notes.text(), QStringLiteral("<p>prvá</p>"));
    memos.Recordset().Edit();
    QTest::keyClicks(&notes.editor(), QStringLiteral("x"));
    memos.Refresh();
    EXPECT_EQ(notes.text(), QStringLiteral("<p>xprvá</p>"));
}

TEST_F(BindingTest, ADropDownCanBeBound) {
    forms::DropDown box(nullptr, forms::DropDown::Kind::Editable);
    binding->bind(box, QStringLiteral("meno"));
    EXPECT_EQ(box.text(), QStringLiteral("Anna"));
    rows().Edit();
    box.setText(QStringLiteral("Eva"));
    rows().Update();
    EXPECT_EQ(stored(QStringLiteral("A00")), QStringLiteral("Eva"));
}
