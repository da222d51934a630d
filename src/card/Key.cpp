#include "card/Key.h"

#include "card/TextRules.h"

namespace card {

QString keyBase(const QString& surname, const QString& firstName) {
    return trimBlanks(surname.left(6).toUpper()) + trimBlanks(firstName.left(2).toUpper());
}

QString keySequence(int number) {
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

QString baseOfKey(const QString& key) {
    return key.chopped(qMin<qsizetype>(2, key.size()));
}

} // namespace card
