#include "statreturn/ReturnPrints.h"

#include "forms/MessageBox.h"
#include "statreturn/Forms.h"
#include "statreturn/TableOne.h"
#include "statreturn/TableThree.h"
#include "statreturn/TableTwo.h"
#include "store/DataSource.h"
#include "store/Database.h"
#include "store/EngineError.h"

namespace statreturn {

namespace {

/// Length of "za školský rok ", which stands before the year.
constexpr int headingLength = 15;

void setTotals(report::Layout& form, const ImpairmentTable& table, const Counts& totals) {
    report::Section& footer = form.section(u"section5");
    for (std::size_t i = 0; i < table.totals.size(); ++i)
        footer.control(table.totals[i]).caption = countText(totals[printedColumns[i].counter]);
}

/// The report of a scratch table is closed.
void emptyScratchTable(const ReturnTools& tools, QStringView table) {
    tools.datTlac.Database().Execute(QStringLiteral("delete * from ") + table.toString());
    tools.datTlac.Refresh();
    tools.print.engine.commitPending();
}

void showAndEmpty(const ReturnTools& tools, const report::Layout& form, QStringView table,
                  const QDate& today, QWidget* parent) {
    printing::showReport(tools.print, form, table.toString(), today, parent);
    emptyScratchTable(tools, table);
}

void tellRestartIsNeeded(QWidget* parent) {
    forms::showMessage(
        parent, {.text = QStringLiteral("Po archivácii, resp.po obnove archivovaných dát, je "
                                        "nutný opätovný štart programu, ak chcete tlačiť "
                                        "zostavu"),
                 .title = QStringLiteral("Informácia"),
                 .icon = QMessageBox::Information});
}

/// @return false when the report could not be shown
bool showVek(const ReturnTools& tools, const report::Layout& form, const QDate& today,
             QWidget* parent) {
    try {
        printing::showReport(tools.print, form, tableOne.scratchTable.toString(), today, parent);
        return true;
    } catch (const store::EngineError& error) {
        if (error.number() == store::ErrorNumber::ReportSourceUnreadable)
            tellRestartIsNeeded(parent);
    } catch (const std::exception&) {
        // The user sees that no report came; there is nothing to add.
    }
    return false;
}

} // namespace

void printVek(const ReturnTools& tools, const QString& schoolYear, const QDate& today,
              QWidget* parent) {
    const Period period = schoolYearPeriod(schoolYear);
    store::Database database = tools.print.engine.OpenDatabase(tools.print.folder.database());
    const Counts totals = makeTableOne(tools.datTlac, database, period, today);
    database.Close();
    report::Layout form = rptVek();
    QString& heading = form.section(u"section4").control(u"Label105").caption;
    heading = heading.left(headingLength) + schoolYear;
    setTotals(form, tableOne, totals);
    // What was counted stays even where its report can't be shown.
    tools.print.engine.commitPending();
    if (showVek(tools, form, today, parent))
        emptyScratchTable(tools, tableOne.scratchTable);
}

void printVzd(const ReturnTools& tools, const QString& schoolYear, const QDate& today,
              QWidget* parent) {
    store::Database database = tools.print.engine.OpenDatabase(tools.print.folder.database());
    report::Layout form = rptVzd();
    setTotals(form, tableTwo, makeTableTwo(tools.datCisVzd, tools.datTlac, database, schoolYear));
    database.Close();
    showAndEmpty(tools, form, tableTwo.scratchTable, today, parent);
}

void printZam(const ReturnTools& tools, const QDate& today, QWidget* parent) {
    store::Database database = tools.print.engine.OpenDatabase(tools.print.folder.database());
    makeTableThree(tools.datTlac, database);
    database.Close();
    showAndEmpty(tools, rptZam(), u"z_zam", today, parent);
}

void printDopUkaz(const printing::PrintTools& tools, const QDate& today, QWidget* parent) {
    // The one row has its texts in the form, so that the form is whole before anything was typed.
    printing::showReport(tools, rptDopUkaz(), QStringLiteral("dop_ukaz"), today, parent, {{}});
}

void printOdbStar(const printing::PrintTools& tools, const QDate& today, QWidget* parent) {
    printing::showReport(tools, rptOdbStar(), QStringLiteral("odbstar"), today, parent);
}

void emptyScratchTables(store::Database& database) {
    for (const QStringView table : {u"z_zam", u"z_vek", u"z_vzdelavanie"}) {
        const QString name = table.toString();
        if (!database.OpenRecordset(name)->Eof())
            database.Execute(QStringLiteral("delete * from ") + name);
    }
}

} // namespace statreturn
