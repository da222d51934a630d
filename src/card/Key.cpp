#include "card/Key.h"

#include "forms/Letters.h"

namespace card {

namespace {

using forms::trimBlanks;

QString firstLetters(const QString& name, qsizetype count) {
    QString letters = name.left(count);
    // Half a letter can't be stored.
    if (!letters.isEmpty() && letters.back().isHighSurrogate())
        letters.chop(1);
    for (QChar& letter : letters)
        letter = letter.toUpper();
    return trimBlanks(letters);
}

} // namespace

bool Names::operator==(const Names& other) const {
    return trimBlanks(surname) == trimBlanks(other.surname) &&
           trimBlanks(firstName) == trimBlanks(other.firstName);
}

QString keyBase(const Names& names) {
    return firstLetters(names.surname, 6) + firstLetters(names.firstName, 2);
}

QString keySequence(int number) {
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

QString baseOfKey(const QString& key) {
    return key.chopped(qMin<qsizetype>(2, key.size()));
}

} // namespace card
