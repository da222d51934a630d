#include "statreturn/Counts.h"

#include <algorithm>
#include <stdexcept>

namespace statreturn {

namespace {

/// Blanks only: other white space is part of the value.
QStringView withoutBlanks(QStringView text) {
    while (text.startsWith(u' ')) {
        text = text.mid(1);
    }
    while (text.endsWith(u' ')) {
        text.chop(1);
    }
    return text;
}

bool isCounted(const CountPair& pair, const CountedClient& client, bool several) {
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

} // namespace

void countClient(Counts& counts, const CountedClient& client, bool several) {
    const bool girl = client.pohl == u"Z";
    for (std::size_t i = 0; i < countPairs.size(); ++i) {
        if (isCounted(countPairs[i], client, several)) {
            counts[2 * i] += 1;
            counts[2 * i + 1] += girl ? 1 : 0;
        }
    }
}

bool hasSecondImpairment(const QString& post) {
    const QStringView second = withoutBlanks(post).mid(1, 1);
    return !second.isEmpty() && second.front() >= u'1' && second.front() <= u'9';
}

void addCounts(Counts& totals, const Counts& row) {
    for (std::size_t i = 0; i < totals.size(); ++i) {
        totals[i] += row[i];
    }
}

int countOf(const Counts& counts, QStringView column) {
    for (std::size_t i = 0; i < countPairs.size(); ++i) {
        if (column.compare(countPairs[i].all, Qt::CaseInsensitive) == 0) {
            return counts[2 * i];
        }
        if (column.compare(countPairs[i].girls, Qt::CaseInsensitive) == 0) {
            return counts[2 * i + 1];
        }
    }
    throw std::out_of_range("no such column of counts: " + column.toString().toStdString());
}

QString countText(int count) {
    return count == 0 ? QString() : QString::number(count);
}

QString insertStatement(QStringView table, const QStringList& leadingColumns,
                        const QStringList& leadingValues, const Counts& counts) {
    QStringList columns = leadingColumns;
    QStringList values = leadingValues;
    for (std::size_t i = 0; i < countPairs.size(); ++i) {
        columns << countPairs[i].all.toString() << countPairs[i].girls.toString();
        values << countText(counts[2 * i]) + countPairs[i].tail.toString()
               << countText(counts[2 * i + 1]);
    }
    return QStringLiteral("Insert Into ") + table.toString() + QLatin1Char('(') +
           columns.join(QLatin1Char(',')) + QStringLiteral(") values ('") +
           values.join(QStringLiteral("','")) + QStringLiteral("')");
}

} // namespace statreturn
