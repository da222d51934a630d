#include "BareFile.h"
#include "Benches.h"
#include "store/Database.h"

#include <benchmark/benchmark.h>

namespace bench {

namespace {

constexpr int finds = 100;

void findOurs(store::Recordset& rows, const QStringList& keys) {
    for (const QString& key : keys) {
        rows.FindFirst(QStringLiteral("idkod ='") + key + u'\'');
        benchmark::DoNotOptimize(rows.Fields(u"meno").Value());
    }
}

void findBare(BareQuery& query, const QStringList& keys) {
    for (const QString& key : keys) {
        query.bind(1, key);
        query.step();
        benchmark::DoNotOptimize(query.text(0));
        query.reset();
    }
}

} // namespace

void measureFinding(Samples& samples, Figures& figures) {
    std::vector<Times> times;
    for (const int clients : sizes) {
        store::DBEngine engine;
        auto database = engine.OpenDatabase(samples.clientsOnly(clients));
        const auto rows = database.OpenRecordset(QStringLiteral("select * from k_zaklad"));
        const BareFile file(samples.clientsOnly(clients));
        BareQuery query(file, "SELECT Meno FROM k_zaklad WHERE idkod = ?1 COLLATE TVK");
        const QStringList keys = samples.keys(clients, finds);
        times.push_back(figures.compare(
            "find " + std::to_string(finds) + " keys among " + std::to_string(clients),
            [&] { findOurs(*rows, keys); }, [&] { findBare(query, keys); }));
    }
    figures.ratio("  the same, 100,000 against 1,000 clients", times.back(), times.front(), 2.0);
}

} // namespace bench
