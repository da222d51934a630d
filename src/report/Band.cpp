#include "report/Band.h"

#include "report/TextLines.h"

#include <QDate>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace report {

namespace {

/// What begins at `bottom` or below moves down by `by`.
struct Growth {
    double bottom = 0;
    double by = 0;
};

bool isText(const Control& control) {
    return control.kind == ControlKind::Label || control.kind == ControlKind::Field;
}

class BandSetter {
  public:
    BandSetter(const Section& section, const RowSource* row, const TextMeter& meter,
               const QDate& today)
        : section_(section), row_(row), meter_(meter), today_(today) {}

    Band set() {
        breakTexts();
        measureGrowth();
        for (std::size_t i = 0; i < section_.controls.size(); ++i)
            place(section_.controls[i], broken_[i]);
        band_.height = section_.height + shiftAt(section_.height);
        return std::move(band_);
    }

  private:
    void breakTexts() {
        for (const auto& control : section_.controls)
            broken_.push_back(isText(control) ? linesOf(control) : std::vector<TextLine>());
    }

    std::vector<TextLine> linesOf(const Control& control) const {
        const QString text = textOf(control);
        const auto paragraphs = control.rich ? richParagraphs(text, control.style)
                                             : plainParagraphs(text, control.style);
        return breakLines(paragraphs, control.canGrow ? control.width : unlimitedWidth, meter_);
    }

    QString textOf(const Control& control) const {
        if (control.kind == ControlKind::Label)
            return control.asTyped ? control.caption : captionOf(control);
        if (!row_)
            throw std::invalid_argument("field outside the detail: " + control.name.toStdString());
        return row_->text(control.dataField);
    }

    QString captionOf(const Control& control) const {
        return QString(control.caption)
            .replace(QStringLiteral("%d"), today_.toString(QStringLiteral("dd.MM.yyyy")));
    }

    /// A control grows after those above it have grown, so growths add up from the top.
    void measureGrowth() {
        for (const std::size_t i : growingFromTheTop()) {
            const auto& control = section_.controls[i];
            const double by = heightOf(broken_[i]) - control.height;
            if (by > 0)
                growths_.push_back(
                    {control.top + double(control.height), by + shiftAt(control.top)});
        }
    }

    std::vector<std::size_t> growingFromTheTop() const {
        std::vector<std::size_t> growing;
        for (std::size_t i = 0; i < section_.controls.size(); ++i) {
            if (section_.controls[i].canGrow)
                growing.push_back(i);
        }
        std::stable_sort(growing.begin(), growing.end(), [this](std::size_t a, std::size_t b) {
            return section_.controls[a].top < section_.controls[b].top;
        });
        return growing;
    }

    static double heightOf(const std::vector<TextLine>& lines) {
        double height = 0;
        for (const auto& line : lines)
            height += line.height;
        return height;
    }

    double shiftAt(double y) const {
        double shift = 0;
        for (const auto& growth : growths_) {
            if (growth.bottom <= y)
                shift = std::max(shift, growth.by);
        }
        return shift;
    }

    void place(const Control& control, const std::vector<TextLine>& lines) {
        const double top = control.top + shiftAt(control.top);
        const double end = control.top + control.height;
        const double bottom = isText(control)
                                  ? top + std::max<double>(control.height, grown(control, lines))
                                  : end + shiftAt(end);
        const QRectF box(control.left, top, control.width, bottom - top);
        if (isText(control))
            placeLines(control, box, lines);
        else
            band_.lines.push_back({box, control.kind == ControlKind::Box});
    }

    static double grown(const Control& control, const std::vector<TextLine>& lines) {
        return control.canGrow ? heightOf(lines) : 0;
    }

    void placeLines(const Control& control, const QRectF& box, const std::vector<TextLine>& lines) {
        double top = box.top() + (control.middle ? (box.height() - heightOf(lines)) / 2 : 0);
        for (const auto& line : lines) {
            const double left = box.left() + indentOf(control, line);
            for (const auto& run : line.runs)
                placeRun(control, box, line, run, left, top);
            top += line.height;
        }
    }

    static double indentOf(const Control& control, const TextLine& line) {
        const double free = control.width - line.width();
        switch (control.align) {
        case Align::Left:
            return 0;
        case Align::Center:
            return free / 2;
        case Align::Right:
            return free;
        }
        return 0;
    }

    void placeRun(const Control& control, const QRectF& box, const TextLine& line,
                  const LineRun& run, double left, double top) {
        band_.texts.push_back({control.name, run.run.text, box, left + run.left, top + line.ascent,
                               run.width, line.ascent, line.height, run.run.style});
    }

    const Section& section_;
    const RowSource* row_;
    const TextMeter& meter_;
    const QDate& today_;
    std::vector<std::vector<TextLine>> broken_;
    std::vector<Growth> growths_;
    Band band_;
};

} // namespace

Band setBand(const Section& section, const RowSource* row, const TextMeter& meter,
             const QDate& today) {
    return BandSetter(section, row, meter, today).set();
}

std::vector<double> cutsOf(const Band& band) {
    std::vector<std::pair<double, double>> spans;
    for (const auto& text : band.texts)
        spans.emplace_back(text.extent().top(), text.extent().bottom());
    std::sort(spans.begin(), spans.end());
    constexpr double tolerance = 0.5;
    std::vector<double> cuts;
    double bottom = 0;
    for (const auto& [top, end] : spans) {
        if (top > bottom - tolerance && bottom > 0)
            cuts.push_back(bottom);
        bottom = std::max(bottom, end);
    }
    return cuts;
}

void moveBand(Band& band, double dx, double dy) {
    for (auto& text : band.texts) {
        text.box.translate(dx, dy);
        text.left += dx;
        text.baseline += dy;
    }
    for (auto& line : band.lines)
        line.rect.translate(dx, dy);
}

Band sliceOf(const Band& band, double from, double to) {
    Band slice{to - from, {}, {}};
    const auto clip = [from, to](QRectF rect) {
        rect.setBottom(std::min(rect.bottom(), to));
        rect.setTop(std::max(rect.top(), from));
        return rect;
    };
    for (const auto& text : band.texts) {
        const double middle = text.extent().center().y();
        if (middle < from || middle >= to)
            continue;
        slice.texts.push_back(text);
        slice.texts.back().box = clip(text.box);
    }
    const bool last = to >= band.height;
    for (const auto& line : band.lines) {
        const bool begins = line.rect.top() < to || last;
        const bool reaches = line.rect.bottom() > from || line.rect.top() >= from;
        if (begins && reaches)
            slice.lines.push_back({clip(line.rect), line.isBox});
    }
    moveBand(slice, 0, -from);
    return slice;
}

} // namespace report
