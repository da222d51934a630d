#include "report/Paragraphs.h"

#include "report/StoredText.h"

#include <QStringList>

namespace report {

namespace {

constexpr double listIndent = 360;

QString cleaned(QString text) {
    return text.remove(u'\r').remove(QChar::ObjectReplacementCharacter);
}

TextStyle styleOf(const Marks& marks, TextStyle style) {
    style.bold = style.bold || marks.bold;
    style.italic = style.italic || marks.italic;
    style.underline = style.underline || marks.underlined;
    return style;
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
    for (const auto& line : cleaned(text).split(u'\n'))
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
