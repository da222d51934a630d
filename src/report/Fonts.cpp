#include "report/Fonts.h"

#include <QRawFont>

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

const QFontMetricsF& FontMeter::metrics(const TextStyle& style) const {
    for (const auto& [known, metrics] : known_) {
        if (known == style)
            return metrics;
    }
    return known_.emplace_back(style, QFontMetricsF(fontFor(style, family_))).second;
}

double FontMeter::width(const QString& text, const TextStyle& style) const {
    return metrics(style).horizontalAdvance(text);
}

double FontMeter::ascent(const TextStyle& style) const {
    return metrics(style).ascent();
}

double FontMeter::lineHeight(const TextStyle& style) const {
    return metrics(style).height();
}

} // namespace report
