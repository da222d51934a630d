#include "help/HelpWindow.h"

#include "forms/Letters.h"
#include "forms/Metrics.h"
#include "help/HelpPages.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTextBlock>
#include <QTextBrowser>
#include <QVBoxLayout>

#include <algorithm>

namespace help {

namespace {

constexpr QSize startSize(860, 560);
constexpr int titlesLetters = 38;
constexpr auto sheet = u"h1 { font-size: x-large; } h2 { font-size: large; } "
                       u"td { padding-right: 14px; } p, li { margin-bottom: 5px; }";

/// Each place of `word` in the document, accents and case aside.
void collectHits(const QTextDocument& document, const QString& word,
                 QList<QTextEdit::ExtraSelection>& hits, const QPalette& palette) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QString line = forms::withoutAccents(block.text()).toLower();
        // A letter that is more than one without its accent would shift what follows.
        if (line.size() != block.text().size())
            continue;
        for (auto at = line.indexOf(word); at >= 0; at = line.indexOf(word, at + word.size())) {
            QTextCursor cursor(block);
            cursor.setPosition(block.position() + static_cast<int>(at));
            cursor.setPosition(cursor.position() + static_cast<int>(word.size()),
                               QTextCursor::KeepAnchor);
            QTextCharFormat format;
            format.setBackground(palette.highlight());
            format.setForeground(palette.highlightedText());
            hits.append({cursor, format});
        }
    }
}

} // namespace

HelpWindow::HelpWindow(QWidget* parent)
    : QDialog(parent), question_(new QLineEdit), titles_(new QListWidget), text_(new QTextBrowser) {
    setObjectName(QStringLiteral("frmPomoc"));
    setWindowTitle(QStringLiteral("Pomocník"));
    setAttribute(Qt::WA_DeleteOnClose);
    forms::openAs(*this, startSize);
    layOut();
    text_->document()->setDefaultStyleSheet(QStringView(sheet).toString());
    text_->setOpenLinks(false);
    for (const HelpPage& page : helpPages())
        titles_->addItem(page.title);
    connect(question_, &QLineEdit::textChanged, this, &HelpWindow::search);
    connect(question_, &QLineEdit::returnPressed, this, &HelpWindow::nextHit);
    connect(titles_, &QListWidget::currentRowChanged, this, &HelpWindow::pageChosen);
}

void HelpWindow::layOut() {
    question_->setObjectName(QStringLiteral("txtHladaj"));
    question_->setPlaceholderText(QStringLiteral("hľadané slová"));
    question_->setClearButtonEnabled(true);
    titles_->setObjectName(QStringLiteral("zoznamStran"));
    titles_->setAccessibleName(QStringLiteral("Strany pomocníka"));
    text_->setObjectName(QStringLiteral("stranaPomocnika"));
    text_->setAccessibleName(QStringLiteral("Strana pomocníka"));
    auto* caption = new QLabel(QStringLiteral("&Hľadať"));
    caption->setBuddy(question_);
    question_->setAccessibleName(QStringLiteral("Hľadať v pomocníkovi"));
    auto* left = new QVBoxLayout;
    left->addWidget(caption);
    left->addWidget(question_);
    left->addWidget(titles_, 1);
    auto* columns = new QHBoxLayout(this);
    columns->addLayout(left);
    columns->addWidget(text_, 1);
    forms::fitToFont(*this, [this] {
        for (QWidget* narrow : {static_cast<QWidget*>(titles_), static_cast<QWidget*>(question_)})
            narrow->setFixedWidth(forms::lettersWide(*this, titlesLetters));
    });
}

void HelpWindow::showPage(std::size_t page) {
    question_->clear();
    titles_->setCurrentRow(static_cast<int>(page));
    text_->setFocus();
}

void HelpWindow::search() {
    int first = -1;
    for (int row = 0; row < titles_->count(); ++row) {
        const bool found = helpPages()[static_cast<std::size_t>(row)].answers(question_->text());
        titles_->item(row)->setHidden(!found);
        if (found && first < 0)
            first = row;
    }
    if (titles_->currentRow() < 0 || titles_->currentItem()->isHidden())
        titles_->setCurrentRow(first);
    markWords();
}

void HelpWindow::pageChosen() {
    const int row = titles_->currentRow();
    if (row < 0)
        return text_->setPlainText(QStringLiteral("Tieto slová v pomocníkovi nie sú."));
    text_->setHtml(helpPages()[static_cast<std::size_t>(row)].html);
    markWords();
}

void HelpWindow::markWords() {
    QList<QTextEdit::ExtraSelection> hits;
    const QString asked = forms::withoutAccents(question_->text()).toLower();
    for (const QString& word : asked.split(u' ', Qt::SkipEmptyParts))
        collectHits(*text_->document(), word, hits, palette());
    text_->setExtraSelections(hits);
}

/// Brings the next marked word below the text's cursor into view, round to the first one.
void HelpWindow::nextHit() {
    auto hits = text_->extraSelections();
    if (hits.isEmpty())
        return;
    const auto position = [](const auto& hit) {
        return hit.cursor.selectionStart();
    };
    std::ranges::sort(hits, {}, position);
    const auto next = std::ranges::upper_bound(hits, text_->textCursor().position(), {}, position);
    QTextCursor cursor = (next == hits.end() ? hits.begin() : next)->cursor;
    cursor.setPosition(cursor.selectionStart());
    text_->setTextCursor(cursor);
    text_->ensureCursorVisible();
}

void showHelp(QWidget* widget) {
    QWidget* const window = widget->window();
    auto* shown = qobject_cast<HelpWindow*>(window);
    if (shown == nullptr)
        shown = window->findChild<HelpWindow*>(QString(), Qt::FindDirectChildrenOnly);
    const std::size_t page = helpPageOf(widget);
    if (shown == nullptr)
        shown = new HelpWindow(window);
    else if (shown == window)
        return;
    shown->showPage(page);
    shown->show();
    shown->raise();
    shown->activateWindow();
}

} // namespace help
