#pragma once

#include "report/Layout.h"

#include <QString>
#include <QStringView>

#include <vector>

/// The parts that printed forms are put together from. All lengths are twips.
namespace printing {

using Controls = std::vector<report::Control>;

/// Height that a line of text of this size needs.
constexpr int lineHeight(double points) {
    return static_cast<int>(points * 23) + 2;
}

/// A text of one line that begins at a place.
struct FormText {
    int left = 0;
    int top = 0;
    int width = 0;
    QStringView text;
    report::TextStyle style = {};
    report::Align align = report::Align::Left;
};

inline report::Control label(const FormText& text, QStringView name = {}) {
    report::Control control;
    control.kind = report::ControlKind::Label;
    control.name = name.toString();
    control.left = text.left;
    control.top = text.top;
    control.width = text.width;
    control.height = lineHeight(text.style.points);
    control.caption = text.text.toString();
    control.align = text.align;
    control.style = text.style;
    return control;
}

/// Makes a label the field of a column, which is its name, too.
inline report::Control fieldOf(report::Control control, QStringView column) {
    control.kind = report::ControlKind::Field;
    control.name = column.toString();
    control.caption.clear();
    control.dataField = column.toString();
    return control;
}

/// A field printing `column`; `place.text` is not used.
inline report::Control field(const FormText& place, QStringView column) {
    return fieldOf(label(place), column);
}

/// The room between two lines across and two lines down.
struct Cell {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// A text in the middle of a cell, whose lines '\n' divides.
inline report::Control inCell(const Cell& cell, QStringView text, const report::TextStyle& style,
                              report::Align align = report::Align::Center) {
    report::Control control =
        label({cell.left, cell.top, cell.right - cell.left, text, style, align});
    control.height = cell.bottom - cell.top;
    control.middle = true;
    return control;
}

inline report::Control rule(report::ControlKind kind, int left, int top, int width, int height) {
    report::Control control;
    control.kind = kind;
    control.left = left;
    control.top = top;
    control.width = width;
    control.height = height;
    return control;
}

inline report::Control horizontal(int left, int right, int top) {
    return rule(report::ControlKind::Line, left, top, right - left, 0);
}

inline report::Control vertical(int left, int top, int bottom) {
    return rule(report::ControlKind::Line, left, top, 0, bottom - top);
}

inline report::Control box(const Cell& cell) {
    return rule(report::ControlKind::Box, cell.left, cell.top, cell.right - cell.left,
                cell.bottom - cell.top);
}

} // namespace printing
