#include "store/Value.h"

#include "SqlDatabase.h"

#include <QSet>

using namespace store;

namespace {

TEST(Value, ShowsItselfAsText) {
    EXPECT_EQ(Value().toText(), QString());
    EXPECT_EQ(Value(true).toText(), QStringLiteral("-1"));
    EXPECT_EQ(Value(false).toText(), QStringLiteral("0"));
    EXPECT_EQ(Value(7).toText(), QStringLiteral("7"));
    EXPECT_EQ(Value(2.5).toText(), QStringLiteral("2.5"));
    EXPECT_EQ(Value(QDate(2006, 9, 1)).toText(), QStringLiteral("01.09.2006"));
    EXPECT_EQ(Value(QStringLiteral("31.02.2005")).toText(), QStringLiteral("31.02.2005"));
}

TEST(Value, ReadsItselfAsNumberAndDate) {
    EXPECT_EQ(Value().toNumber(), 0);
    EXPECT_EQ(Value(true).toNumber(), -1);
    EXPECT_EQ(Value(QStringLiteral(" 12a")).toNumber(), 12);
    EXPECT_EQ(Value(QDate(1900, 1, 1)).toNumber(), 2);
    EXPECT_TRUE(Value(-1).toBool());
    EXPECT_EQ(Value(QStringLiteral("1.9.2006")).toDate(), QDate(2006, 9, 1));
    EXPECT_FALSE(Value(QStringLiteral("31.2.2005")).toDate().isValid());
    EXPECT_FALSE(Value(5).toDate().isValid());
}

TEST(Dates, AreReadWhereTheCalendarHasThem) {
    const std::pair<const char16_t*, QString> texts[] = {
        {u"1.9.2006", QStringLiteral("2006-09-01")},
        {u" 01.09.2006 ", QStringLiteral("2006-09-01")},
        {u"29.2.2000", QStringLiteral("2000-02-29")},
        {u"1.9.2006 7:05", QStringLiteral("2006-09-01 07:05:00")},
        {u"1.9.2006 23:59:59", QStringLiteral("2006-09-01 23:59:59")},
        {u"1.9.2006 00:00", QStringLiteral("2006-09-01")},
        {u"29.2.2001", {}},
        {u"31.02.2005", {}},
        {u"0.1.2005", {}},
        {u"1.13.2005", {}},
        {u"1.9.06", {}},
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
    EXPECT_EQ(dateFromColumn(dateToColumn({QDate(2006, 9, 1)})), Value(QDate(2006, 9, 1)));
    EXPECT_EQ(dateFromColumn(nonDateToColumn(QStringLiteral("31.02.2005"))),
              Value(QStringLiteral("31.02.2005")));
    EXPECT_TRUE(dateFromColumn(QString()).isNull());
    EXPECT_GT(nonDateToColumn(QStringLiteral("0")), dateToColumn({QDate(9999, 12, 31)}));
}

TEST(Schema, KnowsTablesAndColumnsWhateverTheirCase) {
    ASSERT_NE(findTable(u"ZAMESTNANCI"), nullptr);
    EXPECT_EQ(findTable(u"nic"), nullptr);
    EXPECT_EQ(findTable(u"k_zaklad")->column(u"MENO")->width, 20);
    EXPECT_EQ(findTable(u"k_zaklad")->column(u"nic"), nullptr);
    EXPECT_EQ(QString::fromUtf16(findTable(u"k_memo")->key), QStringLiteral("idkod"));
    EXPECT_EQ(findTable(u"z_vek")->columns.size(), 25U);
    EXPECT_EQ(findTable(u"z_vzdelavanie")->columns.size(), 27U);
}

/// Whatever the order of texts was when the indexes were made, they can be made anew.
TEST(Schema, MakesIndexesAnew) {
    test::SqlDatabase database;
    for (const QString& statement : recreateIndexStatements())
        ASSERT_NO_THROW(database.raw(statement)) << statement.toStdString();
    EXPECT_EQ(
        database.raw(QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type = 'index'")),
        QStringList(QString::number(indexes().size())));
}

} // namespace
