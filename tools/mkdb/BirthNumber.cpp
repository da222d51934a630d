#include "BirthNumber.h"

#include <stdexcept>

namespace mkdb {

namespace {

qint64 dayPart(const QDate& born, bool girl) {
    const int month = born.month() + (girl ? 50 : 0);
    return (born.year() % 100) * 10000 + month * 100 + born.day();
}

/// Completes nine digits to ten; 0 when no digit makes them divisible by eleven.
qint64 completed(qint64 nineDigits) {
    const qint64 check = (11 - nineDigits * 10 % 11) % 11;
    return check < 10 ? nineDigits * 10 + check : 0;
}

constexpr int orders = 1000;

} // namespace

QString BirthNumbers::make(const QDate& born, bool girl, Random& random) {
    const qint64 day = dayPart(born, girl);
    const int first = random.below(orders);
    for (int step = 0; step < orders; ++step) {
        const qint64 number = completed(day * orders + (first + step) % orders);
        if (number != 0 && given_.insert(number).second)
            return QStringLiteral("%1").arg(number, 10, 10, QLatin1Char('0'));
    }
    throw std::runtime_error("na jeden deň už niet voľného rodného čísla");
}

} // namespace mkdb
