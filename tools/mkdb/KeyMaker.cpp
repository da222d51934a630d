#include "KeyMaker.h"

namespace mkdb {

namespace {

constexpr int keyWidth = 10;

} // namespace

QString keyBase(const QString& surname, const QString& firstName) {
    return surname.left(6).toUpper().trimmed() + firstName.left(2).toUpper().trimmed();
}

std::optional<QString> KeyMaker::make(const QString& surname, const QString& firstName) {
    const QString base = keyBase(surname, firstName);
    int& number = next_[base];
    const QString key = base + QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
    if (key.size() > keyWidth)
        return std::nullopt;
    ++number;
    return key;
}

} // namespace mkdb
