#pragma once

#include "store/Value.h"

#include <QString>
#include <QStringView>

namespace store::sql {

/// What kind of value a format of the function format is for.
enum class FormatKind { Unknown, Blank, Text, Number, Date };

/// Blank: no signs but blanks. Text: placeholders "@" and "&", with "!" filled from the left, "<"
/// and ">" for the case. Number: "0", "#" and one point. Date: d, dd, m, mm, yy, yyyy and
/// separators. All else is unknown, times of day among it.
FormatKind formatKind(QStringView format);

/// Lays a text out in a format of kind Text. Never cuts.
QString formatText(const QString& text, QStringView format);
/// Writes a number in a format of kind Number.
QString formatNumber(double number, QStringView format);
/// Whether a text is one or more of the signs that may stand between the parts of a date.
bool isDateSeparator(QStringView text);
/// Writes a value of a date column in a format of kind Date. A text that is no calendar date gives
/// itself.
QString formatDate(const Value& value, QStringView format);

} // namespace store::sql
