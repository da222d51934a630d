#pragma once

#include <QString>

class QTextCursor;
class QTextDocument;

namespace forms {

/// The stored form of a rich text: an HTML of paragraphs (p), lists (ul, ol, li), line breaks (br),
/// bold, italic and underlined runs (b, i, u), without attributes. An empty document is the empty
/// text. Whatever else the document holds (fonts, colours, pictures, tables) is reduced to that.
/// Reading a stored text and storing it again gives the same text.
QString storedHtml(const QTextDocument& document);

/// Replaces the document by a stored text. A text that does not begin with one of the tags above is
/// taken as plain. Tags that are not known are passed over.
void readStored(const QString& stored, QTextDocument& document);

/// The words alone; a line for each paragraph, items with "• " or their number.
QString plainText(const QString& stored);

/// What may be kept of foreign HTML, as a stored text.
QString reducedHtml(const QString& html);

} // namespace forms
