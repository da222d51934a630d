// All printed forms alike: what stands over each column, and what a reader would stumble over.
#include "statreturn/Forms.h"

#include "report/Fonts.h"
#include "report/PageCheck.h"
#include "report/Pages.h"
#include "statreturn/ImpairmentTable.h"
#include "statreturn/ReturnRegister.h"
#include "store/Schema.h"
#include "support/Lists.h"

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
    /// Of the table by impairment, else null.
    const ImpairmentTable* totals = nullptr;
    report::Orientation orientation = report::Orientation::Landscape;
};

const Form printedForms[] = {
    {rptVek, u"z_vek"_s, &tableOne},
    {rptVzd, u"z_vzdelavanie"_s, &tableTwo},
    {rptZam, u"z_zam"_s},
    {rptDopUkaz, u"dop_ukaz"_s, nullptr, report::Orientation::Portrait},
    {rptOdbStar, u"odbstar"_s},
};

/// The lines of a list beside this test that belong to a form.
QList<QStringList> linesOf(const char* list, const Form& form) {
    QList<QStringList> lines = support::linesOf(QLatin1String(list) + u".tsv"_s);
    lines.removeIf([&form](const QStringList& line) { return line[0] != form.table; });
    EXPECT_FALSE(lines.isEmpty()) << list;
    return lines;
}

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

/// A line tells a field, in the order of the paper, and the heads over it from the top, as
/// "column:head/head/number".
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
        QStringList expected;
        for (const QStringList& line : linesOf("columns", form))
            expected << line[1];
        EXPECT_EQ(columns.join(u'\n'), expected.join(u'\n'));
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
        EXPECT_EQ(at.pages.pages[0].lines.size(), linesOf("frames", form)[0][1].toUInt());
        // The frame is the same whatever stands in it.
        EXPECT_EQ(pages.pages[0].lines.size(), at.pages.pages[0].lines.size());
    }
}

/// A line tells a section, and where a text or a field in braces begins in it: its left and its
/// top, unless the section has one line alone.
TEST(FormsTest, TextsAndFieldsBeginWhereTheFormHasThem) {
    for (const Form& form : printedForms) {
        const report::Layout layout = form.make();
        for (const QStringList& place : linesOf("places", form)) {
            const auto isThere = [&](const Control& control) {
                const bool isField = control.kind == ControlKind::Field;
                return (isField ? u'{' + control.dataField + u'}' : control.caption) == place[4] &&
                       control.left == place[2].toInt() &&
                       (place[3].isEmpty() || control.top == place[3].toInt());
            };
            EXPECT_TRUE(std::ranges::any_of(layout.section(place[1]).controls, isThere))
                << place.join(u' ').toStdString();
        }
    }
}

} // namespace
