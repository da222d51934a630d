#pragma once

#include "report/Layout.h"

#include <QStringView>

namespace statreturn {

/// Edges in twips of the frame of the forms that count clients by impairment.
inline constexpr int frameLeft = 17;
inline constexpr int frameRight = 14529;

inline constexpr report::TextStyle smallText{7};
inline constexpr report::TextStyle tinyText{6.5};
inline constexpr report::TextStyle figureText{8};
inline constexpr report::TextStyle figureBold{8, true};
inline constexpr report::TextStyle titleText{9, true};

/// An empty form of the return on A4 landscape, its frame in the middle of the paper.
report::Layout landscapeForm(QStringView name, QStringView title);

} // namespace statreturn
