#include "report/TextLines.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace report {

namespace {

constexpr double bulletGap = 80;

/// Breaks one paragraph. Positions are those of its whole text, over all runs.
class LineBreaker {
  public:
    LineBreaker(const Paragraph& paragraph, double width, const TextMeter& meter)
        : paragraph_(paragraph), width_(width), meter_(meter) {
        for (const auto& run : paragraph.runs) {
            text_ += run.text;
            ascent_ = std::max(ascent_, meter.ascent(run.style));
            height_ = std::max(height_, meter.lineHeight(run.style));
        }
    }

    void appendTo(std::vector<TextLine>& lines) {
        const std::size_t first = lines.size();
        if (width_ == unlimitedWidth)
            lines.push_back(line(0, text_.size()));
        else
            wrapInto(lines);
        addBullet(lines[first]);
    }

  private:
    void wrapInto(std::vector<TextLine>& lines) const {
        QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text_);
        qsizetype from = 0;
        do {
            const qsizetype to = endOfLine(from, letters);
            lines.push_back(line(from, to));
            from = to;
        } while (from < text_.size());
    }

    qsizetype endOfLine(qsizetype from, QTextBoundaryFinder& letters) const {
        const qsizetype reach = lastFitting(from);
        if (reach == text_.size())
            return reach;
        const qsizetype words = endOfWords(from, reach);
        return words > from ? words : endOfLetters(from, reach, letters);
    }

    bool fits(qsizetype from, qsizetype to) const { return line(from, to).width() <= width_; }

    /// How far a line from there could reach, be it into a word. Gropes its way with growing steps,
    /// so that endless words are not measured as a whole.
    qsizetype lastFitting(qsizetype from) const {
        qsizetype good = from;
        qsizetype step = 32;
        for (; good + step < text_.size() && fits(from, good + step); step *= 2)
            good += step;
        qsizetype bad = good + step < text_.size() ? good + step : text_.size() + 1;
        while (bad - good > 1) {
            const qsizetype middle = good + (bad - good) / 2;
            (fits(from, middle) ? good : bad) = middle;
        }
        return good;
    }

    /// Behind the blanks after the last whole word; `from` when there is no whole word.
    qsizetype endOfWords(qsizetype from, qsizetype reach) const {
        const auto part = QStringView(text_).mid(from, reach - from);
        const qsizetype end = part.lastIndexOf(u' ') + 1;
        return part.left(end).trimmed().isEmpty() ? from : from + end;
    }

    /// Behind the last whole letter, but at least behind one.
    static qsizetype endOfLetters(qsizetype from, qsizetype reach, QTextBoundaryFinder& letters) {
        letters.setPosition(reach);
        const qsizetype end = letters.isAtBoundary() ? reach : letters.toPreviousBoundary();
        if (end > from)
            return end;
        letters.setPosition(from);
        return letters.toNextBoundary();
    }

    /// The line that the text from..to makes when the blanks at its end are left out.
    TextLine line(qsizetype from, qsizetype to) const {
        while (to > from && text_[to - 1] == u' ')
            --to;
        TextLine result{{}, ascent_, height_};
        double left = paragraph_.indent;
        qsizetype start = 0;
        for (const auto& run : paragraph_.runs) {
            const qsizetype end = start + run.text.size();
            const qsizetype first = std::max(from, start);
            if (const qsizetype length = std::min(to, end) - first; length > 0) {
                const auto part = run.text.mid(first - start, length);
                const double width = meter_.width(part, run.style);
                result.runs.push_back({{part, run.style}, left, width});
                left += width;
            }
            start = end;
        }
        return result;
    }

    void addBullet(TextLine& line) const {
        if (paragraph_.bullet.isEmpty())
            return;
        const auto& style = paragraph_.runs.front().style;
        const double width = meter_.width(paragraph_.bullet, style);
        const double left = std::max(0.0, paragraph_.indent - bulletGap - width);
        line.runs.insert(line.runs.begin(), {{paragraph_.bullet, style}, left, width});
    }

    const Paragraph& paragraph_;
    double width_;
    const TextMeter& meter_;
    QString text_;
    double ascent_ = 0;
    double height_ = 0;
};

} // namespace

std::vector<TextLine> breakLines(const std::vector<Paragraph>& paragraphs, double width,
                                 const TextMeter& meter) {
    std::vector<TextLine> lines;
    for (const auto& paragraph : paragraphs)
        LineBreaker(paragraph, width, meter).appendTo(lines);
    return lines;
}

} // namespace report
