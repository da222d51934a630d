#include "statreturn/Forms.h"
#include "statreturn/ImpairmentForm.h"

namespace statreturn {

namespace {

using printing::Cell;
using printing::Controls;
using printing::fieldOf;
using printing::FormText;
using printing::horizontal;
using printing::inCell;
using printing::label;
using printing::vertical;

constexpr int secondStripLine = 434;
constexpr int titleLine = 970;
constexpr int titleWidth = 2438;
constexpr int rowHeight = 380;
constexpr int right = 14266;

const ImpairmentForm form{
    .table = tableTwo,
    .codeLeft = 3572,
    .lefts = {4025, 4592, 5216,  5670,  6123,  6577,  7030,  7484,  7937,  8391,  8844,
              9298, 9751, 10205, 10658, 11112, 11565, 12019, 12472, 12926, 13379, 13833},
    .pad = 20,
    .right = right,
    .rowHeight = rowHeight,
    .figure = {7.4},
    .group = u"v tom postihnutie (zo stĺpca 1)",
    .girls = u"dievč.",
    .several = u"viacná-\nsobné",
    .totalText = {170, 110, 3200, u"Spolu (0201 až 0216 )", figureText},
    .totalCode = u"0226",
};

constexpr FormText heading{
    53, 60, 10000,
    u"II. Počet klientov evidovaných v poradenskom zariadení podľa spôsobu vzdelávania", titleText};

/// A row grows with a name of the type of school that needs more than its two lines.
report::Section detail() {
    report::Section row{QStringLiteral("Section1"), rowHeight, {}};
    Controls& controls = row.controls;
    const auto strip = [&controls](int left, int end, QStringView column) {
        controls.push_back(
            fieldOf(inCell({left, 0, end, rowHeight}, {}, tinyText, report::Align::Left), column));
    };
    strip(57, secondStripLine, u"stlpec_1");
    strip(454, titleLine, u"stlpec_2");
    controls.push_back(fieldOf(
        inCell({1020, 0, 1020 + titleWidth, rowHeight}, {}, figureText, report::Align::Left),
        u"kod_txt"));
    controls.back().canGrow = true;
    addCountFields(row, form);
    controls.push_back(vertical(secondStripLine, 0, rowHeight));
    controls.push_back(vertical(titleLine, 0, rowHeight));
    // The headings down the side go through all rows, so no line crosses them.
    controls.push_back(horizontal(titleLine, right, rowHeight));
    return row;
}

// ---- Signatures ----

constexpr int signatureTop = rowHeight + 150;
constexpr int signatureMiddle = signatureTop + 950;
constexpr int signatureBottom = signatureTop + 1900;

constexpr FormText signatureTexts[] = {
    {50, signatureTop + 50, 3300, u"Odoslané dňa", smallText},
    {3458, signatureTop + 50, 2900, u"Pečiatka", smallText},
    {6463, signatureTop + 50, 2850, u"Podpis vedúceho", smallText},
    {6463, signatureTop + 220, 2850, u"spravodajskej jednotky", smallText},
    {9411, signatureTop + 50, 4800, u"Výkaz zostavil", smallText},
    {9411, signatureMiddle + 50, 1450, u"Telefón", smallText},
    {10942, signatureMiddle + 50, 1450, u"Klapka", smallText},
    {12472, signatureMiddle + 50, 1700, u"E-mail", smallText},
};

constexpr Cell signatureCells[] = {
    {frameLeft, signatureTop, 3418, signatureBottom},
    {3418, signatureTop, 6423, signatureBottom},
    {6423, signatureTop, 9371, signatureBottom},
    {9371, signatureTop, right, signatureMiddle},
    {9371, signatureMiddle, 10902, signatureBottom},
    {10902, signatureMiddle, 12432, signatureBottom},
    {12432, signatureMiddle, right, signatureBottom},
};

report::Section reportFooter() {
    report::Section section = impairmentTotals(form);
    section.height = signatureBottom + 10;
    for (const FormText& text : signatureTexts)
        section.controls.push_back(label(text));
    for (const Cell& cell : signatureCells)
        section.controls.push_back(printing::box(cell));
    return section;
}

} // namespace

report::Layout rptVzd() {
    report::Layout layout =
        emptyForm(u"rptVzd", u"Zostava klientov zoradená podľa spôsobu vzdelávania", right);
    layout.reportHeader = {QStringLiteral("Section4"), 340, {label(heading)}};
    layout.pageHeader = impairmentHeads(form);
    layout.detail = detail();
    layout.reportFooter = reportFooter();
    return layout;
}

} // namespace statreturn
