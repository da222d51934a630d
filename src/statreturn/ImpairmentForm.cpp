#include "statreturn/ImpairmentForm.h"

namespace statreturn {

using printing::Cell;
using printing::Controls;
using printing::horizontal;
using printing::inCell;
using printing::vertical;

namespace {

// Lines of the heads, from the top of the page header.
constexpr int groupBottom = 255;
constexpr int halfHead = 453;
constexpr int pairBottom = 652;
constexpr int headBottom = 879;
constexpr int numbersBottom = 1077;

/// The printed columns of the disorders of development, which share a heading.
constexpr std::size_t disorders = 16;
constexpr std::size_t behindDisorders = 20;

void addHeading(Controls& controls, const Cell& cell, QStringView text,
                const report::TextStyle& style = smallText) {
    controls.push_back(inCell(cell, text, style));
}

bool isDisorder(std::size_t column) {
    return column >= disorders && column < behindDisorders;
}

/// The heading of a kind of impairment, and what stands over its two columns.
void addKind(Controls& controls, const ImpairmentForm& form, const CountPair& pair) {
    const std::size_t column = 2 * pair.printed;
    const int left = form.columnLine(column);
    const int middle = form.columnLine(column + 1);
    const int right = form.columnLine(column + 2);
    const int top = isDisorder(column) ? halfHead : groupBottom;
    addHeading(controls, {left, top, right, pairBottom},
               pair.by == CountedBy::Several ? form.several : pair.heading);
    addHeading(controls, {left, pairBottom, middle, headBottom}, u"spolu", tinyText);
    addHeading(controls, {middle, pairBottom, right, headBottom}, form.girls, tinyText);
}

void addHeadings(Controls& controls, const ImpairmentForm& form) {
    const auto line = [&form](std::size_t column) {
        return form.columnLine(column);
    };
    addHeading(controls, {form.codeLine(), 0, line(0), headBottom}, u"I.r.");
    addHeading(controls, {line(0), 0, line(1), headBottom}, countPairs[0].heading, tinyText);
    addHeading(controls, {line(1), 0, line(2), headBottom}, u"z toho\ndievčatá", tinyText);
    addHeading(controls, {line(2), 0, form.right, groupBottom}, form.group);
    addHeading(controls, {line(disorders), groupBottom, line(behindDisorders), halfHead},
               u"vývojové poruchy");
    for (const CountPair& pair : countPairs) {
        if (pair.by != CountedBy::Everyone)
            addKind(controls, form, pair);
    }
}

/// Where the line left of a count column begins: below the heading that spans it.
int headLineTop(std::size_t column) {
    if (column <= 2)
        return 0;
    if (column % 2 == 1)
        return pairBottom;
    return column > disorders && isDisorder(column) ? halfHead : groupBottom;
}

void addHeadLines(Controls& controls, const ImpairmentForm& form) {
    controls.push_back(printing::box({frameLeft, 0, form.right, numbersBottom}));
    controls.push_back(horizontal(frameLeft, form.right, headBottom));
    controls.push_back(horizontal(form.columnLine(2), form.right, groupBottom));
    controls.push_back(horizontal(form.columnLine(2), form.right, pairBottom));
    controls.push_back(
        horizontal(form.columnLine(disorders), form.columnLine(behindDisorders), halfHead));
    controls.push_back(vertical(form.codeLine(), 0, numbersBottom));
    for (std::size_t column = 0; column < printedColumns.size(); ++column)
        controls.push_back(vertical(form.columnLine(column), headLineTop(column), numbersBottom));
}

Cell codeCell(const ImpairmentForm& form) {
    return {form.codeLeft, 0, form.columnLine(0) - form.pad, form.rowHeight};
}

Cell countCell(const ImpairmentForm& form, std::size_t column) {
    return {form.lefts[column], 0, form.columnLine(column + 1) - form.pad, form.rowHeight};
}

} // namespace

ColumnLines ImpairmentForm::lines() const {
    ColumnLines all{frameLeft, codeLine()};
    for (std::size_t column = 0; column <= lefts.size(); ++column)
        all.push_back(columnLine(column));
    return all;
}

report::Section impairmentHeads(const ImpairmentForm& form) {
    report::Section section{QStringLiteral("Section2"), numbersBottom, {}};
    addHeadings(section.controls, form);
    addNumbers(section.controls, form.lines(), headBottom, numbersBottom);
    addHeadLines(section.controls, form);
    return section;
}

void addCountFields(report::Section& row, const ImpairmentForm& form) {
    row.controls.push_back(printing::fieldOf(inCell(codeCell(form), {}, figureText), u"c_riad"));
    for (std::size_t column = 0; column < printedColumns.size(); ++column)
        row.controls.push_back(printing::fieldOf(inCell(countCell(form, column), {}, form.figure),
                                                 printedColumns[column].column));
    addLinesDown(row.controls, form.lines(), 0, form.rowHeight);
}

report::Section impairmentTotals(const ImpairmentForm& form) {
    report::Section section{QStringLiteral("Section5"), form.rowHeight, {}};
    Controls& controls = section.controls;
    report::TextStyle bold = form.figure;
    bold.bold = true;
    controls.push_back(label(form.totalText));
    controls.push_back(inCell(codeCell(form), form.totalCode, figureBold));
    for (std::size_t column = 0; column < printedColumns.size(); ++column) {
        controls.push_back(inCell(countCell(form, column), {}, bold));
        controls.back().name = form.table.totals[column].toString();
    }
    addLinesDown(controls, form.lines(), 0, form.rowHeight);
    controls.push_back(horizontal(frameLeft, form.right, 0));
    controls.push_back(horizontal(frameLeft, form.right, form.rowHeight));
    return section;
}

} // namespace statreturn
