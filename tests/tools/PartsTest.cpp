#include "mkdb/AgePlan.h"
#include "mkdb/BirthNumber.h"
#include "mkdb/Calendar.h"
#include "mkdb/Impairments.h"
#include "mkdb/KeyMaker.h"
#include "mkdb/TextMaker.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

using namespace mkdb;

TEST(Random, isTheSameEverywhere) {
    Random random(1, 0);
    std::vector<int> drawn;
    for (int index = 0; index < 5; ++index)
        drawn.push_back(random.below(1000));
    EXPECT_EQ(drawn, (std::vector<int>{2, 598, 53, 794, 558}));
    EXPECT_NE(Random(1, 1).below(1 << 30), Random(1, 2).below(1 << 30));
    EXPECT_NE(Random(1, 1).below(1 << 30), Random(2, 1).below(1 << 30));
}

TEST(Random, keepsBoundsAndWeights) {
    Random random(3, 0);
    std::map<int, int> seen;
    const int weights[] = {0, 90, 0, 10};
    for (int index = 0; index < 2000; ++index) {
        const int drawn = random.between(-2, 2);
        ASSERT_TRUE(drawn >= -2 && drawn <= 2);
        ++seen[random.weighted(weights)];
    }
    EXPECT_EQ(seen.size(), 2U);
    EXPECT_GT(seen[1], 5 * seen[3]);
    EXPECT_GT(seen[3], 0);
}

TEST(Keys, areMadeByTheRule) {
    KeyMaker keys;
    const auto key = [&](const char* surname, const char* firstName) {
        return keys.make(QString::fromUtf8(surname), QString::fromUtf8(firstName))
            .value_or(QString())
            .toStdString();
    };
    EXPECT_EQ(key("Nováková", "Anna"), "NOVÁKOAN00");
    EXPECT_EQ(key("Novákovský", "Andrej"), "NOVÁKOAN01");
    EXPECT_EQ(key("Ho", "Ľ"), "HOĽ00");
    EXPECT_EQ(key("De La Cruz", "Jo"), "DE LAJO00");
    EXPECT_EQ(key("Novaková", "Anna"), "NOVAKOAN00");
}

TEST(Keys, endWhereTheColumnEnds) {
    KeyMaker keys;
    QString last;
    int given = 0;
    while (const auto key = keys.make(QStringLiteral("Nováková"), QStringLiteral("Anna"))) {
        last = *key;
        ++given;
    }
    EXPECT_EQ(given, 100);
    EXPECT_EQ(last, QStringLiteral("NOVÁKOAN99"));
    for (int index = 0; index < 100; ++index)
        keys.make(QStringLiteral("Ho"), QStringLiteral("An"));
    EXPECT_EQ(keys.make(QStringLiteral("Ho"), QStringLiteral("An")), QStringLiteral("HOAN100"));
}

TEST(BirthNumbers, tellDateAndSexAndAreDivisible) {
    struct Case {
        QDate born;
        bool girl;
        const char* begin;
    };
    const Case cases[] = {{QDate(2006, 1, 5), true, "065105"},
                          {QDate(1999, 12, 31), false, "991231"},
                          {QDate(2000, 2, 29), false, "000229"},
                          {QDate(2019, 11, 1), true, "196101"}};
    BirthNumbers numbers;
    Random random(1, 0);
    for (const Case& test : cases) {
        const QString number = numbers.make(test.born, test.girl, random);
        EXPECT_EQ(number.size(), 10);
        EXPECT_TRUE(number.startsWith(QString::fromLatin1(test.begin))) << test.begin;
        EXPECT_EQ(number.toLongLong() % 11, 0) << test.begin;
    }
}

TEST(BirthNumbers, areGivenOnceUntilADayIsUsedUp) {
    BirthNumbers numbers;
    Random random(1, 0);
    std::set<QString> given;
    const auto giveAll = [&] {
        while (true)
            ASSERT_TRUE(given.insert(numbers.make(QDate(2010, 6, 7), false, random)).second);
    };
    EXPECT_THROW(giveAll(), std::runtime_error);
    EXPECT_GT(given.size(), 900U);
}

TEST(Calendar, knowsSchoolYears) {
    EXPECT_EQ(schoolYearStart(QDate(2026, 8, 31)), QDate(2025, 9, 1));
    EXPECT_EQ(schoolYearStart(QDate(2026, 9, 1)), QDate(2026, 9, 1));
    EXPECT_EQ(schoolYearEnd(QDate(2026, 9, 1)), QDate(2027, 8, 31));
}

TEST(Calendar, givesBirthdaysThatMakeTheAge) {
    for (const QDate day : {QDate(2026, 11, 23), QDate(2028, 2, 29), QDate(2027, 2, 28)}) {
        for (int age = 0; age < 20; ++age) {
            const Span span = birthdays(age, day);
            EXPECT_EQ(ageAt(span.first, day), age) << age;
            EXPECT_EQ(ageAt(span.last, day), age) << age;
        }
    }
}

TEST(Calendar, drawsDifferentWorkingDays) {
    Random random(1, 0);
    const Span span{QDate(2025, 9, 1), QDate(2026, 8, 31)};
    const auto days = drawDays(span, 40, random);
    EXPECT_EQ(std::set<QDate>(days.begin(), days.end()).size(), days.size());
    EXPECT_EQ(days.size(), 40U);
    for (const QDate& day : days)
        EXPECT_TRUE(day >= span.first && day <= span.last && day.dayOfWeek() <= 5);
    const QDate sunday(2026, 11, 22);
    EXPECT_EQ(drawDays({sunday, sunday}, 3, random), std::vector<QDate>{sunday});
    EXPECT_TRUE(drawDays({sunday, sunday.addDays(-1)}, 3, random).empty());
}

TEST(Impairments, areDifferentDigitsDominantFirst) {
    Random random(1, 0);
    std::set<QChar> dominant;
    std::set<qsizetype> counts;
    for (int index = 0; index < 3000; ++index) {
        const QString codes = drawImpairments(index % 20, random);
        const QString digits = codes.trimmed();
        EXPECT_TRUE(codes.size() == digits.size() || codes.size() == 9);
        EXPECT_TRUE(codes.startsWith(digits));
        for (const QChar digit : digits)
            EXPECT_TRUE(digit >= u'1' && digit <= u'9' && digits.count(digit) == 1);
        dominant.insert(digits[0]);
        counts.insert(digits.size());
    }
    EXPECT_EQ(dominant.size(), 9U);
    EXPECT_GE(counts.size(), 4U);
}

TEST(AgePlan, fillsEveryRowOfTheReturn) {
    Random random(1, 0);
    const auto plan = planAges(300, random);
    EXPECT_EQ(plan.size(), 300U);
    std::set<std::pair<int, bool>> counted;
    for (const AgeSlot& slot : plan) {
        EXPECT_TRUE(slot.age >= 0 && slot.age <= 19);
        if (slot.counted)
            counted.insert({slot.age, slot.girl});
    }
    EXPECT_EQ(counted.size(), 38U);
    EXPECT_EQ(planAges(3, random).size(), 3U);
    EXPECT_TRUE(planAges(0, random).empty());
}

TEST(Templates, takeNameAndSex) {
    const auto filled = [](const char* text, bool girl) {
        return fillTemplate(QString::fromUtf8(text),
                            girl ? QStringLiteral("Eva") : QStringLiteral("Ján"), girl)
            .toStdString();
    };
    EXPECT_EQ(filled("{meno} {bol|bola} {rád|rada}.", true), "Eva bola rada.");
    EXPECT_EQ(filled("{meno} {bol|bola} {rád|rada}.", false), "Ján bol rád.");
    EXPECT_EQ(filled("{iné} a {", false), "{iné} a {");
    EXPECT_EQ(filled("{|a}", true) + filled("{|a}", false), "a");
}

} // namespace
