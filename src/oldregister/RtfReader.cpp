#include "oldregister/RtfReader.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace oldregister {

using report::Marks;

namespace {

/// The code page of a font's character set; nothing for one that says none.
std::optional<int> pageOfSet(int characterSet) {
    constexpr std::pair<int, int> pages[] = {{161, 1253}, {162, 1254}, {177, 1255}, {178, 1256},
                                             {186, 1257}, {204, 1251}, {238, 1250}};
    for (const auto& [set, page] : pages)
        if (set == characterSet)
            return page;
    return std::nullopt;
}

/// The signs that stand before an item; any other, as a number, stays a word of the text.
bool isBullet(QStringView sign) {
    constexpr QStringView bullets =
        u"\x00b7\x2022\xf0b7\x25cf\x25cb\x25a0\x25aa\xf0a7-\x2013*o\x00a7";
    return sign.size() == 1 && bullets.contains(sign);
}

} // namespace

// What control words do

void RtfReader::endParagraph(const RtfToken& /*word*/) {
    if (groups_.back().goal == Goal::Text)
        paragraphs_.endParagraph();
}

template <bool Marks::*which>
void RtfReader::mark(const RtfToken& word) {
    groups_.back().marks.*which = !word.hasNumber || word.number != 0;
}

void RtfReader::endUnderlined(const RtfToken& /*word*/) {
    groups_.back().marks.underlined = false;
}

void RtfReader::endMarks(const RtfToken& /*word*/) {
    groups_.back().marks = {};
}

void RtfReader::takeFont(const RtfToken& word) {
    groups_.back().font = word.number;
}

void RtfReader::takeCharacterSet(const RtfToken& word) {
    if (const auto page = pageOfSet(word.number))
        pageOfFont_.insert_or_assign(groups_.back().font, *page);
}

void RtfReader::takeDocumentPage(const RtfToken& word) {
    documentPage_ = word.number;
}

void RtfReader::takeUnicode(const RtfToken& word) {
    toSkip_ = 0;
    const auto code = static_cast<char32_t>(word.number < 0 ? word.number + 0x10000 : word.number);
    addText(QChar::fromUcs4(code));
    toSkip_ = groups_.back().substitutes;
}

void RtfReader::takeSubstitutes(const RtfToken& word) {
    groups_.back().substitutes = std::clamp(word.number, 0, 10);
}

void RtfReader::skipBinary(const RtfToken& word) {
    if (groups_.back().goal == Goal::Nowhere)
        tokens_.skip(word.number);
}

void RtfReader::makeOptional(const RtfToken& /*word*/) {
    isOptional_ = true;
}

/// The outermost group is the text itself, whatever it says of itself.
template <RtfReader::Goal goal>
void RtfReader::enter(const RtfToken& /*word*/) {
    if (groups_.size() > 2)
        groups_.back().goal = goal;
}

struct RtfReader::ControlWord {
    constexpr ControlWord(const char16_t* name, char16_t stands) : word(name), letter(stands) {}
    constexpr ControlWord(const char16_t* name, void (RtfReader::*does)(const RtfToken&))
        : word(name), act(does) {}

    QStringView word;
    /// What the word stands for, unless it acts.
    char16_t letter = 0;
    void (RtfReader::*act)(const RtfToken&) = nullptr;
};

/// Words that are not here change nothing that is kept.
const RtfReader::ControlWord RtfReader::controlWords[] = {
    {u"\\", u'\\'},
    {u"{", u'{'},
    {u"}", u'}'},
    {u"~", u'\x00a0'},
    {u"-", u'\x00ad'},
    {u"_", u'\x2011'},
    {u"tab", u'\t'},
    {u"\t", u'\t'},
    {u"cell", u'\t'},
    {u"nestcell", u'\t'},
    {u"line", u'\x2028'},
    {u"lbr", u'\x2028'},
    {u"bullet", u'\x2022'},
    {u"endash", u'\x2013'},
    {u"emdash", u'\x2014'},
    {u"lquote", u'\x2018'},
    {u"rquote", u'\x2019'},
    {u"ldblquote", u'\x201c'},
    {u"rdblquote", u'\x201d'},
    {u"enspace", u'\x2002'},
    {u"emspace", u'\x2003'},
    {u"qmspace", u'\x2005'},
    {u"par", &RtfReader::endParagraph},
    {u"\r", &RtfReader::endParagraph},
    {u"\n", &RtfReader::endParagraph},
    {u"row", &RtfReader::endParagraph},
    {u"nestrow", &RtfReader::endParagraph},
    {u"sect", &RtfReader::endParagraph},
    {u"page", &RtfReader::endParagraph},
    {u"b", &RtfReader::mark<&Marks::bold>},
    {u"i", &RtfReader::mark<&Marks::italic>},
    {u"ul", &RtfReader::mark<&Marks::underlined>},
    {u"uld", &RtfReader::mark<&Marks::underlined>},
    {u"uldash", &RtfReader::mark<&Marks::underlined>},
    {u"uldb", &RtfReader::mark<&Marks::underlined>},
    {u"ulth", &RtfReader::mark<&Marks::underlined>},
    {u"ulw", &RtfReader::mark<&Marks::underlined>},
    {u"ulwave", &RtfReader::mark<&Marks::underlined>},
    {u"ulnone", &RtfReader::endUnderlined},
    {u"plain", &RtfReader::endMarks},
    {u"f", &RtfReader::takeFont},
    {u"fcharset", &RtfReader::takeCharacterSet},
    {u"ansicpg", &RtfReader::takeDocumentPage},
    {u"u", &RtfReader::takeUnicode},
    {u"uc", &RtfReader::takeSubstitutes},
    {u"bin", &RtfReader::skipBinary},
    {u"*", &RtfReader::makeOptional},
    {u"fonttbl", &RtfReader::enter<Goal::Fonts>},
    {u"colortbl", &RtfReader::enter<Goal::Nowhere>},
    {u"stylesheet", &RtfReader::enter<Goal::Nowhere>},
    {u"info", &RtfReader::enter<Goal::Nowhere>},
    {u"pict", &RtfReader::enter<Goal::Nowhere>},
    {u"objdata", &RtfReader::enter<Goal::Nowhere>},
    {u"fldinst", &RtfReader::enter<Goal::Nowhere>},
    {u"pntxtb", &RtfReader::enter<Goal::Nowhere>},
    {u"pntxta", &RtfReader::enter<Goal::Nowhere>},
    {u"pntext", &RtfReader::enter<Goal::Bullet>},
    {u"listtext", &RtfReader::enter<Goal::Bullet>},
    {u"shptxt", &RtfReader::enter<Goal::Text>},
    {u"annotation", &RtfReader::enter<Goal::Text>},
    {u"footnote", &RtfReader::enter<Goal::Text>},
};

report::RichParagraphs RtfReader::read() {
    for (RtfToken token = tokens_.next(); token.kind != RtfToken::Kind::End; token = tokens_.next())
        take(token);
    if (groups_.back().goal == Goal::Bullet)
        endBullet();
    return paragraphs_.take();
}

void RtfReader::take(const RtfToken& token) {
    switch (token.kind) {
    case RtfToken::Kind::OpenGroup:
        return openGroup();
    case RtfToken::Kind::CloseGroup:
        return closeGroup();
    case RtfToken::Kind::Word:
        return takeWord(token);
    case RtfToken::Kind::Byte:
        return takeByte(token.number);
    case RtfToken::Kind::Text:
        return addText(token.text);
    case RtfToken::Kind::End:
        break;
    }
}

void RtfReader::openGroup() {
    toSkip_ = 0;
    groups_.push_back(groups_.back());
}

void RtfReader::closeGroup() {
    toSkip_ = 0;
    isOptional_ = false;
    const bool endsBullet = groups_.back().goal == Goal::Bullet;
    // A group too many is closed in texts that others have mended.
    if (groups_.size() > 1)
        groups_.pop_back();
    else
        groups_.back() = {};
    if (endsBullet && groups_.back().goal != Goal::Bullet)
        endBullet();
}

void RtfReader::endBullet() {
    const QString sign = std::exchange(bullet_, {});
    if (isBullet(QStringView(sign).trimmed()))
        paragraphs_.makeItem();
    else
        paragraphs_.add(sign, groups_.back().marks);
}

void RtfReader::takeWord(const RtfToken& word) {
    const auto* const known =
        std::ranges::find(controlWords, QStringView(word.text), &ControlWord::word);
    const bool wasOptional = std::exchange(isOptional_, false);
    if (known != std::end(controlWords))
        known->act != nullptr ? (this->*known->act)(word) : addLetter(QChar(known->letter));
    else if (wasOptional)
        enter<Goal::Nowhere>(word);
}

bool RtfReader::isSubstitute() {
    if (toSkip_ == 0)
        return false;
    --toSkip_;
    return true;
}

void RtfReader::takeByte(int byte) {
    if (!isSubstitute())
        addLetter(codePage().letter(byte));
}

const CodePage& RtfReader::codePage() {
    const auto ofFont = pageOfFont_.find(groups_.back().font);
    const int number = ofFont == pageOfFont_.end() ? documentPage_ : ofFont->second;
    return pages_.try_emplace(number, number).first->second;
}

void RtfReader::addLetter(QChar letter) {
    addText(QStringView(&letter, 1));
}

void RtfReader::addText(QStringView text) {
    isOptional_ = false;
    while (!text.isEmpty() && isSubstitute())
        text = text.sliced(1);
    if (text.isEmpty())
        return;
    if (groups_.back().goal == Goal::Text)
        paragraphs_.add(text, groups_.back().marks);
    else if (groups_.back().goal == Goal::Bullet)
        bullet_ += text;
}

} // namespace oldregister
