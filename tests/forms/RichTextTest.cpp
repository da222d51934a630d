#include "forms/RichText.h"

#include "support/ScriptedBoxes.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTemporaryDir>
#include <QToolButton>

#include <sys/stat.h>

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

    void ctrl(Qt::Key letter) { key(letter, Qt::ControlModifier); }
    void paste(const QString& html) {
        field.setText({});
        auto* mime = new QMimeData;
        mime->setHtml(html);
        QApplication::clipboard()->setMimeData(mime);
        ctrl(Qt::Key_V);
    }

    forms::RichText field;
};

} // namespace

TEST_F(RichTextTest, StoredTextsComeBackTheSameAndBrokenOnesAsFarAsTheyGo) {
    for (const char16_t* text :
         {u"", u"<p>Ján  a\u00a0Mária</p>", u"<p></p><p>druhý</p><p></p>",
          u"<p>a<b>b</b><b><i>c</i></b><b><i><u>d</u></i></b></p>",
          u"<p>a &lt;b&gt; &amp;lt; &quot;q&quot;</p>", u"<p>riadok<br>riadok<br></p>",
          u"<ul><li>prvá</li><li><b>druhá</b></li></ul><p>za</p>",
          u"<p>pred</p><ol><li>prvá</li></ol><ul><li>iná</li></ul>", u"<ul><li></li></ul>",
          u"prvý\ndruhý <b>=><p>prvý</p><p>druhý &lt;b&gt;</p>",
          u"<p>a<font size=3>b</font>c<b=><p>abc</p>", u"<p>a</b></ul>c</p>=><p>ac</p>",
          u"<P>a<STRONG>b</STRONG></P>=><p>a<b>b</b></p>"}) {
        const QString stored = QString::fromUtf16(text).section(u"=>"_s, 0, 0);
        field.setText(stored);
        EXPECT_EQ(field.text(), QString::fromUtf16(text).section(u"=>"_s, -1));
    }
}

TEST_F(RichTextTest, ToolsAreOneStopOfTabAndArrowsLeadAmongThem) {
    type("a");
    ctrl(Qt::Key_A);
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClick(field.window()->focusWidget(), Qt::Key_Right);
    QTest::keyClick(field.window()->focusWidget(), Qt::Key_Space);
    QTest::keyClick(field.window()->focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(field.editor().hasFocus());
    EXPECT_EQ(field.text(), u"<p><i>a</i></p>"_s);
}

TEST_F(RichTextTest, KeysMakeBoldItalicUnderlinedAndLists) {
    for (const auto& [style, text] :
         {std::pair{Qt::Key_B, "a"}, {Qt::Key_I, "b"}, {Qt::Key_U, "c"}}) {
        ctrl(style);
        type(text);
        ctrl(style);
    }
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
        ctrl(Qt::Key_Z);
    EXPECT_EQ(field.text(), QString());
}

TEST_F(RichTextTest, ToolsActOnTheSelectionAndKeepTheFocus) {
    type("slovo");
    field.editor().selectAll();
    for (auto* tool : field.findChildren<QToolButton*>().mid(0, 3))
        support::press(*tool);
    EXPECT_EQ(field.text(), u"<p><b><i><u>slovo</u></i></b></p>"_s);
    EXPECT_EQ(QApplication::focusWidget(), &field.editor());
    EXPECT_TRUE(field.findChildren<QToolButton*>().first()->isChecked());
}

TEST_F(RichTextTest, WhatIsPastedIsReduced) {
    const std::pair<QString, const char16_t*> cases[] = {
        {u"<html xmlns:o='urn:x'><head><style>p{color:red}</style></head><body>vedľa"
         "<!--StartFragment--><p class=MsoNormal style='font-size:20pt;color:red'>Text \n"
         "<span style='font-weight:700'>tučný</span><o:p></o:p></p>"
         "<table><tr><td>bunka</td></tr></table><img src='file:///x.png'>"
         "<ul><li>položka <a href='http://x/?a>b'>odkaz</a></li></ul><!--EndFragment-->x"_s,
         u"<p>Text <b>tučný</b></p><p>bunka</p><ul><li>položka odkaz</li></ul>"},
        {u"<b style='font-weight:normal'>a<br></b><h1>b</h1>&#8222;&hellip;&nbsp;&x; 1 < 2 &"_s,
         u"<p>a</p><p><b>b</b></p><p>„…\u00a0&amp;x; 1 &lt; 2 &amp;</p>"},
        {u"<ol><li><p>a</p><p>b</p><ul><li>c</ul><li>d</ol><pre>x  y\nz</pre>"_s,
         u"<ol><li>a<br>b</li></ol><ul><li>c</li></ul><ol><li>d</li></ol><p>x  y<br>z</p>"},
    };
    for (const auto& [html, kept] : cases) {
        paste(html);
        EXPECT_EQ(field.text(), QString::fromUtf16(kept));
        field.showBound(field.text());
        EXPECT_FALSE(field.dataChanged());
    }
}

/// A pipe that nobody writes into stops for good whoever opens it.
TEST_F(RichTextTest, WhatIsPastedOpensNothingAndIsReadAtOnce) {
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"rura"_s);
    ASSERT_EQ(mkfifo(qPrintable(pipe), 0600), 0);
    for (const QString& html :
         {u"<link rel=stylesheet href='file://%1'>slovo"_s, u"<style>@import '%1';</style>slovo"_s,
          u"<body background='file://%1'>slovo"_s, u"<img src='%1'>slovo"_s,
          u"<p style='background:url(%1)'>slovo</p>"_s}) {
        paste(html.arg(pipe));
        EXPECT_EQ(field.text(), u"<p>slovo</p>"_s);
    }
    for (const char16_t* piece : {u"x", u"<b>", u"<ul><li>", u"<table><tr><td>", u"<p a=\"",
                                  u"<!--", u"</b>", u"&ab; ", u"<style>", u"<a b='c"}) {
        const QString text = QString::fromUtf16(piece);
        SCOPED_TRACE(text.toStdString());
        paste(u"slovo"_s + text.repeated(180'000 / text.size()));
        EXPECT_TRUE(field.text().startsWith(u"<p>slovo"));
        EXPECT_EQ(field.editor().wordWrapMode() == QTextOption::WrapAnywhere, text == u"x")
            << "no search for where a word may end";
    }
}

TEST_F(RichTextTest, FromFieldToFieldNoBlankIsLost) {
    const QString text = u"<ol><li>c</li></ol><p>a  <b>b</b></p><p></p><p>c</p>"_s;
    field.setText(text);
    ctrl(Qt::Key_A);
    for (const auto& [letter, left] :
         {std::pair{Qt::Key_X, QString()}, {Qt::Key_V, text}, {Qt::Key_Z, QString()}}) {
        ctrl(letter);
        EXPECT_EQ(field.text(), left) << "in one step";
    }
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
    field.showBound(field.text());
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field.text(), u"<p>obyčajný text</p>"_s) << "shown anew, it can still be undone";
    field.showBound(field.text());
    field.setReadOnly(true);
    type("y");
    field.editor().selectAll();
    key(Qt::Key_B, Qt::ControlModifier);
    EXPECT_FALSE(field.dataChanged());
}
