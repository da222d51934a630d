#pragma once

#include <QString>

namespace card {

/// What the key of a client or an employee is made from: the first six letters of the surname and
/// the first two of the first name, each in upper case and free of blanks at its ends.
QString keyBase(const QString& surname, const QString& firstName);

/// The sequence behind the base: two digits, three from 100 on.
QString keySequence(int number);

/// A key without its last two characters. A key with a three-digit sequence thus gives a base that
/// no names have, and its owner gets a new key at the next save.
QString baseOfKey(const QString& key);

} // namespace card
