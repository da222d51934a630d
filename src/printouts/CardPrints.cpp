#include "printouts/CardPrints.h"

#include "printouts/Forms.h"
#include "printouts/Statements.h"
#include "printouts/TabReports.h"
#include "report/Document.h"
#include "report/Fonts.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Sql.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <optional>
#include <vector>

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

/// What of a tab's records is not on its paper, or is there more than once.
struct Mismatch {
    qint64 leftOut = 0;
    qint64 repeated = 0;
};

/// Both may be, so the two numbers of records alone don't tell.
Mismatch mismatchOf(store::Database& database, const TabReport& tab, const QString& source,
                    const QString& key) {
    if (tab.names == nullptr)
        return {};
    const auto [records, code, list, listCode] = *tab.names;
    const auto count = [&database](const QString& rows) {
        return database.OpenRecordset(rows)->RecordCount();
    };
    const qint64 all = count(
        QStringLiteral("select idkod from %1 where idkod = %2").arg(records, store::quoted(key)));
    const qint64 leftOut = count(recordsWithoutName(records, code, list, listCode, key));
    return {leftOut, count(source) - (all - leftOut)};
}

QString noteOn(const Mismatch& mismatch, bool isChanged) {
    QStringList notes;
    if (isChanged)
        notes << QStringLiteral("Zostava ukazuje, čo je zapísané v databáze. Čo je na karte "
                                "zadané a nezapísané, na nej nie je.");
    if (mismatch.leftOut > 0)
        notes << QStringLiteral("Záznamy, ktorých kód nie je v číselníku alebo medzi "
                                "zamestnancami a ktoré na zostave preto nie sú: %1.")
                     .arg(mismatch.leftOut);
    if (mismatch.repeated > 0)
        notes << QStringLiteral("Riadky navyše, lebo kód záznamu má v číselníku viac názvov: %1.")
                     .arg(mismatch.repeated);
    return notes.join(u' ');
}

/// Makes the print-outs of one card.
class CardPrinter {
  public:
    CardPrinter(const printing::PrintTools& tools, const PrintedCard& card, const QDate& today)
        : tools_(tools), card_(card), today_(today),
          database_(tools.engine.OpenDatabase(tools.folder.database())) {}

    /// Puts the client's statement into the stored query of the tab, if it has one.
    /// @return what the report of the tab reads
    QString rewrite(const TabReport& tab) {
        const QString statement = statementOf(tab, card_);
        if (*tab.query == u'\0')
            return statement;
        const QString query = QString::fromUtf16(tab.query);
        database_.QueryDefs(query).setSQL(statement);
        return query;
    }

    report::Pages pagesOf(const TabReport& tab, const QString& source) {
        if (!name_)
            name_ = nameOf(database_, card_.key);
        report::Layout form = formOf(tab);
        form.title = QString::fromUtf16(tab.title);
        form.section(u"Section4").control(u"lblMeno").caption = name_->inHead();
        report::Pages pages = printing::makeReport(tools_, form, source, today_);
        const Mismatch mismatch = mismatchOf(database_, tab, source, card_.key);
        mismatch_.leftOut += mismatch.leftOut;
        mismatch_.repeated += mismatch.repeated;
        return pages;
    }

    void show(report::Pages& pages, QWidget* parent) {
        pages.subject = name_->inFiles();
        pages.note = noteOn(mismatch_, card_.isChanged);
        report::addRunningLines(pages, std::make_shared<report::FontMeter>());
        database_.Close();
        printing::showPages(tools_, pages, parent);
    }

  private:
    const printing::PrintTools& tools_;
    const PrintedCard& card_;
    const QDate& today_;
    store::Database database_;
    std::optional<Name> name_;
    Mismatch mismatch_;
};

/// Whether a text tells anything of the client that the form does not.
bool isOfClient(const report::PlacedText& text) {
    static const QRegularExpression ofForm(QStringLiteral("^$|^lbl|^vlnevl"));
    return !ofForm.match(text.control).hasMatch() && !text.text.trimmed().isEmpty();
}

bool holdsAnything(const report::PageList& pages) {
    return std::ranges::any_of(pages, [](const report::Page& page) {
        return std::ranges::any_of(page.texts, isOfClient);
    });
}

} // namespace

void printTab(const printing::PrintTools& tools, int tab, const PrintedCard& card,
              const QDate& today, QWidget* parent) {
    CardPrinter printer(tools, card, today);
    const TabReport& row = tabReports()[std::size_t(tab)];
    report::Pages pages = printer.pagesOf(row, printer.rewrite(row));
    printer.show(pages, parent);
}

void printCard(const printing::PrintTools& tools, const PrintedCard& card, const QDate& today,
               QWidget* parent) {
    CardPrinter printer(tools, card, today);
    std::vector<report::Pages> tabs;
    for (const TabReport& tab : tabReports()) {
        report::Pages pages = printer.pagesOf(tab, statementOf(tab, card));
        // The first tab tells whose card it is, be it as empty as it may.
        if (tabs.empty() || holdsAnything(pages.pages))
            tabs.push_back(std::move(pages));
    }
    report::Pages document = report::joined(QStringLiteral("Celá karta"), tabs);
    printer.show(document, parent);
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
    auto pages = printing::madeAtLength(
        tools, QStringLiteral("Zostavuje sa zoznam klientov …"), parent, [&](const auto& tell) {
            return printing::makeReport(tools, form, query, today, {}, tell);
        });
    if (!pages)
        return;
    report::addRunningLines(*pages, std::make_shared<report::FontMeter>());
    printing::showPages(tools, *pages, parent);
}

} // namespace printouts
