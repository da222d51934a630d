#pragma once

#include "forms/Letters.h"

#include <QString>

namespace card {

using forms::trimBlanks;

/// What a text is when its field has been left: free of blanks of every kind at its ends, and of
/// letters that nobody sees (controls, marks of format and order) everywhere. A key that was made
/// from it does not change when the field is entered again.
QString tidied(const QString& text);

/// The text, tidied, with its first character in upper case, the rest unchanged.
QString capitalised(const QString& text);

/// A person's name: the first character and the one behind the first blank in upper case. Only the
/// first blank counts.
QString capitalisedName(const QString& text);

/// A parent's age at the birth of the child, as the age field takes it: the first two characters of
/// the difference of the years. The years must be in order.
QString ageAtBirth(int childYear, int parentYear);

} // namespace card
