#include "forms/RichDocument.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextList>

namespace forms {

namespace {

using report::Lead;

/// Each item that comes into a list walks through all that are in it. What is longer shows as
/// several lists, and is stored as one.
constexpr int longestList = 500;

Lead leadOf(const QTextBlock& block) {
    if (block.textList() == nullptr)
        return Lead::None;
    // The styles of numbers are those below the bullets.
    const bool numbered = block.textList()->format().style() <= QTextListFormat::ListDecimal;
    return numbered ? Lead::Number : Lead::Bullet;
}

report::Marks marksOf(const QTextCharFormat& format) {
    return {format.fontWeight() > QFont::Medium, format.fontItalic(),
            format.fontUnderline() && !format.isAnchor()};
}

QTextCharFormat formatOf(const report::Marks& marks) {
    QTextCharFormat format;
    if (marks.bold)
        format.setFontWeight(QFont::Bold);
    if (marks.italic)
        format.setFontItalic(true);
    if (marks.underlined)
        format.setFontUnderline(true);
    return format;
}

report::RichParagraph paragraphOf(const QTextBlock& block) {
    report::RichParagraph paragraph{leadOf(block), {}};
    for (auto it = block.begin(); !it.atEnd(); ++it)
        paragraph.add(it.fragment().text().remove(QChar::ObjectReplacementCharacter),
                      marksOf(it.fragment().charFormat()));
    return paragraph;
}

} // namespace

report::RichParagraphs paragraphsOf(const QTextDocument& document) {
    report::RichParagraphs paragraphs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        paragraphs.push_back(paragraphOf(block));
    return paragraphs;
}

void insertParagraphs(const report::RichParagraphs& paragraphs, QTextCursor cursor) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    QTextList* list = nullptr;
    Lead lead = Lead::None;
    for (const report::RichParagraph& paragraph : paragraphs) {
        const bool isFirst = &paragraph == &paragraphs.front();
        if (!isFirst || (paragraph.lead != Lead::None && !cursor.block().text().isEmpty()))
            cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
        if (paragraph.lead != lead || (list != nullptr && list->count() >= longestList))
            list = nullptr;
        lead = paragraph.lead;
        if (lead != Lead::None && list != nullptr)
            list->add(cursor.block());
        else if (lead != Lead::None)
            list = cursor.createList(lead == Lead::Number ? QTextListFormat::ListDecimal
                                                          : QTextListFormat::ListDisc);
        for (const report::MarkedWords& words : paragraph.words)
            cursor.insertText(words.text, formatOf(words.marks));
    }
    cursor.endEditBlock();
}

} // namespace forms
