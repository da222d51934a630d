#include "report/Csv.h"
#include "report/PageCheck.h"
#include "report/TableReport.h"
#include "report/TestReport.h"
#include "support/Lists.h"

#include <QBuffer>

#include <gtest/gtest.h>

using namespace report;
using namespace report::test;
using namespace Qt::StringLiterals;

namespace {

QString csvOf(const Table& table) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    EXPECT_TRUE(writeCsv(table, file));
    EXPECT_TRUE(file.data().startsWith("\xEF\xBB\xBF"));
    return QString::fromUtf8(file.data().mid(3));
}

/// A line is a text and its cell.
TEST(Csv, IsOpenedBySpreadsheetsAsTheTableThatItIs) {
    for (const QStringList& line : support::linesOf(u"csv.tsv"_s))
        EXPECT_EQ(csvOf({{u"Meno"_s, u"Obec"_s}, {{line[0], u"x"_s}}}),
                  u"Meno;Obec\r\n"_s + line[1] + u";x\r\n"_s);
}

TEST(TableReport, GoesOverPagesUnderItsHeadsAndIsKeptForSaving) {
    TableReport report{u"Klienti"_s,
                       u"prvá\ndruhá"_s,
                       Orientation::Portrait,
                       {{1}, {3}},
                       {{u"Meno"_s, u"Prečo"_s}, {}}};
    for (int i = 0; i < 60; ++i)
        report.table.rows.push_back({QString::number(1000 + i), u"slovo "_s.repeated(30)});
    const Pages pages = pagesOf(report, std::make_shared<GridMeter>(), today);
    ASSERT_GT(pages.pages.size(), 2U);
    EXPECT_EQ(layoutFaults(pages), QStringList());
    EXPECT_EQ(textsOf(pages.pages[0]).first(4),
              (QStringList{u"Klienti"_s, u"05.09.2006"_s, u"prvá"_s, u"druhá"_s}));
    EXPECT_TRUE(textsOf(pages.pages.back()).contains(u"1059"_s));
    for (std::size_t i = 0; i < pages.pages.size(); ++i) {
        EXPECT_TRUE(textsOf(pages.pages[i]).contains(u"Prečo"_s));
        const PlacedText& number =
            find(pages.pages[i], u"Strana %1 z %2"_s.arg(i + 1).arg(pages.pages.size()));
        EXPECT_GT(number.box.top(), pages.pages.front().paper.height() - 794);
    }
    EXPECT_EQ(pages.table.rows, report.table.rows);
}

} // namespace
