#pragma once

#include "report/Pages.h"

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QString>

#include <vector>

namespace report {

/// Whether texts set in that family really come out in it; a missing one is silently replaced.
bool isInstalled(const QString& family);

/// The family that reports are set in: Liberation Sans or, where it is missing, DejaVu Sans, both
/// with all Slovak letters. Needs a QGuiApplication, as does all in this file.
QString fontFamily();

/// The font of a style for a painter whose unit is the twip.
QFont fontFor(const TextStyle& style, const QString& family);

/// Measures texts in the fonts that drawPage() uses. Cheap to make; remembers the styles it met, so
/// not to be shared between threads.
class FontMeter : public TextMeter {
  public:
    FontMeter() : family_(fontFamily()) {}

    double width(const QString& text, const TextStyle& style) const override;
    double ascent(const TextStyle& style) const override;
    double lineHeight(const TextStyle& style) const override;

  private:
    /// A style that it met, and the widths of the short texts in it, which come again and again.
    struct Known {
        TextStyle style;
        QFontMetricsF metrics;
        QHash<QString, double> widths{};
    };
    Known& known(const TextStyle& style) const;

    QString family_;
    mutable std::vector<Known> known_;
};

} // namespace report
