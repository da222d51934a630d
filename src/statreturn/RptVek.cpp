#include "statreturn/Forms.h"
#include "statreturn/ImpairmentForm.h"

namespace statreturn {

namespace {

using printing::box;
using printing::Cell;
using printing::Controls;
using printing::fieldOf;
using printing::FormText;
using printing::horizontal;
using printing::inCell;
using printing::label;
using printing::vertical;

constexpr int vekLine = 432;

const ImpairmentForm form{
    .table = tableOne,
    .codeLeft = 1247,
    .lefts = {1757, 2381, 2948, 3571, 4138,  4705,  5272,  5839,  6406,  6973,  7540,
              8107, 8674, 9241, 9807, 10374, 10941, 11508, 12075, 12699, 13323, 13946},
    .rowHeight = 284,
    .group = u"v tom postihnutie (zo stľpca 1)",
    .girls = u"dievčatá",
    .several = u"viacnásobné",
    .totalText = {57, 75, 1160, u"Spolu (0101 až  0119)", {5.7}},
    .totalCode = u"0126",
};

// ---- Head of the form ----

constexpr FormText headTexts[] = {
    {50, 57, 3400, u"Ministerstvo školstva SR", smallText},
    {50, 284, 3400, u"Registrované ŠÚ SR", smallText},
    {50, 454, 3400, u"č. Vk. 622/06 z 11. 11. 2005", smallText},
    {50, 624, 3400, u"V rámci Programu štátnych štatistických", smallText},
    {50, 794, 3400, u"zisťovaní schváleného na roky 2006-2008", smallText},
    {50, 964, 3400, u"Ochranu dôverných údajov upravuje", smallText},
    {50, 1134, 3400, u"zákon č. 540/2001 Z.z. o štátnej štatistike", smallText},
    {50, 1304, 3400, u"Za ochranu dôverných údajov", smallText},
    {50, 1474, 3400, u"zodpovedá MŠ SR.", smallText},
    {50, 1644, 3400, u"Riaditeľstvo zariadenia odošle", smallText},
    {50, 1814, 3400, u"výkaz do 20.9.2006", smallText},
    {50, 1984, 3400, u"  2x príslušnému KŠÚ", smallText},
    {6293, 57, 1100, u"Výkaz", {13.5, true}},
    {5046, 397, 3700, u"o špeciálnopedagogickej poradni a", {10, true}},
    {5386, 680, 3000, u"detskom integračnom centre", {10, true}},
    {11906, 57, 2623, u"Škol (MŠ SR) 5 - 01", {14.4, true}},
    {11622, 567, 320, u"Rok", smallText},
    {12120, 510, 300, u"Mes", smallText},
    {12150, 680, 260, u"iac", smallText},
    {12756, 500, 1000, u"Identifikačné", smallText},
    {12699, 680, 1200, u"číslo organizácie", smallText},
    {14003, 567, 510, u"Územie", smallText},
    {11452, 1304, 450, u"Druh", smallText},
    {11452, 1531, 450, u"zariad.", smallText},
    {11962, 1304, 450, u"Prevá-", smallText},
    {11962, 1531, 450, u"dzkar", smallText},
    {4400, 1757, 700, u"Názov", smallText},
    {4400, 2154, 700, u"Miesto", smallText},
    {8561, 2154, 500, u"PSČ", smallText},
    {4400, 2551, 700, u"Ulica", smallText},
    {8561, 2551, 500, u"č.p.", smallText},
    {53, 3118, 8000, u"I. Počet klientov evidovaných v poradenskom zariadení podľa veku",
     titleText},
};

/// The only text of the head that changes from run to run.
constexpr FormText schoolYear{5613, 1247, 2700, u"za školský rok 2006/2007", {9.5, true}};

/// Year and month of the form itself, not of the school year.
void addDigits(Controls& controls) {
    constexpr QStringView digits = u"200709";
    int left = 11452;
    for (const QChar digit : digits) {
        controls.push_back(label({left, 1020, 130, QStringView(&digit, 1), figureText}));
        left += 170;
    }
}

/// Cells for one character each, side by side below a caption's cell.
struct Cells {
    int left;
    int right;
    int count;
    bool firstRow;
};

constexpr Cells identification[] = {
    {11412, 12092, 4, true},      {12092, 12432, 2, true},  {12432, 13962, 8, true},
    {13962, frameRight, 3, true}, {11412, 11922, 3, false}, {11922, 12432, 3, false},
};

void addCells(Controls& controls, const Cells& cells) {
    const Cell caption{cells.left, cells.firstRow ? 454 : 1255, cells.right,
                       cells.firstRow ? 945 : 1725};
    const int bottom = cells.firstRow ? 1255 : 2048;
    controls.push_back(box(caption));
    controls.push_back(box({cells.left, caption.bottom, cells.right, bottom}));
    for (int i = 1; i < cells.count; ++i) {
        const int left = cells.left + (cells.right - cells.left) * i / cells.count;
        controls.push_back(vertical(left, caption.bottom, bottom));
    }
}

/// The boxes in which the address is written by hand.
void addAddress(Controls& controls) {
    constexpr int left = 4337;
    constexpr int right = 11242;
    constexpr int split = 8498;
    constexpr int tops[] = {1651, 2048, 2445, 2842};
    controls.push_back(box({left, tops[0], right, tops[3]}));
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
    for (const Cells& cells : identification)
        addCells(section.controls, cells);
    addAddress(section.controls);
    return section;
}

report::Section detail() {
    report::Section row{QStringLiteral("Section1"), form.rowHeight, {}};
    Controls& controls = row.controls;
    controls.push_back(fieldOf(
        inCell({57, 0, vekLine, form.rowHeight}, {}, smallText, report::Align::Left), u"stlpec"));
    controls.push_back(fieldOf(inCell({454, 0, form.codeLine() - 70, form.rowHeight}, {},
                                      figureText, report::Align::Right),
                               u"vek"));
    addCountFields(row, form);
    controls.push_back(vertical(vekLine, 0, form.rowHeight));
    // The heading down the side goes through all rows, so no line crosses it.
    controls.push_back(horizontal(vekLine, form.right, form.rowHeight));
    return row;
}

} // namespace

report::Layout rptVek() {
    report::Layout layout =
        emptyForm(u"rptVek", u"Zostava klientov zoradena podľa veku", frameRight);
    layout.reportHeader = reportHeader();
    layout.pageHeader = impairmentHeads(form);
    layout.detail = detail();
    layout.reportFooter = impairmentTotals(form);
    return layout;
}

} // namespace statreturn
