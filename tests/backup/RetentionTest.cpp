#include "backup/Retention.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

QDateTime at(const QString& text) {
    const QDateTime time = QDateTime::fromString(text, u"yyyy-MM-dd HH"_s);
    EXPECT_TRUE(time.isValid()) << text.toStdString();
    return time;
}

/// What is left of some copies, the newest first.
QStringList kept(const QStringList& copies, const QDateTime& now) {
    std::vector<QDateTime> times;
    for (const QString& copy : copies)
        times.push_back(at(copy));
    const auto gone = backup::superfluous(times, now);
    EXPECT_TRUE(std::ranges::is_sorted(gone));
    std::erase_if(times, [&](const QDateTime& time) { return std::ranges::count(gone, time) > 0; });
    std::ranges::sort(times, std::greater());
    QStringList left;
    for (const QDateTime& time : times)
        left << time.toString(u"yyyy-MM-dd HH"_s);
    return left;
}

/// One copy on each of these days of November 2026, the newest first.
QStringList november(int last, int count) {
    QStringList days;
    for (int i = 0; i < count; ++i)
        days << u"2026-11-%1 15"_s.arg(last - i, 2, 10, QLatin1Char('0'));
    return days;
}

TEST(Retention, tenThenOneAMonthForAYearThenOneAYear) {
    struct Row {
        const char* what;
        QStringList copies;
        QStringList left;
    };
    const QStringList ten = november(23, 10);
    const std::vector<Row> table{
        {"none", {}, {}},
        {"ten of one day and an older one of the month",
         november(23, 9) + QStringList{u"2026-11-23 08"_s, u"2026-11-02 15"_s},
         QStringList{u"2026-11-23 15"_s, u"2026-11-23 08"_s} + november(22, 8)},
        {"an old one alone", {u"2001-01-01 10"_s}, {u"2001-01-01 10"_s}},
        {"the last of each month",
         ten + QStringList{u"2026-11-13 15"_s, u"2026-10-30 15"_s, u"2026-10-30 16"_s,
                           u"2026-10-02 15"_s, u"2026-01-31 15"_s, u"2025-12-01 15"_s,
                           u"2025-12-24 15"_s},
         ten + QStringList{u"2026-10-30 16"_s, u"2026-01-31 15"_s, u"2025-12-24 15"_s}},
        {"a year ago to the day it is no month any more",
         ten + QStringList{u"2025-12-24 15"_s, u"2025-11-23 15"_s, u"2025-10-01 15"_s},
         ten + QStringList{u"2025-12-24 15"_s}},
        {"the last of each year",
         ten + QStringList{u"2025-06-01 15"_s, u"2025-05-01 15"_s, u"2024-12-31 15"_s,
                           u"2024-01-01 15"_s, u"2019-07-07 15"_s},
         ten + QStringList{u"2025-06-01 15"_s, u"2024-12-31 15"_s, u"2019-07-07 15"_s}},
        {"a clock that was wrong takes no place of theirs",
         ten + QStringList{u"2036-01-01 15"_s, u"2026-11-23 17"_s, u"2026-10-02 15"_s},
         QStringList{u"2036-01-01 15"_s, u"2026-11-23 17"_s} + ten +
             QStringList{u"2026-10-02 15"_s}},
    };
    for (const Row& row : table)
        EXPECT_EQ(kept(row.copies, at(u"2026-11-23 16"_s)), row.left) << row.what;
}

TEST(Retention, aCopyADayForThreeYearsLeavesTenTwelveAndTheYears) {
    QStringList left;
    const QDateTime first = at(u"2024-01-01 16"_s);
    for (QDateTime now = first; now < first.addYears(3); now = now.addDays(1))
        left = kept(left + QStringList{now.toString(u"yyyy-MM-dd HH"_s)}, now);
    EXPECT_EQ(left.mid(0, 10).last(), u"2026-12-22 16"_s);
    EXPECT_EQ(left.mid(10), (QStringList{u"2026-11-30 16"_s, u"2026-10-31 16"_s, u"2026-09-30 16"_s,
                                         u"2026-08-31 16"_s, u"2026-07-31 16"_s, u"2026-06-30 16"_s,
                                         u"2026-05-31 16"_s, u"2026-04-30 16"_s, u"2026-03-31 16"_s,
                                         u"2026-02-28 16"_s, u"2026-01-31 16"_s, u"2025-12-31 16"_s,
                                         u"2024-12-31 16"_s}));
}

} // namespace
