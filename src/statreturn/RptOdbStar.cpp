#include "printing/FormParts.h"
#include "statreturn/FormFrame.h"
#include "statreturn/Forms.h"

#include <iterator>

namespace statreturn {

namespace {

using printing::Cell;
using printing::Controls;
using printing::fieldOf;
using printing::horizontal;
using printing::inCell;
using printing::label;
using printing::vertical;

constexpr int rowHeight = 284;
constexpr int inTotalLine = 697;
constexpr report::TextStyle rowText{7.5};

const ColumnLines lines{frameLeft, 4325, 4892,  5799,  6650,  7443, 8294,
                        9144,      9995, 10845, 11695, 12546, 13436};

struct CareField {
    int left;
    QStringView column;
};

constexpr CareField fields[] = {
    {4365, u"c_ria"}, {4932, u"s_1"},  {5839, u"s_2"},   {6690, u"s_3"},
    {7483, u"s_4"},   {8334, u"s_5"},  {9184, u"s_6"},   {10035, u"s_7"},
    {10885, u"s_8"},  {11735, u"s_9"}, {12586, u"s_10"},
};

// Lines of the heads, from the top of the page header.
constexpr int groupBottom = 283;
constexpr int inTotalBottom = 510;
constexpr int wayBottom = 737;
constexpr int headBottom = 1134;
constexpr int numbersBottom = 1361;

/// A text of the heads whose place the form gives.
void addAt(Controls& controls, int left, int right, int top, int bottom, QStringView text) {
    controls.push_back(inCell({left, top, right, bottom}, text, figureText, report::Align::Left));
}

/// The heads over the five columns of activities in one place.
/// @param first number of the line left of them
void addActivities(Controls& controls, std::size_t first) {
    const auto cell = [first](std::size_t from, std::size_t to, int top, int bottom) {
        return Cell{lines[first + from], top, lines[first + to], bottom};
    };
    controls.push_back(inCell(cell(1, 5, groupBottom, inTotalBottom), u"v tom", figureText));
    controls.push_back(inCell(cell(1, 3, inTotalBottom, wayBottom), u"individuálne", figureText));
    controls.push_back(inCell(cell(3, 5, inTotalBottom, wayBottom), u"skupinové", figureText));
    for (const std::size_t column : {1U, 3U}) {
        controls.push_back(
            inCell(cell(column, column + 1, wayBottom, headBottom), u"jedno-\nrázové", smallText));
        controls.push_back(inCell(cell(column + 1, column + 2, wayBottom, headBottom),
                                  u"opaku-\njúce sa", smallText));
    }
    controls.push_back(horizontal(lines[first + 1], lines[first + 5], inTotalBottom));
    controls.push_back(horizontal(lines[first + 1], lines[first + 5], wayBottom));
    const int tops[] = {0, groupBottom, wayBottom, inTotalBottom, wayBottom};
    for (std::size_t i = 0; i < std::size(tops); ++i)
        controls.push_back(vertical(lines[first + i], tops[i], headBottom));
}

report::Section pageHeader() {
    report::Section section{QStringLiteral("Section2"), numbersBottom, {}};
    Controls& controls = section.controls;
    controls.push_back(inCell({lines[1], 0, lines[2], headBottom}, u"I.r.", figureText));
    addAt(controls, 5896, lines[7], 0, groupBottom, u"Počet aktivít ambulantných");
    addAt(controls, 9751, lines[12], 0, groupBottom, u"Počet aktivít terénnych (mobilných)");
    addAt(controls, 4989, lines[3], groupBottom, headBottom, u"spolu");
    addAt(controls, 9241, lines[8], groupBottom, headBottom, u"spolu");
    addActivities(controls, 2);
    addActivities(controls, 7);
    addNumbers(controls, lines, headBottom, numbersBottom);
    addLinesDown(controls, lines, headBottom, numbersBottom);
    for (const std::size_t edge : {0U, 1U, 12U})
        controls.push_back(vertical(lines[edge], 0, headBottom));
    controls.push_back(horizontal(lines[2], lines.back(), groupBottom));
    for (const int line : {0, headBottom, numbersBottom})
        controls.push_back(horizontal(lines.front(), lines.back(), line));
    return section;
}

report::Section detail() {
    report::Section row{QStringLiteral("Section1"), rowHeight, {}};
    const auto text = [&row](int left, int right, const report::TextStyle& style,
                             QStringView column) {
        row.controls.push_back(
            fieldOf(inCell({left, 0, right, rowHeight}, {}, style, report::Align::Left), column));
    };
    text(49, inTotalLine, figureText, u"v_tom");
    text(737, 737 + 3180, rowText, u"naz_ria");
    for (std::size_t i = 0; i < std::size(fields); ++i)
        row.controls.push_back(
            fieldOf(inCell({fields[i].left, 0, lines[i + 2] - 40, rowHeight}, {}, figureText),
                    fields[i].column));
    row.controls.push_back(vertical(inTotalLine, 0, rowHeight));
    addLinesDown(row.controls, lines, 0, rowHeight);
    // "v tom" stands for all rows of its group, so no line crosses its column.
    row.controls.push_back(horizontal(inTotalLine, lines.back(), rowHeight));
    return row;
}

} // namespace

report::Layout rptOdbStar() {
    report::Layout layout = emptyForm(u"rptOdbStar", u"Odborná starostlivosť", lines.back());
    layout.reportHeader = {
        QStringLiteral("Section4"),
        340,
        {label({57, 57, 10000, u"V. Klienti, ktorým bola poskytnutá odborná starostlivosť",
                titleText})}};
    layout.pageHeader = pageHeader();
    layout.detail = detail();
    layout.reportFooter = {
        QStringLiteral("Section5"), 1, {horizontal(lines.front(), lines.back(), 0)}};
    return layout;
}

} // namespace statreturn
