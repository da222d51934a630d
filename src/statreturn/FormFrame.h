#pragma once

#include "printing/FormParts.h"

#include <QStringView>

#include <vector>

namespace statreturn {

/// Edges in twips of the frame of the forms that count clients by impairment.
inline constexpr int frameLeft = 17;
inline constexpr int frameRight = 14529;

inline constexpr report::TextStyle smallText{7};
inline constexpr report::TextStyle tinyText{6.5};
inline constexpr report::TextStyle figureText{8};
inline constexpr report::TextStyle figureBold{8, true};
inline constexpr report::TextStyle titleText{9, true};

/// An empty form of the return on A4, its frame in the middle of the paper.
/// @param right the frame's right edge
report::Layout emptyForm(QStringView name, QStringView title, int right,
                         report::Orientation orientation = report::Orientation::Landscape);

/// The lines down of a form's table, from the frame's left edge to its right one.
using ColumnLines = std::vector<int>;

/// Adds "a", "b", "1", "2" and so on below the heads of the columns.
void addNumbers(printing::Controls& controls, const ColumnLines& lines, int top, int bottom);

void addLinesDown(printing::Controls& controls, const ColumnLines& lines, int top, int bottom);

} // namespace statreturn
