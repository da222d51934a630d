#include "statreturn/Counts.h"

#include "store/Sql.h"

namespace statreturn {

bool isCountedBy(const CountPair& pair, const CountedClient& client, bool several) {
    switch (pair.by) {
    case CountedBy::Everyone:
        return true;
    case CountedBy::Several:
        return several;
    case CountedBy::Code:
        return !several && client.post.startsWith(QChar(pair.code));
    }
    return false;
}

void countClient(Counts& counts, const CountedClient& client, bool several) {
    forEachCounter(client, several, [&counts](std::size_t counter) { counts[counter] += 1; });
}

QStringView withoutBlanks(QStringView text) {
    while (text.startsWith(u' ')) {
        text = text.mid(1);
    }
    while (text.endsWith(u' ')) {
        text.chop(1);
    }
    return text;
}

void addCounts(Counts& totals, const Counts& row) {
    for (std::size_t i = 0; i < totals.size(); ++i) {
        totals[i] += row[i];
    }
}

QString countText(int count) {
    return count == 0 ? QString() : QString::number(count);
}

QStringList countCells(const Counts& counts) {
    QStringList cells;
    for (std::size_t i = 0; i < countPairs.size(); ++i) {
        cells << countText(counts[2 * i]) + countPairs[i].tail.toString()
              << countText(counts[2 * i + 1]);
    }
    return cells;
}

QString insertStatement(QStringView table, const QStringList& leadingColumns,
                        const QStringList& leadingValues, const QStringList& cells) {
    QStringList columns = leadingColumns;
    for (const CountPair& pair : countPairs) {
        columns << pair.all.toString() << pair.girls.toString();
    }
    QStringList values;
    for (const QString& value : leadingValues + cells) {
        values << store::quoted(value);
    }
    return QStringLiteral("Insert Into %1(%2) values (%3)")
        .arg(table, columns.join(QLatin1Char(',')), values.join(QLatin1Char(',')));
}

} // namespace statreturn
