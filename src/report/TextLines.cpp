#include "report/TextLines.h"

#include <QStringList>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <cmath>
#include <optional>

namespace report {

namespace {

constexpr double bulletGap = 80;
/// Half an inch, as old word processors have it.
constexpr double tabStop = 720;

bool isBlank(QChar letter) {
    return letter == u' ' || letter == u'\t';
}

/// Breaks one paragraph. Positions are those of its whole text, over all runs.
class LineBreaker {
  public:
    LineBreaker(const Paragraph& paragraph, double width, const TextMeter& meter)
        : paragraph_(paragraph), width_(width), meter_(meter) {
        for (const auto& run : paragraph.runs) {
            starts_.push_back(text_.size());
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
    void wrapInto(std::vector<TextLine>& lines) {
        qsizetype from = 0;
        do {
            const qsizetype to = endOfLine(from);
            lines.push_back(line(from, to));
            guess_ = std::max<qsizetype>(to - from, 1);
            from = to;
        } while (from < text_.size());
    }

    qsizetype endOfLine(qsizetype from) {
        if (const qsizetype words = endNearGuess(from); words > from)
            return words;
        const qsizetype reach = lastFitting(from);
        if (reach == text_.size())
            return reach;
        const qsizetype words = endOfWords(from, reach);
        return words > from ? words : endOfLetters(from, reach);
    }

    /// Where the line ends if that is a word or two from where lines like the one before do, as is
    /// the rule; else `from`.
    qsizetype endNearGuess(qsizetype from) const {
        constexpr int tries = 4;
        const qsizetype farthest = from + 2 * guess_;
        qsizetype end = endOfWord(from + guess_, farthest);
        if (end > farthest || !fits(from, end)) {
            for (int i = 0; i < tries; ++i) {
                end = endOfWords(from, withoutBlanks(from, end));
                if (end == from || fits(from, end))
                    return end;
            }
            return from;
        }
        for (int i = 0; i < tries && end < text_.size(); ++i) {
            const qsizetype next = endOfWord(end + 1, farthest);
            if (next > farthest || !fits(from, next))
                return next > farthest ? from : end;
            end = next;
        }
        return end == text_.size() ? end : from;
    }

    /// Behind the blanks after the word in which that place is, if the word ends by `farthest`;
    /// else behind that. An endless word is not walked through to its end, or each line would do
    /// so.
    qsizetype endOfWord(qsizetype place, qsizetype farthest) const {
        qsizetype end = std::min(place - 1, text_.size());
        while (end < text_.size() && end <= farthest && !isBlank(text_[end]))
            ++end;
        while (end < text_.size() && isBlank(text_[end]))
            ++end;
        return end;
    }

    bool fits(qsizetype from, qsizetype to) const { return line(from, to).width() <= width_; }

    /// How far a line from there could reach, be it into a word. Gropes its way from where the line
    /// before ended, with growing steps, so that endless words are not measured as a whole.
    qsizetype lastFitting(qsizetype from) const {
        const qsizetype size = text_.size();
        qsizetype good = from;
        qsizetype bad = size + 1;
        qsizetype step = 4;
        for (qsizetype next = std::min(from + guess_, size); good < next; step *= 2) {
            if (!fits(from, next)) {
                bad = next;
                break;
            }
            good = next;
            next = std::min(good + step, size);
        }
        for (step = 4; bad - good > step && good == from; step *= 2) {
            if (fits(from, bad - step))
                good = bad - step;
            else
                bad -= step;
        }
        while (bad - good > 1) {
            const qsizetype middle = good + (bad - good) / 2;
            (fits(from, middle) ? good : bad) = middle;
        }
        return good;
    }

    /// Behind the blanks after the last whole word; `from` when there is no whole word.
    qsizetype endOfWords(qsizetype from, qsizetype reach) const {
        qsizetype end = reach;
        while (end > from && !isBlank(text_[end - 1]))
            --end;
        const auto words = QStringView(text_).mid(from, end - from);
        return words.trimmed().isEmpty() ? from : end;
    }

    /// Behind the last whole letter, but at least behind one.
    qsizetype endOfLetters(qsizetype from, qsizetype reach) {
        if (!letters_)
            letters_.emplace(QTextBoundaryFinder::Grapheme, text_);
        letters_->setPosition(reach);
        const qsizetype end = letters_->isAtBoundary() ? reach : letters_->toPreviousBoundary();
        if (end > from)
            return end;
        letters_->setPosition(from);
        return letters_->toNextBoundary();
    }

    /// The end of the text from..to when the blanks at its end are left out.
    qsizetype withoutBlanks(qsizetype from, qsizetype to) const {
        while (to > from && isBlank(text_[to - 1]))
            --to;
        return to;
    }

    /// The line that the text from..to makes when the blanks at its end are left out.
    TextLine line(qsizetype from, qsizetype to) const {
        to = withoutBlanks(from, to);
        TextLine result{{}, ascent_, height_};
        double left = paragraph_.indent;
        for (std::size_t i = runAt(from); i < starts_.size() && starts_[i] < to; ++i) {
            const Run& run = paragraph_.runs[i];
            const qsizetype first = std::max(from, starts_[i]);
            const qsizetype length = std::min(to, starts_[i] + run.text.size()) - first;
            if (length <= 0)
                continue;
            append(result, run.text.mid(first - starts_[i], length), run.style, left);
        }
        return result;
    }

    /// @param left where the text begins, then where it ends. What is behind a tab goes on at the
    /// next tab stop.
    void append(TextLine& line, const QString& text, const TextStyle& style, double& left) const {
        const QStringList parts = text.split(u'\t');
        for (qsizetype i = 0; i < parts.size(); ++i) {
            if (i > 0)
                left = (std::floor(left / tabStop) + 1) * tabStop;
            const double width = meter_.width(parts[i], style);
            if (!parts[i].isEmpty())
                line.runs.push_back({{parts[i], style}, left, width});
            left += width;
        }
    }

    /// The run in which that place is.
    std::size_t runAt(qsizetype place) const {
        const auto behind = std::upper_bound(starts_.begin(), starts_.end(), place);
        return behind == starts_.begin() ? 0 : std::size_t(behind - starts_.begin() - 1);
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
    /// Where each run begins.
    std::vector<qsizetype> starts_;
    double ascent_ = 0;
    double height_ = 0;
    std::optional<QTextBoundaryFinder> letters_;
    /// Letters of a line, as far as they can be foretold.
    qsizetype guess_ = 64;
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
