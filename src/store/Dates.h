#pragma once

#include "store/Value.h"

#include <QString>
#include <QStringView>

#include <optional>
#include <string>
#include <string_view>

namespace store {

/// Reads a date as one types it: day, month and year in this order, or a year of four digits before
/// month and day; between them ".", "/" or "-" with any blanks. Days and months have one or two
/// digits, years four or two: 00 to 29 are of 2000, 30 to 99 of 1900. A time "h:mm[:ss]" may stand
/// behind it. Nothing when the text is no calendar date.
std::optional<DateTime> readDate(QStringView text);

/// Whether a date can lie in a date column: one of the calendar, of the years 100 to 9999.
bool isCalendarDate(const DateTime& date);

/// A date as texts show it: "dd.MM.yyyy", with " HH:mm:ss" when it has a time.
QString dateToText(const DateTime& date);

/// How a date lies in a date column: "yyyy-MM-dd" or "yyyy-MM-dd HH:mm:ss".
std::string dateToColumn(const DateTime& date);
/// How a text that is no calendar date lies in a date column: behind a mark that sorts after every
/// date, so that no comparison with a date selects it.
std::string nonDateToColumn(QStringView typed);
/// How a text lies in a date column: as the date that it is, or as one that is none.
std::string textToDateColumn(QStringView typed);
/// What lies in a date column: a date or the text as it was typed.
Value dateFromColumn(std::string_view stored);

} // namespace store
