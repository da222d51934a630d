#include "oldregister/Rtf.h"

#include "oldregister/RtfReader.h"

#include <QStringList>

namespace oldregister {

namespace {

constexpr QStringView beginning = u"{\\rtf";

/// What stands behind the sign of RTF and its number.
QStringView behindSign(const QString& text) {
    QStringView rest = QStringView(text).sliced(beginning.size());
    while (!rest.isEmpty() && rest.front() >= u'0' && rest.front() <= u'9')
        rest = rest.sliced(1);
    return rest;
}

/// True when the braces of a text fit and the first one closes at its end.
bool isOneGroup(QStringView text) {
    RtfTokens tokens(text);
    int depth = 0;
    bool isClosed = false;
    for (RtfToken token = tokens.next(); token.kind != RtfToken::Kind::End; token = tokens.next()) {
        if (isClosed)
            return token.kind == RtfToken::Kind::Text && token.text.trimmed().isEmpty();
        depth += token.kind == RtfToken::Kind::OpenGroup    ? 1
                 : token.kind == RtfToken::Kind::CloseGroup ? -1
                                                            : 0;
        isClosed = depth == 0;
    }
    return isClosed;
}

report::RichParagraphs paragraphsOf(const QString& plain) {
    ParagraphBuilder paragraphs;
    QString text = plain;
    const QStringList lines = text.remove(u'\r').split(u'\n');
    for (const QString& line : lines) {
        paragraphs.add(line, {});
        paragraphs.endParagraph();
    }
    return paragraphs.take();
}

/// A plain text as the editor shows it as it is, even where it would take it for HTML.
QString storedPlain(const QString& plain) {
    if (!plain.startsWith(u'<'))
        return plain;
    const report::RichParagraphs paragraphs = paragraphsOf(plain);
    return report::readStored(plain) == paragraphs ? plain : report::storedText(paragraphs);
}

} // namespace

bool isRtf(const QString& text) {
    if (!text.startsWith(beginning))
        return false;
    const QStringView rest = behindSign(text);
    // The control goes on at once with the next word; others may not, but they close their text.
    const bool goesOn = !rest.isEmpty() && (rest.front() == u'\\' || rest.front() == u'{');
    const bool mayGoOn = !rest.isEmpty() && (rest.front().isSpace() || rest.front() == u'}');
    return goesOn || (mayGoOn && isOneGroup(text));
}

QString htmlOfRtf(const QString& rtf) {
    return report::storedText(RtfReader(rtf).read());
}

QString toStoredText(const QString& old) {
    return isRtf(old) ? htmlOfRtf(old) : storedPlain(old);
}

} // namespace oldregister
