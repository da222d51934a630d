#include "statreturn/ImpairmentTable.h"

#include "store/DataSource.h"
#include "store/Recordset.h"

#include <utility>

namespace statreturn {

bool hasSecondImpairment(QStringView postih) {
    const QStringView second = withoutBlanks(postih).mid(1, 1);
    return !second.isEmpty() && second.front() >= u'1' && second.front() <= u'9';
}

bool isNotOneImpairment(QStringView postih) {
    return withoutBlanks(postih).size() != 1;
}

Counts countClients(store::DataSource& datTlac, const QString& selection,
                    const ImpairmentTable& table) {
    datTlac.setRecordSource(selection);
    datTlac.Refresh();
    store::Recordset& records = datTlac.Recordset();
    const store::Field idk = records.Fields(table.keyColumn);
    const store::Field pohl = records.Fields(u"pohl");
    const store::Field post = records.Fields(u"post");
    Counts counts{};
    QString previousKey = QStringLiteral(" ");
    for (; !records.Eof(); records.MoveNext()) {
        QString key = idk.Value().toText();
        if (key != previousKey) {
            previousKey = std::move(key);
            const CountedClient client{pohl.Value().toText(), post.Value().toText()};
            countClient(counts, client, table.several(client.post));
        }
    }
    return counts;
}

} // namespace statreturn
