#include "report/HtmlReader.h"

#include <QHash>
#include <QStringList>
#include <QTextDocumentFragment>

#include <algorithm>
#include <array>
#include <utility>

namespace report {

namespace {

template <std::size_t Count>
bool isOneOf(QStringView name, const std::array<QStringView, Count>& names) {
    return std::ranges::find(names, name) != names.end();
}

constexpr auto blockNames = std::to_array<QStringView>(
    {u"address", u"article", u"aside", u"blockquote", u"body",   u"caption", u"center",
     u"dd",      u"div",     u"dl",    u"dt",         u"footer", u"form",    u"h1",
     u"h2",      u"h3",      u"h4",    u"h5",         u"h6",     u"header",  u"hr",
     u"html",    u"main",    u"nav",   u"p",          u"pre",    u"section", u"table",
     u"tbody",   u"td",      u"tfoot", u"th",         u"thead",  u"tr"});
constexpr auto emptyNames =
    std::to_array<QStringView>({u"area", u"base", u"br", u"col", u"embed", u"hr", u"img", u"input",
                                u"link", u"meta", u"param", u"source", u"track", u"wbr"});
/// What stands in these is no text of the page.
constexpr auto hiddenNames =
    std::to_array<QStringView>({u"script", u"style", u"template", u"title"});
constexpr auto boldNames =
    std::to_array<QStringView>({u"b", u"strong", u"th", u"h1", u"h2", u"h3", u"h4", u"h5", u"h6"});
constexpr auto italicNames = std::to_array<QStringView>({u"i", u"em"});
constexpr auto underlinedNames = std::to_array<QStringView>({u"u", u"ins"});

bool isList(QStringView name) {
    return name == u"ul" || name == u"ol";
}

/// Blank to HTML; a no-break space is not.
bool isSpace(QChar character) {
    return character == u' ' || character == u'\n' || character == u'\t' || character == u'\r' ||
           character == u'\f';
}

/// What a tag says of the texts in it; those around hold where it says nothing.
struct Element {
    QString name;
    Marks marks;
    Lead list = Lead::None;
    bool keepsBlanks = false;
};

void applyStyle(QStringView property, QStringView value, Element& element) {
    if (property == u"font-weight")
        element.marks.bold = value.startsWith(u"bold") || value.toInt() >= 600;
    else if (property == u"font-style")
        element.marks.italic = value == u"italic" || value == u"oblique";
    else if (property.startsWith(u"text-decoration"))
        element.marks.underlined = element.marks.underlined || value.contains(u"underline");
    else if (property == u"white-space")
        element.keepsBlanks = value.startsWith(u"pre");
}

void applyStyles(const QString& style, Element& element) {
    for (const QStringView rule : QStringView(style).split(u';')) {
        const qsizetype colon = rule.indexOf(u':');
        if (colon > 0)
            applyStyle(rule.left(colon).trimmed(), rule.mid(colon + 1).trimmed(), element);
    }
}

Element elementOf(const QString& name, const QString& style, const Element& around) {
    Element element = around;
    element.name = name;
    element.marks.bold = element.marks.bold || isOneOf(name, boldNames);
    element.marks.italic = element.marks.italic || isOneOf(name, italicNames);
    element.marks.underlined = element.marks.underlined || isOneOf(name, underlinedNames);
    if (isList(name))
        element.list = name == u"ol" ? Lead::Number : Lead::Bullet;
    element.keepsBlanks = element.keepsBlanks || name == u"pre";
    applyStyles(style, element);
    return element;
}

/// The character of that number, nothing for one that does not exist.
QString numbered(QStringView number) {
    const bool hex = number.startsWith(u'x', Qt::CaseInsensitive);
    const char32_t code = number.mid(hex ? 1 : 0).toUInt(nullptr, hex ? 16 : 10);
    const bool exists = code > 0 && code <= QChar::LastValidCodePoint && !QChar::isSurrogate(code);
    return exists ? QString::fromUcs4(&code, 1) : QString();
}

/// The character that is called so, or the call itself.
QString named(const QString& name) {
    constexpr qsizetype keptNames = 1000;
    static thread_local QHash<QString, QString> known = {
        {QStringLiteral("lt"), QStringLiteral("<")},
        {QStringLiteral("gt"), QStringLiteral(">")},
        {QStringLiteral("amp"), QStringLiteral("&")},
        {QStringLiteral("quot"), QStringLiteral("\"")},
        {QStringLiteral("nbsp"), QString(QChar::Nbsp)}};
    const auto found = known.constFind(name);
    if (found != known.constEnd())
        return *found;
    const QString call = QLatin1Char('&') + name + QLatin1Char(';');
    QString character = QTextDocumentFragment::fromHtml(call).toPlainText();
    if (known.size() < keptNames)
        known.insert(name, character);
    return character;
}

bool isLetterOrDigit(QChar character) {
    return character.isLetterOrNumber();
}

QString decoded(QStringView html) {
    constexpr qsizetype longestName = 10;
    QString text;
    while (!html.isEmpty()) {
        const qsizetype call = html.indexOf(u'&');
        if (call < 0)
            break;
        text += html.left(call);
        html = html.mid(call);
        const qsizetype end = html.left(longestName).indexOf(u';');
        const QStringView name = html.mid(1, end - 1);
        const bool isNumber = end > 2 && name.front() == u'#';
        const bool isName = end > 1 && std::ranges::all_of(name, &isLetterOrDigit);
        if (isNumber)
            text += numbered(name.mid(1));
        else
            text += isName ? named(name.toString()) : QStringLiteral("&");
        html = html.mid(isNumber || isName ? end + 1 : 1);
    }
    return text.append(html);
}

/// Puts texts and tags together into paragraphs.
class Flow {
  public:
    explicit Flow(Blanks blanks) : blanks_(blanks) {}

    /// An item of a list begins, or in a text whose paragraphs all count a paragraph.
    void begin(Lead lead) {
        if (inItem() && lead == Lead::None)
            return pauseItem();
        end();
        paragraphs_.push_back({lead, {}});
        isOpen_ = isCounted_ = true;
    }
    /// A block begins or ends. Within an item it is a new line.
    void pause() { inItem() ? pauseItem() : end(); }
    void end() {
        if (std::exchange(isOpen_, false) && blanks_ == Blanks::Collapsed)
            trimEnd();
        breaksItem_ = false;
    }
    void text(const QString& text, const Element& element) {
        const QString shown = blanks_ == Blanks::Kept ? text : collapsed(text, element.keepsBlanks);
        if (!shown.isEmpty())
            words(element.marks).add(shown, element.marks);
    }
    void lineBreak(const Marks& marks) {
        words(marks).add(QString(QChar::LineSeparator), marks);
        isCounted_ = true;
    }
    RichParagraphs take() {
        end();
        return std::move(paragraphs_);
    }
    void forget() { *this = Flow(blanks_); }

  private:
    bool inItem() const { return isOpen_ && paragraphs_.back().lead != Lead::None; }
    void pauseItem() { breaksItem_ = !paragraphs_.back().words.empty(); }

    RichParagraph& words(const Marks& marks) {
        if (!isOpen_) {
            paragraphs_.emplace_back();
            isOpen_ = true;
            isCounted_ = blanks_ == Blanks::Kept;
        }
        if (std::exchange(breaksItem_, false))
            paragraphs_.back().add(QString(QChar::LineSeparator), marks);
        return paragraphs_.back();
    }

    bool endsBlank() const {
        if (!isOpen_ || breaksItem_ || paragraphs_.back().words.empty())
            return true;
        const QChar last = paragraphs_.back().words.back().text.back();
        return last == u' ' || last == QChar::LineSeparator;
    }
    QString collapsed(const QString& text, bool keepsBlanks) const {
        QString shown;
        bool blank = endsBlank();
        for (const QChar character : text) {
            const bool isBlank = isSpace(character);
            const bool isLine = keepsBlanks && character == u'\n';
            if (isBlank && (isLine || !keepsBlanks) && blank)
                continue;
            shown += isLine ? QChar(QChar::LineSeparator) : isBlank ? QChar(u' ') : character;
            blank = isBlank;
        }
        return shown;
    }

    /// The last blank or line break of a block is not seen.
    void trimEnd() {
        auto& words = paragraphs_.back().words;
        if (!words.empty()) {
            QString& last = words.back().text;
            if (last.endsWith(u' ') || last.endsWith(QChar::LineSeparator))
                last.chop(1);
            if (last.isEmpty())
                words.pop_back();
        }
        if (words.empty() && !isCounted_)
            paragraphs_.pop_back();
    }

    Blanks blanks_;
    RichParagraphs paragraphs_;
    /// The last paragraph takes the next text.
    bool isOpen_ = false;
    /// It stays even if it is empty.
    bool isCounted_ = false;
    /// The next text of the item begins a line.
    bool breaksItem_ = false;
};

class Reader {
  public:
    Reader(const QString& html, Blanks blanks)
        : html_(html), lastQuote_{html.lastIndexOf(u'"'), html.lastIndexOf(u'\'')}, flow_(blanks),
          blanks_(blanks) {}

    RichParagraphs read() {
        while (at_ < html_.size()) {
            const qsizetype open = html_.indexOf(u'<', at_);
            addText(html_.mid(at_, open < 0 ? -1 : open - at_));
            at_ = open < 0 ? html_.size() : open;
            if (at_ < html_.size())
                readMarkup();
        }
        return flow_.take();
    }

  private:
    void addText(QStringView raw) {
        QString text = decoded(raw);
        text.removeIf([](QChar character) {
            return character == QChar::ObjectReplacementCharacter ||
                   (character < u' ' && !isSpace(character));
        });
        flow_.text(text.replace(QChar::ParagraphSeparator, u' '), around());
    }

    void readMarkup() {
        const QStringView rest = html_.mid(at_ + 1);
        if (rest.startsWith(u"!--"))
            return readComment();
        const bool ends = rest.startsWith(u'/');
        const QStringView name = rest.mid(ends ? 1 : 0);
        if (rest.startsWith(u'!') || rest.startsWith(u'?'))
            return skipTo(html_.indexOf(u'>', at_));
        if (name.isEmpty() || !name.front().isLetter()) {
            addText(html_.mid(at_, 1));
            ++at_;
            return;
        }
        readTag(ends);
    }

    /// What is copied from a page stands between two comments; all else is the page around.
    void readComment() {
        const qsizetype end = html_.indexOf(u"-->", at_ + 4);
        const QStringView comment = end < 0 ? QStringView() : html_.mid(at_ + 4, end - at_ - 4);
        skipTo(end < 0 ? -1 : end + 2);
        if (comment == u"StartFragment")
            flow_.forget();
        else if (comment == u"EndFragment")
            at_ = html_.size();
    }

    /// Goes on behind a place, at the end when there is none.
    void skipTo(qsizetype last) { at_ = last < 0 ? html_.size() : last + 1; }

    void readTag(bool ends) {
        at_ += ends ? 2 : 1;
        const qsizetype start = at_;
        while (at_ < html_.size() && !isSpace(html_[at_]) && html_[at_] != u'>' &&
               html_[at_] != u'/')
            ++at_;
        const QString name = html_.mid(start, at_ - start).toString().toLower();
        const QString style = readAttributes();
        // A tag without an end was cut off.
        if (at_ > html_.size())
            at_ = html_.size();
        else if (ends)
            endTag(name);
        else
            startTag(name, style);
    }

    /// Moves behind the tag, or behind the end of the text when the tag has none.
    /// @return the attribute style in small letters
    QString readAttributes() {
        QString style, name;
        while (at_ < html_.size() && html_[at_] != u'>') {
            const QChar character = html_[at_++];
            if (character == u'=') {
                const QStringView value = readValue();
                if (name == u"style")
                    style = decoded(value).toLower();
            } else if (isSpace(character) || character == u'/') {
                name.clear();
            } else {
                name += character.toLower();
            }
        }
        ++at_;
        return style;
    }

    QStringView readValue() {
        while (at_ < html_.size() && isSpace(html_[at_]))
            ++at_;
        const qsizetype start = at_;
        const bool quoted = start < html_.size() && (html_[at_] == u'"' || html_[at_] == u'\'') &&
                            lastQuote_[html_[at_] == u'"' ? 0 : 1] > start;
        const auto ends = [&](QChar character) {
            return quoted ? character == html_[start] : isSpace(character) || character == u'>';
        };
        at_ += quoted ? 1 : 0;
        while (at_ < html_.size() && !ends(html_[at_]))
            ++at_;
        if (!quoted)
            return html_.mid(start, at_ - start);
        return html_.mid(start + 1, at_++ - start - 1);
    }

    void startTag(const QString& name, const QString& style) {
        if (isOneOf(name, hiddenNames))
            return skipTo(html_.indexOf(QStringLiteral("</") + name, at_, Qt::CaseInsensitive) - 1);
        if (name == u"br")
            return flow_.lineBreak(around().marks);
        if (name == u"p" || name == u"li")
            endOpen(name);
        if (name == u"li")
            flow_.begin(around().list == Lead::None ? Lead::Bullet : around().list);
        else if (name == u"p" && blanks_ == Blanks::Kept)
            flow_.begin(Lead::None);
        else
            separate(name);
        if (!isOneOf(name, emptyNames))
            open_.push_back(elementOf(name, style, around()));
    }

    void endTag(const QString& name) {
        if (!endOpen(name))
            return;
        if (name == u"li")
            flow_.end();
        else
            separate(name);
    }

    void separate(const QString& name) {
        if (isList(name))
            flow_.end();
        else if (isOneOf(name, blockNames))
            flow_.pause();
    }

    /// Ends the innermost tag of that name and what was left open in it, not beyond its list.
    bool endOpen(const QString& name) {
        constexpr std::size_t deepest = 64;
        for (std::size_t i = open_.size(); i > 0 && open_.size() - i < deepest; --i) {
            if (open_[i - 1].name == name) {
                open_.resize(i - 1);
                return true;
            }
            if (isList(open_[i - 1].name) && !isList(name))
                break;
        }
        return false;
    }

    const Element& around() const {
        static const Element page;
        return open_.empty() ? page : open_.back();
    }

    QStringView html_;
    std::array<qsizetype, 2> lastQuote_;
    Flow flow_;
    Blanks blanks_;
    qsizetype at_ = 0;
    std::vector<Element> open_;
};

} // namespace

RichParagraphs readHtml(const QString& html, Blanks blanks) {
    return Reader(html, blanks).read();
}

} // namespace report
