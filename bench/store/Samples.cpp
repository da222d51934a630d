#include "Samples.h"

#include "BareFile.h"
#include "mkdb/DatabaseSink.h"
#include "mkdb/Register.h"

#include <QFile>

#include <functional>

namespace bench {

namespace {

const QDate today(2026, 11, 23);

/// Lets through the rows of one table.
class OneTable : public mkdb::RowSink {
  public:
    OneTable(mkdb::RowSink& sink, QStringView table) : sink_(sink), table_(table) {}
    void add(const mkdb::RowShape& shape, const std::vector<store::Value>& values) override {
        if (table_ == QStringView(shape.table))
            sink_.add(shape, values);
    }

  private:
    mkdb::RowSink& sink_;
    QStringView table_;
};

void makeClients(int clients, mkdb::RowSink& sink) {
    static const auto lists = mkdb::readCodeLists(QStringLiteral(TVK_DATA_FOLDER "/ciselniky"));
    static const auto words = mkdb::readVocabulary(QStringLiteral(TVK_DATA_FOLDER "/ukazka"));
    mkdb::makeRegister({clients, 1, today}, words, lists, sink);
}

void makeFile(const QString& path, const std::function<void(mkdb::RowSink&)>& fill) {
    if (QFile::exists(path))
        return;
    store::DBEngine engine;
    engine.CreateDatabase(path);
    auto database = engine.OpenDatabase(path);
    {
        mkdb::DatabaseSink sink(database);
        fill(sink);
    }
    database.Close();
}

} // namespace

QString Samples::clientsOnly(int clients) {
    const QString path = directory_.filePath(QStringLiteral("klienti-%1.mdb").arg(clients));
    makeFile(path, [&](mkdb::RowSink& sink) {
        OneTable basics(sink, u"k_zaklad");
        makeClients(clients, basics);
    });
    return path;
}

QString Samples::withFreeSpace(int clients) {
    const QString path = directory_.filePath(QStringLiteral("vsetko-%1.mdb").arg(clients));
    makeFile(path, [&](mkdb::RowSink& sink) { makeClients(clients, sink); });
    const BareFile file(path);
    for (const char* table : {"k_zaznam_spc", "k_vysetrenie", "k_memo"})
        BareQuery(
            file,
            qPrintable(
                QStringLiteral("DELETE FROM %1 WHERE rowid % 4 = 0").arg(QString::fromUtf8(table))))
            .step();
    return path;
}

QStringList Samples::keys(int clients, int count) {
    const BareFile file(clientsOnly(clients));
    BareQuery query(file, "SELECT idkod FROM k_zaklad WHERE rowid % ?1 = 0");
    query.bind(1, qint64{clients / count});
    QStringList keys;
    while (query.step())
        keys.append(query.text(0));
    return keys;
}

} // namespace bench
