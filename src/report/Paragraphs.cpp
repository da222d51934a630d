#include "report/Paragraphs.h"

#include "report/StoredText.h"

#include <QStringList>

#include <algorithm>

namespace report {

namespace {

constexpr double listIndent = 360;

/// A character that has no shape, which fonts show as a box.
bool isShapeless(QChar character) {
    return character == QChar::ObjectReplacementCharacter ||
           (character.category() == QChar::Other_Control && character != u'\t' &&
            character != u'\n');
}

QString cleaned(QString text) {
    return text.removeIf(&isShapeless);
}

bool endsLine(QChar character) {
    return character == u'\v' || character == u'\f' || character == u'\u0085' ||
           character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

/// All that ends a line becomes one character.
QString withLineEnds(QString text, QChar end) {
    if (std::any_of(text.cbegin(), text.cend(), &endsLine))
        std::ranges::replace_if(text, &endsLine, end);
    return text;
}

TextStyle styleOf(const Marks& marks, TextStyle style) {
    style.bold = style.bold || marks.bold;
    style.italic = style.italic || marks.italic;
    style.underline = style.underline || marks.underlined;
    return style;
}

/// Appends a text, whose forced line breaks begin new paragraphs of the same indent.
void append(std::vector<Paragraph>& paragraphs, const QString& text, const TextStyle& style) {
    const auto parts = withLineEnds(text, QChar::LineSeparator).split(QChar::LineSeparator);
    for (qsizetype i = 0; i < parts.size(); ++i) {
        if (i > 0)
            paragraphs.push_back({{}, paragraphs.back().indent, {}});
        paragraphs.back().runs.push_back({cleaned(parts[i]), style});
    }
}

QString bulletOf(Lead lead, int number) {
    if (lead == Lead::None)
        return {};
    return lead == Lead::Number ? QStringLiteral("%1.").arg(number) : QStringLiteral("•");
}

void appendRich(std::vector<Paragraph>& paragraphs, const RichParagraph& rich, int number,
                const TextStyle& style) {
    const double indent = rich.lead == Lead::None ? 0 : listIndent;
    paragraphs.push_back({{}, indent, bulletOf(rich.lead, number)});
    for (const MarkedWords& words : rich.words)
        append(paragraphs, words.text, styleOf(words.marks, style));
    if (paragraphs.back().runs.empty())
        paragraphs.back().runs.push_back({{}, style});
}

} // namespace

std::vector<Paragraph> plainParagraphs(const QString& text, const TextStyle& style) {
    std::vector<Paragraph> paragraphs;
    for (const auto& line : cleaned(withLineEnds(text, u'\n')).split(u'\n'))
        paragraphs.push_back({{{line, style}}, 0, {}});
    return paragraphs;
}

std::vector<Paragraph> richParagraphs(const QString& text, const TextStyle& style) {
    std::vector<Paragraph> paragraphs;
    int number = 0;
    for (const RichParagraph& rich : readStored(text)) {
        number = rich.lead == Lead::Number ? number + 1 : 0;
        appendRich(paragraphs, rich, number, style);
    }
    return paragraphs.empty() ? plainParagraphs({}, style) : paragraphs;
}

} // namespace report
