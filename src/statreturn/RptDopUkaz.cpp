#include "printing/FormParts.h"
#include "statreturn/FormFrame.h"
#include "statreturn/Forms.h"

namespace statreturn {

namespace {

using printing::Controls;
using printing::field;
using printing::horizontal;
using printing::inCell;
using printing::label;
using printing::vertical;

const ColumnLines lines{frameLeft, 4002, 4519, 5669};
constexpr int groupLine = 2341;
constexpr int pitch = 284;
/// Of the first row, and how far a row's line is above its text.
constexpr int firstTop = 57;
constexpr int gap = 46;

struct Indicator {
    int top;
    QStringView code;
    QStringView column;
    QStringView text;
    int textLeft = 2381;
};

constexpr Indicator indicators[] = {
    {firstTop, u"0401", u"r_0401", u"spolu"},
    {340, u"0402", u"r_0402", u"nevyhovujúce"},
    {624, u"0403", u"r_0403", u"počet detí"},
    {907, u"0404", u"r_0404", u"počet hodín"},
    {1191, u"0416", u"r_0416", u"Kontrolný súčet (0401 až 0404)", 227},
};

report::Section pageHeader() {
    constexpr int headBottom = 397;
    constexpr int bottom = 624;
    report::Section section{QStringLiteral("Section2"), bottom, {}};
    Controls& controls = section.controls;
    constexpr int top = (headBottom - printing::lineHeight(8)) / 2;
    controls.push_back(label({4082, top, 420, u"I.r.", figureText}));
    controls.push_back(label({4819, top, 800, u"Spolu", figureText}));
    addNumbers(controls, lines, headBottom, bottom);
    addLinesDown(controls, lines, 0, bottom);
    for (const int line : {0, headBottom, bottom})
        controls.push_back(horizontal(lines.front(), lines.back(), line));
    return section;
}

report::Section detail() {
    constexpr int height = firstTop - gap + 5 * pitch;
    report::Section row{QStringLiteral("Section1"), height + 10, {}};
    Controls& controls = row.controls;
    controls.push_back(label({454, 227, 1850, u"Počet miestností", figureText}));
    controls.push_back(label({340, 680, 1960, u"Diagnostické pobyty", figureText}));
    for (const Indicator& each : indicators) {
        controls.push_back(
            label({each.textLeft, each.top, 3960 - each.textLeft, each.text, figureText}));
        controls.push_back(label({4082, each.top, 420, each.code, figureText}));
        controls.push_back(
            field({4649, each.top, 980, {}, figureText, report::Align::Center}, each.column));
    }
    addLinesDown(controls, lines, 0, height);
    controls.push_back(vertical(groupLine, 0, 1191 - gap));
    for (const Indicator& each : indicators) {
        // A heading goes through both of its rows.
        const bool isInGroup = each.top == 340 || each.top == 907;
        if (each.top != firstTop)
            controls.push_back(
                horizontal(isInGroup ? groupLine : frameLeft, lines.back(), each.top - gap));
    }
    controls.push_back(horizontal(lines.front(), lines.back(), height));
    return row;
}

} // namespace

report::Layout rptDopUkaz() {
    report::Layout layout = emptyForm(u"rptDopUkaz", u"Dopĺňajúce ukazovatele", lines.back(),
                                      report::Orientation::Portrait);
    layout.reportHeader = {QStringLiteral("Section4"),
                           453,
                           {label({1304, 57, 4000, u"IV. Dopĺňajúce ukazovatele", titleText})}};
    layout.pageHeader = pageHeader();
    layout.detail = detail();
    return layout;
}

} // namespace statreturn
