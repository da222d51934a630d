#include "forms/KitScreen.h"

#include <QClipboard>
#include <QMenu>
#include <QMimeData>

using namespace Qt::StringLiterals;

namespace {

class EntryFieldTest : public testing::Test {
  public:
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&field, key, modifiers);
    }
    /// Events that the application gives on only in the course of real ones.
    void send(QEvent& event) { static_cast<QObject&>(field).event(&event); }
    void paste() { key(Qt::Key_V, Qt::ControlModifier); }
    void pasteByMenu() {
        QContextMenuEvent asked(QContextMenuEvent::Mouse, QPoint(2, 2),
                                field.mapToGlobal(QPoint(2, 2)));
        send(asked);
        auto* menu = field.findChild<QMenu*>();
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions()) {
            if (action->text().contains(u"Ctrl+V"))
                action->trigger();
        }
        menu->close();
    }
    void drop() {
        QMimeData dragged;
        dragged.setText(QApplication::clipboard()->text());
        QDropEvent dropped(QPointF(2, 2), Qt::CopyAction, &dragged, Qt::LeftButton, {});
        send(dropped);
    }

    kittest::KitScreen screen;
    forms::EntryField& field = screen.text[0];
};

} // namespace

TEST_F(EntryFieldTest, WhatIsPastedComesInAsOneLineOrAsDigits) {
    const std::tuple<const char16_t*, const char16_t*, const char16_t*> cases[] = {
        {u"Nová\tJana\r\n", u"Nová Jana", u""},
        {u"\n\n100\n", u"100", u"100"},
        {u"a \n b\u2028c\u2029", u"a b c", u""},
        {u"\ufeffx\u200by\u00ad\u0001", u"xy", u""},
        {u"805512 / 0007\n", u"805512 / 0", u"8055120007"},
    };
    field.setMaxTyped(10);
    for (const auto& [text, line, digits] : cases) {
        QApplication::clipboard()->setText(QString::fromUtf16(text));
        for (const bool digitsOnly : {false, true}) {
            field.setDigitsOnly(digitsOnly);
            for (const auto& way :
                 {&EntryFieldTest::paste, &EntryFieldTest::pasteByMenu, &EntryFieldTest::drop}) {
                field.setText({});
                (this->*way)();
                EXPECT_EQ(field.text(), QString::fromUtf16(digitsOnly ? digits : line));
            }
        }
    }
    EXPECT_TRUE(screen.told.contains(u"change text(0)"_s)) << "pasted by the user";
    field.setReadOnly(true);
    field.setText(u"x"_s);
    paste();
    EXPECT_EQ(field.text(), u"x"_s);
}

TEST_F(EntryFieldTest, WhatRulesHaveRewrittenCanBeUndoneButNotIntoAnotherRow) {
    field.showBound(u"Eva"_s);
    field.selectAll();
    QTest::keyClicks(&field, u" jana"_s);
    screen.told.clear();
    field.setText(u" Jana"_s);
    screen.text[1].setFocus();
    field.setFocus();
    field.trimAndSelect();
    EXPECT_EQ(screen.told.filter(u"change"_s), QStringList()) << "the program's change";
    QStringList undone;
    for (int step = 0; step < 4 && field.text() != u"Eva"; ++step) {
        undone += field.text();
        key(Qt::Key_Z, Qt::ControlModifier);
    }
    EXPECT_EQ(undone, QStringList({u"Jana"_s, u" Jana"_s, u" jana"_s}));
    EXPECT_EQ(field.text(), u"Eva"_s);
    field.showBound(u"Eva"_s);
    key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(field.text(), u" jana"_s) << "shown anew";
    field.showBound(u"Zita"_s);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field.text(), u"Zita"_s) << "another row";
    key(Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(field.text(), u"Zita"_s) << "a letter for a button";
}

TEST_F(EntryFieldTest, KeepsToItsLimitButLosesNoStoredText) {
    field.setMaxTyped(5);
    field.limitTo(3);
    QTest::keyClicks(&field, u"12345"_s);
    EXPECT_EQ(field.text(), u"123"_s);
    EXPECT_TRUE(field.dataChanged());
    field.showBound(u"123456"_s);
    EXPECT_EQ(field.text(), u"123456"_s);
    EXPECT_FALSE(field.dataChanged());
    field.showBound(QString());
    QTest::keyClicks(&field, u"12345"_s);
    EXPECT_EQ(field.text(), u"123"_s);
}
