#pragma once

#include <QString>

#include <vector>

namespace report {

struct Marks {
    bool bold = false;
    bool italic = false;
    bool underlined = false;

    bool operator==(const Marks&) const = default;
};

struct MarkedWords {
    /// QChar::LineSeparator is a line break within the paragraph.
    QString text;
    Marks marks;

    bool operator==(const MarkedWords&) const = default;
};

/// What stands before a paragraph that is an item of a list.
enum class Lead { None, Bullet, Number };

struct RichParagraph {
    Lead lead = Lead::None;
    std::vector<MarkedWords> words;

    bool isBlank() const { return lead == Lead::None && words.empty(); }
    /// Appends to the words of the same marks; nothing for an empty text.
    void add(const QString& text, const Marks& marks);
    bool operator==(const RichParagraph&) const = default;
};

/// A rich text as its fields show it and the paper prints it. Numbered items that follow one
/// another are counted from 1.
using RichParagraphs = std::vector<RichParagraph>;

/// The stored form of a rich text: an HTML of paragraphs (p), lists (ul, ol, li), line breaks (br),
/// bold, italic and underlined runs (b, i, u), without attributes, with every blank as it is. No
/// text at all is the empty text. Read and stored again it is the same.
QString storedText(const RichParagraphs& paragraphs);

/// Reads a stored text, as far as it goes when it is broken. What begins with no tag of a paragraph
/// or a list, nor as a whole page of HTML, is plain.
RichParagraphs readStored(const QString& stored);

} // namespace report
