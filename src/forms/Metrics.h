#pragma once

#include <QSize>

#include <functional>

class QWidget;

namespace forms {

/// The one rhythm of all screens, in device-independent pixels: between controls that belong
/// together, between neighbours, and from the edge of a list, a group or a window to what lies in
/// it.
inline constexpr int tightGap = 4;
inline constexpr int gap = 8;
inline constexpr int windowMargin = 12;

/// Does `fit` now and whenever the widget's font becomes another: for lengths that are counted in
/// letters.
void fitToFont(QWidget& widget, std::function<void()> fit);

/// Gives a widget a larger or smaller font than the others have, whatever theirs is.
void enlarge(QWidget& widget, qreal factor, bool bold);

/// Device-independent pixels of that many letters in the widget's font.
int lettersWide(const QWidget& widget, int letters);
/// Height of that many lines.
int linesHigh(const QWidget& widget, int lines);
/// The widest line of text that is still easy to read: hardly 100 letters of Slovak words.
int longestLine(const QWidget& widget);

/// What a window may take up, so that its screen shows it with the frame around it.
QSize roomFor(const QWidget& window);
/// Gives a window its first size, as far as the screen has room.
/// @param size for texts of the usual size; larger texts make a larger window
void openAs(QWidget& window, QSize size);

} // namespace forms
