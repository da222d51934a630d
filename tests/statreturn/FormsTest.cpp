// All printed forms alike: what stands over each column, and what a reader would stumble over.
#include "statreturn/Forms.h"

#include "report/Fonts.h"
#include "report/PageCheck.h"
#include "report/Pages.h"
#include "report/Print.h"
#include "statreturn/ImpairmentTable.h"
#include "statreturn/ReturnRegister.h"
#include "store/Schema.h"

#include <QProcess>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using namespace statreturn;
using report::Control;
using report::ControlKind;

namespace {

struct Form {
    report::Layout (*make)();
    QString table;
    /// Fields in the order of the paper, each with the heads over it from the top, as
    /// "column:head/head/number".
    QStringList columns;
    report::Orientation orientation = report::Orientation::Landscape;
    /// Of the table by impairment, else null.
    const ImpairmentTable* totals = nullptr;
};

QStringList impairmentColumns(const QString& leading, const QString& group, const QString& girls,
                              const QString& several) {
    QStringList columns = leading.split(u' ');
    columns << u"c_riad:I.r./b"_s << u"spolu:Spolu/1"_s << u"spolu_zeny:z toho dievčatá/2"_s;
    const QStringList kinds =
        (u"autiz:syndróm autizmu,menta:mentálne,sluch:sluchové,zrak:zrakové,rec:rečové,"
         "teles:telesné,viacn:%1,vpsp:vývojové poruchy/správania,"
         "vpuc:vývojové poruchy/učenia,ine:iné"_s)
            .arg(several)
            .split(u',');
    int number = 3;
    for (const QString& kind : kinds) {
        const QString column = u"p_"_s + kind.section(u':', 0, 0);
        const QString heads = group + u'/' + kind.section(u':', 1);
        columns << u"%1:%2/spolu/%3"_s.arg(column, heads).arg(number)
                << u"%1_z:%2/%3/%4"_s.arg(column, heads, girls).arg(number + 1);
        number += 2;
    }
    return columns;
}

QStringList columnsOfCare() {
    QStringList columns{u"v_tom:a"_s, u"naz_ria:a"_s, u"c_ria:I.r./b"_s};
    int number = 1;
    for (const QString& place :
         {u"Počet aktivít ambulantných"_s, u"Počet aktivít terénnych (mobilných)"_s}) {
        for (const QString& heads :
             {u"spolu"_s, u"v tom/individuálne/jedno- rázové"_s,
              u"v tom/individuálne/opaku- júce sa"_s, u"v tom/skupinové/jedno- rázové"_s,
              u"v tom/skupinové/opaku- júce sa"_s}) {
            columns << u"s_%1:%2/%3/%1"_s.arg(number).arg(place, heads);
            ++number;
        }
    }
    return columns;
}

const Form printedForms[] = {
    {.make = rptVek,
     .table = u"z_vek"_s,
     .columns = impairmentColumns(u"stlpec:a vek:a"_s, u"v tom postihnutie (zo stľpca 1)"_s,
                                  u"dievčatá"_s, u"viacnásobné"_s),
     .totals = &tableOne},
    {.make = rptVzd,
     .table = u"z_vzdelavanie"_s,
     .columns =
         impairmentColumns(u"stlpec_1:a stlpec_2:a kod_txt:a"_s,
                           u"v tom postihnutie (zo stĺpca 1)"_s, u"dievč."_s, u"viacná- sobné"_s),
     .totals = &tableTwo},
    {.make = rptZam,
     .table = u"z_zam"_s,
     .columns = {u"fcia:a"_s, u"cria:I.r./b"_s, u"i_spolu:Interní/spolu/1"_s,
                 u"i_zeny:Interní/z toho ženy/2"_s, u"i_kval:Interní/s požadov. kvalifik./3"_s,
                 u"e_spolu:Externí/spolu/4"_s, u"e_zeny:Externí/z toho ženy/5"_s,
                 u"e_kval:Externí/s požadov. kvalifik./6"_s}},
    {.make = rptDopUkaz,
     .table = u"dop_ukaz"_s,
     .columns = {u"r_0401:Spolu/1"_s, u"r_0402:Spolu/1"_s, u"r_0403:Spolu/1"_s, u"r_0404:Spolu/1"_s,
                 u"r_0416:Spolu/1"_s},
     .orientation = report::Orientation::Portrait},
    {.make = rptOdbStar, .table = u"odbstar"_s, .columns = columnsOfCare()},
};

/// The span of the cell around a point, between the lines down.
std::pair<int, int> cellAround(const std::vector<Control>& controls, int x, int y) {
    std::pair cell{0, 20000};
    const auto meet = [&](int line) {
        (line <= x ? cell.first : cell.second) =
            line <= x ? std::max(cell.first, line) : std::min(cell.second, line);
    };
    for (const Control& control : controls) {
        const bool drawn = control.kind == ControlKind::Box ||
                           (control.kind == ControlKind::Line && control.width == 0);
        if (drawn && control.top <= y && control.top + control.height > y) {
            meet(control.left);
            meet(control.left + control.width);
        }
    }
    return cell;
}

/// The captions of the page header whose cells are over that point, from the top.
QString headsOver(const report::Layout& layout, int x) {
    std::vector<const Control*> heads;
    for (const Control& control : layout.pageHeader.controls) {
        if (control.kind != ControlKind::Label)
            continue;
        const auto [left, right] =
            cellAround(layout.pageHeader.controls, control.left + control.width / 2,
                       control.top + control.height / 2);
        if (left <= x && x < right)
            heads.push_back(&control);
    }
    std::ranges::stable_sort(heads, {}, &Control::top);
    QStringList captions;
    for (const Control* head : heads)
        captions << QString(head->caption).replace(u'\n', u' ');
    return captions.join(u'/');
}

/// Rows as they are printed, but for wide counts.
class WideRows : public report::RowSource {
  public:
    WideRows(QList<Cells> rows, QString filler)
        : rows_(std::move(rows)), filler_(std::move(filler)) {}
    bool next() override { return ++row_ < rows_.size(); }
    QString text(const QString& column) const override {
        const QString text = rows_[row_].value(column.toLower());
        const bool isCount = text.trimmed().isEmpty() && !column.startsWith(u"stlpec");
        return isCount ? filler_ : text;
    }

  private:
    QList<Cells> rows_;
    QString filler_;
    qsizetype row_ = -1;
};

TEST(FormsTest, EachColumnStandsUnderItsHeadsAndOverItsTotal) {
    for (const Form& form : printedForms) {
        report::Layout layout = form.make();
        EXPECT_EQ(layout.orientation, form.orientation) << form.table.toStdString();
        std::vector<const Control*> fields;
        for (const Control& control : layout.detail.controls) {
            if (control.kind == ControlKind::Field)
                fields.push_back(&control);
        }
        std::ranges::stable_sort(fields, {}, &Control::left);
        QStringList columns;
        for (const Control* field : fields) {
            const store::TableDef* table = store::findTable(form.table);
            EXPECT_NE(table->column(field->dataField), nullptr) << field->dataField.toStdString();
            columns << field->dataField + u':' + headsOver(layout, field->left + field->width / 2);
        }
        EXPECT_EQ(columns.join(u'\n'), form.columns.join(u'\n'));
        for (std::size_t i = 0; form.totals && i < printedColumns.size(); ++i) {
            const Control& total = layout.reportFooter.control(form.totals->totals[i]);
            EXPECT_EQ(total.left, fields[fields.size() - printedColumns.size() + i]->left);
        }
    }
}

void printForm(const Form& form, const ReturnTools& tools) {
    if (form.table == u"z_vek")
        printVek(tools, u"2006/2007"_s, today, nullptr);
    else if (form.table == u"z_vzdelavanie")
        printVzd(tools, u"2006/2007"_s, today, nullptr);
    else if (form.table == u"z_zam")
        printZam(tools, today, nullptr);
    else if (form.table == u"dop_ukaz")
        printDopUkaz(tools.print, today, nullptr);
    else
        printOdbStar(tools.print, today, nullptr);
}

TEST(FormsTest, NothingOverlapsOrIsCutOnTheirOnePageHoweverWideTheCounts) {
    for (const Form& form : printedForms) {
        ReturnRegister at({u"ukazka"_s, u"--klienti"_s, u"20"_s});
        at.reg.execute(
            {u"update c_zariad set v_nazov = 'Oslobodenie od povinnosti dochádzať do školy'"
             " where kod = '09'"_s});
        at.scratchTable = form.table;
        printForm(form, at.tools);
        EXPECT_EQ(report::layoutFaults(at.pages).join(u'\n'), QString())
            << form.table.toStdString();
        EXPECT_EQ(at.pages.pages.size(), 1U);
        const auto names =
            std::ranges::count(at.pages.pages[0].texts, u"kod_txt"_s, &report::PlacedText::control);
        EXPECT_EQ(names, form.table == u"z_vzdelavanie" ? at.rows.size() + 1 : 0)
            << "one name goes on in a second line";
        report::Layout layout = form.make();
        for (std::size_t i = 0; form.totals && i < printedColumns.size(); ++i)
            layout.reportFooter.control(form.totals->totals[i]).caption = u"88888"_s;
        WideRows rows(at.rows, u"88888"_s);
        const report::Pages pages = report::makePages(layout, rows, report::FontMeter(), today);
        EXPECT_EQ(report::layoutFaults(pages).join(u'\n'), QString()) << form.table.toStdString();
        EXPECT_EQ(pages.pages.size(), 1U);
        // The frame is the same whatever stands in it.
        EXPECT_EQ(pages.pages[0].lines.size(), at.pages.pages[0].lines.size());
    }
}

/// Where texts and fields begin in a section, as "left,top text" or "left text", fields in braces.
struct Places {
    report::Layout (*make)();
    QString section;
    QString texts;
};

const Places places[] = {
    {rptVek, u"Section4"_s,
     u"50,57 Ministerstvo školstva SR|50,284 Registrované ŠÚ SR|50,454 č. Vk. 622/06 z 11. 11. "
     u"2005|"
     "50,624 V rámci Programu štátnych štatistických|"
     "50,794 zisťovaní schváleného na roky 2006-2008|50,964 Ochranu dôverných údajov upravuje|"
     "50,1134 zákon č. 540/2001 Z.z. o štátnej štatistike|50,1304 Za ochranu dôverných údajov|"
     "50,1474 zodpovedá MŠ SR.|50,1644 Riaditeľstvo zariadenia odošle|50,1814 výkaz do 20.9.2006|"
     "50,1984   2x príslušnému KŠÚ|6293,57 Výkaz|5046,397 o špeciálnopedagogickej poradni a|"
     "5386,680 detskom integračnom centre|5613,1247 za školský rok 2006/2007|"
     "11906,57 Škol (MŠ SR) 5 - 01|11622,567 Rok|12120,510 Mes|12150,680 iac|"
     "12756,500 Identifikačné|12699,680 číslo organizácie|14003,567 Územie|11452,1020 2|"
     "11622,1020 0|11792,1020 0|11962,1020 7|12132,1020 0|12302,1020 9|11452,1304 Druh|"
     "11452,1531 zariad.|11962,1304 Prevá-|11962,1531 dzkar|4400,1757 Názov|4400,2154 Miesto|"
     "8561,2154 PSČ|4400,2551 Ulica|8561,2551 č.p.|"
     "53,3118 I. Počet klientov evidovaných v poradenskom zariadení podľa veku"_s},
    {rptVek, u"Section1"_s,
     u"57 {stlpec}|454 {vek}|1247 {c_riad}|1757 {spolu}|2381 {spolu_zeny}|2948 {p_autiz}|"
     "3571 {p_autiz_z}|4138 {p_menta}|4705 {p_menta_z}|5272 {p_sluch}|5839 {p_sluch_z}|"
     "6406 {p_zrak}|6973 {p_zrak_z}|7540 {p_rec}|8107 {p_rec_z}|8674 {p_teles}|9241 {p_teles_z}|"
     "9807 {p_viacn}|10374 {p_viacn_z}|10941 {p_vpsp}|11508 {p_vpsp_z}|12075 {p_vpuc}|"
     "12699 {p_vpuc_z}|13323 {p_ine}|13946 {p_ine_z}"_s},
    {rptVek, u"Section5"_s, u"57 Spolu (0101 až  0119)|1247 0126"_s},
    {rptVzd, u"Section1"_s,
     u"57 {stlpec_1}|454 {stlpec_2}|1020 {kod_txt}|3572 {c_riad}|4025 {spolu}|4592 {spolu_zeny}|"
     "5216 {p_autiz}|13833 {p_ine_z}"_s},
    {rptVzd, u"Section5"_s,
     u"170 Spolu (0201 až 0216 )|3572 0226|50 Odoslané dňa|3458 Pečiatka|6463 Podpis vedúceho|"
     "6463 spravodajskej jednotky|9411 Výkaz zostavil|12472 E-mail"_s},
    {rptZam, u"Section4"_s, u"57,510 III. Evidenčný počet zamestnancov (fyzické osoby)"_s},
    {rptZam, u"Section2"_s, u"5272 Interní|8391 Externí"_s},
    {rptZam, u"Section1"_s,
     u"113 {fcia}|3515 {cria}|4139 {i_spolu}|5159 {i_zeny}|6179 {i_kval}|7257 {e_spolu}|"
     "8277 {e_zeny}|9298 {e_kval}"_s},
    {rptDopUkaz, u"Section4"_s, u"1304 IV. Dopĺňajúce ukazovatele"_s},
    {rptDopUkaz, u"Section2"_s, u"4082 I.r.|4819 Spolu"_s},
    {rptDopUkaz, u"Section1"_s,
     u"454,227 Počet miestností|340,680 Diagnostické pobyty|2381,57 spolu|2381,340 nevyhovujúce|"
     "2381,624 počet detí|2381,907 počet hodín|227,1191 Kontrolný súčet (0401 až 0404)|"
     "4082,57 0401|4082,340 0402|4082,624 0403|4082,907 0404|4082,1191 0416|4649,57 {r_0401}|"
     "4649,340 {r_0402}|4649,624 {r_0403}|4649,907 {r_0404}|4649,1191 {r_0416}"_s},
    {rptOdbStar, u"Section2"_s,
     u"4989 spolu|5896 Počet aktivít ambulantných|9241 spolu|"
     "9751 Počet aktivít terénnych (mobilných)"_s},
    {rptOdbStar, u"Section1"_s,
     u"49 {v_tom}|737 {naz_ria}|4365 {c_ria}|4932 {s_1}|5839 {s_2}|6690 {s_3}|7483 {s_4}|8334 "
     u"{s_5}|"
     "9184 {s_6}|10035 {s_7}|10885 {s_8}|11735 {s_9}|12586 {s_10}"_s},
};

TEST(FormsTest, TextsAndFieldsBeginWhereTheFormHasThem) {
    for (const Places& place : places) {
        const report::Layout layout = place.make();
        for (const QString& expected : place.texts.split(u'|')) {
            const QString text = expected.section(u' ', 1);
            const QStringList at = expected.section(u' ', 0, 0).split(u',');
            const auto& controls = layout.section(place.section).controls;
            EXPECT_TRUE(std::ranges::any_of(
                controls,
                [&](const Control& control) {
                    const bool isField = control.kind == ControlKind::Field;
                    return (isField ? u'{' + control.dataField + u'}' : control.caption) == text &&
                           control.left == at[0].toInt() &&
                           (at.size() == 1 || control.top == at[1].toInt());
                }))
                << layout.name.toStdString() << ": " << expected.toStdString();
        }
    }
}

/// Words of a PDF by page, each with its left upper corner in twips.
struct PdfWord {
    int page;
    QString word;
    QPointF at;
};

QList<PdfWord> wordsOf(const report::Pages& pages) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"pages.pdf"_s));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && report::writePdf(pages, file));
    file.close();
    QProcess tool;
    tool.start(u"pdftotext"_s, {u"-bbox"_s, file.fileName(), u"-"_s});
    EXPECT_TRUE(tool.waitForFinished()) << "pdftotext is missing";
    QXmlStreamReader xml(tool.readAllStandardOutput());
    QList<PdfWord> words;
    for (int page = -1; !xml.atEnd(); xml.readNext()) {
        page += xml.isStartElement() && xml.name() == u"page" ? 1 : 0;
        if (!xml.isStartElement() || xml.name() != u"word")
            continue;
        constexpr double twipsPerPoint = 20;
        const QPointF at(xml.attributes().value(u"xMin"_s).toDouble(),
                         xml.attributes().value(u"yMin"_s).toDouble());
        words << PdfWord{page, xml.readElementText(), at * twipsPerPoint};
    }
    return words;
}

TEST(FormsTest, EachTextOfTheWholeReturnStandsInThePdfWhereItsPageHasIt) {
    ReturnRegister at({u"ukazka"_s, u"--klienti"_s, u"60"_s});
    printReturn(at.tools, u"2006/2007"_s, today, nullptr);
    const QList<PdfWord> words = wordsOf(at.pages);
    const report::FontMeter meter;
    constexpr double millimetre = 1440 / 25.4;
    qsizetype compared = 0;
    for (std::size_t page = 0; page < at.pages.pages.size(); ++page) {
        for (const report::PlacedText& text : at.pages.pages[page].texts) {
            const QString trimmed = text.text.trimmed();
            if (trimmed.isEmpty())
                continue;
            const QString blanks = text.text.left(text.text.indexOf(trimmed));
            const QPointF expected(text.left + meter.width(blanks, text.style),
                                   text.extent().top());
            compared += 1;
            EXPECT_TRUE(std::ranges::any_of(words,
                                            [&](const PdfWord& word) {
                                                const QPointF off = word.at - expected;
                                                return word.page == int(page) &&
                                                       trimmed.startsWith(word.word) &&
                                                       std::abs(off.x()) < millimetre &&
                                                       std::abs(off.y()) < millimetre;
                                            }))
                << page << ": " << text.text.toStdString();
        }
    }
    EXPECT_GT(compared, 900);
}

} // namespace
