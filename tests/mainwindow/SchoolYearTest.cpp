#include "mainwindow/SchoolYear.h"

#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

using mainwindow::SchoolYearFault;

namespace {

constexpr auto lengthMessage = "Chybna dlzka vstupu, zadaj v tvare rok/rok+1";
constexpr auto dateMessage = "Chybne zadany datum,zadaj v tvare rok/rok+1";

struct DefaultCase {
    QDate today;
    const char* expected;
};

class DefaultYearTest : public testing::TestWithParam<DefaultCase> {};

TEST_P(DefaultYearTest, countsFromOctober) {
    EXPECT_EQ(mainwindow::defaultSchoolYear(GetParam().today), QLatin1String(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(SchoolYear, DefaultYearTest,
                         testing::Values(DefaultCase{{2006, 8, 31}, "2005/2006"},
                                         DefaultCase{{2006, 9, 1}, "2005/2006"},
                                         DefaultCase{{2006, 9, 30}, "2005/2006"},
                                         DefaultCase{{2006, 10, 1}, "2006/2007"},
                                         DefaultCase{{2006, 12, 31}, "2006/2007"},
                                         DefaultCase{{2007, 1, 1}, "2006/2007"},
                                         DefaultCase{{1999, 11, 1}, "1999/2000"}));

/// `expected` is a year, or one of the two messages.
struct ReadCase {
    const char* typed;
    const char* expected;
};

class ReadYearTest : public testing::TestWithParam<ReadCase> {};

TEST_P(ReadYearTest, givesTheYearOrTheFault) {
    const auto reading = mainwindow::readSchoolYear(QString::fromUtf8(GetParam().typed));
    const std::string expected = GetParam().expected;
    if (const auto* fault = std::get_if<SchoolYearFault>(&reading))
        EXPECT_EQ(*fault == SchoolYearFault::Length ? lengthMessage : dateMessage, expected);
    else
        EXPECT_EQ(std::get<QString>(reading).toStdString(), expected);
}

INSTANTIATE_TEST_SUITE_P(
    SchoolYear, ReadYearTest,
    testing::Values(ReadCase{"06/07", "2006/2007"}, ReadCase{"2006/2007", "2006/2007"},
                    ReadCase{"1906/1907", "2006/2007"}, ReadCase{"xx06/??07", "2006/2007"},
                    ReadCase{"80/81", "2080/1981"}, ReadCase{"81/82", "1981/1982"},
                    ReadCase{"99/00", "1999/2000"}, ReadCase{"98/99", "1998/1999"},
                    ReadCase{"00/01", "2000/2001"}, ReadCase{"09/10", "2009/2010"},
                    ReadCase{"06-07", dateMessage}, ReadCase{"06/08", dateMessage},
                    ReadCase{"07/06", dateMessage}, ReadCase{"99/99", dateMessage},
                    ReadCase{"0a/0b", dateMessage}, ReadCase{"2006-2007", dateMessage},
                    ReadCase{"200/62007", dateMessage}, ReadCase{"6/7", lengthMessage},
                    ReadCase{"006/007", lengthMessage}, ReadCase{"2006/07", lengthMessage},
                    ReadCase{"12006/2007", lengthMessage}));

class AskYearTest : public testing::Test {
  protected:
    void answer(const char* typed) {
        boxes_.expect(support::ExpectedInput{
            .prompt =
                QStringLiteral("Aktuálny školský rok je: '2006/2007' zadaj iný,ak nevyhovuje "),
            .title = QStringLiteral("Školský rok"),
            .initial = QStringLiteral("2006/2007"),
            .answer = typed != nullptr ? std::optional(QString::fromUtf8(typed)) : std::nullopt});
    }
    void complaint(const char* text) {
        boxes_.expect(support::ExpectedBox{.text = QString::fromUtf8(text),
                                           .title = QStringLiteral("Chybová správa"),
                                           .icon = QMessageBox::Warning});
    }
    std::optional<QString> ask() { return mainwindow::askSchoolYear(nullptr, {2006, 10, 1}); }

  private:
    support::ScriptedBoxes boxes_;
};

TEST_F(AskYearTest, asksUntilTheAnswerIsRight) {
    answer("6/7");
    complaint(lengthMessage);
    answer("06-07");
    complaint(dateMessage);
    answer("  04/05 ");
    EXPECT_EQ(ask(), QStringLiteral("2004/2005"));
}

TEST_F(AskYearTest, cancelAndNothingLeaveItAlone) {
    answer(nullptr);
    EXPECT_EQ(ask(), std::nullopt);
    answer("   ");
    EXPECT_EQ(ask(), std::nullopt);
}

TEST_F(AskYearTest, theDefaultIsTakenAsItStands) {
    answer("2006/2007");
    EXPECT_EQ(ask(), QStringLiteral("2006/2007"));
}

} // namespace
