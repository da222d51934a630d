#include "forms/SpellCheck.h"

#include "forms/Colours.h"
#include "spelling/Speller.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QLabel>
#include <QPainter>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>

#include <algorithm>

namespace forms {

namespace {

using spelling::Word;

/// A word and where it begins in the document.
struct Place {
    int start = 0;
    Word word;
};

/// The word that a position stands in, or at one of its ends.
std::optional<Place> wordAt(const QTextDocument& document, int position) {
    const QTextBlock block = document.findBlock(position);
    const int inBlock = position - block.position();
    for (const Word& word : spelling::wordsIn(block.text(), inBlock, inBlock))
        return Place{block.position() + int(word.from), word};
    return std::nullopt;
}

int startOfWordAt(const QTextDocument& document, int position) {
    const auto place = wordAt(document, position);
    return place ? place->start : -1;
}

QTextCursor cursorAt(QTextDocument* document, int position, int length = 0) {
    QTextCursor cursor(document);
    cursor.setPosition(position);
    cursor.setPosition(position + length, QTextCursor::KeepAnchor);
    return cursor;
}

/// Not for a menu, or for another window.
bool isLeft(const QFocusEvent& event) {
    return event.reason() != Qt::PopupFocusReason && event.reason() != Qt::ActiveWindowFocusReason;
}

void drawWave(QPainter& painter, qreal from, qreal to, qreal y) {
    constexpr qreal step = 2;
    QPolygonF wave;
    for (qreal x = from; x <= to; x += step)
        wave << QPointF(x, y + (wave.size() % 2 == 0 ? 1 : -1));
    painter.drawPolyline(wave);
}

int endOf(const QTextLine& line) {
    return line.textStart() + line.textLength();
}

int lastLineAbove(qreal bottom, const QTextLayout& layout, int from) {
    while (from + 1 < layout.lineCount() && layout.lineAt(from + 1).y() < bottom)
        ++from;
    return from;
}

/// A word that is longer than its line goes on in the next ones.
void underline(QPainter& painter, const QTextLayout& layout, int lineNumber, const Word& word,
               const QPointF& origin) {
    constexpr qreal belowLetters = 2;
    for (; lineNumber < layout.lineCount(); ++lineNumber) {
        const QTextLine line = layout.lineAt(lineNumber);
        if (line.textStart() >= word.end())
            return;
        const qreal from = line.cursorToX(std::max(int(word.from), line.textStart()));
        const qreal to = line.cursorToX(std::min(int(word.end()), endOf(line)));
        drawWave(painter, origin.x() + from, origin.x() + to,
                 origin.y() + line.y() + line.ascent() + belowLetters);
    }
}

} // namespace

SpellCheck::SpellCheck(QTextEdit& editor, spelling::Speller& speller, QLabel& line)
    : editor_(editor), speller_(speller), line_(line), search_(*editor.document(), speller),
      menu_(editor, speller) {
    connect(&speller, &spelling::Speller::learned, editor.viewport(),
            qOverload<>(&QWidget::update));
    connect(&speller, &spelling::Speller::troubleChanged, this, &SpellCheck::tellUsual);
    connect(editor.document(), &QTextDocument::contentsChange, this,
            [this](int from, int, int added) { textChanged(from, added); });
    connect(&editor, &QTextEdit::cursorPositionChanged, this, &SpellCheck::cursorMoved);
    connect(&search_, &SpellSearch::found, this, &SpellCheck::offer);
    connect(&search_, &SpellSearch::foundNone, this,
            [this] { tell(QStringLiteral("Žiadne neznáme slovo")); });
    connect(&menu_, &SpellMenu::nextAsked, this, &SpellCheck::findNext);
    connect(&menu_, &SpellMenu::added, this, [this](const QString& word) {
        tell(QStringLiteral("Slovo „%1“ je v slovníku").arg(word));
    });
    editor.installEventFilter(this);
    begin();
}

bool SpellCheck::isOn() const {
    return editor_.isEnabled() && !editor_.isReadOnly();
}

void SpellCheck::begin() {
    leave();
    if (isOn())
        speller_.start();
    tellUsual();
    editor_.viewport()->update();
}

void SpellCheck::paint(const QRect& area) {
    if (!isOn())
        return;
    QPainter painter(editor_.viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(unknownWordColour);
    const QTextCursor first = editor_.cursorForPosition({0, area.top()});
    int from = first.positionInBlock();
    for (QTextBlock block = first.block();
         block.isValid() && paintBlock(painter, block, from, area.bottom()); block = block.next())
        from = 0;
}

/// By lines: to ask the editor for the place of each word takes long in a long paragraph.
/// @return false when what follows lies below `bottom`
bool SpellCheck::paintBlock(QPainter& painter, const QTextBlock& block, int from, int bottom) {
    const QTextLayout& layout = *block.layout();
    QTextLine line = layout.lineForTextPosition(from);
    if (!line.isValid())
        return true;
    const QRect start = editor_.cursorRect(cursorAt(editor_.document(), block.position() + from));
    const QPointF origin = start.topLeft() - QPointF(line.cursorToX(from), line.y());
    const int last = lastLineAbove(bottom - origin.y(), layout, line.lineNumber());
    for (const Word& word : spelling::wordsIn(block.text(), from, endOf(layout.lineAt(last)))) {
        while (endOf(line) <= word.from && line.lineNumber() < last)
            line = layout.lineAt(line.lineNumber() + 1);
        if (isUnderlined(block, word))
            underline(painter, layout, line.lineNumber(), word, origin);
    }
    return origin.y() + layout.boundingRect().bottom() < bottom;
}

bool SpellCheck::isUnderlined(const QTextBlock& block, const Word& word) {
    return block.position() + int(word.from) != typed_ &&
           speller_.verdict(word.text) == spelling::Verdict::Wrong;
}

void SpellCheck::setTyped(int start) {
    if (typed_ == start)
        return;
    typed_ = start;
    editor_.viewport()->update();
}

void SpellCheck::textChanged(int from, int added) {
    menu_.giveUp();
    if (editor_.hasFocus())
        setTyped(startOfWordAt(*editor_.document(), from + added));
    tellUsual();
}

void SpellCheck::cursorMoved() {
    if (search_.isUnderWay())
        tellUsual();
    search_.stop();
    menu_.giveUp();
    if (typed_ >= 0 &&
        startOfWordAt(*editor_.document(), editor_.textCursor().position()) != typed_)
        setTyped(-1);
}

bool SpellCheck::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && isLeft(*static_cast<QFocusEvent*>(event)))
        leave();
    if (event->type() == QEvent::EnabledChange)
        begin();
    return QObject::eventFilter(watched, event);
}

void SpellCheck::leave() {
    search_.stop();
    menu_.giveUp();
    setTyped(-1);
}

void SpellCheck::findNext() {
    if (!isOn())
        return tell(QStringLiteral("Pravopis sa kontroluje v texte otvorenom na zápis"));
    if (!speller_.hasDictionary())
        return tell(speller_.trouble());
    if (!speller_.isReady())
        tell(QStringLiteral("Slovník sa ešte číta…"));
    const QTextCursor cursor = editor_.textCursor();
    const int start = startOfWordAt(*editor_.document(), cursor.position());
    search_.begin(cursor.hasSelection() || start < 0 ? cursor.selectionEnd() : start);
}

void SpellCheck::offer(int from, int length) {
    const QTextCursor place = cursorAt(editor_.document(), from, length);
    editor_.setTextCursor(place);
    const auto word = wordAt(*editor_.document(), from);
    const QPoint below = editor_.cursorRect(cursorAt(editor_.document(), from)).bottomLeft();
    tellUsual();
    menu_.open({.place = place,
                .word = word->word.text,
                .at = editor_.viewport()->mapToGlobal(below),
                .withEditing = false});
}

void SpellCheck::openMenu(const QContextMenuEvent& event) {
    const bool byMouse = event.reason() == QContextMenuEvent::Mouse;
    const QTextCursor at =
        byMouse ? editor_.cursorForPosition(editor_.viewport()->mapFromGlobal(event.globalPos()))
                : editor_.textCursor();
    const auto word = wordAt(*editor_.document(), at.selectionStart());
    if (!word || speller_.verdict(word->word.text) != spelling::Verdict::Wrong)
        return menu_.openPlain(event.globalPos());
    menu_.open({.place = cursorAt(editor_.document(), word->start, int(word->word.length)),
                .word = word->word.text,
                .at = event.globalPos(),
                .withEditing = true});
}

/// @param text is told until the text is changed
void SpellCheck::tell(const QString& text) {
    if (line_.text() == text)
        return;
    line_.setText(text);
    QAccessibleEvent told(&line_, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
}

void SpellCheck::tellUsual() {
    const bool isTrouble = isOn() && !speller_.trouble().isEmpty();
    line_.setText(isTrouble ? speller_.trouble()
                  : isOn()  ? QStringLiteral("F7 ďalšie neznáme slovo")
                            : QString());
}

} // namespace forms
