#include "forms/RichText.h"
#include "spelling/Speller.h"
#include "support/ScriptedBoxes.h"
#include "support/TinyDictionary.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QTextBlock>

namespace {

using namespace Qt::StringLiterals;

class SpellCheckTest : public testing::Test {
  protected:
    SpellCheckTest() {
        field.resize(600, 300);
        field.setSpelling(speller);
        field.show();
        field.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&field));
        field.setFocus();
    }
    ~SpellCheckTest() override {
        if (auto* menu = QApplication::activePopupWidget())
            menu->close();
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(keyboard(), key, modifiers);
    }
    static QWidget* menu() { return QApplication::activePopupWidget(); }
    QWidget* keyboard() { return menu() != nullptr ? menu() : &field.editor(); }
    void type(const char* text) { QTest::keyClicks(&field.editor(), QLatin1String(text)); }

    /// Whether there is a wave below the middle of a word, as it is to be seen.
    bool isMarked(const QString& word) {
        QTextCursor at = field.editor().document()->find(word);
        EXPECT_FALSE(at.isNull());
        const QRect end = field.editor().cursorRect(at);
        at.setPosition(at.selectionStart());
        const QRect line = field.editor().cursorRect(at).united(end);
        const QImage seen = field.editor().viewport()->grab(line.adjusted(2, 0, -2, 2)).toImage();
        int red = 0;
        for (int i = 0; i < seen.width() * seen.height(); ++i) {
            const QRgb pixel = seen.pixel(i % seen.width(), i / seen.width());
            red += qRed(pixel) > qGreen(pixel) + 60 ? 1 : 0;
        }
        return red > seen.width() / 3;
    }
    QString marked() {
        QStringList words;
        for (const QString& word : field.editor().toPlainText().simplified().split(u' '))
            if (isMarked(word))
                words << word;
        return words.join(u' ');
    }
    bool soonMarked(const QString& words) {
        return QTest::qWaitFor([&] { return marked() == words; });
    }
    /// The menu's lines that can be chosen, once the first of them is this.
    QString offered(const QString& first) {
        QStringList lines;
        const bool came = QTest::qWaitFor([&] {
            auto* open = qobject_cast<QMenu*>(menu());
            lines.clear();
            for (const QAction* line : open != nullptr ? open->actions() : QList<QAction*>())
                if (line->isEnabled() && !line->isSeparator())
                    lines << line->text().section(u'\t', 0, 0).remove(u'&');
            return lines.value(0) == first;
        });
        EXPECT_TRUE(came) << first.toStdString() << " in " << lines.join(u"|"_s).toStdString();
        return lines.join(u'|');
    }
    QString line() { return field.findChild<QLabel*>()->text(); }

    support::TinyDictionary files{u"žiak\nčíta\nrád\nkniha"_s};
    spelling::Speller speller{{files.folder.path()}, files.path(u"slova.txt")};
    forms::RichText field;
};

} // namespace

TEST_F(SpellCheckTest, MarksOnTheScreenAloneAndNotTheWordThatIsTyped) {
    const QString text = u"<p><b>zi</b>ak cíta</p><ul><li>rád ŠZŠ</li></ul>"_s;
    int edits = 0;
    QObject::connect(&field, &forms::RichText::textEdited, &field, [&] { ++edits; });
    field.showBound(text);
    EXPECT_TRUE(soonMarked(u"ziak cíta"_s)) << marked().toStdString();
    EXPECT_EQ(field.text(), text);
    EXPECT_FALSE(field.dataChanged() || field.editor().document()->isUndoAvailable());
    EXPECT_EQ(edits, 0);
    for (QTextBlock block = field.editor().document()->begin(); block.isValid();
         block = block.next())
        EXPECT_TRUE(block.layout()->formats().isEmpty());

    EXPECT_TRUE(
        QTest::qWaitFor([&] { return speller.verdict(u"knyha"_s) == spelling::Verdict::Wrong; }));
    key(Qt::Key_End, Qt::ControlModifier);
    type(" knyha");
    EXPECT_EQ(marked(), u"ziak cíta"_s);
    type(" ");
    EXPECT_TRUE(soonMarked(u"ziak cíta knyha"_s));
    key(Qt::Key_Left);
    EXPECT_EQ(marked(), u"ziak cíta knyha"_s) << "looked at, not typed";
    key(Qt::Key_Backspace);
    key(Qt::Key_Home);
    EXPECT_TRUE(soonMarked(u"ziak cíta knyh"_s));

    field.showBound(u"žiak číta rád žiak číta rád ziak žiak rád cíta"_s);
    field.resize(field.minimumSizeHint().width(), 300);
    EXPECT_TRUE(soonMarked(u"ziak cíta"_s)) << "in their lines";
    field.setReadOnly(true);
    EXPECT_EQ(marked(), QString());
}

TEST_F(SpellCheckTest, AKeyGoesFromWordToWordAndReplacesInOneStep) {
    const QString text = u"<p>žiak <b>cíta</b></p><p>ziak</p>"_s;
    field.showBound(text);
    key(Qt::Key_F7);
    EXPECT_EQ(offered(u"číta"_s), u"číta|Pridať do slovníka|Ďalšie neznáme slovo"_s);
    key(Qt::Key_Return);
    EXPECT_EQ(field.text(), u"<p>žiak <b>číta</b></p><p>ziak</p>"_s);
    key(Qt::Key_F7);
    offered(u"žiak"_s);
    EXPECT_EQ(field.editor().textCursor().selectedText(), u"ziak"_s);
    key(Qt::Key_Escape);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field.text(), text);
    key(Qt::Key_Home, Qt::ControlModifier);
    key(Qt::Key_F7);
    offered(u"číta"_s);
    key(Qt::Key_F7);
    offered(u"žiak"_s);
    key(Qt::Key_D);
    EXPECT_TRUE(soonMarked(u"cíta"_s));
    EXPECT_EQ(line(), u"Slovo „ziak“ je v slovníku"_s);
    EXPECT_EQ(files.read(u"slova.txt"), "ziak\n");
    key(Qt::Key_F7);
    offered(u"číta"_s);
    key(Qt::Key_Return);
    key(Qt::Key_F7);
    EXPECT_TRUE(QTest::qWaitFor([&] { return line() == u"Žiadne neznáme slovo"_s; }));
}

TEST_F(SpellCheckTest, TheMenuOfTheTextIsSlovakAndKnowsTheWordBelowTheMouse) {
    field.showBound(u"<p>žiak cíta</p>"_s);
    ASSERT_TRUE(soonMarked(u"cíta"_s));
    const auto openAt = [&](const QString& word) {
        const QTextCursor at = field.editor().document()->find(word);
        const QPoint place = field.editor().cursorRect(at).center() - QPoint(4, 0);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                                field.editor().viewport()->mapToGlobal(place));
        QApplication::sendEvent(field.editor().viewport(), &event);
    };
    QApplication::clipboard()->setText(u"slovo"_s);
    openAt(u"cíta"_s);
    EXPECT_EQ(offered(u"číta"_s), u"číta|Pridať do slovníka|Ďalšie neznáme slovo|Vložiť|"
                                  "Vybrať všetko"_s);
    key(Qt::Key_Return);
    EXPECT_EQ(field.text(), u"<p>žiak číta</p>"_s);
    openAt(u"žiak"_s);
    EXPECT_EQ(offered(u"Ďalšie neznáme slovo"_s),
              u"Ďalšie neznáme slovo|Späť|Vložiť|Vybrať všetko"_s);
}

TEST_F(SpellCheckTest, LongTextsAreSearchedToTheirEndAndOneThatChangesIsNot) {
    const QString correct = u"žiak číta "_s.repeated(30'000);
    field.showBound(u"<p>"_s + correct + u"</p><p>"_s + correct + u"knyha</p>"_s);
    key(Qt::Key_F7);
    offered(u"kniha"_s);
    key(Qt::Key_Escape);
    key(Qt::Key_Home, Qt::ControlModifier);
    key(Qt::Key_F7);
    type("x");
    EXPECT_EQ(line(), u"F7 ďalšie neznáme slovo"_s);
    EXPECT_FALSE(QTest::qWaitFor([] { return menu() != nullptr; }, 300));
}

TEST(SpellCheckWithoutADictionary, SaysSoInALine) {
    spelling::Speller speller({u"/nowhere"_s}, u"/nowhere/slova.txt"_s);
    forms::RichText field;
    field.setSpelling(speller);
    const auto says = [&](QStringView words) {
        return field.findChild<QLabel*>()->text().contains(words);
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return says(u"chýba slovenský slovník"); }));
    QTest::keyClick(&field.editor(), Qt::Key_F7);
    EXPECT_TRUE(says(u"chýba slovenský slovník"));
    field.setReadOnly(true);
    QTest::keyClick(&field.editor(), Qt::Key_F7);
    EXPECT_TRUE(says(u"otvorenom na zápis"));
}
