#include "report/TextLines.h"

#include "report/TestReport.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

using namespace report;
using namespace report::test;

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

struct WrapCase {
    QString text;
    int letters;
    QStringList lines;
};

void PrintTo(const WrapCase& c, std::ostream* out) {
    *out << c.text.toStdString();
}

class WrapTest : public testing::TestWithParam<WrapCase> {};

TEST_P(WrapTest, BreaksBetweenWords) {
    const auto& c = GetParam();
    EXPECT_EQ(broken(plainParagraphs(c.text, {}), c.letters * 100.0), c.lines);
}

WrapCase wrap(const char16_t* text, int letters, const char16_t* lines) {
    return {QString::fromUtf16(text), letters, QString::fromUtf16(lines).split(u'/')};
}

INSTANTIATE_TEST_SUITE_P(
    Texts, WrapTest,
    testing::Values(wrap(u"", 5, u""), wrap(u"päť", 5, u"päť"), wrap(u"päť š", 5, u"päť š"),
                    wrap(u"päť šiestich", 5, u"päť/šiest/ich"), wrap(u"aa bb cc", 5, u"aa bb/cc"),
                    wrap(u"aa bb   cc", 5, u"aa bb/cc"), wrap(u"aa\nbb", 9, u"aa/bb"),
                    wrap(u"aa\r\n\r\nbb", 9, u"aa//bb"), wrap(u"aa\n", 9, u"aa/"),
                    wrap(u"a\tb", 9, u"a b"), wrap(u"  aa bb", 4, u"  aa/bb"),
                    wrap(u"najneobhospodarovateľnejší", 8, u"najneobh/ospodaro/vateľnej/ší"),
                    wrap(u"a\u00A0b c", 3, u"a\u00A0b/c"), wrap(u"abc", 0, u"a/b/c")));

TEST(Lines, WithoutLimitAreBrokenAtLineFeedsOnly) {
    EXPECT_EQ(broken(plainParagraphs(QStringLiteral("aa bb\ncc dd"), {}), unlimitedWidth),
              (QStringList{QStringLiteral("aa bb"), QStringLiteral("cc dd")}));
}

TEST(Lines, AreFoundQuicklyInEndlessWords) {
    const QString endless(200000, u'x');
    EXPECT_EQ(broken(plainParagraphs(endless, {}), 10000).size(), 2000);
}

TEST(Lines, LettersOfSeveralUnitsStayWhole) {
    const QString face = QStringLiteral("\U0001F600");
    EXPECT_EQ(broken(plainParagraphs(face + face, {}), 100), (QStringList{face, face}));
}

TEST(Lines, BlankOnesHaveTheHeightOfTheirStyle) {
    const auto lines = breakLines(plainParagraphs({}, {}), 500, GridMeter());
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines[0].runs.empty());
    EXPECT_EQ(lines[0].height, 240);
}

TEST(RichText, KeepsStylesAndListsAndWrapsOverThem) {
    const QString html =
        QStringLiteral("<html><body><p>ab <b>cd</b>ef <i>gh</i><br/>x &lt; y</p>"
                       "<ul><li>jeden</li><li>dva</li></ul><ol><li><u>tri</u></li></ol></body>");
    const auto paragraphs = richParagraphs(html, {});
    EXPECT_EQ(broken(paragraphs, unlimitedWidth),
              (QStringList{QStringLiteral("ab |cd|ef |gh"), QStringLiteral("x < y"),
                           QStringLiteral("•|jeden"), QStringLiteral("•|dva"),
                           QStringLiteral("1.|tri")}));
    // "ab " 300, bold "cd" 400, "ef" 200: the word of two styles does not fit beside "ab".
    EXPECT_EQ(broken({paragraphs[0]}, 850),
              (QStringList{QStringLiteral("ab"), QStringLiteral("cd|ef"), QStringLiteral("gh")}));
    EXPECT_TRUE(paragraphs[0].runs[1].style.bold);
    EXPECT_TRUE(paragraphs[0].runs[3].style.italic);
    EXPECT_TRUE(paragraphs[4].runs[0].style.underline);
}

TEST(RichText, ListItemsAreIndentedWithTheirBulletBeforeThem) {
    const auto lines =
        breakLines(richParagraphs(QStringLiteral("<ul><li>aa bb</li></ul>"), {}), 700, GridMeter());
    ASSERT_EQ(lines.size(), 2);
    EXPECT_LT(lines[0].runs[0].left + lines[0].runs[0].width, lines[0].runs[1].left);
    EXPECT_EQ(lines[0].runs[1].left, lines[1].runs[0].left);
    EXPECT_GT(lines[1].runs[0].left, 0);
}

TEST(RichText, KeepsBlankParagraphsAndRowsOfBlanks) {
    const auto paragraphs = richParagraphs(
        QStringLiteral("<p>a   b</p><p></p><p>c</p><ul><li></li><li>d</li></ul>"), {});
    EXPECT_EQ(broken(paragraphs, unlimitedWidth),
              (QStringList{QStringLiteral("a   b"), QString(), QStringLiteral("c"),
                           QStringLiteral("•"), QStringLiteral("•|d")}));
}

TEST(RichText, PlainTextStaysAsTyped) {
    const QString typed = QStringLiteral("a < b\nc & d");
    EXPECT_EQ(richParagraphs(typed, {}), plainParagraphs(typed, {}));
}

} // namespace
