#pragma once

#include <QString>

#include <vector>

namespace spelling {

/// A word of a text that spelling is about.
struct Word {
    qsizetype from = 0;
    qsizetype length = 0;
    /// As a dictionary has it: letters composed, plain hyphens and apostrophes, none that is only
    /// for the end of a line.
    QString text;

    qsizetype end() const { return from + length; }
};

/// The words that touch [from, to] of a text. A word may have hyphens and apostrophes inside. Left
/// out is what is no word of the language: single letters, abbreviations in capitals, what has
/// digits, addresses of mail and web, foreign scripts, and what is too long to be a word.
std::vector<Word> wordsIn(const QString& text, qsizetype from, qsizetype to);

} // namespace spelling
