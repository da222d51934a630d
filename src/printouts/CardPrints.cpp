#include "printouts/CardPrints.h"

#include "printouts/Forms.h"
#include "printouts/Statements.h"
#include "printouts/TabReports.h"
#include "report/Document.h"
#include "report/Fonts.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Sql.h"

#include <QStringList>

namespace printouts {

namespace {

struct Name {
    QString first;
    QString last;

    /// As the head of a print-out has it.
    QString inHead() const { return first + QStringLiteral("  ") + last; }
    /// As documents are filed.
    QString inFiles() const { return (last + u' ' + first).trimmed(); }
};

Name nameOf(store::Database& database, const QString& key) {
    const auto rows = database.OpenRecordset(
        QStringLiteral("select meno, priezv from k_zaklad where idkod = ") + store::quoted(key));
    if (rows->Eof())
        throw store::EngineError(
            store::ErrorNumber::NoCurrentRecord,
            QStringLiteral("Klient s kľúčom „%1“ už v databáze nie je.").arg(key));
    const auto trimmed = [&rows](const char16_t* column) {
        return rows->Fields(column).Value().toText().trimmed();
    };
    return {trimmed(u"meno"), trimmed(u"priezv")};
}

QString statementOf(const TabReport& tab, const PrintedCard& card) {
    if (*tab.column != u'\0')
        return memo(tab.column, card.key);
    return tab.statement != nullptr ? tab.statement(card.key) : card.visits;
}

/// Records of the tab that its statement leaves out.
qint64 leftOut(store::Database& database, const TabReport& tab, const QString& source,
               const QString& key) {
    if (*tab.records == u'\0')
        return 0;
    const QString all = QStringLiteral("select idkod from %1 where idkod = %2")
                            .arg(tab.records, store::quoted(key));
    return database.OpenRecordset(all)->RecordCount() -
           database.OpenRecordset(source)->RecordCount();
}

QString noteOn(qint64 leftOut, bool isChanged) {
    QStringList notes;
    if (isChanged)
        notes << QStringLiteral("Zostava ukazuje, čo je zapísané v databáze. Čo je na karte "
                                "zadané a nezapísané, na nej nie je.");
    if (leftOut > 0)
        notes << QStringLiteral("Záznamy, ktorých kód nie je v číselníku alebo medzi "
                                "zamestnancami a ktoré na zostave preto nie sú: %1.")
                     .arg(leftOut);
    return notes.join(u' ');
}

} // namespace

void printTab(const printing::PrintTools& tools, int tab, const PrintedCard& card,
              const QDate& today, QWidget* parent) {
    const TabReport& row = tabReports()[std::size_t(tab)];
    store::Database database = tools.engine.OpenDatabase(tools.folder.database());
    QString source = statementOf(row, card);
    if (*row.query != u'\0') {
        database.QueryDefs(QString::fromUtf16(row.query)).setSQL(source);
        source = QString::fromUtf16(row.query);
    }
    const Name name = nameOf(database, card.key);
    report::Layout form = formOf(row);
    form.title = QString::fromUtf16(row.title);
    form.section(u"Section4").control(u"lblMeno").caption = name.inHead();
    report::Pages pages = printing::makeReport(tools, form, source, today);
    pages.subject = name.inFiles();
    pages.note = noteOn(leftOut(database, row, source, card.key), card.isChanged);
    database.Close();
    report::addRunningLines(pages, report::FontMeter());
    printing::showPages(tools, pages, parent);
}

void printClientList(const printing::PrintTools& tools, const QDate& today, QWidget* parent) {
    const QString query = QStringLiteral("vyp_zoz_klient");
    store::Database database = tools.engine.OpenDatabase(tools.folder.database());
    try {
        database.CreateQueryDef(query, allClients());
    } catch (const store::EngineError&) {
        // The query that is there already says the same.
    }
    database.Close();
    report::Layout form = rptZozKlient();
    form.title = QStringLiteral("Zoznam klientov");
    report::Pages pages = printing::makeReport(tools, form, query, today);
    report::addRunningLines(pages, report::FontMeter());
    printing::showPages(tools, pages, parent);
}

} // namespace printouts
