#include "statreturn/SchoolYear.h"

#include "store/Dates.h"
#include "store/EngineError.h"

namespace statreturn {

namespace {

QDate readDay(const QString& text) {
    const auto date = store::readDate(text);
    if (!date) {
        throw store::EngineError(store::ErrorNumber::TypeConversion,
                                 QStringLiteral("Školský rok nedáva platný dátum."), text);
    }
    return date->date;
}

} // namespace

Period schoolYearPeriod(const QString& caption) {
    return {readDay(QStringLiteral("1.9.") + caption.left(4)),
            readDay(QStringLiteral("31.8.") + caption.trimmed().right(4))};
}

QString dateText(const QDate& date) {
    return date.toString(u"d.M.yyyy");
}

} // namespace statreturn
