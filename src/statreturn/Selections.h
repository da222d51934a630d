#pragma once

#include "statreturn/SchoolYear.h"

#include <QLatin1StringView>
#include <QString>

/// What the tables by impairment ask of a client, as conditions of their selections.
namespace statreturn {

/// The client has an impairment: the first character of his string is worth more than 0.
inline constexpr QLatin1StringView isImpaired("Val(Left(k_zaklad.postih, 1)) <> 0");

/// The placement is one of education, and it has not ended.
inline constexpr QLatin1StringView isEducation("k_zariad.akronym = 'VYCH'");
inline constexpr QLatin1StringView isOpen("(isdate(k_zariad.vzar_do) = false)");

/// The record of care lies in the period, which is all the proof that the client was in care.
inline QString isInPeriod(const Period& period) {
    return QStringLiteral("k_zaznam_spc.datum >= datevalue('%1') and "
                          "k_zaznam_spc.datum <= datevalue('%2')")
        .arg(dateText(period.start), dateText(period.end));
}

} // namespace statreturn
