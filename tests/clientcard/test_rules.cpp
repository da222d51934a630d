#include "clientcard/ClientKey.h"
#include "clientcard/Impairments.h"
#include "clientcard/SchoolTypes.h"
#include "clientcard/TextRules.h"
#include "forms/DropDown.h"

#include <gtest/gtest.h>

using namespace clientcard;

namespace {

QString slotsOf(const Impairments& impairments) {
    QString shown;
    for (const QString& slot : impairments.slotTexts())
        shown += slot.isEmpty() ? QStringLiteral("_") : slot;
    return shown;
}

QString codesOf(const Impairments& impairments) {
    QString codes;
    for (const QString& row : impairments.associatedRows())
        codes += row.left(1);
    return codes;
}

} // namespace

TEST(ClientKey, BaseTakesSixAndTwoLetters) {
    struct Case {
        const char *surname, *firstName, *base;
    };
    for (const Case& c : {Case{"Novák", "Ján", "NOVÁKJÁ"}, Case{"Kováčiková", "Eva", "KOVÁČIEV"},
                          Case{"Ng", "A", "NGA"}, Case{"de la Cruz", "O'Neil", "DE LAO'"}})
        EXPECT_EQ(keyBase(QString::fromUtf8(c.surname), QString::fromUtf8(c.firstName)),
                  QString::fromUtf8(c.base));
}

TEST(ClientKey, SequenceGrowsAndIsCutAsTwoDigits) {
    EXPECT_EQ(keySequence(0), QStringLiteral("00"));
    EXPECT_EQ(keySequence(7), QStringLiteral("07"));
    EXPECT_EQ(keySequence(100), QStringLiteral("100"));
    EXPECT_EQ(baseOfKey(QStringLiteral("NOVÁKJÁ00")), QStringLiteral("NOVÁKJÁ"));
    EXPECT_EQ(baseOfKey(QStringLiteral("NOVÁKJÁ100")), QStringLiteral("NOVÁKJÁ1"));
}

TEST(TextRules, OnlyTheFirstBlankCounts) {
    EXPECT_EQ(capitalised(QStringLiteral("štúr")), QStringLiteral("Štúr"));
    EXPECT_EQ(capitalised(QString()), QString());
    EXPECT_EQ(capitalisedName(QStringLiteral("jana nová stará")),
              QStringLiteral("Jana Nová stará"));
    EXPECT_EQ(capitalisedName(QStringLiteral("jana ")), QStringLiteral("Jana "));
}

TEST(TextRules, AgeAtBirthLosesAThirdDigit) {
    EXPECT_EQ(ageAtBirth(1990, 1965), QStringLiteral("25"));
    EXPECT_EQ(ageAtBirth(1990, 1989), QStringLiteral("1"));
    EXPECT_EQ(ageAtBirth(1990, 90), QStringLiteral("19"));
}

TEST(Impairments, StoredStringsFillSlotsAndShrinkTheList) {
    struct Case {
        const char *stored, *slotsShown, *codes;
    };
    for (const Case& c :
         {Case{"", "_________", "0123456789"}, Case{"0", "_________", "0123456789"},
          Case{"35", "35_______", "01246789"}, Case{"35       ", "35       ", "01246789"},
          Case{"123456789", "123456789", "0"}, Case{"3 5", "3 5______", "01246789"}}) {
        Impairments impairments;
        impairments.read(QString::fromUtf8(c.stored));
        EXPECT_EQ(slotsOf(impairments), QString::fromUtf8(c.slotsShown)) << c.stored;
        EXPECT_EQ(codesOf(impairments), QString::fromUtf8(c.codes)) << c.stored;
    }
}

TEST(Impairments, NoImpairmentPickedIsEightBlanks) {
    Impairments impairments;
    impairments.read(QStringLiteral("357"));
    impairments.setDominant(0);
    EXPECT_EQ(impairments.joined(), QString(8, u' '));
    EXPECT_FALSE(impairments.hasDominant());
    EXPECT_EQ(codesOf(impairments), QStringLiteral("0123456789"));
}

TEST(Impairments, ANewDominantGivesTheOldOneBack) {
    Impairments impairments;
    impairments.setDominant(5);
    EXPECT_EQ(codesOf(impairments), QStringLiteral("012346789"));
    impairments.setDominant(3);
    impairments.addAssociated(QStringLiteral("5"));
    impairments.removeCode(QStringLiteral("5"));
    EXPECT_EQ(codesOf(impairments), QStringLiteral("01246789"));
    EXPECT_EQ(impairments.joined(), QStringLiteral("35       "));
    impairments.resetAssociated();
    EXPECT_EQ(codesOf(impairments), QStringLiteral("012456789"));
}

TEST(Impairments, AZeroInASlotIsOverwrittenAndFullSlotsDropACode) {
    Impairments impairments;
    impairments.setDominant(1);
    impairments.addAssociated(QStringLiteral("0"));
    impairments.addAssociated(QStringLiteral("2"));
    EXPECT_EQ(impairments.joined(), QStringLiteral("12       "));
    impairments.read(QStringLiteral("123456789"));
    impairments.addAssociated(QStringLiteral("4"));
    EXPECT_EQ(impairments.joined(), QStringLiteral("123456789"));
}

TEST(SchoolTypes, SpecialPrimarySchoolsStandTwice) {
    forms::DropDown list;
    naplnTypSkoly(list);
    ASSERT_EQ(list.count(), 16);
    for (int type = 0; type < list.count(); ++type)
        EXPECT_EQ(list.itemText(type).left(2).toInt(), type + 1);
    EXPECT_EQ(list.itemText(6).mid(2), list.itemText(13).mid(2));
}
