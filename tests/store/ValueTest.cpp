#include "store/Value.h"

#include "SqlDatabase.h"

using namespace store;
using namespace Qt::StringLiterals;

namespace {

TEST(Value, IsReadAsTextNumberAndDate) {
    EXPECT_EQ(Value(2.5).toText(), u"2.5"_s);
    EXPECT_EQ(Value(true).toNumber(), -1);
    EXPECT_EQ(Value(u" 12a"_s).toNumber(), 12);
    EXPECT_EQ(Value(QDate(1900, 1, 1)).toNumber(), 2);
    EXPECT_TRUE(Value(-1).toBool());
    EXPECT_EQ(Value(u"1.9.2006"_s).toDate(), QDate(2006, 9, 1));
    EXPECT_FALSE(Value(u"31.2.2005"_s).toDate().isValid());
    EXPECT_FALSE(Value(5).toDate().isValid());
}

TEST(Dates, AreReadWhereTheCalendarHasThem) {
    const std::pair<const char16_t*, QString> texts[] = {
        {u"1.9.2006", u"2006-09-01"_s},
        {u" 01.09.2006 ", u"2006-09-01"_s},
        {u"29.2.2000", u"2000-02-29"_s},
        {u"1.9.2006 7:05", u"2006-09-01 07:05:00"_s},
        {u"1.9.2006 23:59:59", u"2006-09-01 23:59:59"_s},
        {u"1.9.2006 00:00", u"2006-09-01"_s},
        {u"29.2.2001", {}},
        {u"31.02.2005", {}},
        {u"0.1.2005", {}},
        {u"1.13.2005", {}},
        {u"1.9.06", {}},
        {u"1.9.206", {}},
        {u"1.9.0099", {}},
        {u"1.9.", {}},
        {u"1/9/2006", {}},
        {u"1.9.2006 24:00", {}},
        {u"1.9.2006 x", {}},
        {u"", {}},
        {u"+1.9.2006", {}},
        {u"001.9.2006", {}},
        {u"1. 9.2006", {}},
    };
    for (const auto& [text, stored] : texts) {
        const auto date = readDate(text);
        EXPECT_EQ(date ? dateToColumn(*date) : QString(), stored)
            << QString::fromUtf16(text).toStdString();
    }
}

TEST(Dates, ComeBackFromTheirColumn) {
    const DateTime moment{QDate(2006, 9, 1), QTime(7, 5)};
    EXPECT_EQ(dateFromColumn(dateToColumn(moment)), Value(moment));
    EXPECT_EQ(dateFromColumn(nonDateToColumn(u"31.02.2005"_s)), Value(u"31.02.2005"_s));
    EXPECT_GT(nonDateToColumn(u"0"_s), dateToColumn({QDate(9999, 12, 31)}));
}

} // namespace
