#include "report/StoredText.h"

#include "report/HtmlReader.h"

#include <QStringList>

#include <algorithm>
#include <initializer_list>

namespace report {

namespace {

bool beginsWithAny(const QString& text, std::initializer_list<QStringView> beginnings) {
    return std::ranges::any_of(beginnings, [&](QStringView beginning) {
        return text.startsWith(beginning, Qt::CaseInsensitive);
    });
}

QString escaped(const QString& text) {
    QString html = text.toHtmlEscaped();
    html.replace(QChar::LineSeparator, QStringLiteral("<br>"));
    return html;
}

QString inTag(const QString& html, QLatin1String tag) {
    return QStringLiteral("<%1>%2</%1>").arg(tag, html);
}

QString markedHtml(const MarkedWords& words) {
    QString html = escaped(words.text);
    if (words.marks.underlined)
        html = inTag(html, QLatin1String("u"));
    if (words.marks.italic)
        html = inTag(html, QLatin1String("i"));
    if (words.marks.bold)
        html = inTag(html, QLatin1String("b"));
    return html;
}

QString paragraphHtml(const RichParagraph& paragraph) {
    QString html;
    for (const MarkedWords& words : paragraph.words)
        html += markedHtml(words);
    return inTag(html, QLatin1String(paragraph.lead == Lead::None ? "p" : "li"));
}

/// The tag that opens or closes the list of such items, empty outside of one.
QString listTag(Lead lead, const char* bracket) {
    if (lead == Lead::None)
        return {};
    return QLatin1String(bracket) + QLatin1String(lead == Lead::Number ? "ol>" : "ul>");
}

RichParagraphs readPlain(QString text) {
    RichParagraphs paragraphs;
    for (const QString& line : text.remove(u'\r').split(u'\n'))
        paragraphs.emplace_back().add(line, {});
    return paragraphs;
}

} // namespace

void RichParagraph::add(const QString& text, const Marks& marks) {
    if (text.isEmpty())
        return;
    if (words.empty() || words.back().marks != marks)
        words.push_back({{}, marks});
    words.back().text += text;
}

QString storedText(const RichParagraphs& paragraphs) {
    if (paragraphs.empty() || (paragraphs.size() == 1 && paragraphs.front().isBlank()))
        return {};
    QString html;
    Lead list = Lead::None;
    for (const RichParagraph& paragraph : paragraphs) {
        if (paragraph.lead != list)
            html += listTag(list, "</") + listTag(paragraph.lead, "<");
        list = paragraph.lead;
        html += paragraphHtml(paragraph);
    }
    return html + listTag(list, "</");
}

RichParagraphs readStored(const QString& stored) {
    if (beginsWithAny(stored, {u"<p>", u"<ul>", u"<ol>"}))
        return readHtml(stored, Blanks::Kept);
    if (beginsWithAny(stored, {u"<html", u"<!doctype html"}))
        return readHtml(stored);
    return stored.isEmpty() ? RichParagraphs() : readPlain(stored);
}

} // namespace report
