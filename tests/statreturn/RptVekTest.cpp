#include "statreturn/RptVek.h"

#include "report/Fonts.h"
#include "report/PageCheck.h"
#include "report/Pages.h"
#include "statreturn/TableOne.h"
#include "support/ScriptedBoxes.h"

#include <QDate>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using namespace statreturn;

namespace {

constexpr double millimetre = 1440 / 25.4;

/// Nineteen rows whose counts are empty, or as wide as they may get.
class AgeRowSource : public report::RowSource {
  public:
    explicit AgeRowSource(QString count) : count_(std::move(count)) {}
    bool next() override { return ++row_ < ageRows.size(); }
    QString text(const QString& column) const override {
        if (column == u"stlpec")
            return ageRows[row_].stlpec.toString();
        if (column == u"vek")
            return ageRows[row_].vek.toString();
        if (column == u"c_riad")
            return ageRows[row_].c_riad.toString();
        countOf({}, column); // throws for a column that z_vek does not have
        return count_;
    }

  private:
    std::size_t row_ = static_cast<std::size_t>(-1);
    QString count_;
};

report::Pages pagesOf(report::Layout layout, const QString& count) {
    AgeRowSource rows(count);
    for (const TotalLabel& total : vekTotals)
        layout.section(u"section5").control(total.control).caption = count;
    return report::makePages(layout, rows, report::FontMeter(), QDate(2007, 9, 3));
}

struct Place {
    QString text;
    int left;
    int top;
};

const Place headPlaces[] = {
    {u"Ministerstvo školstva SR"_s, 50, 57},
    {u"Registrované ŠÚ SR"_s, 50, 284},
    {u"č. Vk. 622/06 z 11. 11. 2005"_s, 50, 454},
    {u"V rámci Programu štátnych štatistických"_s, 50, 624},
    {u"zisťovaní schváleného na roky 2006-2008"_s, 50, 794},
    {u"Ochranu dôverných údajov upravuje"_s, 50, 964},
    {u"zákon č. 540/2001 Z.z. o štátnej štatistike"_s, 50, 1134},
    {u"Za ochranu dôverných údajov"_s, 50, 1304},
    {u"zodpovedá MŠ SR."_s, 50, 1474},
    {u"Riaditeľstvo zariadenia odošle"_s, 50, 1644},
    {u"výkaz do 20.9.2006"_s, 50, 1814},
    {u"  2x príslušnému KŠÚ"_s, 50, 1984},
    {u"Výkaz"_s, 6293, 57},
    {u"o špeciálnopedagogickej poradni a"_s, 5046, 397},
    {u"detskom integračnom centre"_s, 5386, 680},
    {u"za školský rok 2006/2007"_s, 5613, 1247},
    {u"Škol (MŠ SR) 5 - 01"_s, 11906, 57},
    {u"Rok"_s, 11622, 567},
    {u"Mes"_s, 12120, 510},
    {u"iac"_s, 12150, 680},
    {u"Identifikačné"_s, 12756, 500},
    {u"číslo organizácie"_s, 12699, 680},
    {u"Územie"_s, 14003, 567},
    {u"2"_s, 11452, 1020},
    {u"0"_s, 11622, 1020},
    {u"0"_s, 11792, 1020},
    {u"7"_s, 11962, 1020},
    {u"0"_s, 12132, 1020},
    {u"9"_s, 12302, 1020},
    {u"Druh"_s, 11452, 1304},
    {u"zariad."_s, 11452, 1531},
    {u"Prevá-"_s, 11962, 1304},
    {u"dzkar"_s, 11962, 1531},
    {u"Názov"_s, 4400, 1757},
    {u"Miesto"_s, 4400, 2154},
    {u"PSČ"_s, 8561, 2154},
    {u"Ulica"_s, 4400, 2551},
    {u"č.p."_s, 8561, 2551},
    {u"I. Počet klientov evidovaných v poradenskom zariadení podľa veku"_s, 53, 3118}};

struct FieldPlace {
    QString field;
    int left;
};

const FieldPlace fieldPlaces[] = {
    {u"stlpec"_s, 57},       {u"vek"_s, 454},      {u"c_riad"_s, 1247},     {u"spolu"_s, 1757},
    {u"spolu_zeny"_s, 2381}, {u"p_autiz"_s, 2948}, {u"p_autiz_Z"_s, 3571},  {u"p_menta"_s, 4138},
    {u"p_menta_Z"_s, 4705},  {u"p_sluch"_s, 5272}, {u"p_sluch_Z"_s, 5839},  {u"p_zrak"_s, 6406},
    {u"p_zrak_Z"_s, 6973},   {u"p_rec"_s, 7540},   {u"p_rec_Z"_s, 8107},    {u"p_teles"_s, 8674},
    {u"p_teles_Z"_s, 9241},  {u"p_viacN"_s, 9807}, {u"p_viacN_Z"_s, 10374}, {u"p_vpsp"_s, 10941},
    {u"p_vpsp_Z"_s, 11508},  {u"p_vpuc"_s, 12075}, {u"p_vpuc_Z"_s, 12699},  {u"p_ine"_s, 13323},
    {u"p_ine_Z"_s, 13946},
};

/// The left edges of the texts of that control, sorted by nothing: one each row.
std::vector<report::PlacedText> textsOf(const report::Page& page, const QString& control) {
    std::vector<report::PlacedText> found;
    std::ranges::copy_if(page.texts, std::back_inserter(found),
                         [&](const auto& text) { return text.control == control; });
    return found;
}

bool near(double one, double other) {
    return std::abs(one - other) <= millimetre;
}

TEST(RptVekTest, theHeadsTextsStandWhereTheFormHasThem) {
    const report::Layout layout = rptVek();
    const report::Page page = pagesOf(layout, {}).pages.at(0);
    for (const Place& place : headPlaces) {
        const bool found = std::ranges::any_of(page.texts, [&](const report::PlacedText& text) {
            return text.text == place.text && near(text.left - layout.marginLeft, place.left) &&
                   near(text.baseline - text.ascent - layout.marginTop, place.top);
        });
        EXPECT_TRUE(found) << place.text.toStdString();
    }
}

TEST(RptVekTest, aRowsFieldsStandInTheirColumns) {
    const report::Layout layout = rptVek();
    const report::Page page = pagesOf(layout, u"1"_s).pages.at(0);
    const double firstRow = textsOf(page, u"spolu"_s).at(0).box.top();
    for (const auto& [field, left] : fieldPlaces) {
        const auto texts = textsOf(page, field);
        ASSERT_FALSE(texts.empty()) << field.toStdString();
        for (const auto& text : texts)
            EXPECT_TRUE(near(text.box.left() - layout.marginLeft, left)) << field.toStdString();
        EXPECT_TRUE(near(texts.back().box.top(), firstRow + 18 * 284) || field == u"stlpec")
            << field.toStdString();
    }
}

/// Heads and numbers of the columns in reading order, line by line.
TEST(RptVekTest, theColumnsAreHeadedAndNumbered) {
    const report::Page page = pagesOf(rptVek(), {}).pages.at(0);
    QStringList texts;
    for (const auto& text : page.texts)
        texts << text.text;
    const QString once =
        u"I.r./Spolu/z toho/v tom postihnutie (zo stľpca 1)/syndróm/autizmu/mentálne/"
        "sluchové/zrakové/rečové/telesné/viacnásobné/vývojové poruchy/správania/"
        "učenia/iné/a/b/Spolu (0101 až  0119)/0126"_s;
    for (const QString& heading : once.split(u'/'))
        EXPECT_EQ(texts.count(heading), 1) << heading.toStdString();
    EXPECT_EQ(texts.count(u"spolu"_s), 10);
    EXPECT_EQ(texts.count(u"dievčatá"_s), 11);
    const report::Page filled = pagesOf(rptVek(), u"5"_s).pages.at(0);
    for (int column = 1; column <= 22; ++column) {
        const auto& total = vekTotals[static_cast<std::size_t>(column) - 1];
        const auto counts = textsOf(filled, fieldPlaces[column + 2].field);
        const auto totals = textsOf(filled, total.control.toString());
        ASSERT_EQ(totals.size(), 1U) << column;
        const double centre = counts.at(0).extent().center().x();
        EXPECT_TRUE(near(totals[0].extent().center().x(), centre)) << column;
        EXPECT_EQ(total.column.compare(fieldPlaces[column + 2].field, Qt::CaseInsensitive), 0);
        EXPECT_TRUE(std::ranges::any_of(filled.texts, [&](const auto& text) {
            return text.text == QString::number(column) && near(text.extent().center().x(), centre);
        })) << column;
    }
}

TEST(RptVekTest, nothingOverlapsOrIsCutOnItsOnePageAndTheEmptyOneHasTheWholeFrame) {
    for (const QString& count : {QString(), u"8888"_s}) {
        const report::Pages pages = pagesOf(rptVek(), count);
        EXPECT_EQ(pages.orientation, report::Orientation::Landscape);
        ASSERT_EQ(pages.pages.size(), 1U);
        EXPECT_EQ(report::layoutFaults(pages).join(u'\n'), QString()) << count.toStdString();
        EXPECT_EQ(textsOf(pages.pages[0], u"c_riad"_s).size(), ageRows.size());
        EXPECT_EQ(pages.pages[0].lines.size(), pagesOf(rptVek(), u"1"_s).pages[0].lines.size());
    }
}

} // namespace
