#include "statreturn/ImpairmentTable.h"

#include "store/DataSource.h"
#include "store/Recordset.h"

#include <utility>

namespace statreturn {

RowProgress::RowProgress(store::Recordset& rows, const store::Share& share)
    : rows_(rows), share_(share), count_(double(rows.RecordCount())) {}

void RowProgress::next() {
    constexpr qint64 rowsBetween = 256;
    rows_.MoveNext();
    if (++row_ % rowsBetween == 0)
        share_(double(row_) / count_);
}

bool hasSecondImpairment(QStringView postih) {
    const QStringView second = withoutBlanks(postih).mid(1, 1);
    return !second.isEmpty() && second.front() >= u'1' && second.front() <= u'9';
}

bool isNotOneImpairment(QStringView postih) {
    return withoutBlanks(postih).size() != 1;
}

Counts countClients(store::DataSource& datTlac, const QString& selection,
                    const ImpairmentTable& table, const store::Share& share) {
    share(0);
    datTlac.setRecordSource(selection);
    datTlac.Refresh();
    store::Recordset& records = datTlac.Recordset();
    const store::Field idk = records.Fields(table.keyColumn);
    const store::Field pohl = records.Fields(u"pohl");
    const store::Field post = records.Fields(u"post");
    Counts counts{};
    QString previousKey = QStringLiteral(" ");
    for (RowProgress progress(records, share); !records.Eof(); progress.next()) {
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
