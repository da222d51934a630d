#include "statreturn/TableOneReturn.h"

#include "forms/MessageBox.h"
#include "statreturn/RptVek.h"
#include "statreturn/TableOne.h"
#include "store/DataSource.h"
#include "store/Database.h"
#include "store/EngineError.h"

#include <utility>

namespace statreturn {

namespace {

/// Length of "za školský rok ", which stands before the year.
constexpr int headingLength = 15;

QString scratchTable() {
    return QStringLiteral("z_vek");
}

void tellRestartIsNeeded(QWidget* parent) {
    forms::showMessage(
        parent, {.text = QStringLiteral("Po archivácii, resp.po obnove archivovaných dát, je "
                                        "nutný opätovný štart programu, ak chcete tlačiť "
                                        "zostavu"),
                 .title = QStringLiteral("Informácia"),
                 .icon = QMessageBox::Information});
}

} // namespace

TableOneReturn::TableOneReturn(ReturnTools tools) : tools_(std::move(tools)), rptVek_(rptVek()) {}

void TableOneReturn::run(const QString& schoolYear, const QDate& today, QWidget* parent) {
    setCaptions(schoolYear, make(schoolYear, today));
    rptVek_.setOrientation(report::Orientation::Landscape);
    // The preview waits for the user, and its connection reads what is durable.
    tools_.engine.commitPending();
    if (!show(today, parent))
        return;
    emptyScratchTable(tools_.datTlac, scratchTable());
    tools_.engine.commitPending();
}

Counts TableOneReturn::make(const QString& schoolYear, const QDate& today) {
    const Period period = schoolYearPeriod(schoolYear);
    store::Database database = tools_.engine.OpenDatabase(tools_.folder.database());
    const Counts totals = makeTableOne(tools_.datTlac, database, period, today);
    database.Close();
    return totals;
}

void TableOneReturn::setCaptions(const QString& schoolYear, const Counts& totals) {
    QString& heading = rptVek_.control(u"section4", u"Label105").caption;
    heading = heading.left(headingLength) + schoolYear;
    for (const TotalLabel& total : vekTotals) {
        rptVek_.control(u"section5", total.control).caption =
            countText(countOf(totals, total.column));
    }
}

/// @return false when the report could not be shown
bool TableOneReturn::show(const QDate& today, QWidget* parent) {
    try {
        showReturn(tools_, rptVek_, scratchTable(), today, parent);
        return true;
    } catch (const store::EngineError& error) {
        if (error.number() == store::ErrorNumber::ReportSourceUnreadable)
            tellRestartIsNeeded(parent);
    } catch (const std::exception&) {
        // The user sees that no report came; there is nothing to add.
    }
    return false;
}

} // namespace statreturn
