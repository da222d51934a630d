#pragma once

#include "report/Pages.h"

#include <QString>

#include <vector>

class QDate;

namespace report {

/// How a column of a plain table stands on paper: its share of the width, and where its texts do.
struct ColumnForm {
    int share = 1;
    Align align = Align::Left;
};

/// A plain table for paper.
struct TableReport {
    QString title;
    /// What stands below the title; '\n' begins a line.
    QString notes;
    Orientation orientation = Orientation::Landscape;
    /// As many as the table has heads.
    std::vector<ColumnForm> columns;
    Table table;
};

/// Sets the title, the notes and the rows, with the heads on top of each page and its number at the
/// foot. Texts that are too wide for their column go on in further lines.
Pages pagesOf(const TableReport& report, const TextMeter& meter, const QDate& today);

} // namespace report
