#include "report/TextLines.h"

#include "report/TestReport.h"

#include <gtest/gtest.h>

#include <tuple>

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

TEST(Lines, BreakBetweenWords) {
    const std::tuple<const char16_t*, int, const char16_t*> cases[] = {
        {u"", 5, u""},
        {u"päť", 5, u"päť"},
        {u"päť š", 5, u"päť š"},
        {u"päť šiestich", 5, u"päť/šiest/ich"},
        {u"aa bb cc", 5, u"aa bb/cc"},
        {u"aa bb   cc", 5, u"aa bb/cc"},
        {u"aa\nbb", 9, u"aa/bb"},
        {u"aa\r\n\r\nbb", 9, u"aa//bb"},
        {u"aa\n", 9, u"aa/"},
        {u"a\u0001b\u000Bc\u2028d", 9, u"ab/c/d"},
        {u"a\tb", 9, u"a|b"},
        {u"a\tbb c", 9, u"a/bb c"},
        {u"  aa bb", 4, u"  aa/bb"},
        {u"najneobhospodarovateľnejší", 8, u"najneobh/ospodaro/vateľnej/ší"},
        {u"a\u00A0b c", 3, u"a\u00A0b/c"},
        {u"abc", 0, u"a/b/c"},
        {u"\U0001F600\U0001F600", 1, u"\U0001F600/\U0001F600"},
    };
    for (const auto& [text, letters, lines] : cases)
        EXPECT_EQ(broken(plainParagraphs(QString::fromUtf16(text), {}), letters * 100.0),
                  QString::fromUtf16(lines).split(u'/'));
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
