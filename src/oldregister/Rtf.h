#pragma once

#include <QString>

namespace oldregister {

/// True for a text that the old rich-text control wrote; one that only begins alike is none.
bool isRtf(const QString& text);

/// The editor's stored form of a text in RTF: paragraphs, bold, italic and underlined stretches,
/// bullets, tabs and line ends. Of fonts, colours, pictures and tables the words stay. Never fails:
/// what makes no sense is passed over, down to the last word of the text.
QString htmlOfRtf(const QString& rtf);

/// A text of an old register as the editor stores it: RTF as its HTML, a plain text as it is,
/// unless the editor would take it for HTML.
QString toStoredText(const QString& old);

} // namespace oldregister
