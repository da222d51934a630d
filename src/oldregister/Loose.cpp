#include "oldregister/Loose.h"

#include "store/Database.h"
#include "store/Recordset.h"
#include "store/Schema.h"
#include "store/Sql.h"
#include "store/Value.h"

#include <QMap>
#include <QStringList>

namespace oldregister {

namespace {

constexpr QStringView clients = u"k_zaklad";
constexpr QStringView employees = u"zamestnanci";

QString shownRow(store::Recordset& row, const store::TableDef& table) {
    QStringList fields;
    for (const store::ColumnDef& column : table.columns) {
        const QString name = QString::fromUtf16(column.name);
        if (const QString text = row.Fields(name).Value().toText(); !text.isEmpty())
            fields += name + u'=' + text;
    }
    return fields.join(QStringLiteral("; "));
}

void tellLooseOf(store::Database& database, const store::TableDef& table,
                 std::vector<Finding>& findings) {
    const QString name = QString::fromUtf16(table.name);
    const auto rows = database.OpenRecordset(
        QStringLiteral("select %1.* from %1 left join k_zaklad on %1.idkod = k_zaklad.idkod "
                       "where isnull(k_zaklad.idkod)")
            .arg(name));
    for (; !rows->Eof(); rows->MoveNext()) {
        const store::Value key = rows->Fields(QStringLiteral("idkod")).Value();
        const QString what = key.isNull()
                                 ? QStringLiteral("riadok nemá kľúč klienta")
                                 : QStringLiteral("klient s týmto kľúčom v registri nie je");
        findings.push_back(
            {key.toText(), name,
             what + QStringLiteral("; riadok ostal zapísaný, žiadna karta ho neukáže"),
             shownRow(*rows, table)});
    }
}

void tellKeyless(store::Database& database, std::vector<Finding>& findings) {
    const store::TableDef& table = *store::findTable(clients);
    const auto rows =
        database.OpenRecordset(QStringLiteral("select * from k_zaklad where isnull(idkod)"));
    for (; !rows->Eof(); rows->MoveNext())
        findings.push_back({{},
                            clients.toString(),
                            QStringLiteral("klient nemá kľúč; zapísal sa bez neho"),
                            shownRow(*rows, table)});
}

/// Without such a row the card of a client can't be edited.
void addMissingTexts(store::Database& database, std::vector<Finding>& findings) {
    const auto rows = database.OpenRecordset(QStringLiteral(
        "select k_zaklad.idkod from k_zaklad left join k_memo on k_zaklad.idkod = k_memo.idkod "
        "where isnull(k_memo.idkod) and isnull(k_zaklad.idkod) = false"));
    for (; !rows->Eof(); rows->MoveNext()) {
        const QString key = rows->Fields(QStringLiteral("idkod")).Value().toText();
        database.Execute(
            QStringLiteral("insert into k_memo (idkod) values (%1)").arg(store::quoted(key)));
        findings.push_back({key,
                            QStringLiteral("k_memo"),
                            QStringLiteral("klient nemá riadok textov, doplnil sa prázdny"),
                            {}});
    }
}

QString nameOf(store::Database& database, QStringView table, const QString& key) {
    const auto rows =
        database.OpenRecordset(QStringLiteral("select meno,priezv from %1 where idkod = %2")
                                   .arg(table, store::quoted(key)));
    if (rows->Eof())
        return {};
    return rows->Fields(QStringLiteral("meno")).Value().toText() + u' ' +
           rows->Fields(QStringLiteral("priezv")).Value().toText();
}

} // namespace

void mendLoose(store::Database& database, std::vector<Finding>& findings) {
    tellKeyless(database, findings);
    addMissingTexts(database, findings);
    for (const store::TableDef& table : store::schema()) {
        const QStringView name(table.name);
        if (name.startsWith(u"k_") && name != clients)
            tellLooseOf(database, table, findings);
    }
}

void nameClients(store::Database& database, std::vector<Finding>& findings) {
    QMap<QString, QString> named;
    for (Finding& finding : findings) {
        if (finding.client.isEmpty())
            continue;
        const bool isEmployee = finding.table == employees;
        const QString known = (isEmployee ? u'z' : u'k') + finding.client;
        if (!named.contains(known))
            named[known] = nameOf(database, isEmployee ? employees : clients, finding.client);
        if (const QString name = named[known]; !name.isEmpty())
            finding.client += QStringLiteral(" (") + name + u')';
    }
}

} // namespace oldregister
