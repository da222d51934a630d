#pragma once

#include "printing/FormParts.h"
#include "statreturn/FormFrame.h"
#include "statreturn/ImpairmentTable.h"

#include <array>

namespace statreturn {

/// How a table by impairment is printed: what the forms of Tables I and II differ in.
struct ImpairmentForm {
    const ImpairmentTable& table;
    /// Left edges of the fields: of the row's code and of the printed columns 1 to 22. The line
    /// between two columns stands a little left of them.
    int codeLeft = 0;
    std::array<int, printedColumns.size()> lefts;
    /// From the line between two columns to the fields beside it.
    int pad = 40;
    int right = frameRight;
    int rowHeight = 0;
    report::TextStyle figure = figureText;
    /// The heading over all kinds of impairment.
    QStringView group;
    /// What stands over the girls of a kind of impairment.
    QStringView girls;
    /// Where this form divides the heading of several impairments.
    QStringView several;
    /// Text and code of the line of totals.
    printing::FormText totalText;
    QStringView totalCode;

    int codeLine() const { return codeLeft - 20; }
    /// The line at the left of a count column, numbered from 0; past the last one, the frame.
    int columnLine(std::size_t column) const {
        return column < lefts.size() ? lefts[column] - pad : right;
    }
    ColumnLines lines() const;
};

/// The heads of all columns, in the page header.
report::Section impairmentHeads(const ImpairmentForm& form);

/// Adds the fields of code and counts to a row, and the lines down.
void addCountFields(report::Section& row, const ImpairmentForm& form);

/// The line of totals, in the report footer; its captions are set before each print.
report::Section impairmentTotals(const ImpairmentForm& form);

} // namespace statreturn
