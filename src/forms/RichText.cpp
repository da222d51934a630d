#include "forms/RichText.h"

#include "forms/AltLetter.h"
#include "forms/Colours.h"
#include "forms/KeyHint.h"
#include "forms/Metrics.h"
#include "forms/RichDocument.h"
#include "forms/RovingFocus.h"
#include "forms/SpellCheck.h"
#include "forms/WhyNot.h"
#include "report/HtmlReader.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QPaintEvent>
#include <QSignalBlocker>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextList>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace forms {

namespace {

struct ToolDef {
    const char16_t* caption = nullptr;
    const char16_t* name = nullptr;
    QKeyCombination key;
};

constexpr std::array<ToolDef, 5> toolDefs = {{
    {u"B", u"Tučné", Qt::CTRL | Qt::Key_B},
    {u"I", u"Kurzíva", Qt::CTRL | Qt::Key_I},
    {u"U", u"Podčiarknuté", Qt::CTRL | Qt::Key_U},
    {u"•", u"Odrážky", Qt::CTRL | Qt::SHIFT | Qt::Key_L},
    {u"1.", u"Číslovanie", Qt::CTRL | Qt::SHIFT | Qt::Key_N},
}};

/// What one field gives another: the stored form, in which each blank counts.
constexpr QLatin1String ownFormat("application/x-tvk-text");

QString storedHtml(const QTextDocument& document) {
    return report::storedText(paragraphsOf(document));
}

bool hasEndlessWord(const QString& text) {
    constexpr int longestWord = 1000;
    int length = 0;
    return std::ranges::any_of(text, [&](QChar character) {
        length = character.isSpace() ? 0 : length + 1;
        return length > longestWord;
    });
}

report::RichParagraphs pasted(const QMimeData& source) {
    if (source.hasFormat(ownFormat))
        return report::readStored(QString::fromUtf8(source.data(ownFormat)));
    return report::readHtml(source.html());
}

} // namespace

class RichText::Editor : public QTextEdit {
  public:
    explicit Editor(QWidget* parent) : QTextEdit(parent) {
        setTabChangesFocus(true);
        setAcceptRichText(true);
        connect(document(), &QTextDocument::contentsChange, this,
                [this](int from, int, int added) { breakLongWords(from, added); });
    }

    /// As for a text without words that are no words.
    void wrapAtWords() { setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere); }

    bool isOn(int tool) const {
        const QTextList* list = textCursor().currentList();
        switch (tool) {
        case Bold:
            return fontWeight() > QFont::Medium;
        case Italic:
            return fontItalic();
        case Underlined:
            return fontUnderline();
        default:
            return list != nullptr && list->format().style() == styleOf(tool);
        }
    }

    void toggle(int tool) {
        if (isReadOnly())
            return;
        const bool on = !isOn(tool);
        if (tool == Bold)
            setFontWeight(on ? QFont::Bold : QFont::Normal);
        else if (tool == Italic)
            setFontItalic(on);
        else if (tool == Underlined)
            setFontUnderline(on);
        else if (on)
            textCursor().createList(styleOf(tool));
        else
            leaveList();
    }

    void setSpelling(spelling::Speller& speller, QLabel& line) {
        spelling_ = std::make_unique<SpellCheck>(*this, speller, line);
    }

    /// Another text is on show, or what can be done with it has changed.
    void beginSpelling() {
        if (spelling_ != nullptr)
            spelling_->begin();
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QTextEdit::paintEvent(event);
        if (spelling_ != nullptr)
            spelling_->paint(event->rect());
    }

    void contextMenuEvent(QContextMenuEvent* event) override {
        if (spelling_ != nullptr && spelling_->isOn())
            spelling_->openMenu(*event);
        else
            QTextEdit::contextMenuEvent(event);
    }

    bool canInsertFromMimeData(const QMimeData* source) const override {
        return source->hasText() || source->hasHtml();
    }

    QMimeData* createMimeDataFromSelection() const override {
        QTextDocument chosen;
        QTextCursor(&chosen).insertFragment(textCursor().selection());
        auto* copied = new QMimeData;
        copied->setData(ownFormat, storedHtml(chosen).toUtf8());
        copied->setHtml(storedHtml(chosen));
        copied->setText(chosen.toPlainText());
        return copied;
    }

    void insertFromMimeData(const QMimeData* source) override {
        if (source->hasHtml() || source->hasFormat(ownFormat))
            insertParagraphs(pasted(*source), textCursor());
        else
            textCursor().insertText(source->text(), QTextCharFormat());
        ensureCursorVisible();
    }

    bool event(QEvent* event) override {
        // The keys of the tools are the field's own, whatever the window would do with them.
        if (event->type() == QEvent::ShortcutOverride &&
            toolOf(*static_cast<QKeyEvent*>(event)) >= 0) {
            event->accept();
            return true;
        }
        return QTextEdit::event(event);
    }

    /// On a wide screen the lines stay as long as one reads easily.
    void resizeEvent(QResizeEvent* event) override {
        const int longest = longestLine(*this) + 2 * int(document()->documentMargin());
        const bool isWide = viewport()->width() > longest;
        setLineWrapMode(isWide ? FixedPixelWidth : WidgetWidth);
        setLineWrapColumnOrWidth(isWide ? longest : 0);
        QTextEdit::resizeEvent(event);
    }

    void keyPressEvent(QKeyEvent* event) override {
        const int tool = toolOf(*event);
        const bool endsList = event->matches(QKeySequence::InsertParagraphSeparator) &&
                              textCursor().currentList() != nullptr &&
                              textCursor().block().text().isEmpty() && !isReadOnly();
        if (tool >= 0)
            toggle(tool);
        else if (event->key() == Qt::Key_F7 && spelling_ != nullptr)
            spelling_->findNext();
        else if (endsList)
            leaveList();
        else if (isLetterForAlt(*event))
            event->ignore();
        else
            QTextEdit::keyPressEvent(event);
    }

  private:
    static QTextListFormat::Style styleOf(int tool) {
        return tool == Numbers ? QTextListFormat::ListDecimal : QTextListFormat::ListDisc;
    }

    static int toolOf(const QKeyEvent& event) {
        for (int tool = 0; tool < ToolCount; ++tool) {
            if (toolDefs[tool].key == event.keyCombination())
                return tool;
        }
        return -1;
    }

    /// To find where a word can be broken, the layout walks to its end for each of its lines.
    void breakLongWords(int from, int added) {
        const QTextBlock behind = document()->findBlock(from + added).next();
        for (QTextBlock block = document()->findBlock(from);
             wordWrapMode() != QTextOption::WrapAnywhere && block != behind; block = block.next()) {
            if (hasEndlessWord(block.text()))
                setWordWrapMode(QTextOption::WrapAnywhere);
        }
    }

    /// Takes the selected paragraphs out of their list.
    void leaveList() {
        QTextCursor cursor = textCursor();
        const int end = cursor.selectionEnd();
        cursor.beginEditBlock();
        cursor.setPosition(cursor.selectionStart());
        for (QTextBlock block = cursor.block(); block.isValid() && block.position() <= end;
             block = block.next()) {
            if (QTextList* list = block.textList())
                list->remove(block);
            QTextCursor(block).setBlockFormat(QTextBlockFormat());
        }
        cursor.endEditBlock();
    }

    std::unique_ptr<SpellCheck> spelling_;
};

RichText::RichText(QWidget* parent) : QWidget(parent), editor_(new Editor(this)) {
    auto* bar = new QWidget(this);
    addTools(*bar);
    setTabOrder(tools_.back(), editor_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(tightGap);
    column->addWidget(bar);
    column->addWidget(editor_);
    setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(editor_);
    connect(editor_->document(), &QTextDocument::contentsChange, this, [this] { text_.reset(); });
    connect(editor_, &QTextEdit::textChanged, this, &RichText::textEdited);
    connect(editor_, &QTextEdit::currentCharFormatChanged, this, &RichText::showState);
    connect(editor_, &QTextEdit::cursorPositionChanged, this, &RichText::showState);
}

void RichText::addTools(QWidget& bar) {
    auto* row = new QHBoxLayout(&bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    auto* focus = new RovingFocus(bar);
    for (int tool = 0; tool < ToolCount; ++tool) {
        auto* button = new QToolButton(&bar);
        button->setText(QString::fromUtf16(toolDefs[tool].caption));
        const QString name = QString::fromUtf16(toolDefs[tool].name);
        button->setAccessibleName(name);
        button->setToolTip(QStringLiteral("%1 (%2)").arg(
            name, QKeySequence(toolDefs[tool].key).toString(QKeySequence::NativeText)));
        button->setCheckable(true);
        button->setAutoRaise(true);
        focus->add(*button);
        QFont font = button->font();
        font.setBold(tool == Bold);
        font.setItalic(tool == Italic);
        font.setUnderline(tool == Underlined);
        button->setFont(font);
        connect(button, &QToolButton::clicked, this, [this, tool] {
            editor_->toggle(tool);
            showState();
        });
        row->addWidget(button);
        tools_[tool] = button;
    }
    row->addStretch();
    spellingLine_ = new KeyHint(&bar);
    spellingLine_->setAlignment(Qt::AlignRight);
    row->addWidget(spellingLine_);
}

void RichText::setSpelling(spelling::Speller& speller) {
    editor_->setSpelling(speller, *spellingLine_);
}

void RichText::showState() {
    for (int tool = 0; tool < ToolCount; ++tool)
        tools_[tool]->setChecked(editor_->isOn(tool));
}

QTextEdit& RichText::editor() {
    return *editor_;
}

std::vector<QWidget*> RichText::tabStops() const {
    std::vector<QWidget*> stops(tools_.begin(), tools_.end());
    stops.push_back(editor_);
    return stops;
}

QString RichText::text() const {
    if (!text_)
        text_ = storedHtml(*editor_->document());
    return *text_;
}

void RichText::setText(const QString& stored) {
    {
        const QSignalBlocker silent(editor_);
        editor_->setUndoRedoEnabled(false);
        editor_->document()->clear();
        editor_->wrapAtWords();
        insertParagraphs(report::readStored(stored), QTextCursor(editor_->document()));
        editor_->setUndoRedoEnabled(true);
        editor_->moveCursor(QTextCursor::Start);
    }
    editor_->beginSpelling();
    showState();
}

void RichText::showBound(const QString& text) {
    // What can be undone stays so when the row is shown anew, as when it is opened for an edit.
    if (text != this->text())
        setText(text);
    // As the field would store it: a text of another making is no change of the user's.
    shown_ = this->text();
}

void RichText::setReadOnly(bool readOnly, const QString& whyNot) {
    editor_->setReadOnly(readOnly);
    tellWhyNot(*editor_, !readOnly, whyNot);
    QPalette ground;
    if (readOnly) {
        ground.setColor(QPalette::Base, readGround);
        ground.setColor(QPalette::Text, readInk);
    }
    editor_->setPalette(ground);
    for (QToolButton* tool : tools_)
        setUsable(*tool, !readOnly, whyNot);
    editor_->beginSpelling();
}

} // namespace forms
