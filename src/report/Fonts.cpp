#include "report/Fonts.h"

#include <QRawFont>

#include <algorithm>

namespace report {

namespace {

constexpr int twipsPerPoint = 20;

} // namespace

bool isInstalled(const QString& family) {
    return QRawFont::fromFont(fontFor({}, family)).familyName() == family;
}

QString fontFamily() {
    const auto wanted = QStringLiteral("Liberation Sans");
    return isInstalled(wanted) ? wanted : QStringLiteral("DejaVu Sans");
}

QFont fontFor(const TextStyle& style, const QString& family) {
    QFont font(family);
    font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferOutline | QFont::PreferMatch));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(qRound(style.points * twipsPerPoint));
    font.setBold(style.bold);
    font.setItalic(style.italic);
    font.setUnderline(style.underline);
    return font;
}

FontMeter::Known& FontMeter::known(const TextStyle& style) const {
    const auto found = std::ranges::find(known_, style, &Known::style);
    if (found != known_.end())
        return *found;
    return known_.emplace_back(Known{style, QFontMetricsF(fontFor(style, family_))});
}

double FontMeter::width(const QString& text, const TextStyle& style) const {
    constexpr qsizetype longest = 32;
    constexpr qsizetype most = 30'000;
    Known& in = known(style);
    if (text.size() > longest)
        return in.metrics.horizontalAdvance(text);
    if (const auto found = in.widths.constFind(text); found != in.widths.cend())
        return *found;
    if (in.widths.size() >= most)
        in.widths.clear();
    return *in.widths.insert(text, in.metrics.horizontalAdvance(text));
}

double FontMeter::ascent(const TextStyle& style) const {
    return known(style).metrics.ascent();
}

double FontMeter::lineHeight(const TextStyle& style) const {
    return known(style).metrics.height();
}

} // namespace report
