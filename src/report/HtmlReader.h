#pragma once

#include "report/StoredText.h"

#include <QString>

namespace report {

enum class Blanks {
    Kept,     ///< Each blank and each paragraph counts, be it empty.
    Collapsed ///< As a browser shows them.
};

/// Reads what a rich text keeps of any HTML; the rest of its looks is dropped, its words stay.
/// Takes a time proportional to the length, whatever is nested in it, and opens nothing that the
/// HTML speaks of. Needs a QGuiApplication for rare names of characters.
RichParagraphs readHtml(const QString& html, Blanks blanks = Blanks::Collapsed);

} // namespace report
