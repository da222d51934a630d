#include "report/TableReport.h"

#include "report/Document.h"

#include <QDate>

#include <numeric>

namespace report {

namespace {

constexpr TextStyle titleStyle{13, true};
constexpr TextStyle headStyle{9, true};
constexpr TextStyle textStyle{9};
constexpr int margin = 794;
constexpr int titleHeight = 360;
constexpr int lineHeight = 220;
/// Between the texts of a row and the lines above and below it, and between columns.
constexpr int pad = 50;
constexpr int gap = 120;
constexpr int dateWidth = 1400;

Control textAt(int left, int top, int width, const ColumnForm& form, const TextStyle& style) {
    return {.kind = ControlKind::Label,
            .left = left,
            .top = top,
            .width = width,
            .height = lineHeight,
            .align = form.align,
            .style = style,
            .canGrow = true};
}

Control lineAcross(int width, int top) {
    return {.kind = ControlKind::Line, .top = top, .width = width};
}

int paperWidth(Orientation orientation) {
    return orientation == Orientation::Landscape ? 16838 : 11906;
}

/// A row of labels or fields, one for each column, over a line.
Section rowOf(const TableReport& report, const QString& name, int width, bool heads) {
    const auto shares =
        std::accumulate(report.columns.begin(), report.columns.end(), 0,
                        [](int sum, const ColumnForm& form) { return sum + form.share; });
    Section row{name, lineHeight + 2 * pad, {}};
    int before = 0;
    for (std::size_t i = 0; i < report.columns.size(); ++i) {
        const ColumnForm& form = report.columns[i];
        const int left = width * before / shares;
        before += form.share;
        Control control = textAt(left, pad, width * before / shares - left - gap, form,
                                 heads ? headStyle : textStyle);
        control.kind = heads ? ControlKind::Label : ControlKind::Field;
        control.name = control.dataField = QString::number(i);
        control.caption = heads ? report.table.heads[qsizetype(i)] : QString();
        row.controls.push_back(control);
    }
    row.controls.push_back(lineAcross(width, row.height));
    return row;
}

Section headerOf(const TableReport& report, int width) {
    Section header{QStringLiteral("Section4"), titleHeight + lineHeight + 2 * pad, {}};
    Control title = textAt(0, 0, width - dateWidth, {}, titleStyle);
    title.caption = report.title;
    title.height = titleHeight;
    Control date = textAt(width - dateWidth, 0, dateWidth, {1, Align::Right}, textStyle);
    date.caption = QStringLiteral("%d");
    Control notes = textAt(0, titleHeight, width, {}, textStyle);
    notes.caption = report.notes;
    header.controls = {title, date, notes};
    return header;
}

class TableRows : public RowSource {
  public:
    explicit TableRows(const std::vector<QStringList>& rows) : rows_(rows) {}
    bool next() override { return ++next_ <= rows_.size(); }
    QString text(const QString& column) const override {
        return rows_[next_ - 1].value(column.toInt());
    }

  private:
    const std::vector<QStringList>& rows_;
    std::size_t next_ = 0;
};

Layout layoutOf(const TableReport& report) {
    const int width = paperWidth(report.orientation) - 2 * margin;
    Layout layout;
    layout.title = report.title;
    layout.orientation = report.orientation;
    layout.marginLeft = layout.marginRight = layout.marginTop = layout.marginBottom = margin;
    layout.reportHeader = headerOf(report, width);
    layout.pageHeader = rowOf(report, QStringLiteral("Section2"), width, true);
    layout.detail = rowOf(report, QStringLiteral("Section1"), width, false);
    return layout;
}

} // namespace

Pages pagesOf(const TableReport& report, const TextMeter& meter, const QDate& today) {
    TableRows rows(report.table.rows);
    Pages pages = makePages(layoutOf(report), rows, meter, today);
    pages.table = report.table;
    addRunningLines(pages, meter);
    return pages;
}

} // namespace report
