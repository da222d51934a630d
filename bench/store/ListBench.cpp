#include "BareFile.h"
#include "Benches.h"
#include "store/Database.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace bench {

namespace {

constexpr double wanted = 2.0;
constexpr int runs = 5;
constexpr int rowsOnShow = 50;
constexpr const char* const gridColumns[] = {"Meno", "Priezv", "datnar", "idkod", "celemeno"};

const QString source =
    QStringLiteral("select *,meno+space(2)+priezv as celemeno from k_zaklad order by priezv,meno");
constexpr const char* bareSource =
    "SELECT Meno, Priezv, datnar, idkod, Meno || '  ' || Priezv FROM k_zaklad "
    "ORDER BY Priezv COLLATE TVK, Meno COLLATE TVK";

void readGridRow(store::Recordset& rows) {
    for (const char* column : gridColumns)
        benchmark::DoNotOptimize(rows.Fields(QString::fromLatin1(column)).Value().toText());
}

/// What the main window does: the grid needs the number of rows and those on show.
void showOurs(store::Database& database) {
    const auto rows = database.OpenRecordset(source);
    benchmark::DoNotOptimize(rows->RecordCount());
    for (int row = 0; row < rowsOnShow; ++row, rows->MoveNext())
        readGridRow(*rows);
}

void walkOurs(store::Database& database) {
    const auto rows = database.OpenRecordset(source);
    for (; !rows->Eof(); rows->MoveNext())
        readGridRow(*rows);
}

void walkBare(const BareFile& file) {
    BareQuery query(file, bareSource);
    while (query.step())
        benchmark::DoNotOptimize(query.readRow());
}

/// By hand one would do as the engine does: order the row numbers and read what is on show.
void showBare(const BareFile& file) {
    BareQuery order(file, "SELECT rowid FROM k_zaklad "
                          "ORDER BY Priezv COLLATE TVK, Meno COLLATE TVK");
    std::vector<qint64> rows;
    while (order.step())
        rows.push_back(order.integer(0));
    BareQuery read(file, "SELECT Meno, Priezv, datnar, idkod, Meno || '  ' || Priezv "
                         "FROM k_zaklad WHERE rowid = ?1");
    for (int row = 0; row < rowsOnShow; ++row) {
        read.bind(1, rows[static_cast<std::size_t>(row)]);
        read.step();
        benchmark::DoNotOptimize(read.readRow());
        read.reset();
    }
}

} // namespace

void measureList(Samples& samples, Figures& figures) {
    const int clients = sizes.back();
    store::DBEngine engine;
    auto database = engine.OpenDatabase(samples.clientsOnly(clients));
    const BareFile file(samples.clientsOnly(clients));
    figures.compare(
        "show the list by name of 100,000 / the same by hand", [&] { showOurs(database); },
        [&] { showBare(file); }, wanted, runs);
    figures.compare(
        "show the list by name / the whole ordered query by hand", [&] { showOurs(database); },
        [&] { walkBare(file); }, wanted, runs);
    figures.compare(
        "walk the list by name / the whole ordered query by hand", [&] { walkOurs(database); },
        [&] { walkBare(file); }, wanted, runs);
}

} // namespace bench
