#pragma once

#include <QColor>

namespace forms {

// All colours of the program. What is read on what, and how well, is told in
// tests/forms/ColoursTest.cpp.

/// Background of every screen, and of the buttons on it.
inline constexpr QColor screenColour(206, 206, 232);
inline constexpr QColor buttonColour(157, 157, 206);
/// Of a field of the yearly tables while one types in it.
inline constexpr QColor entryColour(128, 255, 255);

/// Of texts; of what explains, as hints; of what can't be used now.
inline constexpr QColor ink(32, 32, 56);
inline constexpr QColor hintInk(54, 54, 86);
inline constexpr QColor idleInk(82, 82, 108);
/// Of what a field that is empty says in place of a text.
inline constexpr QColor emptyFieldInk(84, 84, 106);
/// Of sums that don't agree.
inline constexpr QColor differsInk(166, 0, 28);

/// Grounds of fields and rows; of each second row; of a field that is only read; of one with a text
/// that is none of its kind.
inline constexpr QColor fieldGround(255, 255, 255);
inline constexpr QColor secondRowGround(246, 246, 252);
inline constexpr QColor readGround(226, 226, 240);
inline constexpr QColor readInk(64, 64, 88);
inline constexpr QColor wrongGround(255, 224, 178);
inline constexpr QColor tipGround(255, 255, 232);
/// Of what is chosen; without the focus it is as the heads of a grid.
inline constexpr QColor chosenGround(76, 76, 148);
inline constexpr QColor chosenInk(255, 255, 255);
/// Of the heads of a grid, and of those of the cell on which one stands.
inline constexpr QColor headColour(222, 222, 243);
inline constexpr QColor litHeadColour(255, 255, 168);
/// Of the wave below a word that the dictionary does not know.
inline constexpr QColor unknownWordColour(200, 0, 0);
/// Of a button that can't be pressed now.
inline constexpr QColor idleButtonColour(216, 216, 236);

/// Edges of fields and buttons, of those that can't be used now, and of what has the focus.
inline constexpr QColor edgeColour(104, 104, 134);
inline constexpr QColor idleEdgeColour(164, 164, 190);
inline constexpr QColor focusColour(24, 24, 112);
/// Pixels of the edge of what has the focus.
inline constexpr int focusWidth = 2;

} // namespace forms
