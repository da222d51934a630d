#include "forms/RichText.h"

#include "forms/RichHtml.h"
#include "support/ScriptedBoxes.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTest>
#include <QTextDocument>
#include <QToolButton>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

class RichTextTest : public testing::Test {
  protected:
    RichTextTest() {
        field.show();
        field.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&field));
        field.setFocus();
    }
    void type(const char* text) { QTest::keyClicks(&field.editor(), QString::fromUtf8(text)); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&field.editor(), key, modifiers);
    }

    forms::RichText field;
};

} // namespace

TEST(RichHtml, StoredTextsComeBackTheSame) {
    for (const char16_t* text :
         {u"", u"<p>Ján  a\u00a0Mária</p>", u"<p></p><p>druhý</p><p></p>",
          u"<p>a<b>b</b><b><i>c</i></b><b><i><u>d</u></i></b></p>",
          u"<p>a &lt;b&gt; &amp;lt; &quot;q&quot;</p>", u"<p>riadok<br>riadok</p>",
          u"<ul><li>prvá</li><li><b>druhá</b></li></ul><p>za</p>",
          u"<p>pred</p><ol><li>prvá</li></ol><ul><li>iná</li></ul>", u"<ul><li></li></ul>"}) {
        QTextDocument document;
        forms::readStored(QString::fromUtf16(text), document);
        EXPECT_EQ(forms::storedHtml(document), QString::fromUtf16(text));
    }
}

TEST(RichHtml, PlainAndBrokenTextsAreShownAsFarAsTheyGo) {
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"prvý\ndruhý <b>", u"<p>prvý</p><p>druhý &lt;b&gt;</p>"},
        {u"<p>a<font size=3>b</font>c<b", u"<p>abc</p>"},
        {u"<p>a<b>b<i>c</i></b></p>", u"<p>a<b>b</b><b><i>c</i></b></p>"},
        {u"<p>a</b></ul>c</p>", u"<p>ac</p>"},
        {u"<P>a<STRONG>b</STRONG></P>", u"<p>a<b>b</b></p>"},
    };
    for (const auto& [stored, shown] : cases) {
        QTextDocument document;
        forms::readStored(QString::fromUtf16(stored), document);
        EXPECT_EQ(forms::storedHtml(document), QString::fromUtf16(shown));
    }
}

TEST(RichHtml, WordsAloneForPlainPlaces) {
    EXPECT_EQ(forms::plainText(u"<p>a<br>b</p><ul><li>c</li></ul><ol><li>d</li><li>"
                               "<b>e</b></li></ol>"_s),
              u"a\nb\n• c\n1. d\n2. e"_s);
    EXPECT_EQ(forms::plainText(QString()), QString());
}

TEST_F(RichTextTest, KeysMakeBoldItalicUnderlinedAndLists) {
    key(Qt::Key_B, Qt::ControlModifier);
    type("a");
    key(Qt::Key_B, Qt::ControlModifier);
    key(Qt::Key_I, Qt::ControlModifier);
    type("b");
    key(Qt::Key_I, Qt::ControlModifier);
    key(Qt::Key_U, Qt::ControlModifier);
    type("c");
    key(Qt::Key_U, Qt::ControlModifier);
    key(Qt::Key_Return);
    key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    type("d");
    key(Qt::Key_Return);
    key(Qt::Key_Return);
    type("e");
    key(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(field.text(), u"<p><b>a</b><i>b</i><u>c</u></p><ul><li>d</li></ul>"
                            "<ol><li>e</li></ol>"_s);
    for (int i = 0; i < 12; ++i)
        key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field.text(), QString());
}

TEST_F(RichTextTest, ToolsActOnTheSelectionAndKeepTheFocus) {
    type("slovo");
    field.editor().selectAll();
    for (auto* tool : field.findChildren<QToolButton*>().mid(0, 3))
        QTest::mouseClick(field.windowHandle(), Qt::LeftButton, {},
                          tool->mapTo(&field, tool->rect().center()));
    EXPECT_EQ(field.text(), u"<p><b><i><u>slovo</u></i></b></p>"_s);
    EXPECT_EQ(QApplication::focusWidget(), &field.editor());
    EXPECT_TRUE(field.findChildren<QToolButton*>().first()->isChecked());
}

TEST_F(RichTextTest, WhatIsPastedIsReduced) {
    auto* mime = new QMimeData;
    mime->setHtml(
        u"<html xmlns:o='urn:x'><head><style>p{color:red}</style></head><body>"
        "<!--StartFragment--><p class=MsoNormal style='font-size:20pt;color:red'>Text "
        "<span style='font-weight:700'>tučný</span><o:p></o:p></p>"
        "<table><tr><td>bunka</td></tr></table><img src='file:///x.png'>"
        "<ul><li>položka <a href='http://x/'>odkaz</a></li></ul><!--EndFragment--></body></html>"_s);
    QApplication::clipboard()->setMimeData(mime);
    key(Qt::Key_V, Qt::ControlModifier);
    const QString text = field.text();
    EXPECT_TRUE(text.contains(u"<p>Text <b>tučný</b></p>"_s)) << text.toStdString();
    EXPECT_TRUE(text.contains(u"<p>bunka</p>"_s)) << text.toStdString();
    EXPECT_TRUE(text.contains(u"<ul><li>položka odkaz</li></ul>"_s)) << text.toStdString();
    for (const char16_t* lost : {u"style", u"img", u"\ufffc", u"font", u"table"})
        EXPECT_FALSE(text.contains(QString::fromUtf16(lost))) << text.toStdString();
    field.showBound(text);
    EXPECT_FALSE(field.dataChanged());
}

TEST_F(RichTextTest, OnlyTheUserChangesIt) {
    int edits = 0;
    QObject::connect(&field, &forms::RichText::textEdited, &field, [&] { ++edits; });
    field.showBound(u"obyčajný text"_s);
    EXPECT_FALSE(field.dataChanged());
    EXPECT_EQ(edits, 0);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(field.dataChanged()) << "undo reached behind the loaded text";
    type("x");
    EXPECT_TRUE(field.dataChanged());
    EXPECT_GT(edits, 0);
    key(Qt::Key_Backspace);
    EXPECT_FALSE(field.dataChanged());
    field.setReadOnly(true);
    type("y");
    key(Qt::Key_B, Qt::ControlModifier);
    EXPECT_FALSE(field.dataChanged());
}
