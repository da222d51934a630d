// All printed forms alike: what stands over each column, and what a reader would stumble over.
#include "statreturn/Forms.h"

#include "report/Fonts.h"
#include "report/PageCheck.h"
#include "report/Pages.h"
#include "statreturn/ImpairmentTable.h"
#include "statreturn/ReturnRegister.h"
#include "store/Schema.h"

#include <gtest/gtest.h>

#include <algorithm>

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

} // namespace
