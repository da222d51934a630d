#pragma once

#include "report/Layout.h"

#include <QString>
#include <QStringView>

namespace statreturn {

/// Height in twips that a line of text of this size needs.
constexpr int lineHeight(double points) {
    return static_cast<int>(points * 23) + 2;
}

/// A text that begins at a place.
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

/// A field printing `column`, which is its name, too; `place.text` is not used.
inline report::Control field(const FormText& place, QStringView column) {
    report::Control control = label(place, column);
    control.kind = report::ControlKind::Field;
    control.caption.clear();
    control.dataField = column.toString();
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

inline report::Control box(int left, int top, int right, int bottom) {
    return rule(report::ControlKind::Box, left, top, right - left, bottom - top);
}

} // namespace statreturn
