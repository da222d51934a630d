#include "mainwindow/SchoolYear.h"

#include <gtest/gtest.h>

using mainwindow::SchoolYearFault;
using namespace Qt::StringLiterals;

namespace {

constexpr auto lengthMessage = "Chybna dlzka vstupu, zadaj v tvare rok/rok+1";
constexpr auto dateMessage = "Chybne zadany datum,zadaj v tvare rok/rok+1";

TEST(SchoolYear, countsFromOctober) {
    const std::pair<QDate, QString> days[] = {
        {{2006, 8, 31}, u"2005/2006"_s},  {{2006, 9, 1}, u"2005/2006"_s},
        {{2006, 9, 30}, u"2005/2006"_s},  {{2006, 10, 1}, u"2006/2007"_s},
        {{2006, 12, 31}, u"2006/2007"_s}, {{2007, 1, 1}, u"2006/2007"_s},
        {{1999, 11, 1}, u"1999/2000"_s}};
    for (const auto& [today, year] : days)
        EXPECT_EQ(mainwindow::defaultSchoolYear(today), year) << qPrintable(today.toString());
}

TEST(SchoolYear, isReadOrRefused) {
    const std::pair<const char*, const char*> answers[] = {
        {"06/07", "2006/2007"},     {"2006/2007", "2006/2007"}, {"1906/1907", "2006/2007"},
        {"xx06/??07", "2006/2007"}, {"80/81", "2080/1981"},     {"81/82", "1981/1982"},
        {"99/00", "1999/2000"},     {"98/99", "1998/1999"},     {"00/01", "2000/2001"},
        {"09/10", "2009/2010"},     {"06-07", dateMessage},     {"06/08", dateMessage},
        {"07/06", dateMessage},     {"99/99", dateMessage},     {"0a/0b", dateMessage},
        {"2006-2007", dateMessage}, {"200/62007", dateMessage}, {"6/7", lengthMessage},
        {"006/007", lengthMessage}, {"2006/07", lengthMessage}, {"12006/2007", lengthMessage}};
    for (const auto& [typed, expected] : answers) {
        const auto reading = mainwindow::readSchoolYear(QString::fromUtf8(typed));
        if (const auto* fault = std::get_if<SchoolYearFault>(&reading))
            EXPECT_STREQ(*fault == SchoolYearFault::Length ? lengthMessage : dateMessage, expected);
        else
            EXPECT_STREQ(qPrintable(std::get<QString>(reading)), expected) << typed;
    }
}

} // namespace
