#include "report/PageCheck.h"
#include "report/TestReport.h"

#include <gtest/gtest.h>

using namespace report;
using namespace report::test;
using namespace Qt::StringLiterals;

namespace {

const QString a = u"a"_s;
const QString b = u"b"_s;

Section section(int height, std::vector<Control> controls) {
    return {u"any"_s, height, std::move(controls)};
}

Section titled(int height, const QString& caption) {
    return section(height, {label(caption, 0, 0, 4000, caption)});
}

/// A page of 2000 usable twips: report header 500, page header 300, rows of 250, page footer 200,
/// report footer 400.
Layout fullLayout() {
    Layout layout;
    layout.title = u"Zostava"_s;
    layout.marginTop = 1000;
    layout.marginBottom = 16838 - 3000;
    layout.reportHeader = titled(500, u"hlava zostavy"_s);
    layout.pageHeader = titled(300, u"hlava strany"_s);
    layout.detail = section(250, {field(a, 0, 0, 4000)});
    layout.pageFooter = titled(200, u"päta strany"_s);
    layout.reportFooter = titled(400, u"päta zostavy"_s);
    return layout;
}

QList<QStringList> numbered(int count) {
    QList<QStringList> rows;
    for (int i = 1; i <= count; ++i)
        rows << QStringList{QString::number(i)};
    return rows;
}

Pages made(const Layout& layout, const QList<QStringList>& rows) {
    ListRows source(rows);
    return makePages(layout, source, GridMeter(), today);
}

Pages madeOf(const Section& detail, const QStringList& row, int rows = 1) {
    Layout layout;
    layout.marginLeft = layout.marginTop = 0;
    layout.detail = detail;
    return made(layout, QList<QStringList>(rows, row));
}

/// "text@top of its line" of a page, in twips from the page's upper edge.
QStringList tops(const Page& page) {
    QStringList result;
    for (const auto& text : page.texts)
        result << u"%1@%2"_s.arg(text.text).arg(text.baseline - 200);
    return result;
}

QStringList words(const char16_t* text) {
    return QString::fromUtf16(text).split(u'/');
}

TEST(PageMaker, PageHeaderIsRepeatedAndTheReportFooterFollowsTheLastRow) {
    // 1000 twips are left for rows on the first page, 1500 on the others.
    const Pages pages = made(fullLayout(), numbered(6));
    ASSERT_EQ(pages.pages.size(), 2);
    EXPECT_EQ(tops(pages.pages[0]),
              words(u"päta strany@2800/hlava zostavy@1000/hlava strany@1500/1@1800/2@2050/3@2300/"
                    u"4@2550"));
    EXPECT_EQ(tops(pages.pages[1]), words(u"hlava strany@1000/päta strany@2800/5@1300/6@1550/"
                                          u"päta zostavy@1800"));
}

TEST(PageMaker, PlacesTextsByTheirAlignment) {
    for (const auto& [align, left] :
         {std::pair(Align::Left, 700), {Align::Center, 1050}, {Align::Right, 1400}}) {
        Layout layout;
        layout.marginLeft = 600;
        layout.marginTop = 500;
        layout.detail = section(400, {field(a, 100, 50, 1000)});
        layout.detail.controls[0].align = align;
        const Pages pages = made(layout, {{u"abc"_s}});
        const auto& text = find(pages.pages[0], u"abc"_s);
        EXPECT_EQ(text.left, left);
        EXPECT_EQ(text.baseline, 500 + 50 + 200);
        EXPECT_EQ(text.box, QRectF(700, 550, 1000, 240));
        EXPECT_EQ(text.control, u"txt_a"_s);
    }
}

TEST(PageMaker, PlacesTextsInTheMiddleOfTheirBoxes) {
    auto detail = section(1000, {field(a, 0, 100, 900), growing(b, 1000, 100, 200)});
    for (auto& control : detail.controls) {
        control.middle = true;
        control.height = 640;
    }
    const Pages pages = madeOf(detail, {u"aa"_s, u"bb cc dd"_s});
    EXPECT_EQ(tops(pages.pages[0]), words(u"aa@300/bb@100/cc@340/dd@580"));
}

TEST(PageMaker, RefusesFieldsOutsideTheDetailAndUnknownColumns) {
    Layout layout;
    layout.pageHeader = section(300, {field(a, 0, 0, 100)});
    EXPECT_THROW(made(layout, {}), std::invalid_argument);
    EXPECT_THROW(madeOf(section(300, {field(u"x"_s, 0, 0, 100)}), {}), std::out_of_range);
}

TEST(PageMaker, GrowingFieldsPushDownWhatBeginsBelow) {
    // "a" needs three lines of 240, "b" beside it two, so that all below moves by 480.
    auto detail =
        section(900, {label(u"L1"_s, 0, 0, 500, u"nad"_s), growing(a, 0, 240, 200),
                      growing(b, 1000, 240, 200), label(u"L2"_s, 2000, 240, 500, u"vedľa"_s),
                      label(u"L3"_s, 0, 480, 500, u"pod"_s)});
    const Pages pages = madeOf(detail, {u"aa bb cc"_s, u"dd ee"_s});
    EXPECT_EQ(tops(pages.pages[0]),
              words(u"nad@0/aa@240/bb@480/cc@720/dd@240/ee@480/vedľa@240/pod@960"));
    EXPECT_EQ(layoutFaults(pages), QStringList());
    EXPECT_EQ(find(pages.pages[0], u"bb"_s).box, QRectF(0, 240, 200, 720));
}

TEST(PageMaker, GrowthsAddUpAndStretchLinesAndTheBand) {
    auto detail = section(600, {growing(b, 0, 240, 200), growing(a, 0, 0, 200),
                                drawn(ControlKind::Box, 0, 0, 500, 600),
                                drawn(ControlKind::Line, 0, 590, 500, 0),
                                drawn(ControlKind::Line, 400, 0, 0, 240)});
    const QStringList row{u"aa bb"_s, u"cc dd ee"_s};
    const Page page = madeOf(detail, row, 2).pages[0];
    // "a" grows by 240, "b" by 480.
    EXPECT_EQ(find(page, u"cc"_s).baseline, 240 + 240 + 200);
    ASSERT_EQ(page.lines.size(), 6);
    EXPECT_EQ(page.lines[0].rect, QRectF(0, 0, 500, 1320));
    EXPECT_TRUE(page.lines[0].isBox);
    EXPECT_EQ(page.lines[1].rect, QRectF(0, 1310, 500, 0));
    EXPECT_EQ(page.lines[2].rect, QRectF(400, 0, 0, 480));
    EXPECT_EQ(page.lines[3].rect.top(), 1320) << "the second row stands below the first";
}

TEST(PageMaker, RowTallerThanAPageBreaksBetweenLines) {
    Layout layout = fullLayout();
    layout.reportFooter = {};
    layout.detail = section(720, {label(u"L"_s, 1000, 0, 900, u"popis"_s), growing(a, 0, 240, 200),
                                  drawn(ControlKind::Box, 0, 0, 2000, 720),
                                  drawn(ControlKind::Line, 0, 0, 2000, 0),
                                  label(u"K"_s, 0, 480, 900, u"záver"_s)});
    QStringList lines;
    for (int i = 10; i < 24; ++i)
        lines << QString::number(i);
    const Pages pages = made(layout, {{lines.join(u' ')}});
    ASSERT_EQ(pages.pages.size(), 3);
    // The label and three lines on the rest of the first page, six lines a page afterwards.
    EXPECT_EQ(tops(pages.pages[0]).mid(3), words(u"popis@1800/10@2040/11@2280/12@2520"));
    EXPECT_EQ(tops(pages.pages[1]).mid(2),
              words(u"13@1300/14@1540/15@1780/16@2020/17@2260/18@2500"));
    EXPECT_EQ(tops(pages.pages[2]).mid(2), words(u"19@1300/20@1540/21@1780/22@2020/23@2260/"
                                                 u"záver@2500"));
    EXPECT_EQ(layoutFaults(pages), QStringList());
    const std::vector<QRectF> boxes{{567, 1800, 2000, 960}, {567, 1300, 2000, 1440}};
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        EXPECT_EQ(pages.pages[i].lines.at(0).rect, boxes[i]);
        EXPECT_EQ(pages.pages[i].lines.size(), i == 0 ? 2 : 1) << "the line on top";
    }
}

TEST(PageMaker, SideBySideColumnsAreBrokenWhereNeitherIsHurt) {
    Layout layout = fullLayout();
    layout.detail = section(400, {growing(a, 0, 0, 200), growing(b, 500, 100, 200)});
    const QString text = QStringList(20, u"xx"_s).join(u' ');
    const Pages pages = made(layout, {{text, text}});
    std::size_t texts = 0;
    for (const auto& page : pages.pages)
        texts += page.texts.size();
    EXPECT_EQ(cutTexts(pages.pages[0]), QStringList());
    EXPECT_EQ(texts, 40 + 2 * pages.pages.size() + 2) << "no line is lost or printed twice";
}

TEST(PageMaker, RichFieldsPlaceARunForEachStyle) {
    auto detail = section(300, {growing(a, 0, 0, 2000)});
    detail.controls[0].rich = true;
    const Pages pages = madeOf(detail, {u"<p>ab <b>cd</b> ef</p>"_s});
    EXPECT_EQ(textsOf(pages.pages[0]), words(u"ab /cd/ ef"));
    EXPECT_EQ(find(pages.pages[0], u" ef"_s).left, 300 + 400);
    EXPECT_TRUE(find(pages.pages[0], u"cd"_s).style.bold);
}

TEST(PageMaker, PagesOnDemandAreThoseMadeAtOnce) {
    Layout layout;
    layout.reportHeader = {u"Section4"_s, 700, {label(u"head"_s, 0, 0, 900, u"%d"_s)}};
    layout.pageHeader = {u"Section2"_s, 300, {label(u"columns"_s, 0, 0, 900, u"a"_s)}};
    layout.detail = {u"Section1"_s,
                     300,
                     {growing(u"a"_s, 0, 0, 500), growing(u"b"_s, 600, 0, 800),
                      drawn(ControlKind::Line, 0, 290, 1000, 0)}};
    layout.pageFooter = {u"Section3"_s, 300, {label(u"foot"_s, 0, 0, 900, u"foot"_s)}};
    layout.reportFooter = {u"Section5"_s, 400, {label(u"end"_s, 0, 0, 900, u"end"_s)}};
    QList<QStringList> cells;
    for (int i = 0; i < 200; ++i)
        cells << QStringList{u"slovo "_s.repeated(i % 7),
                             u"dlhé "_s.repeated(i % 60 == 30 ? 900 + i : i % 3)};
    ListRows source(cells);
    const Pages made = makePages(layout, source, GridMeter(), today);
    const Pages looked = pagesOnDemand(layout, std::make_shared<ListRows>(cells),
                                       std::make_shared<GridMeter>(), today);
    ASSERT_EQ(looked.pages.size(), made.pages.size());
    EXPECT_GT(made.pages.size(), 10U);
    // In any order.
    for (std::size_t i = made.pages.size(); i-- > 0;) {
        const Page page = looked.pages.make(i);
        EXPECT_EQ(textsOf(page), textsOf(made.pages[i]));
        ASSERT_EQ(page.lines.size(), made.pages[i].lines.size());
        for (std::size_t text = 0; text < page.texts.size(); ++text)
            EXPECT_EQ(page.texts[text].box, made.pages[i].texts[text].box);
    }
}

} // namespace
