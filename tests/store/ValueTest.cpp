#include "SqlDatabase.h"
#include "store/Dates.h"

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
    const std::pair<const char16_t*, const char*> texts[] = {
        {u"1.9.2006", "2006-09-01"},
        {u" 01.09.2006 ", "2006-09-01"},
        {u"29.2.2000", "2000-02-29"},
        {u"5.6.07", "2007-06-05"},
        {u"2.10.29", "2029-10-02"},
        {u"2.10.30", "1930-10-02"},
        {u"5. 6. 2007", "2007-06-05"},
        {u"5 .6\u00A0.\t2007", "2007-06-05"},
        {u"5/6/2007", "2007-06-05"},
        {u"13/6/2007", "2007-06-13"},
        {u"5 - 6 - 2007", "2007-06-05"},
        {u"2007-06-05", "2007-06-05"},
        {u"2007/6/5", "2007-06-05"},
        {u"1.9.2006 7:05", "2006-09-01 07:05:00"},
        {u"2006-09-01  23:59:59", "2006-09-01 23:59:59"},
        {u"1.9.2006 00:00", "2006-09-01"},
        {u"6/13/2007", ""},
        {u"29.2.2001", ""},
        {u"31.02.2005", ""},
        {u"32.-37.1980", ""},
        {u"0.1.2005", ""},
        {u"1.9.6", ""},
        {u"1.9.206", ""},
        {u"1.9.0099", ""},
        {u"1.9.12006", ""},
        {u"2007.6.2008", ""},
        {u"1.9.", ""},
        {u"1 9 2006", ""},
        {u"1.9.2006 24:00", ""},
        {u"1.9.2006 7:5", ""},
        {u"1.9.2006 x", ""},
        {u"1.9.2006x", ""},
        {u"", ""},
        {u"+1.9.2006", ""},
        {u"001.9.2006", ""},
    };
    for (const auto& [text, stored] : texts) {
        const auto date = readDate(text);
        EXPECT_EQ(date ? dateToColumn(*date) : "", stored)
            << QString::fromUtf16(text).toStdString();
    }
}

TEST(Dates, ComeBackFromTheirColumn) {
    const DateTime moment{QDate(2006, 9, 1), QTime(7, 5)};
    EXPECT_EQ(dateFromColumn(dateToColumn(moment)), Value(moment));
    EXPECT_EQ(dateFromColumn("~31.02.2005"), Value(u"31.02.2005"_s));
    EXPECT_EQ(dateFromColumn("2005-02-31"), Value(u"2005-02-31"_s));
    EXPECT_GT(nonDateToColumn(u"0"), dateToColumn({QDate(9999, 12, 31)}));
}

} // namespace
