#include "printing/FormParts.h"
#include "statreturn/FormFrame.h"
#include "statreturn/Forms.h"

#include <iterator>

namespace statreturn {

namespace {

using printing::Controls;
using printing::fieldOf;
using printing::horizontal;
using printing::inCell;
using printing::label;

constexpr int rowHeight = 397;
constexpr report::TextStyle staffText{9};
constexpr report::TextStyle groupText{10, true};

struct StaffField {
    int left;
    QStringView column;
    QStringView heading;
};

constexpr StaffField fields[] = {
    {3515, u"cria", u"I.r."},
    {4139, u"i_spolu", u"spolu"},
    {5159, u"i_zeny", u"z toho\nženy"},
    {6179, u"i_kval", u"s požadov.\nkvalifik."},
    {7257, u"e_spolu", u"spolu"},
    {8277, u"e_zeny", u"z toho\nženy"},
    {9298, u"e_kval", u"s požadov.\nkvalifik."},
};

const ColumnLines lines{frameLeft, 3475, 4099, 5119, 6139, 7217, 8237, 9258, 10278};

report::Section pageHeader() {
    constexpr int groupBottom = 320;
    constexpr int headBottom = 800;
    constexpr int bottom = 1040;
    report::Section section{QStringLiteral("Section2"), bottom, {}};
    Controls& controls = section.controls;
    const auto addGroup = [&controls](int left, int right, QStringView text) {
        controls.push_back(
            inCell({left, 0, right, groupBottom}, text, groupText, report::Align::Left));
    };
    addGroup(5272, lines[5], u"Interní");
    addGroup(8391, lines[8], u"Externí");
    for (std::size_t i = 0; i < std::size(fields); ++i)
        controls.push_back(
            inCell({lines[i + 1], i == 0 ? 0 : groupBottom, lines[i + 2], headBottom},
                   fields[i].heading, figureText));
    addNumbers(controls, lines, headBottom, bottom);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool isGroupEdge = i < 3 || i == 5 || i == 8;
        controls.push_back(printing::vertical(lines[i], isGroupEdge ? 0 : groupBottom, bottom));
    }
    controls.push_back(horizontal(lines.front(), lines.back(), 0));
    controls.push_back(horizontal(lines[2], lines.back(), groupBottom));
    controls.push_back(horizontal(lines.front(), lines.back(), headBottom));
    controls.push_back(horizontal(lines.front(), lines.back(), bottom));
    return section;
}

report::Section detail() {
    report::Section row{QStringLiteral("Section1"), rowHeight, {}};
    row.controls.push_back(fieldOf(
        inCell({113, 0, 113 + 3061, rowHeight}, {}, staffText, report::Align::Left), u"fcia"));
    for (std::size_t i = 0; i < std::size(fields); ++i)
        row.controls.push_back(
            fieldOf(inCell({fields[i].left, 0, lines[i + 2] - 40, rowHeight}, {}, staffText),
                    fields[i].column));
    addLinesDown(row.controls, lines, 0, rowHeight);
    row.controls.push_back(horizontal(lines.front(), lines.back(), rowHeight));
    return row;
}

} // namespace

report::Layout rptZam() {
    report::Layout layout = emptyForm(u"rptZam", u"Evidenčný počet zamestnancov", lines.back());
    layout.reportHeader = {
        QStringLiteral("Section4"),
        850,
        {label({57, 510, 9000, u"III. Evidenčný počet zamestnancov (fyzické osoby)", titleText})}};
    layout.pageHeader = pageHeader();
    layout.detail = detail();
    return layout;
}

} // namespace statreturn
