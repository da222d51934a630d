#pragma once

#include "report/StoredText.h"

class QTextCursor;
class QTextDocument;

namespace forms {

/// What a rich text keeps of a document: words, marks, lists. Fonts, colours, pictures and tables
/// are dropped.
report::RichParagraphs paragraphsOf(const QTextDocument& document);

/// Puts the paragraphs in at the cursor, instead of what it has selected; the first one goes on
/// with the cursor's paragraph unless it is an item of a list. One step to undo.
void insertParagraphs(const report::RichParagraphs& paragraphs, QTextCursor cursor);

} // namespace forms
