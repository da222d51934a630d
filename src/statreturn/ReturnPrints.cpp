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
    std::function<ReadyTable()> make;
};

std::vector<ReturnPart> partsOf(const ReturnTools& tools, const QString& schoolYear,
                                const QDate& today) {
    return {{QStringLiteral("I. Klienti podľa veku"),
             [&] {
                 return makeVek(tools, schoolYear, today);
             }},
            {QStringLiteral("II. Klienti podľa spôsobu vzdelávania"),
             [&] {
                 return makeVzd(tools, schoolYear);
             }},
            {QStringLiteral("III. Zamestnanci"),
             [&] {
                 return makeZam(tools);
             }},
            {QStringLiteral("IV. Dopĺňajúce ukazovatele"), dopUkaz},
            {QStringLiteral("V. Odborná starostlivosť"), odbStar}};
}

/// @throws store::EngineError what the table's own operation raises, named after the table
report::Pages pagesOf(const ReturnTools& tools, const ReturnPart& part, const QDate& today) {
    try {
        report::Pages pages = pagesOf(tools.print, part.make(), today);
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

report::Pages makeReturn(const ReturnTools& tools, const QString& schoolYear, const QDate& today) {
    std::vector<report::Pages> tables;
    // Rows that a failed print-out has left would be counted in.
    emptyAllScratchTables(tools);
    try {
        for (const ReturnPart& part : partsOf(tools, schoolYear, today))
            tables.push_back(pagesOf(tools, part, today));
        emptyAllScratchTables(tools);
    } catch (...) {
        giveUpScratchTables(tools);
        throw;
    }
    report::Pages document =
        report::joined(QStringLiteral("Výkaz Škol (MŠ SR) 5 - 01 za školský rok ") + schoolYear,
                       std::move(tables));
    report::addRunningLines(document, report::FontMeter());
    return document;
}

} // namespace

void printVek(const ReturnTools& tools, const QString& schoolYear, const QDate& today,
              QWidget* parent) {
    const ReadyTable table = makeVek(tools, schoolYear, today);
    // What was counted stays even where its report can't be shown.
    tools.print.engine.commitPending();
    if (showVek(tools, table, today, parent))
        emptyScratchTable(tools, table.source);
}

void printVzd(const ReturnTools& tools, const QString& schoolYear, const QDate& today,
              QWidget* parent) {
    showAndEmpty(tools, makeVzd(tools, schoolYear), today, parent);
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
        const report::Pages document = makeReturn(tools, schoolYear, today);
        tools.datTlac.Refresh();
        printing::showPages(tools.print, document, parent);
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
