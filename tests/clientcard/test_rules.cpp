#include "clientcard/Impairments.h"
#include "clientcard/SchoolTypes.h"
#include "forms/DropDown.h"

#include <gtest/gtest.h>

using namespace clientcard;
using namespace Qt::StringLiterals;

namespace {

/// The codes of the list of associated impairments.
QString codesOf(const Impairments& impairments) {
    QString codes;
    for (const QString& row : impairments.associatedRows())
        codes += row.left(1);
    return codes;
}

} // namespace

TEST(Impairments, StoredStringsFillSlotsAndShrinkTheList) {
    using Case = std::tuple<QString, QString, QString>;
    for (const auto& [stored, shown, codes] : {Case{u""_s, u"_________"_s, u"0123456789"_s},
                                               Case{u"0"_s, u"_________"_s, u"0123456789"_s},
                                               Case{u"35"_s, u"35_______"_s, u"01246789"_s},
                                               Case{u"35       "_s, u"35       "_s, u"01246789"_s},
                                               Case{u"123456789"_s, u"123456789"_s, u"0"_s},
                                               Case{u"3 5"_s, u"3 5______"_s, u"01246789"_s}}) {
        Impairments impairments;
        impairments.read(stored);
        QString slotTexts;
        for (const QString& slot : impairments.slotTexts())
            slotTexts += slot.isEmpty() ? u"_"_s : slot;
        EXPECT_EQ(slotTexts, shown) << stored.toStdString();
        EXPECT_EQ(codesOf(impairments), codes) << stored.toStdString();
    }
}

TEST(Impairments, ANewDominantGivesTheOldOneBack) {
    Impairments impairments;
    impairments.setDominant(5);
    EXPECT_EQ(codesOf(impairments), u"012346789"_s);
    impairments.setDominant(3);
    impairments.addAssociated(u"5"_s);
    impairments.removeCode(u"5"_s);
    EXPECT_EQ(codesOf(impairments), u"01246789"_s);
    impairments.resetAssociated();
    EXPECT_EQ(codesOf(impairments), u"012456789"_s);
    impairments.setDominant(0);
    EXPECT_FALSE(impairments.hasDominant());
    EXPECT_EQ(codesOf(impairments), u"0123456789"_s);
}

TEST(SchoolTypes, SpecialPrimarySchoolsStandTwice) {
    forms::DropDown list;
    naplnTypSkoly(list);
    ASSERT_EQ(list.count(), 16);
    for (int type = 0; type < list.count(); ++type)
        EXPECT_EQ(list.itemText(type).left(2).toInt(), type + 1);
    EXPECT_EQ(list.itemText(6).mid(2), list.itemText(13).mid(2));
}
