#include "statreturn/RptVek.h"

#include "statreturn/LayoutParts.h"

#include <cstddef>
#include <iterator>
#include <span>

namespace statreturn {

namespace {

using report::Align;
using report::Control;
using report::TextStyle;
using Controls = std::vector<Control>;

constexpr TextStyle small{7};
constexpr TextStyle tiny{6.5};
constexpr TextStyle figure{8};
constexpr TextStyle figureBold{8, true};

// The table's frame and the lines inside it; a column's field stands `pad` right of its line.
constexpr int frameLeft = 17;
constexpr int frameRight = 14529;
constexpr int vekLine = 432;
constexpr int codeLine = 1227;
constexpr int pad = 40;

constexpr int rowHeight = 284;
constexpr int figureTop = 52;

// Lines of the heads of the columns, from the top of the page header.
constexpr int groupBottom = 255;
constexpr int halfHead = 453;
constexpr int pairBottom = 652;
constexpr int headBottom = 879;
constexpr int numbersBottom = 1077;

struct CountField {
    int left;
    QStringView column;
};

/// The printed columns 1 to 22.
constexpr std::array<CountField, 22> countFields{{
    {1757, u"spolu"},   {2381, u"spolu_zeny"}, {2948, u"p_autiz"}, {3571, u"p_autiz_Z"},
    {4138, u"p_menta"}, {4705, u"p_menta_Z"},  {5272, u"p_sluch"}, {5839, u"p_sluch_Z"},
    {6406, u"p_zrak"},  {6973, u"p_zrak_Z"},   {7540, u"p_rec"},   {8107, u"p_rec_Z"},
    {8674, u"p_teles"}, {9241, u"p_teles_Z"},  {9807, u"p_viacN"}, {10374, u"p_viacN_Z"},
    {10941, u"p_vpsp"}, {11508, u"p_vpsp_Z"},  {12075, u"p_vpuc"}, {12699, u"p_vpuc_Z"},
    {13323, u"p_ine"},  {13946, u"p_ine_Z"},
}};

/// The line at the left of a count column, numbered from 0; past the last one, the frame.
constexpr int columnLine(std::size_t column) {
    return column < countFields.size() ? countFields[column].left - pad : frameRight;
}

constexpr int fieldWidth(std::size_t column) {
    return columnLine(column + 1) - pad - countFields[column].left;
}

// ---- Head of the form ----

constexpr FormText headTexts[] = {
    {50, 57, 3400, u"Ministerstvo školstva SR", small},
    {50, 284, 3400, u"Registrované ŠÚ SR", small},
    {50, 454, 3400, u"č. Vk. 622/06 z 11. 11. 2005", small},
    {50, 624, 3400, u"V rámci Programu štátnych štatistických", small},
    {50, 794, 3400, u"zisťovaní schváleného na roky 2006-2008", small},
    {50, 964, 3400, u"Ochranu dôverných údajov upravuje", small},
    {50, 1134, 3400, u"zákon č. 540/2001 Z.z. o štátnej štatistike", small},
    {50, 1304, 3400, u"Za ochranu dôverných údajov", small},
    {50, 1474, 3400, u"zodpovedá MŠ SR.", small},
    {50, 1644, 3400, u"Riaditeľstvo zariadenia odošle", small},
    {50, 1814, 3400, u"výkaz do 20.9.2006", small},
    {50, 1984, 3400, u"  2x príslušnému KŠÚ", small},
    {6293, 57, 1100, u"Výkaz", {13.5, true}},
    {5046, 397, 3700, u"o špeciálnopedagogickej poradni a", {10, true}},
    {5386, 680, 3000, u"detskom integračnom centre", {10, true}},
    {11906, 57, 2623, u"Škol (MŠ SR) 5 - 01", {14.4, true}},
    {11622, 567, 320, u"Rok", small},
    {12120, 510, 300, u"Mes", small},
    {12150, 680, 260, u"iac", small},
    {12756, 500, 1000, u"Identifikačné", small},
    {12699, 680, 1200, u"číslo organizácie", small},
    {14003, 567, 510, u"Územie", small},
    {11452, 1304, 450, u"Druh", small},
    {11452, 1531, 450, u"zariad.", small},
    {11962, 1304, 450, u"Prevá-", small},
    {11962, 1531, 450, u"dzkar", small},
    {4400, 1757, 700, u"Názov", small},
    {4400, 2154, 700, u"Miesto", small},
    {8561, 2154, 500, u"PSČ", small},
    {4400, 2551, 700, u"Ulica", small},
    {8561, 2551, 500, u"č.p.", small},
    {53,
     3118,
     8000,
     u"I. Počet klientov evidovaných v poradenskom zariadení podľa veku",
     {9, true}},
};

/// The only text of the head that changes from run to run.
constexpr FormText schoolYear{5613, 1247, 2700, u"za školský rok 2006/2007", {9.5, true}};

/// Year and month of the form itself, not of the school year.
void addDigits(Controls& controls) {
    constexpr QStringView digits = u"200709";
    int left = 11452;
    for (const QChar digit : digits) {
        controls.push_back(label({left, 1020, 130, QStringView(&digit, 1), figure}));
        left += 170;
    }
}

struct Cells {
    int left;
    int right;
    int count;
    int top;
    int bottom;
};

/// A row of cells for one character each.
void addCells(Controls& controls, const Cells& cells) {
    controls.push_back(box(cells.left, cells.top, cells.right, cells.bottom));
    for (int i = 1; i < cells.count; ++i) {
        const int left = cells.left + (cells.right - cells.left) * i / cells.count;
        controls.push_back(vertical(left, cells.top, cells.bottom));
    }
}

/// The boxes of the identification: captions in the odd rows, cells in the even ones.
void addIdentification(Controls& controls) {
    constexpr int captionTop = 454;
    constexpr int cellTop = 945;
    constexpr int secondTop = 1255;
    constexpr int secondCellTop = 1725;
    constexpr int bottom = 2048;
    constexpr Cells cells[] = {
        {11412, 12092, 4, cellTop, secondTop},    {12092, 12432, 2, cellTop, secondTop},
        {12432, 13962, 8, cellTop, secondTop},    {13962, frameRight, 3, cellTop, secondTop},
        {11412, 11922, 3, secondCellTop, bottom}, {11922, 12432, 3, secondCellTop, bottom},
    };
    for (const Cells& each : cells) {
        const int top = each.top == cellTop ? captionTop : secondTop;
        controls.push_back(box(each.left, top, each.right, each.top));
        addCells(controls, each);
    }
}

/// The boxes in which the address is written by hand.
void addAddress(Controls& controls) {
    constexpr int left = 4337;
    constexpr int right = 11242;
    constexpr int split = 8498;
    constexpr int tops[] = {1651, 2048, 2445, 2842};
    controls.push_back(box(left, tops[0], right, tops[3]));
    controls.push_back(horizontal(left, right, tops[1]));
    controls.push_back(horizontal(left, right, tops[2]));
    controls.push_back(vertical(split, tops[1], tops[3]));
}

report::Section reportHeader() {
    report::Section section{QStringLiteral("Section4"), 3360, {}};
    for (const FormText& text : headTexts) {
        section.controls.push_back(label(text));
    }
    section.controls.push_back(label(schoolYear, u"Label105"));
    addDigits(section.controls);
    addIdentification(section.controls);
    addAddress(section.controls);
    return section;
}

// ---- Heads of the columns ----

/// A heading over the columns from `first` to before `end`, its lines centred between two heights.
struct Heading {
    std::size_t first;
    std::size_t end;
    int top;
    int bottom;
    QStringView line;
    QStringView secondLine = {};
};

constexpr Heading headings[] = {
    {0, 1, 0, headBottom, u"Spolu"},
    {1, 2, 0, headBottom, u"z toho", u"dievčatá"},
    {2, 22, 0, groupBottom, u"v tom postihnutie (zo stľpca 1)"},
    {2, 4, groupBottom, pairBottom, u"syndróm", u"autizmu"},
    {4, 6, groupBottom, pairBottom, u"mentálne"},
    {6, 8, groupBottom, pairBottom, u"sluchové"},
    {8, 10, groupBottom, pairBottom, u"zrakové"},
    {10, 12, groupBottom, pairBottom, u"rečové"},
    {12, 14, groupBottom, pairBottom, u"telesné"},
    {14, 16, groupBottom, pairBottom, u"viacnásobné"},
    {16, 20, groupBottom, halfHead, u"vývojové poruchy"},
    {16, 18, halfHead, pairBottom, u"správania"},
    {18, 20, halfHead, pairBottom, u"učenia"},
    {20, 22, groupBottom, pairBottom, u"iné"},
};

void addCentred(Controls& controls, int left, int right, int top, QStringView text,
                const TextStyle& style) {
    controls.push_back(label({left, top, right - left, text, style, Align::Center}));
}

void addHeading(Controls& controls, const Heading& heading) {
    const TextStyle& style = heading.end - heading.first == 1 ? tiny : small;
    constexpr int margin = 10;
    constexpr int pitch = 170;
    const int lines = heading.secondLine.isEmpty() ? 1 : 2;
    const int height = lineHeight(style.points) + (lines - 1) * pitch;
    const int left = columnLine(heading.first) + margin;
    const int right = columnLine(heading.end) - margin;
    const int top = (heading.top + heading.bottom - height) / 2;
    addCentred(controls, left, right, top, heading.line, style);
    if (lines == 2) {
        addCentred(controls, left, right, top + pitch, heading.secondLine, style);
    }
}

/// "spolu" and "dievčatá" in turn under the kinds of impairment.
void addPairHeads(Controls& controls) {
    for (std::size_t column = 2; column < countFields.size(); ++column) {
        addHeading(controls, {column, column + 1, pairBottom, headBottom,
                              column % 2 == 0 ? u"spolu" : u"dievčatá"});
    }
}

void addNumbers(Controls& controls) {
    constexpr int top = headBottom + (numbersBottom - headBottom - lineHeight(tiny.points)) / 2;
    addCentred(controls, frameLeft, codeLine, top, u"a", tiny);
    addCentred(controls, codeLine, columnLine(0), top, u"b", tiny);
    for (std::size_t column = 0; column < countFields.size(); ++column) {
        addCentred(controls, columnLine(column), columnLine(column + 1), top,
                   QString::number(column + 1), tiny);
    }
}

/// Where the line left of a count column begins: below the heading that spans it.
constexpr int headLineTop(std::size_t column) {
    if (column <= 2) {
        return 0;
    }
    if (column % 2 == 1) {
        return pairBottom;
    }
    return column == 18 ? halfHead : groupBottom;
}

void addHeadLines(Controls& controls) {
    controls.push_back(box(frameLeft, 0, frameRight, numbersBottom));
    controls.push_back(horizontal(frameLeft, frameRight, headBottom));
    controls.push_back(horizontal(columnLine(2), frameRight, groupBottom));
    controls.push_back(horizontal(columnLine(2), frameRight, pairBottom));
    controls.push_back(horizontal(columnLine(16), columnLine(20), halfHead));
    controls.push_back(vertical(codeLine, 0, numbersBottom));
    for (std::size_t column = 0; column < countFields.size(); ++column) {
        controls.push_back(vertical(columnLine(column), headLineTop(column), numbersBottom));
    }
}

report::Section pageHeader() {
    report::Section section{QStringLiteral("Section2"), numbersBottom, {}};
    constexpr int codeTop = (headBottom - lineHeight(small.points)) / 2;
    addCentred(section.controls, codeLine, columnLine(0), codeTop, u"I.r.", small);
    for (const Heading& heading : headings) {
        addHeading(section.controls, heading);
    }
    addPairHeads(section.controls);
    addNumbers(section.controls);
    addHeadLines(section.controls);
    return section;
}

// ---- Rows and totals ----

void addColumnLines(Controls& controls) {
    controls.push_back(vertical(frameLeft, 0, rowHeight));
    controls.push_back(vertical(codeLine, 0, rowHeight));
    for (std::size_t column = 0; column <= countFields.size(); ++column) {
        controls.push_back(vertical(columnLine(column), 0, rowHeight));
    }
}

report::Section detail() {
    report::Section section{QStringLiteral("Section1"), rowHeight, {}};
    Controls& controls = section.controls;
    controls.push_back(field({57, figureTop + 10, vekLine - 57, {}, small}, u"stlpec"));
    controls.push_back(
        field({454, figureTop, codeLine - 70 - 454, {}, figure, Align::Right}, u"vek"));
    controls.push_back(
        field({1247, figureTop, columnLine(0) - 20 - 1247, {}, figure, Align::Center}, u"c_riad"));
    for (std::size_t column = 0; column < countFields.size(); ++column) {
        controls.push_back(field(
            {countFields[column].left, figureTop, fieldWidth(column), {}, figure, Align::Center},
            countFields[column].column));
    }
    addColumnLines(controls);
    controls.push_back(vertical(vekLine, 0, rowHeight));
    // The heading down the side goes through all rows, so no line crosses it.
    controls.push_back(horizontal(vekLine, frameRight, rowHeight));
    return section;
}

report::Section reportFooter() {
    report::Section section{QStringLiteral("Section5"), rowHeight, {}};
    Controls& controls = section.controls;
    constexpr TextStyle narrow{5.9};
    controls.push_back(label({40, 75, codeLine - 47, u"Spolu (0101 až  0119)", narrow}));
    controls.push_back(
        label({1247, figureTop, columnLine(0) - 20 - 1247, u"0126", figureBold, Align::Center}));
    for (std::size_t column = 0; column < countFields.size(); ++column) {
        controls.push_back(label({countFields[column].left,
                                  figureTop,
                                  fieldWidth(column),
                                  {},
                                  figureBold,
                                  Align::Center},
                                 vekTotals[column].control));
    }
    addColumnLines(controls);
    controls.push_back(horizontal(frameLeft, frameRight, 0));
    controls.push_back(horizontal(frameLeft, frameRight, rowHeight));
    return section;
}

} // namespace

report::Layout rptVek() {
    report::Layout layout;
    layout.name = QStringLiteral("rptVek");
    layout.title = QStringLiteral("Zostava klientov zoradena podľa veku");
    layout.orientation = report::Orientation::Landscape;
    layout.marginLeft = 1146;
    layout.marginRight = 1146;
    layout.marginTop = 794;
    layout.marginBottom = 794;
    layout.reportHeader = reportHeader();
    layout.pageHeader = pageHeader();
    layout.detail = detail();
    layout.reportFooter = reportFooter();
    return layout;
}

} // namespace statreturn
