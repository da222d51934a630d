#include "report/Paragraphs.h"

#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

namespace report {

namespace {

constexpr double listIndent = 360;

QString cleaned(QString text) {
    return text.replace(u'\t', u' ').remove(u'\r').remove(QChar::ObjectReplacementCharacter);
}

TextStyle styleOf(const QTextCharFormat& format, TextStyle style) {
    style.bold = style.bold || format.fontWeight() >= QFont::DemiBold;
    style.italic = style.italic || format.fontItalic();
    style.underline = style.underline || format.fontUnderline();
    return style;
}

QString bulletOf(const QTextBlock& block) {
    const QTextList* list = block.textList();
    if (!list)
        return {};
    const bool numbered = list->format().style() <= QTextListFormat::ListDecimal;
    return numbered ? list->itemText(block) : QStringLiteral("•");
}

double indentOf(const QTextBlock& block) {
    const int levels =
        block.blockFormat().indent() + (block.textList() ? block.textList()->format().indent() : 0);
    return levels * listIndent;
}

/// Appends a text, whose forced line breaks begin new paragraphs of the same indent.
void append(std::vector<Paragraph>& paragraphs, const QString& text, const TextStyle& style) {
    const auto parts = text.split(QChar::LineSeparator);
    for (qsizetype i = 0; i < parts.size(); ++i) {
        if (i > 0)
            paragraphs.push_back({{}, paragraphs.back().indent, {}});
        paragraphs.back().runs.push_back({cleaned(parts[i]), style});
    }
}

void appendBlock(std::vector<Paragraph>& paragraphs, const QTextBlock& block,
                 const TextStyle& style) {
    paragraphs.push_back({{}, indentOf(block), bulletOf(block)});
    for (auto it = block.begin(); it != block.end(); ++it)
        append(paragraphs, it.fragment().text(), styleOf(it.fragment().charFormat(), style));
    if (paragraphs.back().runs.empty())
        paragraphs.back().runs.push_back({{}, style});
}

/// Marks paragraphs and items without a text, which the reader of HTML would drop.
QString withBlankParagraphs(QString html) {
    static const QRegularExpression blank(QStringLiteral("<(p|li)></\\1>"));
    return html.replace(blank,
                        QStringLiteral("<\\1 style=\"-qt-paragraph-type:empty\"><br></\\1>"));
}

} // namespace

std::vector<Paragraph> plainParagraphs(const QString& text, const TextStyle& style) {
    std::vector<Paragraph> paragraphs;
    for (const auto& line : cleaned(text).split(u'\n'))
        paragraphs.push_back({{{line, style}}, 0, {}});
    return paragraphs;
}

std::vector<Paragraph> richParagraphs(const QString& text, const TextStyle& style) {
    if (!Qt::mightBeRichText(text))
        return plainParagraphs(text, style);
    QTextDocument document;
    document.setDefaultStyleSheet(QStringLiteral("p, li { white-space: pre-wrap }"));
    document.setHtml(withBlankParagraphs(text));
    std::vector<Paragraph> paragraphs;
    for (auto block = document.begin(); block.isValid(); block = block.next())
        appendBlock(paragraphs, block, style);
    return paragraphs;
}

} // namespace report
