#pragma once

#include <QColor>

namespace forms {

/// Background of every screen, and of the buttons on it.
inline constexpr QColor screenColour(206, 206, 232);
inline constexpr QColor buttonColour(157, 157, 206);

} // namespace forms
