#include "datacheck/Mends.h"

#include "card/Key.h"
#include "report/StoredText.h"
#include "store/BulkInsert.h"
#include "store/Schema.h"

#include <algorithm>

namespace datacheck {

namespace {

std::unique_ptr<store::Recordset> textsOf(store::Database& database, const QString& key) {
    return database.OpenRecordset(QStringLiteral("select * from k_memo where idkod = ") +
                                  store::quoted(key));
}

QString joined(const QString& first, const QString& second) {
    if (first.isEmpty() || second.isEmpty() || first == second)
        return first.isEmpty() ? second : first;
    report::RichParagraphs paragraphs = report::readStored(first);
    const report::RichParagraphs behind = report::readStored(second);
    paragraphs.insert(paragraphs.end(), behind.begin(), behind.end());
    return report::storedText(paragraphs);
}

/// Puts the texts of one row behind those of another, and deletes the row.
void moveTexts(store::Recordset& from, store::Recordset& to) {
    to.Edit();
    for (const store::ColumnDef& column : store::findTable(textTable)->columns) {
        if (column.type != store::ColumnType::Memo)
            continue;
        const QStringView name(column.name);
        const QString second = from.Fields(name).Value().toText();
        if (!second.isEmpty())
            to.Fields(name).setValue(joined(to.Fields(name).Value().toText(), second));
    }
    to.Update();
    from.Delete();
}

/// The first key of a base that no client has, and no record of a client who has gone.
QString freeKey(store::Database& database, const QString& base) {
    const auto isFree = [&](const QString& key) {
        const auto has = [&](QStringView table) {
            return !database
                        .OpenRecordset(QStringLiteral("select idkod from %1 where idkod = %2")
                                           .arg(table, store::quoted(key)))
                        ->Eof();
        };
        return !has(clientTable.name) &&
               std::ranges::none_of(recordTables(), has, &RecordTable::name);
    };
    for (int number = 0;; ++number)
        if (QString key = base + card::keySequence(number); isFree(key))
            return key;
}

void setColumn(store::Recordset& row, QStringView column, const QString& value) {
    row.Edit();
    row.Fields(column).setValue(value);
    row.Update();
}

} // namespace

void giveClient(store::Database& database, const Finding& finding, const QString& key) {
    store::BulkInsert::wholly(database, [&] {
        for (const FoundRow& row : finding.rows) {
            const auto own = textsOf(database, key);
            if (row.table->name == textTable && !own->Eof())
                moveTexts(row.current(), *own);
            else
                setColumn(row.current(), u"idkod", key);
        }
    });
}

void giveWorker(store::Database& database, const Finding& finding, const QString& key) {
    store::BulkInsert::wholly(database, [&] {
        for (const FoundRow& row : finding.rows)
            setColumn(row.current(), u"idkod_p", key);
    });
}

void makeKey(store::Database& database, const Finding& finding) {
    store::BulkInsert::wholly(database, [&] {
        store::Recordset& client = finding.rows.front().current();
        const QString key =
            freeKey(database, card::keyBase({client.Fields(u"priezv").Value().toText(),
                                             client.Fields(u"meno").Value().toText()}));
        setColumn(client, u"idkod", key);
        if (textsOf(database, key)->Eof())
            addTexts(database, key);
    });
}

void addTexts(store::Database& database, const QString& key) {
    database.Execute(
        QStringLiteral("insert into k_memo (idkod) values (%1)").arg(store::quoted(key)));
}

void joinTexts(store::Database& database, const QString& key) {
    store::BulkInsert::wholly(database, [&] {
        const auto first = textsOf(database, key);
        const auto rest = first->Clone();
        rest->MoveFirst();
        for (rest->MoveNext(); !rest->Eof(); rest->MoveNext())
            moveTexts(*rest, *first);
    });
}

} // namespace datacheck
