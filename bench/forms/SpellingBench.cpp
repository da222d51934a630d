/// What a user waits for in a long text, with its spelling checked against without: a key, a page
/// on, the text itself.

#include "common/Figures.h"
#include "forms/Appearance.h"
#include "forms/RichText.h"
#include "spelling/Speller.h"

#include <QApplication>
#include <QFile>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>

namespace {

using namespace Qt::StringLiterals;

constexpr double wanted = 2;

/// One of many words; each twentieth is not in the dictionary.
QString word(int number) {
    QString letters = u"slovo"_s;
    for (int left = number; left > 0; left /= 20)
        letters += QChar(u'a' + left % 20);
    return number % 20 == 7 ? letters + u'x' : letters;
}

QString textOf(int bytes, int wordsInParagraph) {
    QString text = u"<p>"_s;
    for (int i = 0; text.size() < bytes; ++i)
        text += word(i % 20'000) +
                (i % wordsInParagraph == wordsInParagraph - 1 ? u"</p><p>"_s : u" "_s);
    return text + u"</p>"_s;
}

void writeDictionary(const QTemporaryDir& folder) {
    QByteArray words = "19000\n";
    for (int i = 0; i < 20'000; ++i) {
        if (i % 20 != 7)
            words += word(i).toUtf8() + '\n';
    }
    for (const auto& [name, bytes] :
         {std::pair{u"sk_SK.aff"_s, QByteArray("SET UTF-8\n")}, {u"sk_SK.dic"_s, words}}) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) < 0)
            qFatal("no dictionary");
    }
}

struct Field : forms::RichText {
    explicit Field(const QString& text) {
        resize(900, 600);
        show();
        setText(text);
        editor().moveCursor(QTextCursor::End);
        editor().verticalScrollBar()->setValue(editor().verticalScrollBar()->maximum() / 2);
        setFocus();
        QTest::qWait(500);
    }
    void key(Qt::Key key) {
        QTest::keyClick(&editor(), key);
        QCoreApplication::processEvents();
        editor().viewport()->repaint();
    }
};

void compare(bench::Figures& figures, spelling::Speller& speller, const char* kind,
             const QString& text) {
    Field plain(text);
    Field checked(text);
    checked.setSpelling(speller);
    QTest::qWait(500);
    for (const auto& [step, key] :
         {std::pair{"a letter", Qt::Key_X}, {"a page on", Qt::Key_PageUp}})
        figures.compare(
            std::string(step) + ", " + kind, [&, code = key] { checked.key(code); },
            [&, code = key] { plain.key(code); }, wanted);
    figures.compare(
        std::string("the text, ") + kind,
        [&] {
            checked.setText(text);
            checked.editor().viewport()->repaint();
        },
        [&] {
            plain.setText(text);
            plain.editor().viewport()->repaint();
        },
        wanted, 3);
    checked.editor().moveCursor(QTextCursor::Start);
    figures.compare(
        std::string("ask for the next unknown word, ") + kind + ", against a letter",
        [&] { QTest::keyClick(&checked.editor(), Qt::Key_F7); }, [&] { plain.key(Qt::Key_X); });
}

} // namespace

int main(int argc, char** argv) {
    bench::needNoDisplay();
    QApplication application(argc, argv);
    forms::dress(application);
    const QTemporaryDir folder;
    writeDictionary(folder);
    spelling::Speller speller({folder.path()}, folder.filePath(u"slova.txt"_s));
    bench::Figures figures("A long text with its spelling checked, against without");
    compare(figures, speller, "180 kB", textOf(180'000, 60));
    compare(figures, speller, "1 MB", textOf(1 << 20, 60));
    compare(figures, speller, "1 MB in one paragraph", textOf(1 << 20, 1 << 20));
    return figures.print();
}
