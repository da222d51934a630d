#include "statreturn/NumberGrid.h"

#include "statreturn/ImpairmentTable.h"
#include "statreturn/TableOne.h"

namespace statreturn {

namespace {

NumberHead rowHead(QStringView code, const QString& text, bool applies = true) {
    const QString trimmed = text.trimmed();
    return {QStringLiteral("%1  %2").arg(code, trimmed),
            QStringLiteral("riadok %1 (%2)").arg(code, trimmed),
            {},
            applies};
}

/// The heads of the printed columns 1 to 22.
std::vector<NumberHead> countColumns() {
    std::vector<NumberHead> heads;
    for (const PrintedColumn& column : printedColumns) {
        const CountPair& pair = countPairs[column.counter / 2];
        const QString number = QString::number(heads.size() + 1);
        const QString kind =
            column.counter % 2 == 0 ? QStringLiteral("spolu") : QStringLiteral("dievčatá");
        const QString group = pair.heading.toString();
        const QString words = QString(group).replace(u'\n', u' ');
        heads.push_back(
            {(column.counter % 2 == 0 ? kind : QStringLiteral("dievč.")) + u'\n' + number,
             pair.by == CountedBy::Everyone && column.counter % 2 == 0
                 ? QStringLiteral("stĺpec %1 spolu").arg(number)
                 : QStringLiteral("stĺpec %1 %2, %3").arg(number, words, kind),
             group});
    }
    return heads;
}

/// The place of each counter's printed column.
constexpr auto columnOfCounter = [] {
    std::array<std::size_t, printedColumns.size()> places{};
    for (std::size_t i = 0; i < printedColumns.size(); ++i)
        places[printedColumns[i].counter] = i;
    return places;
}();

/// Counts a client in a row and in the sums, the last row.
void addClient(NumberGrid& grid, std::size_t row, std::size_t who, const ReturnClient& client,
               const ImpairmentTable& table) {
    const Counted counted{std::uint32_t(who), std::uint32_t(row)};
    forEachCounter(client.counted, table.several(client.counted.post), [&](std::size_t counter) {
        grid.add(row, columnOfCounter[counter], counted);
        grid.add(grid.rows.size() - 1, columnOfCounter[counter], counted);
    });
}

} // namespace

NumberGrid::NumberGrid(QString named, std::vector<NumberHead> rowHeads,
                       std::vector<NumberHead> columnHeads)
    : name(std::move(named)), rows(std::move(rowHeads)), columns(std::move(columnHeads)),
      cells_(rows.size() * columns.size()) {}

QString NumberGrid::nameOf(std::size_t row, std::size_t column) const {
    return QStringList{name, rows[row].name, columns[column].name}.join(QStringLiteral(", "));
}

NumberGrid tableOneNumbers(const ReturnPeople& people) {
    std::vector<NumberHead> rows;
    for (const AgeRow& row : ageRows)
        rows.push_back(rowHead(row.c_riad, row.vek.toString()));
    rows.push_back({QStringLiteral("Spolu"), QStringLiteral("spolu")});
    NumberGrid grid(QStringLiteral("Tabuľka I"), std::move(rows), countColumns());
    for (std::size_t who = 0; who < people.clients.size(); ++who) {
        const ReturnClient& client = people.clients[who];
        if (client.ageRow)
            addClient(grid, *client.ageRow, who, client, tableOne);
    }
    return grid;
}

NumberGrid tableTwoNumbers(const ReturnPeople& people) {
    std::vector<NumberHead> rows;
    for (std::size_t place = 0; place < people.types.size(); ++place)
        rows.push_back(rowHead(educationRowAt(place).c_riad, people.types[place].title,
                               people.types[place].isCounted()));
    rows.push_back({QStringLiteral("Spolu"), QStringLiteral("spolu")});
    NumberGrid grid(QStringLiteral("Tabuľka II"), std::move(rows), countColumns());
    for (std::size_t who = 0; who < people.clients.size(); ++who) {
        for (const std::size_t row : people.clients[who].educationRows)
            addClient(grid, row, who, people.clients[who], tableTwo);
    }
    return grid;
}

} // namespace statreturn
