#include "statreturn/TableOne.h"

#include "store/EngineError.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace statreturn;

namespace {

TEST(TableOneTest, ageIsCompletedYearsAtMostEighteen) {
    const std::tuple<QDate, QDate, int> cases[] = {
        {{2007, 9, 3}, {2000, 9, 3}, 7},   {{2007, 9, 2}, {2000, 9, 3}, 6},
        {{2007, 9, 4}, {2000, 9, 3}, 7},   {{2007, 8, 30}, {2000, 9, 1}, 6},
        {{2007, 10, 1}, {2000, 9, 30}, 7}, {{2007, 9, 3}, {2007, 9, 3}, 0},
        {{2007, 9, 3}, {2006, 9, 4}, 0},   {{2007, 9, 3}, {2007, 9, 4}, -1},
        {{2007, 9, 3}, {2009, 1, 1}, -2},  {{2007, 9, 3}, {1988, 9, 3}, 18},
        {{2007, 9, 3}, {1988, 9, 4}, 18},  {{2007, 9, 3}, {1989, 9, 4}, 17},
        {{2007, 9, 3}, {1920, 1, 1}, 18},  {{2007, 2, 28}, {2004, 2, 29}, 2},
        {{2007, 3, 1}, {2004, 2, 29}, 3},  {{2008, 2, 29}, {2004, 2, 29}, 4},
    };
    for (const auto& [today, birth, age] : cases)
        EXPECT_EQ(ageOn(today, birth), age) << birth.toString(Qt::ISODate).toStdString();
}

TEST(TableOneTest, theSchoolYearGivesThePeriod) {
    const Period period = schoolYearPeriod(u"2006/2007  "_s);
    EXPECT_EQ(period.start, QDate(2006, 9, 1));
    EXPECT_EQ(period.end, QDate(2007, 8, 31));
    EXPECT_EQ(dateText(period.start), u"1.9.2006"_s);
    for (const QString& caption : {QString(), u"xxxx/2007"_s, u"2006/xxxx"_s})
        EXPECT_THROW(schoolYearPeriod(caption), store::EngineError) << caption.toStdString();
}

TEST(TableOneTest, aRowStatementHoldsZerosAsEmptyAndABlankBehindOneColumn) {
    Counts counts{};
    for (std::size_t i = 0; i < counts.size(); i += 3)
        counts[i] = static_cast<int>(i) + 1;
    EXPECT_EQ(ageRowStatement(9, counts),
              u"Insert Into z_vek(stlpec,vek,c_riad,spolu,spolu_zeny,p_zrak,p_zrak_z,p_sluch,"
              "p_sluch_z,p_rec,p_rec_z,p_teles,p_teles_z,p_menta,p_menta_z,p_viacn,p_viacn_z,"
              "p_autiz,p_autiz_z,p_vpuc,p_vpuc_z,p_vpsp,p_vpsp_z,p_ine,p_ine_z) values ("
              "'klien-','   9 - 10','0110','1','','','4','','','7','','','10','','','13','','',"
              "'16','','','19 ','','','22')"_s);
    EXPECT_TRUE(ageRowStatement(0, Counts{}).endsWith(u"'','','','',' ','','','')"));
}

} // namespace
