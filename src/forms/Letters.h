#pragma once

#include <QString>

/// What fields, picks and rules know of the letters of a text.
namespace forms {

/// A letter that nobody sees: a control, a mark of format or order, the place of a picture.
bool isInvisible(QChar letter);

/// The text without the blanks (U+0020 only) at its ends.
QString trimBlanks(const QString& text);

/// The text with each letter's accents taken off.
QString withoutAccents(const QString& text);

} // namespace forms
