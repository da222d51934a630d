#include "mkdb/Arguments.h"

#include <gtest/gtest.h>

namespace {

using mkdb::Command;

const QDate today(2026, 11, 23);

std::optional<mkdb::Arguments> read(const char* line, QString* problem = nullptr) {
    QString why;
    const auto arguments =
        mkdb::readArguments(QString::fromUtf8(line).split(u' ', Qt::SkipEmptyParts),
                            QStringLiteral("data"), today, why);
    EXPECT_EQ(arguments.has_value(), why.isEmpty()) << line;
    if (problem != nullptr)
        *problem = why;
    return arguments;
}

TEST(Arguments, haveDefaults) {
    const auto sample = read("ukazka a.mdb");
    ASSERT_TRUE(sample);
    EXPECT_EQ(sample->command, Command::Sample);
    EXPECT_EQ(sample->file, QStringLiteral("a.mdb"));
    EXPECT_EQ(sample->listsFolder, QStringLiteral("data/ciselniky"));
    EXPECT_EQ(sample->wordsFolder, QStringLiteral("data/ukazka"));
    EXPECT_EQ(sample->plan.clients, 300);
    EXPECT_EQ(sample->plan.seed, 1U);
    EXPECT_EQ(sample->plan.today, today);
}

TEST(Arguments, takeOptionsInAnyOrder) {
    const auto sample =
        read("ukazka a.mdb --dnes 1.2.2007 --semeno 7 --ukazka u --klienti 5 --ciselniky c");
    ASSERT_TRUE(sample);
    EXPECT_EQ(sample->plan.today, QDate(2007, 2, 1));
    EXPECT_EQ(sample->plan.seed, 7U);
    EXPECT_EQ(sample->plan.clients, 5);
    EXPECT_EQ(sample->wordsFolder, QStringLiteral("u"));
    EXPECT_EQ(sample->listsFolder, QStringLiteral("c"));
    EXPECT_EQ(read("ciselniky a.mdb c")->listsFolder, QStringLiteral("c"));
}

TEST(Arguments, areRefusedWhenTheyDoNotSuit) {
    for (const char* line :
         {"", "prazdna", "ukazka", "ciselniky a.mdb", "ine a.mdb", "prazdna a.mdb --klienti 5",
          "prazdna a.mdb navyse", "ciselniky a.mdb c --ciselniky d", "ukazka a.mdb --klienti",
          "ukazka a.mdb --klienti -1", "ukazka a.mdb --klienti x", "ukazka a.mdb --semeno x",
          "ukazka a.mdb --dnes 31.2.2020", "ukazka a.mdb --dnes 1.1.1950"}) {
        QString problem;
        EXPECT_FALSE(read(line, &problem)) << line;
        EXPECT_FALSE(problem.isEmpty()) << line;
    }
}

} // namespace
