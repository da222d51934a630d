#include "mkdb/Arguments.h"

#include "support/Lists.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// What was read, in one line.
QString said(const QString& line) {
    QString problem;
    const auto arguments = mkdb::readArguments(line.split(u' ', Qt::SkipEmptyParts), u"data"_s,
                                               {2026, 11, 23}, problem);
    EXPECT_EQ(arguments.has_value(), problem.isEmpty()) << line.toStdString();
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

TEST(Arguments, takeOptionsInAnyOrderHaveDefaultsOrAreRefused) {
    for (const QStringList& line : support::linesOf(u"arguments.tsv"_s))
        EXPECT_EQ(said(line[0]), line[1]) << line[0].toStdString();
}

} // namespace
