#include "statreturn/ReturnPrints.h"

#include "forms/MessageBox.h"
#include "report/Document.h"
#include "report/Fonts.h"
#include "statreturn/ReadyTables.h"
#include "store/DataSource.h"
#include "store/Database.h"
#include "store/EngineError.h"

#include <functional>
#include <vector>

namespace statreturn {

namespace {

report::Pages pagesOf(const printing::PrintTools& tools, const ReadyTable& table,
                      const QDate& today) {
    return printing::makeReport(tools, table.form, table.source, today, table.blank);
}

void show(const printing::PrintTools& tools, const ReadyTable& table, const QDate& today,
          QWidget* parent) {
    printing::showPages(tools, pagesOf(tools, table, today), parent);
}

/// The report of a scratch table is closed.
void emptyScratchTable(const ReturnTools& tools, const QString& table) {
    tools.datTlac.Database().Execute(QStringLiteral("delete * from ") + table);
    tools.datTlac.Refresh();
    tools.print.engine.commitPending();
}

void showAndEmpty(const ReturnTools& tools, const ReadyTable& table, const QDate& today,
                  QWidget* parent) {
    show(tools.print, table, today, parent);
    emptyScratchTable(tools, table.source);
}

void tellRestartIsNeeded(QWidget* parent) {
    forms::showMessage(
        parent, {.text = QStringLiteral("Po archivácii, resp.po obnove archivovaných dát, je "
                                        "nutný opätovný štart programu, ak chcete tlačiť "
                                        "zostavu"),
                 .title = QStringLiteral("Informácia"),
                 .icon = QMessageBox::Information});
}

bool isUnreadable(const store::EngineError& error) {
    return error.number() == store::ErrorNumber::ReportSourceUnreadable;
}

/// @return false when the report could not be shown
bool showVek(const ReturnTools& tools, const ReadyTable& table, const QDate& today,
             QWidget* parent) {
    try {
        show(tools.print, table, today, parent);
        return true;
    } catch (const store::EngineError& error) {
        if (isUnreadable(error))
            tellRestartIsNeeded(parent);
    } catch (const std::exception&) {
        // The user sees that no report came; there is nothing to add.
    }
    return false;
}

/// A table as part of the whole return.
struct ReturnPart {
    /// In the document's contents.
    QString title;
    std::function<ReadyTable(const store::TellProgress&)> make;
    /// Of the time that the return takes, up to the end of this table.
    double until;
};

std::vector<ReturnPart> partsOf(const ReturnTools& tools, const QString& schoolYear,
                                const QDate& today) {
    return {
        {QStringLiteral("I. Klienti podľa veku"),
         [&](const auto& tell) { return makeVek(tools, schoolYear, today, tell); }, 0.6},
        {QStringLiteral("II. Klienti podľa spôsobu vzdelávania"),
         [&](const auto& tell) { return makeVzd(tools, schoolYear, tell); }, 0.9},
        {QStringLiteral("III. Zamestnanci"), [&](const auto&) { return makeZam(tools); }, 0.98},
        {QStringLiteral("IV. Dopĺňajúce ukazovatele"), [](const auto&) { return dopUkaz(); }, 0.99},
        {QStringLiteral("V. Odborná starostlivosť"), [](const auto&) { return odbStar(); }, 1}};
}

/// @throws store::EngineError what the table's own operation raises, named after the table
report::Pages pagesOf(const ReturnTools& tools, const ReturnPart& part, const QDate& today,
                      const store::TellProgress& tell) {
    try {
        report::Pages pages = pagesOf(tools.print, part.make(tell), today);
        pages.title = part.title;
        return pages;
    } catch (const store::EngineError& error) {
        if (isUnreadable(error))
            throw;
        throw store::EngineError(error.number(),
                                 QStringLiteral("Celý výkaz sa nedá zostaviť, chyba je v tabuľke "
                                                "%1. %2")
                                     .arg(part.title, error.description()),
                                 error.place());
    }
}

void emptyAllScratchTables(const ReturnTools& tools) {
    store::Database database = tools.print.engine.OpenDatabase(tools.print.folder.database());
    emptyScratchTables(database);
    tools.print.engine.commitPending();
}

/// After a failure, which is what the user hears of.
void giveUpScratchTables(const ReturnTools& tools) noexcept {
    try {
        tools.print.engine.rollBackPending();
        emptyAllScratchTables(tools);
    } catch (const std::exception&) {
        // The next whole return and the next start of the program empty them.
    }
}

report::Pages makeReturn(const ReturnTools& tools, const QString& schoolYear, const QDate& today,
                         const store::TellProgress& tell) {
    std::vector<report::Pages> tables;
    // Rows that a failed print-out has left would be counted in.
    emptyAllScratchTables(tools);
    try {
        double from = 0;
        for (const ReturnPart& part : partsOf(tools, schoolYear, today)) {
            const store::Share share(tell, from, part.until);
            tables.push_back(
                pagesOf(tools, part, today, [&share](double done) { return share.tells(done); }));
            share(1);
            from = part.until;
        }
        emptyAllScratchTables(tools);
    } catch (...) {
        giveUpScratchTables(tools);
        throw;
    }
    report::Pages document = report::joined(
        QStringLiteral("Výkaz Škol (MŠ SR) 5 - 01 za školský rok ") + schoolYear, tables);
    report::addRunningLines(document, std::make_shared<report::FontMeter>());
    return document;
}

/// As printing::madeAtLength; when it is given up, nothing is selected any more.
template <class Make>
auto madeAtLength(const ReturnTools& tools, const QString& doing, QWidget* parent,
                  const Make& make) {
    auto made = printing::madeAtLength(tools.print, doing, parent, make);
    if (!made)
        tools.datTlac.Refresh();
    return made;
}

} // namespace

void printVek(const ReturnTools& tools, const QString& schoolYear, const QDate& today,
              QWidget* parent) {
    const auto table =
        madeAtLength(tools, QStringLiteral("Zostavuje sa tabuľka I. Klienti podľa veku …"), parent,
                     [&](const auto& tell) { return makeVek(tools, schoolYear, today, tell); });
    if (!table)
        return;
    // What was counted stays even where its report can't be shown.
    tools.print.engine.commitPending();
    if (showVek(tools, *table, today, parent))
        emptyScratchTable(tools, table->source);
}

void printVzd(const ReturnTools& tools, const QString& schoolYear, const QDate& today,
              QWidget* parent) {
    const auto table = madeAtLength(
        tools, QStringLiteral("Zostavuje sa tabuľka II. Klienti podľa spôsobu vzdelávania …"),
        parent, [&](const auto& tell) { return makeVzd(tools, schoolYear, tell); });
    if (table)
        showAndEmpty(tools, *table, today, parent);
}

void printZam(const ReturnTools& tools, const QDate& today, QWidget* parent) {
    showAndEmpty(tools, makeZam(tools), today, parent);
}

void printDopUkaz(const printing::PrintTools& tools, const QDate& today, QWidget* parent) {
    show(tools, dopUkaz(), today, parent);
}

void printOdbStar(const printing::PrintTools& tools, const QDate& today, QWidget* parent) {
    show(tools, odbStar(), today, parent);
}

void printReturn(const ReturnTools& tools, const QString& schoolYear, const QDate& today,
                 QWidget* parent) {
    try {
        const auto document = madeAtLength(
            tools, QStringLiteral("Zostavuje sa celý výkaz …"), parent,
            [&](const auto& tell) { return makeReturn(tools, schoolYear, today, tell); });
        if (!document)
            return;
        tools.datTlac.Refresh();
        printing::showPages(tools.print, *document, parent);
    } catch (const store::EngineError& error) {
        if (!isUnreadable(error))
            throw;
        tellRestartIsNeeded(parent);
    }
}

void emptyScratchTables(store::Database& database) {
    for (const QStringView table : {u"z_zam", u"z_vek", u"z_vzdelavanie"}) {
        const QString name = table.toString();
        if (!database.OpenRecordset(name)->Eof())
            database.Execute(QStringLiteral("delete * from ") + name);
    }
}

} // namespace statreturn
