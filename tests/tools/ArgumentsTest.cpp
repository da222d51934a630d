#include "mkdb/Arguments.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// What was read, in one line.
QString said(const char* line) {
    QString problem;
    const auto arguments =
        mkdb::readArguments(QString::fromUtf8(line).split(u' ', Qt::SkipEmptyParts), u"data"_s,
                            {2026, 11, 23}, problem);
    EXPECT_EQ(arguments.has_value(), problem.isEmpty()) << line;
    if (!arguments)
        return u"refused"_s;
    if (!arguments->target.isEmpty())
        return u"%1 %2 %3"_s.arg(int(arguments->command)).arg(arguments->file, arguments->target);
    return u"%1 %2 %3 %4 %5 %6 %7"_s.arg(int(arguments->command))
        .arg(arguments->file, arguments->listsFolder, arguments->wordsFolder)
        .arg(arguments->plan.clients)
        .arg(arguments->plan.seed)
        .arg(arguments->plan.today.toString(Qt::ISODate));
}

TEST(Arguments, takeOptionsInAnyOrderAndHaveDefaults) {
    const std::pair<const char*, const char*> lines[] = {
        {"prazdna a.mdb", "0 a.mdb data/ciselniky data/ukazka 300 1 2026-11-23"},
        {"ukazka a.mdb --dnes 1.2.2007 --semeno 7 --ukazka u --klienti 5 --ciselniky c",
         "1 a.mdb c u 5 7 2007-02-01"},
        {"ciselniky a.mdb c", "2 a.mdb c data/ukazka 300 1 2026-11-23"},
        {"prevod a.mdb b.mdb", "3 a.mdb b.mdb"},
        {"vyvoz a.mdb c", "4 a.mdb c"},
        {"dovoz c a.mdb", "5 c a.mdb"}};
    for (const auto& [line, meaning] : lines)
        EXPECT_EQ(said(line), QString::fromUtf8(meaning)) << line;
}

TEST(Arguments, areRefusedWhenTheyDoNotSuit) {
    for (const char* line :
         {"", "prazdna", "ukazka", "ciselniky a.mdb", "ine a.mdb", "prazdna a.mdb --klienti 5",
          "prazdna a.mdb navyse", "prevod a.mdb", "vyvoz a.mdb c --dnes 1.2.2007",
          "ciselniky a.mdb c --ciselniky d", "ukazka a.mdb --klienti", "ukazka a.mdb --klienti -1",
          "ukazka a.mdb --klienti x", "ukazka a.mdb --semeno x", "ukazka a.mdb --dnes 31.2.2020",
          "ukazka a.mdb --dnes 1.1.1950"})
        EXPECT_EQ(said(line), u"refused"_s) << line;
}

} // namespace
