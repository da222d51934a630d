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

} // namespace
