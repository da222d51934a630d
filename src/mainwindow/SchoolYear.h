#pragma once

#include <QDate>
#include <QString>

#include <functional>
#include <optional>
#include <variant>

class QWidget;

namespace mainwindow {

enum class SchoolYearFault { Length, Date };

/// The school year of a day as "RRRR/RRRR". A year counts from October: in September the year
/// before is still the one that is reported.
QString defaultSchoolYear(const QDate& today);

/// Reads "RR/RR" or "RRRR/RRRR", of which only the last two digits of a year count, and completes
/// it to "RRRR/RRRR". Years above 80 are of the twentieth century.
std::variant<QString, SchoolYearFault> readSchoolYear(const QString& typed);

/// Asks until the answer is a school year. @return nothing when the user leaves it as it is
std::optional<QString> askSchoolYear(QWidget* parent, const QDate& today);

} // namespace mainwindow
