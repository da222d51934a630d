#pragma once

#include "report/Layout.h"

#include <QString>

#include <vector>

namespace report {

/// A stretch of text in one style.
struct Run {
    QString text;
    TextStyle style;

    bool operator==(const Run&) const = default;
};

/// Text between two line feeds. `indent` in twips is where its lines begin, the bullet of a list
/// item standing left of it.
struct Paragraph {
    std::vector<Run> runs;
    double indent = 0;
    QString bullet;

    bool operator==(const Paragraph&) const = default;
};

/// Splits a plain text at its line feeds. Each paragraph has at least one run, be it empty.
std::vector<Paragraph> plainParagraphs(const QString& text, const TextStyle& style);

/// A stored rich text (see StoredText.h). Needs a QGuiApplication.
/// @param style size of all texts, and the style of what has no other
std::vector<Paragraph> richParagraphs(const QString& text, const TextStyle& style);

} // namespace report
