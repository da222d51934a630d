#include "report/TextLines.h"

#include "report/TestReport.h"
#include "support/Lists.h"

#include <gtest/gtest.h>

using namespace report;
using namespace report::test;
using namespace Qt::StringLiterals;

namespace {

QStringList broken(const std::vector<Paragraph>& paragraphs, double width) {
    QStringList lines;
    for (const auto& line : breakLines(paragraphs, width, GridMeter())) {
        QStringList runs;
        for (const auto& run : line.runs)
            runs << run.run.text;
        lines << runs.join(u'|');
    }
    return lines;
}

/// A line is a width in letters, a text, and its lines parted by "/".
TEST(Lines, BreakBetweenWords) {
    for (const QStringList& line : support::linesOf(u"lines.tsv"_s))
        EXPECT_EQ(broken(plainParagraphs(line[1], {}), line[0].toInt() * 100.0),
                  line[2].split(u'/'));
    EXPECT_EQ(broken(plainParagraphs(u"aa bb\ncc dd"_s, {}), unlimitedWidth),
              (QStringList{u"aa bb"_s, u"cc dd"_s}));
    const auto columns = breakLines(plainParagraphs(u"aaaaaaa\tb\t\tc"_s, {}), 5000, GridMeter());
    EXPECT_EQ(columns.at(0).runs.at(1).left, 720);
    EXPECT_EQ(columns.at(0).runs.at(2).left, 3 * 720);
}

TEST(Lines, AreFoundQuicklyInEndlessWords) {
    const QString endless(200000, u'x');
    EXPECT_EQ(broken(plainParagraphs(endless, {}), 10000).size(), 2000);
}

TEST(RichText, KeepsStylesAndListsAndWrapsOverThem) {
    const QString html = u"<html><body><p>ab <b>cd</b>ef <i>gh</i><br/>x &lt; y</p>"
                         "<ul><li>jeden</li><li>dva</li></ul><ol><li><u>tri</u></li></ol></body>"_s;
    const auto paragraphs = richParagraphs(html, {});
    EXPECT_EQ(broken(paragraphs, unlimitedWidth).join(u'/'),
              u"ab |cd|ef |gh/x < y/•|jeden/•|dva/1.|tri"_s);
    // "ab " 300, bold "cd" 400, "ef" 200: the word of two styles does not fit beside "ab".
    EXPECT_EQ(broken({paragraphs[0]}, 850).join(u'/'), u"ab/cd|ef/gh"_s);
    EXPECT_TRUE(paragraphs[0].runs[1].style.bold);
    EXPECT_TRUE(paragraphs[0].runs[3].style.italic);
    EXPECT_TRUE(paragraphs[4].runs[0].style.underline);
}

TEST(RichText, ListItemsAreIndentedWithTheirBulletBeforeThem) {
    const auto lines =
        breakLines(richParagraphs(u"<ul><li>aa bb</li></ul>"_s, {}), 700, GridMeter());
    ASSERT_EQ(lines.size(), 2);
    EXPECT_LT(lines[0].runs[0].left + lines[0].runs[0].width, lines[0].runs[1].left);
    EXPECT_EQ(lines[0].runs[1].left, lines[1].runs[0].left);
    EXPECT_GT(lines[1].runs[0].left, 0);
}

TEST(RichText, KeepsBlankParagraphsAndRowsOfBlanks) {
    const QString html = u"<p>a   b</p><p></p><p>c</p><ul><li></li><li>d</li></ul>"_s;
    EXPECT_EQ(broken(richParagraphs(html, {}), unlimitedWidth).join(u'/'), u"a   b//c/•/•|d"_s);
    const QString plain = u"a < b\nc & d"_s;
    EXPECT_EQ(richParagraphs(plain, {}), plainParagraphs(plain, {}));
}

TEST(Lines, TakeAsManyWordsAsFit) {
    QString words;
    for (int i = 0; i < 900; ++i)
        words += QString(1 + i * 7 % 12, u'x') + u' ';
    for (const double width : {1200., 3000., 9000., 40000.}) {
        const auto lines = breakLines(plainParagraphs(words, {}), width, GridMeter());
        QString joined;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const QString line = lines[i].runs.at(0).run.text;
            const QString next = i + 1 < lines.size() ? lines[i + 1].runs[0].run.text : QString();
            EXPECT_LE(lines[i].width(), width);
            EXPECT_TRUE(next.isEmpty() ||
                        100.0 * double(line.size() + 1 + next.section(u' ', 0, 0).size()) > width)
                << line.toStdString();
            joined += line + u' ';
        }
        EXPECT_EQ(joined, words);
    }
}

} // namespace
