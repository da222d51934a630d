#include "statreturn/Counts.h"

#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace statreturn;

namespace {

QStringList countedColumns(const Counts& counts) {
    QStringList columns;
    for (const CountPair& pair : countPairs) {
        for (const QStringView column : {pair.all, pair.girls}) {
            if (countOf(counts, column) != 0)
                columns << column.toString();
        }
    }
    return columns;
}

TEST(CountsTest, aClientCountsInTheColumnsOfItsImpairment) {
    const std::pair<CountedClient, QString> cases[] = {
        {{u"M"_s, u"1"_s}, u"spolu p_autiz"_s},
        {{u"M"_s, u"2"_s}, u"spolu p_menta"_s},
        {{u"M"_s, u"3"_s}, u"spolu p_sluch"_s},
        {{u"M"_s, u"4"_s}, u"spolu p_zrak"_s},
        {{u"M"_s, u"5"_s}, u"spolu p_rec"_s},
        {{u"M"_s, u"6"_s}, u"spolu p_teles"_s},
        {{u"M"_s, u"7"_s}, u"spolu p_vpsp"_s},
        {{u"M"_s, u"8"_s}, u"spolu p_vpuc"_s},
        {{u"M"_s, u"9"_s}, u"spolu p_ine"_s},
        {{u"Z"_s, u"7"_s}, u"spolu spolu_zeny p_vpsp p_vpsp_z"_s},
        {{u"z"_s, u"3"_s}, u"spolu p_sluch"_s},
        {{QString(), u"3"_s}, u"spolu p_sluch"_s},
        {{u"M"_s, u"35       "_s}, u"spolu p_viacn"_s},
        {{u"Z"_s, u"35"_s}, u"spolu spolu_zeny p_viacn p_viacn_z"_s},
        {{u"M"_s, u"30"_s}, u"spolu p_sluch"_s},
        {{u"M"_s, u"305"_s}, u"spolu p_sluch"_s},
        {{u"M"_s, u"3 5"_s}, u"spolu p_sluch"_s},
        {{u"M"_s, u"3x"_s}, u"spolu p_sluch"_s},
        {{u"M"_s, u" 35"_s}, u"spolu p_viacn"_s},
        {{u"M"_s, u" 3"_s}, u"spolu"_s},
        {{u"M"_s, u"x"_s}, u"spolu"_s},
        {{u"M"_s, QString()}, u"spolu"_s},
    };
    for (const auto& [client, columns] : cases) {
        Counts counts{};
        countClient(counts, client, hasSecondImpairment(client.post));
        EXPECT_EQ(countedColumns(counts).join(u' '), columns)
            << client.pohl.toStdString() << " '" << client.post.toStdString() << '\'';
    }
}

TEST(CountsTest, totalsAddUpAndZeroIsEmpty) {
    Counts totals{};
    Counts row{};
    countClient(row, {u"Z"_s, u"4"_s}, false);
    countClient(row, {u"M"_s, u"4"_s}, false);
    addCounts(totals, row);
    addCounts(totals, row);
    EXPECT_EQ(countOf(totals, u"P_ZRAK"), 4);
    EXPECT_EQ(countOf(totals, u"p_zrak_Z"), 2);
    EXPECT_EQ(countText(countOf(totals, u"p_rec")), QString());
    EXPECT_EQ(countText(12), u"12"_s);
    EXPECT_THROW(countOf(totals, u"vek"), std::out_of_range);
}

} // namespace
