#include "oldregister/ReportPages.h"

#include "report/Fonts.h"
#include "report/Pages.h"

#include <QMap>

#include <vector>

namespace oldregister {

namespace {

using report::Align;
using report::Control;
using report::ControlKind;
using report::TextStyle;

constexpr int pageWidth = 10700;
constexpr int lineHeight = 260;
constexpr int countLeft = 4000;
constexpr int countWidth = 1800;
constexpr TextStyle plain{9};
constexpr TextStyle bold{9, true};

// The columns of a printed line: one of the three of the counts, or a text over the whole width.
const QString table = QStringLiteral("tabulka");
const QString read = QStringLiteral("precitane");
const QString written = QStringLiteral("zapisane");
const QString text = QStringLiteral("text");

using Line = QMap<QString, QString>;

Control field(const QString& column, int left, int width, Align align = Align::Left) {
    return {.kind = ControlKind::Field,
            .name = column,
            .left = left,
            .width = width,
            .height = lineHeight,
            .dataField = column,
            .align = align,
            .style = plain,
            .canGrow = true};
}

Control heading(const QString& caption, int left, int width, Align align = Align::Left) {
    return {.name = caption,
            .left = left,
            .width = width,
            .height = lineHeight,
            .caption = caption,
            .align = align,
            .style = bold};
}

report::Layout layout() {
    report::Layout layout;
    layout.title = QStringLiteral("Prevod registra z pôvodného formátu");
    layout.pageHeader.height = 2 * lineHeight;
    layout.pageHeader.controls = {heading(layout.title, 0, 8000),
                                  heading(QStringLiteral("%d"), 8700, 2000, Align::Right)};
    layout.detail.height = lineHeight;
    layout.detail.controls = {field(table, 0, countLeft),
                              field(read, countLeft, countWidth, Align::Right),
                              field(written, countLeft + countWidth, countWidth, Align::Right),
                              field(text, 0, pageWidth)};
    return layout;
}

void addFinding(const Finding& finding, int number, std::vector<Line>& lines) {
    lines.push_back({});
    lines.push_back(
        {{text,
          QStringLiteral("%1. %2: %3").arg(number).arg(captionOf(finding.table), finding.what)}});
    if (!finding.client.isEmpty())
        lines.push_back({{text, QStringLiteral("Osoba: ") + finding.client}});
    if (!finding.content.isEmpty())
        lines.push_back({{text, QStringLiteral("Obsah: ") + finding.content}});
}

std::vector<Line> linesOf(const ConversionReport& report) {
    std::vector<Line> lines;
    for (const QString& line : report.about())
        lines.push_back({{text, line}});
    lines.push_back({});
    lines.push_back({{table, QStringLiteral("Tabuľka")},
                     {read, QStringLiteral("prečítané")},
                     {written, QStringLiteral("zapísané")}});
    for (const TableCount& count : report.tables)
        lines.push_back({{table, captionOf(count.table)},
                         {read, QString::number(count.read)},
                         {written, QString::number(count.written)}});
    lines.push_back({});
    lines.push_back({{text, report.summary()}});
    int number = 0;
    for (const Finding& finding : report.findings)
        addFinding(finding, ++number, lines);
    return lines;
}

class Lines : public report::RowSource {
  public:
    explicit Lines(std::vector<Line> lines) : lines_(std::move(lines)) {}
    bool next() override { return next_++ < lines_.size(); }
    QString text(const QString& column) const override { return lines_[next_ - 1].value(column); }

  private:
    std::vector<Line> lines_;
    std::size_t next_ = 0;
};

} // namespace

report::Pages pagesOf(const ConversionReport& report, const QDate& today) {
    Lines lines(linesOf(report));
    return report::makePages(layout(), lines, report::FontMeter(), today);
}

} // namespace oldregister
