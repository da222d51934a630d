#pragma once

#include <QColor>

namespace forms {

/// Background of every screen, and of the buttons on it.
inline constexpr QColor screenColour(206, 206, 232);
inline constexpr QColor buttonColour(157, 157, 206);
/// Of the heads of a grid, and of those of the cell on which one stands.
inline constexpr QColor headColour(222, 222, 243);
inline constexpr QColor litHeadColour(255, 255, 168);
/// Of the wave below a word that the dictionary does not know.
inline constexpr QColor unknownWordColour(200, 0, 0);

} // namespace forms
