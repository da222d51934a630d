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
            qsizetype to = endOfWords(from);
            if (to == from && from < text_.size())
                to = endOfLetters(from, letters);
            lines.push_back(line(from, to));
            from = to;
        } while (from < text_.size());
    }

    bool fits(qsizetype from, qsizetype to) const { return line(from, to).width() <= width_; }

    /// Behind the last word that fits, and the blanks that follow it.
    qsizetype endOfWords(qsizetype from) const {
        qsizetype end = from;
        while (end < text_.size()) {
            const qsizetype next = endOfWord(end);
            if (!fits(from, next))
                break;
            end = next;
        }
        return end;
    }

    /// A paragraph's first word may have blanks before it.
    qsizetype endOfWord(qsizetype at) const { return skip(skip(skip(at, true), false), true); }

    qsizetype skip(qsizetype at, bool blanks) const {
        while (at < text_.size() && (text_[at] == u' ') == blanks)
            ++at;
        return at;
    }

    /// Behind the last letter that fits, but at least behind one.
    qsizetype endOfLetters(qsizetype from, QTextBoundaryFinder& letters) const {
        letters.setPosition(from);
        qsizetype end = letters.toNextBoundary();
        for (auto next = letters.toNextBoundary(); next > 0 && fits(from, next);
             next = letters.toNextBoundary())
            end = next;
        return end;
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
