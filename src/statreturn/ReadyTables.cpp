#include "statreturn/ReadyTables.h"

#include "statreturn/ExpertCare.h"
#include "statreturn/Forms.h"
#include "statreturn/ReturnPrints.h"
#include "statreturn/TableOne.h"
#include "statreturn/TableThree.h"
#include "statreturn/TableTwo.h"
#include "store/DataSource.h"
#include "store/Database.h"

namespace statreturn {

namespace {

/// Length of "za školský rok ", which stands before the year.
constexpr int headingLength = 15;

void setTotals(report::Layout& form, const ImpairmentTable& table, const Counts& totals) {
    report::Section& footer = form.section(u"section5");
    for (std::size_t i = 0; i < table.totals.size(); ++i)
        footer.control(table.totals[i]).caption = countText(totals[printedColumns[i].counter]);
}

} // namespace

ReadyTable makeVek(const ReturnTools& tools, const QString& schoolYear, const QDate& today,
                   const store::TellProgress& tell) {
    const Period period = schoolYearPeriod(schoolYear);
    store::Database database = tools.print.engine.OpenDatabase(tools.print.folder.database());
    const Counts totals = makeTableOne(tools.datTlac, database, period, today, tell);
    database.Close();
    report::Layout form = rptVek();
    QString& heading = form.section(u"section4").control(u"Label105").caption;
    heading = heading.left(headingLength) + schoolYear;
    setTotals(form, tableOne, totals);
    return {form, tableOne.scratchTable.toString()};
}

ReadyTable makeVzd(const ReturnTools& tools, const QString& schoolYear,
                   const store::TellProgress& tell) {
    store::Database database = tools.print.engine.OpenDatabase(tools.print.folder.database());
    report::Layout form = rptVzd();
    setTotals(form, tableTwo,
              makeTableTwo(tools.datCisVzd, tools.datTlac, database, schoolYear, tell));
    database.Close();
    return {form, tableTwo.scratchTable.toString()};
}

ReadyTable makeZam(const ReturnTools& tools) {
    store::Database database = tools.print.engine.OpenDatabase(tools.print.folder.database());
    makeTableThree(tools.datTlac, database);
    database.Close();
    return {rptZam(), QStringLiteral("z_zam")};
}

ReadyTable dopUkaz() {
    // The one row has its texts in the form.
    return {rptDopUkaz(), QStringLiteral("dop_ukaz"), {{}}};
}

ReadyTable odbStar() {
    // The rows bring their texts, but there are none before the first saving.
    printing::BlankRows rows;
    for (const CareRow& row : careTable())
        rows.push_back({{QStringLiteral("c_ria"), QString::fromUtf16(row.code)},
                        {QStringLiteral("v_tom"), QString::fromUtf16(row.ofThat)},
                        {QStringLiteral("naz_ria"), QString::fromUtf16(row.text)}});
    return {rptOdbStar(), QStringLiteral("odbstar"), rows};
}

} // namespace statreturn
