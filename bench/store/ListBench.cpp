#include "BareFile.h"
#include "Benches.h"
#include "store/Database.h"
#include "store/RowTexts.h"

#include <benchmark/benchmark.h>

#include <limits>
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

constexpr double wantedOfReading = 6.0;
constexpr double wantedOfLetter = 0.6;

store::RowTexts readTexts(store::Recordset& rows) {
    store::RowTexts texts(rows, {QStringLiteral("meno"), QStringLiteral("priezv"),
                                 QStringLiteral("katcis"), QStringLiteral("datnar")});
    texts.read(std::numeric_limits<int>::max());
    return texts;
}

void scanBare(const BareFile& file, const char* condition) {
    BareQuery query(file, condition);
    while (query.step())
        benchmark::DoNotOptimize(query.integer(0));
}

/// A letter typed in the list, beside the one statement that could answer it.
void measureFilter(store::Database& database, const BareFile& file, Figures& figures) {
    const auto rows = database.OpenRecordset(source);
    figures.compare(
        "read the texts to filter 100,000 by / scan their columns by hand",
        [&] { readTexts(*rows); },
        [&] {
            scanBare(file, "SELECT rowid FROM k_zaklad WHERE Meno || Priezv || katcis || "
                           "ifnull(datnar, '') = 'x'");
        },
        wantedOfReading, runs);
    auto texts = readTexts(*rows);
    figures.compare(
        "filter 100,000 by a word and a letter / by LIKE by hand",
        [&] { benchmark::DoNotOptimize(texts.positionsOf(QStringLiteral("kov j"))); },
        [&] {
            scanBare(file, "SELECT rowid FROM k_zaklad WHERE (Priezv LIKE 'kov%' OR Meno LIKE "
                           "'kov%' OR katcis LIKE 'kov%') AND (Priezv LIKE 'j%' OR Meno LIKE 'j%' "
                           "OR katcis LIKE 'j%') ORDER BY Priezv COLLATE TVK, Meno COLLATE TVK");
        },
        wantedOfLetter, runs);
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
    measureFilter(database, file, figures);
}

} // namespace bench
