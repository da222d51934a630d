#pragma once

#include <QString>

namespace card {

/// What a key is made from. Blanks at their ends don't count.
struct Names {
    QString surname;
    QString firstName;

    bool operator==(const Names& other) const;
};

/// What the key of a client or an employee begins with: the first six letters of the surname and
/// the first two of the first name, each in upper case and free of blanks at its ends. Letter by
/// letter: one whose capital is longer stays as it is.
QString keyBase(const Names& names);

/// The sequence behind the base: two digits, as many more as it needs from 100 on.
QString keySequence(int number);

/// A key without its last two characters. A key with a three-digit sequence thus gives a base that
/// no names have, and its owner gets a new key at the next change of the name.
QString baseOfKey(const QString& key);

} // namespace card
