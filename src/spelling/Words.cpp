#include "spelling/Words.h"

#include <QRegularExpression>

#include <algorithm>

namespace spelling {

namespace {

/// Hunspell takes no longer ones, and no Slovak word comes near it.
constexpr qsizetype longestWord = 60;
/// How far from a place the words that touch it may begin or end, addresses included.
constexpr qsizetype furthest = 200;

/// First what is an address, so that its parts are no words.
const QRegularExpression& pieces() {
    static const QRegularExpression pattern(
        QStringLiteral(R"([^\s@]{1,64}@\S+|[a-zA-Z]{2,8}://\S+|\bwww\.\S+|)"
                       R"((?<word>[\p{L}\p{M}\p{Nd}\x{AD}]+)"
                       R"((?:['’\-\x{2010}\x{2011}][\p{L}\p{M}\p{Nd}\x{AD}]+)*))"),
        QRegularExpression::UseUnicodePropertiesOption);
    return pattern;
}

QString asInDictionary(QStringView word) {
    QString plain = word.toString().normalized(QString::NormalizationForm_C);
    plain.remove(QChar::SoftHyphen);
    plain.replace(u'’', u'\'');
    plain.replace(QChar(0x2010), u'-');
    return plain.replace(QChar(0x2011), u'-');
}

/// As ŠZŠ, ADHD or ŠkVP. What is longer is a word written large.
bool isAbbreviation(const QString& word) {
    constexpr qsizetype longest = 6;
    const auto capitals = std::ranges::count_if(word, [](QChar c) { return c.isUpper(); });
    return word.size() <= longest && capitals >= 2 && 2 * capitals >= word.size();
}

bool isOfLanguage(const QString& word) {
    const auto letters = std::ranges::count_if(word, [](QChar c) { return c.isLetter(); });
    return letters > 1 && word.size() <= longestWord && !isAbbreviation(word) &&
           std::ranges::all_of(
               word, [](QChar c) { return !c.isLetter() || c.script() == QChar::Script_Latin; });
}

void take(const QString& text, qsizetype from, qsizetype length, std::vector<Word>& words) {
    const QString word = asInDictionary(QStringView(text).mid(from, length));
    if (isOfLanguage(word))
        words.push_back({from, length, word});
}

bool hasDigit(QStringView text) {
    return std::ranges::any_of(text, [](QChar c) { return c.isDigit(); });
}

/// Of "12-ročný" only the part without digits.
void takeParts(const QString& text, qsizetype from, qsizetype end, std::vector<Word>& words) {
    static const QRegularExpression hyphen(QStringLiteral("[-\\x{2010}\\x{2011}]"));
    if (!hasDigit(QStringView(text).mid(from, end - from)))
        return take(text, from, end - from, words);
    while (from < end) {
        const qsizetype found = text.indexOf(hyphen, from);
        const qsizetype partEnd = found < 0 ? end : std::min(found, end);
        const QStringView part = QStringView(text).mid(from, partEnd - from);
        if (!hasDigit(part))
            take(text, from, part.size(), words);
        from = partEnd + 1;
    }
}

qsizetype blankBefore(const QString& text, qsizetype place) {
    const qsizetype furthestBack = std::max<qsizetype>(0, place - furthest);
    while (place > furthestBack && !text[place - 1].isSpace())
        --place;
    return place;
}

qsizetype blankBehind(const QString& text, qsizetype place) {
    const qsizetype furthestOn = std::min(text.size(), place + furthest);
    while (place < furthestOn && !text[place].isSpace())
        ++place;
    return place;
}

} // namespace

std::vector<Word> wordsIn(const QString& text, qsizetype from, qsizetype to) {
    const qsizetype begin = blankBefore(text, std::min(from, text.size()));
    const qsizetype end = blankBehind(text, std::min(to, text.size()));
    std::vector<Word> words;
    auto match = pieces().globalMatch(QStringView(text).mid(begin, end - begin));
    while (match.hasNext()) {
        const QRegularExpressionMatch found = match.next();
        if (found.hasCaptured(u"word"))
            takeParts(text, begin + found.capturedStart(), begin + found.capturedEnd(), words);
    }
    std::erase_if(words, [&](const Word& word) { return word.end() < from || word.from > to; });
    return words;
}

} // namespace spelling
