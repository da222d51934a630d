#include "backup/Retention.h"

#include "support/Lists.h"

namespace {

using namespace Qt::StringLiterals;

QDateTime at(const QString& text) {
    const QDateTime time = QDateTime::fromString(text, u"yyyy-MM-dd HH"_s);
    EXPECT_TRUE(time.isValid()) << text.toStdString();
    return time;
}

/// A line is what it is about, and the copies that there are: those to keep with a "+", those that
/// go with a "-".
TEST(Retention, tenThenOneAMonthForAYearThenOneAYear) {
    const QDateTime now = at(u"2026-11-23 16"_s);
    EXPECT_TRUE(backup::superfluous({}, now).empty());
    for (const QStringList& line : support::linesOf(u"retention.tsv"_s)) {
        std::vector<QDateTime> copies;
        std::vector<QDateTime> expected;
        for (const QString& copy : line[1].split(u',')) {
            copies.push_back(at(copy.mid(1)));
            if (copy.startsWith(u'-'))
                expected.push_back(copies.back());
        }
        std::ranges::sort(expected);
        EXPECT_EQ(backup::superfluous(copies, now), expected) << line[0].toStdString();
    }
}

} // namespace
