#include "oldregister/RtfReader.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace oldregister {

enum class RtfReader::Action {
    Letter,
    EndParagraph,
    Bold,
    Italic,
    Underlined,
    NotUnderlined,
    NoMarks,
    Font,
    CharacterSet,
    DocumentPage,
    Unicode,
    Substitutes,
    Binary,
    Optional,
    ToNowhere,
    ToFonts,
    ToBullet,
    ToText,
};

namespace {

using Action = RtfReader::Action;

struct ControlWord {
    const char16_t* word;
    Action action;
    char16_t letter = 0;
};

/// Words that are not here change nothing that is kept.
constexpr ControlWord controlWords[] = {
    {u"\\", Action::Letter, u'\\'},
    {u"{", Action::Letter, u'{'},
    {u"}", Action::Letter, u'}'},
    {u"~", Action::Letter, u'\x00a0'},
    {u"-", Action::Letter, u'\x00ad'},
    {u"_", Action::Letter, u'\x2011'},
    {u"tab", Action::Letter, u'\t'},
    {u"\t", Action::Letter, u'\t'},
    {u"cell", Action::Letter, u'\t'},
    {u"nestcell", Action::Letter, u'\t'},
    {u"line", Action::Letter, u'\x2028'},
    {u"lbr", Action::Letter, u'\x2028'},
    {u"bullet", Action::Letter, u'\x2022'},
    {u"endash", Action::Letter, u'\x2013'},
    {u"emdash", Action::Letter, u'\x2014'},
    {u"lquote", Action::Letter, u'\x2018'},
    {u"rquote", Action::Letter, u'\x2019'},
    {u"ldblquote", Action::Letter, u'\x201c'},
    {u"rdblquote", Action::Letter, u'\x201d'},
    {u"enspace", Action::Letter, u'\x2002'},
    {u"emspace", Action::Letter, u'\x2003'},
    {u"qmspace", Action::Letter, u'\x2005'},
    {u"par", Action::EndParagraph},
    {u"\r", Action::EndParagraph},
    {u"\n", Action::EndParagraph},
    {u"row", Action::EndParagraph},
    {u"nestrow", Action::EndParagraph},
    {u"sect", Action::EndParagraph},
    {u"page", Action::EndParagraph},
    {u"b", Action::Bold},
    {u"i", Action::Italic},
    {u"ul", Action::Underlined},
    {u"uld", Action::Underlined},
    {u"uldash", Action::Underlined},
    {u"uldb", Action::Underlined},
    {u"ulth", Action::Underlined},
    {u"ulw", Action::Underlined},
    {u"ulwave", Action::Underlined},
    {u"ulnone", Action::NotUnderlined},
    {u"plain", Action::NoMarks},
    {u"f", Action::Font},
    {u"fcharset", Action::CharacterSet},
    {u"ansicpg", Action::DocumentPage},
    {u"u", Action::Unicode},
    {u"uc", Action::Substitutes},
    {u"bin", Action::Binary},
    {u"*", Action::Optional},
    {u"fonttbl", Action::ToFonts},
    {u"colortbl", Action::ToNowhere},
    {u"stylesheet", Action::ToNowhere},
    {u"info", Action::ToNowhere},
    {u"pict", Action::ToNowhere},
    {u"objdata", Action::ToNowhere},
    {u"fldinst", Action::ToNowhere},
    {u"pntxtb", Action::ToNowhere},
    {u"pntxta", Action::ToNowhere},
    {u"pntext", Action::ToBullet},
    {u"listtext", Action::ToBullet},
    {u"shptxt", Action::ToText},
    {u"annotation", Action::ToText},
    {u"footnote", Action::ToText},
};

const ControlWord* find(QStringView word) {
    const auto* found = std::ranges::find_if(
        controlWords, [&](const ControlWord& known) { return word == QStringView(known.word); });
    return found == std::end(controlWords) ? nullptr : found;
}

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
    const ControlWord* known = find(word.text);
    const bool wasOptional = std::exchange(isOptional_, false);
    if (known == nullptr) {
        if (wasOptional)
            enter(Goal::Nowhere);
        return;
    }
    if (known->action == Action::Letter)
        return addLetter(QChar(known->letter));
    act(known->action, word);
}

void RtfReader::act(Action action, const RtfToken& word) {
    Group& group = groups_.back();
    const bool isOn = !word.hasNumber || word.number != 0;
    switch (action) {
    case Action::EndParagraph:
        if (group.goal == Goal::Text)
            paragraphs_.endParagraph();
        break;
    case Action::Bold:
        group.marks.bold = isOn;
        break;
    case Action::Italic:
        group.marks.italic = isOn;
        break;
    case Action::Underlined:
        group.marks.underlined = isOn;
        break;
    case Action::NotUnderlined:
        group.marks.underlined = false;
        break;
    case Action::NoMarks:
        group.marks = {};
        break;
    case Action::Font:
        group.font = word.number;
        break;
    case Action::CharacterSet:
        if (const auto page = pageOfSet(word.number))
            pageOfFont_.insert_or_assign(group.font, *page);
        break;
    case Action::DocumentPage:
        documentPage_ = word.number;
        break;
    case Action::Unicode:
        takeUnicode(word.number);
        break;
    case Action::Substitutes:
        group.substitutes = std::clamp(word.number, 0, 10);
        break;
    case Action::Binary:
        if (group.goal == Goal::Nowhere)
            tokens_.skip(word.number);
        break;
    case Action::Optional:
        isOptional_ = true;
        break;
    case Action::ToNowhere:
        enter(Goal::Nowhere);
        break;
    case Action::ToFonts:
        enter(Goal::Fonts);
        break;
    case Action::ToBullet:
        enter(Goal::Bullet);
        break;
    case Action::ToText:
        enter(Goal::Text);
        break;
    case Action::Letter:
        break;
    }
}

/// The outermost group is the text itself, whatever it says of itself.
void RtfReader::enter(Goal goal) {
    if (groups_.size() > 2)
        groups_.back().goal = goal;
}

void RtfReader::takeUnicode(int number) {
    toSkip_ = 0;
    const auto code = static_cast<char32_t>(number < 0 ? number + 0x10000 : number);
    if (QChar::requiresSurrogates(code)) {
        addLetter(QChar(QChar::highSurrogate(code)));
        addLetter(QChar(QChar::lowSurrogate(code)));
    } else {
        addLetter(QChar(static_cast<char16_t>(code)));
    }
    toSkip_ = groups_.back().substitutes;
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
