#include "printouts/FormTable.h"

#include "printing/FormParts.h"

namespace printouts {

namespace {

using printing::Controls;
using report::Control;
using report::Section;
using report::TextStyle;

/// Between a part and what stands right of it, and around lines.
constexpr int gap = 60;

constexpr TextStyle titleText{12, true};
constexpr TextStyle nameText{11, true};
constexpr TextStyle plainText{9};

TextStyle styleOf(Look look) {
    switch (look) {
    case Look::Caption:
        return plainText;
    case Look::Value:
        return {9, true};
    case Look::Small:
        return {7, true};
    case Look::Head:
    case Look::Cell:
        return {7.5};
    case Look::Words:
        return {10};
    }
    return {};
}

Control growing(Control control) {
    control.canGrow = true;
    return control;
}

/// A text that somebody typed, whatever it holds.
Control typed(Control control) {
    control.asTyped = true;
    return growing(control);
}

Control controlOf(const Part& part) {
    Control control =
        printing::label({part.left, part.top, part.width - gap, part.text, styleOf(part.look)});
    if (part.height > 0)
        control.height = part.height;
    if (part.look == Look::Caption || part.look == Look::Head)
        return control;
    control.rich = part.look == Look::Words;
    return growing(printing::fieldOf(control, part.text));
}

Controls controlsOf(const std::vector<Part>& parts) {
    Controls controls;
    for (const Part& part : parts)
        controls.push_back(controlOf(part));
    return controls;
}

Section reportHeader(const Form& form, int width) {
    constexpr int nameTop = 340;
    constexpr int dateWidth = 1474;
    const int dateLeft = width - dateWidth;
    return {QStringLiteral("Section4"),
            nameTop + 2 * rowHeight,
            {growing(printing::label({0, 0, dateLeft - gap, form.title, titleText}, u"lblNadpis")),
             printing::label({dateLeft, 0, dateWidth, u"%d", plainText}, u"lblDatum"),
             typed(printing::label({0, nameTop, width, {}, nameText}, u"lblMeno"))}};
}

Section pageHeader(const Form& form, int width) {
    constexpr int lineTop = 227;
    if (form.heads.empty())
        return {QStringLiteral("Section2"), 0, {}};
    Section section{QStringLiteral("Section2"), lineTop + gap, controlsOf(form.heads)};
    section.controls.push_back(printing::horizontal(0, width, lineTop));
    return section;
}

Section detail(const Form& form, int width) {
    Section section{QStringLiteral("Section1"), form.detailHeight, controlsOf(form.detail)};
    for (const int line : form.lines)
        section.controls.push_back(printing::horizontal(0, width, line));
    return section;
}

} // namespace

void addImpairments(std::vector<Part>& parts, const Part& first, const QString& person) {
    constexpr int places = 9;
    for (int place = 1; place <= places; ++place) {
        Part part = first;
        part.left += (place - 1) * first.width;
        part.text = QStringLiteral("retaz%1%2").arg(place).arg(person);
        parts.push_back(part);
    }
}

report::Layout layoutOf(const Form& form) {
    const bool isUpright = form.orientation == report::Orientation::Portrait;
    const int width = isUpright ? uprightWidth : sidewaysWidth;
    report::Layout layout;
    layout.name = form.name;
    layout.title = form.title;
    layout.orientation = form.orientation;
    layout.savedColumns = form.saved;
    layout.marginLeft = layout.marginRight = margin;
    layout.reportHeader = reportHeader(form, width);
    layout.pageHeader = pageHeader(form, width);
    layout.detail = detail(form, width);
    return layout;
}

} // namespace printouts
