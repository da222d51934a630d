#include "report/Fonts.h"

#include <QRawFont>

#include <gtest/gtest.h>

using namespace report;
using namespace Qt::StringLiterals;

namespace {

TEST(Fonts, TheFamilyIsReallyTheOneUsedInEveryStyle) {
    EXPECT_EQ(fontFamily(), u"Liberation Sans"_s);
    for (const bool bold : {false, true}) {
        for (const bool italic : {false, true}) {
            const TextStyle style{.points = 8, .bold = bold, .italic = italic};
            const auto font = QRawFont::fromFont(fontFor(style, fontFamily()));
            EXPECT_EQ(font.familyName(), fontFamily());
            for (const QChar letter : u"áäčďéíĺľňóôŕšťúýžÁÄČĎÉÍĹĽŇÓÔŔŠŤÚÝŽ•"_s)
                EXPECT_TRUE(font.supportsCharacter(letter)) << QString(letter).toStdString();
        }
    }
}

TEST(Fonts, AMissingFamilyIsFoundOut) {
    EXPECT_FALSE(isInstalled(u"No Such Family"_s));
}

TEST(Fonts, WidthsAreTwips) {
    const FontMeter meter;
    // Digits of this family are 1139/2048 of its size, so ten of them at 12 points are 1334.8.
    EXPECT_NEAR(meter.width(u"0123456789"_s, {.points = 12}), 1334.8, 0.5);
    EXPECT_NEAR(meter.width(u"0123456789"_s, {.points = 6}), 667.4, 0.5);
    EXPECT_NEAR(meter.ascent({.points = 10}), 200 * 0.905, 1);
    EXPECT_NEAR(meter.lineHeight({.points = 10}), 200 * 1.117, 1);
    EXPECT_GT(meter.width(u"abc"_s, {.points = 8, .bold = true}),
              meter.width(u"abc"_s, {.points = 8}));
}

} // namespace
