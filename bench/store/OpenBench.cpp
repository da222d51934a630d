#include "BareFile.h"
#include "Benches.h"
#include "store/Database.h"

#include <benchmark/benchmark.h>

namespace bench {

namespace {

constexpr int rowsOnShow = 50;

qsizetype readRow(store::Recordset& rows) {
    qsizetype characters = 0;
    for (const store::OutputColumn& column : rows.columns())
        characters += rows.Fields(column.name).Value().toText().size();
    return characters;
}

void openOurs(store::Database& database) {
    const auto rows = database.OpenRecordset(QStringLiteral("select * from k_zaklad"));
    for (int row = 0; row < rowsOnShow; ++row, rows->MoveNext())
        benchmark::DoNotOptimize(readRow(*rows));
}

void openBare(const BareFile& file) {
    BareQuery query(file, "SELECT * FROM k_zaklad");
    for (int row = 0; row < rowsOnShow && query.step(); ++row)
        benchmark::DoNotOptimize(query.readRow());
}

} // namespace

void measureOpening(Samples& samples, Figures& figures) {
    std::vector<Times> times;
    for (const int clients : sizes) {
        store::DBEngine engine;
        auto database = engine.OpenDatabase(samples.clientsOnly(clients));
        const BareFile file(samples.clientsOnly(clients));
        times.push_back(figures.compare(
            "open all clients, read 50, of " + std::to_string(clients), [&] { openOurs(database); },
            [&] { openBare(file); }, {}, 31));
    }
    figures.ratio("  the same, 100,000 against 1,000 clients", times.back(), times.front(), 2.0);
}

} // namespace bench
