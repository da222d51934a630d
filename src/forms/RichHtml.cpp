#include "forms/RichHtml.h"

#include <QStringList>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextList>

#include <array>
#include <optional>

namespace forms {

namespace {

using ListStyle = QTextListFormat::Style;

bool isNumbered(ListStyle style) {
    return style == QTextListFormat::ListDecimal || style == QTextListFormat::ListLowerAlpha ||
           style == QTextListFormat::ListUpperAlpha || style == QTextListFormat::ListLowerRoman ||
           style == QTextListFormat::ListUpperRoman;
}

/// "ul", "ol", or empty outside of a list.
QString listTag(const QTextBlock& block) {
    if (block.textList() == nullptr)
        return {};
    return isNumbered(block.textList()->format().style()) ? QStringLiteral("ol")
                                                          : QStringLiteral("ul");
}

QString tag(const QString& name) {
    return QLatin1Char('<') + name + QLatin1Char('>');
}

QString endTag(const QString& name) {
    return QStringLiteral("</") + name + QLatin1Char('>');
}

QString escaped(const QString& text) {
    QString html = text.toHtmlEscaped();
    html.replace(QChar::LineSeparator, QStringLiteral("<br>"));
    html.remove(QChar::ObjectReplacementCharacter);
    return html;
}

struct Marks {
    bool bold = false, italic = false, underlined = false;

    static Marks of(const QTextCharFormat& format) {
        return {format.fontWeight() > QFont::Medium, format.fontItalic(),
                format.fontUnderline() && !format.isAnchor()};
    }
    bool operator==(const Marks&) const = default;
};

QString markedRun(const QString& text, const Marks& marks) {
    QString html = escaped(text);
    if (html.isEmpty())
        return html;
    if (marks.underlined)
        html = tag(QStringLiteral("u")) + html + endTag(QStringLiteral("u"));
    if (marks.italic)
        html = tag(QStringLiteral("i")) + html + endTag(QStringLiteral("i"));
    if (marks.bold)
        html = tag(QStringLiteral("b")) + html + endTag(QStringLiteral("b"));
    return html;
}

QString blockHtml(const QTextBlock& block) {
    QString html, text;
    Marks marks;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const Marks next = Marks::of(it.fragment().charFormat());
        if (!(next == marks)) {
            html += markedRun(text, marks);
            text.clear();
        }
        marks = next;
        text += it.fragment().text();
    }
    return html + markedRun(text, marks);
}

/// Builds a document out of the pieces of a stored text.
class Builder {
  public:
    explicit Builder(QTextDocument& document) : cursor_(&document) {}

    void startTag(const QString& name) {
        if (name == u"ul" || name == u"ol") {
            style_ = name == u"ol" ? QTextListFormat::ListDecimal : QTextListFormat::ListDisc;
            list_ = nullptr;
        } else if (name == u"p" || name == u"li") {
            startBlock();
        } else if (name == u"br") {
            cursor_.insertText(QString(QChar::LineSeparator), format());
        } else {
            mark(name, true);
        }
    }
    void stopTag(const QString& name) {
        if (name == u"ul" || name == u"ol")
            style_.reset();
        else
            mark(name, false);
    }
    void text(const QString& text) { cursor_.insertText(text, format()); }

  private:
    void startBlock() {
        if (started_)
            cursor_.insertBlock(QTextBlockFormat(), QTextCharFormat());
        started_ = true;
        if (!style_)
            return;
        if (list_ == nullptr)
            list_ = cursor_.createList(*style_);
        else
            list_->add(cursor_.block());
    }
    void mark(const QString& name, bool on) {
        if (name == u"b" || name == u"strong")
            marks_.bold = on;
        else if (name == u"i" || name == u"em")
            marks_.italic = on;
        else if (name == u"u")
            marks_.underlined = on;
    }
    QTextCharFormat format() const {
        QTextCharFormat format;
        if (marks_.bold)
            format.setFontWeight(QFont::Bold);
        if (marks_.italic)
            format.setFontItalic(true);
        if (marks_.underlined)
            format.setFontUnderline(true);
        return format;
    }

    QTextCursor cursor_;
    bool started_ = false;
    std::optional<ListStyle> style_;
    QTextList* list_ = nullptr;
    Marks marks_;
};

QString unescaped(QString text) {
    static constexpr auto entities = std::to_array<std::pair<const char16_t*, char16_t>>(
        {{u"&lt;", u'<'}, {u"&gt;", u'>'}, {u"&quot;", u'"'}, {u"&nbsp;", 0xa0}, {u"&amp;", u'&'}});
    for (const auto& [entity, character] : entities)
        text.replace(QString::fromUtf16(entity), QString(QChar(character)));
    return text;
}

void build(const QString& stored, Builder& builder) {
    qsizetype at = 0;
    while (at < stored.size()) {
        const qsizetype open = stored.indexOf(QLatin1Char('<'), at);
        const qsizetype textEnd = open < 0 ? stored.size() : open;
        if (textEnd > at)
            builder.text(unescaped(stored.mid(at, textEnd - at)));
        const qsizetype close = open < 0 ? -1 : stored.indexOf(QLatin1Char('>'), open);
        if (close < 0)
            return;
        const QString name = stored.mid(open + 1, close - open - 1).toLower();
        if (name.startsWith(QLatin1Char('/')))
            builder.stopTag(name.mid(1));
        else
            builder.startTag(name.section(QLatin1Char(' '), 0, 0));
        at = close + 1;
    }
}

bool isStoredHtml(const QString& text) {
    static constexpr auto beginnings = std::to_array({u"<p>", u"<ul>", u"<ol>"});
    for (const char16_t* beginning : beginnings) {
        if (text.startsWith(QStringView(beginning), Qt::CaseInsensitive))
            return true;
    }
    return false;
}

} // namespace

QString storedHtml(const QTextDocument& document) {
    if (document.isEmpty() && listTag(document.firstBlock()).isEmpty())
        return {};
    QString html, openList;
    const auto changeList = [&](const QString& list) {
        if (list == openList)
            return;
        if (!openList.isEmpty())
            html += endTag(openList);
        if (!list.isEmpty())
            html += tag(list);
        openList = list;
    };
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QString list = listTag(block);
        const QString item = list.isEmpty() ? QStringLiteral("p") : QStringLiteral("li");
        changeList(list);
        html += tag(item) + blockHtml(block) + endTag(item);
    }
    changeList({});
    return html;
}

void readStored(const QString& stored, QTextDocument& document) {
    document.clear();
    Builder builder(document);
    if (isStoredHtml(stored))
        build(stored, builder);
    else
        document.setPlainText(stored);
}

QString plainText(const QString& stored) {
    QTextDocument document;
    readStored(stored, document);
    QStringList lines;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QString lead;
        if (const QTextList* list = block.textList())
            lead = isNumbered(list->format().style())
                       ? QStringLiteral("%1. ").arg(list->itemNumber(block) + 1)
                       : QStringLiteral("• ");
        lines += lead + block.text().replace(QChar::LineSeparator, QLatin1Char('\n'));
    }
    return lines.join(QLatin1Char('\n'));
}

QString reducedHtml(const QString& html) {
    QTextDocument foreign;
    foreign.setHtml(html);
    return storedHtml(foreign);
}

} // namespace forms
