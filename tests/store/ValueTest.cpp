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

TEST(Dates, AreReadWithTheirTime) {
    const std::pair<const char16_t*, const char*> texts[] = {
        {u"5 .6\u00A0.\t2007", "2007-06-05"},
        {u"1.9.2006 7:05", "2006-09-01 07:05:00"},
        {u"2006-09-01  23:59:59", "2006-09-01 23:59:59"},
        {u"1.9.2006 00:00", "2006-09-01"},
        {u"1.9.2006 24:00", ""},
        {u"1.9.2006 7:5", ""},
        {u"1.9.2006 x", ""}};
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
