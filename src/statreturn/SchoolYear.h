#pragma once

#include <QDate>
#include <QString>

namespace statreturn {

/// The days of a school year, both included.
struct Period {
    QDate start;
    QDate end;
};

/// 1 September of the first year to 31 August of the last one.
/// @param caption the school year as the main window shows it, "RRRR/RRRR"
/// @throws store::EngineError 3421 when a year in it gives no date
Period schoolYearPeriod(const QString& caption);

/// A date as the engine's datevalue() reads it.
QString dateText(const QDate& date);

} // namespace statreturn
