#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <array>
#include <cstddef>

namespace statreturn {

/// Whom a pair of columns counts.
enum class CountedBy {
    Everyone,
    /// Clients of one impairment, by its code.
    Code,
    /// Clients of several impairments, whatever the dominant one.
    Several
};

/// A column of counts with its twin for girls.
struct CountPair {
    QStringView all;
    QStringView girls;
    CountedBy by = CountedBy::Code;
    char16_t code = 0;
    /// The pair's place on paper, from 0.
    std::size_t printed = 0;
    /// What the paper calls it; '\n' begins a line.
    QStringView heading;
    /// Follows the count of all inside its quotes.
    QStringView tail = u"";
};

/// The pairs in the order in which the tables by impairment hold them.
inline constexpr std::array<CountPair, 11> countPairs{{
    {u"spolu", u"spolu_zeny", CountedBy::Everyone, 0, 0, u"Spolu"},
    {u"p_zrak", u"p_zrak_z", CountedBy::Code, u'4', 4, u"zrakové"},
    {u"p_sluch", u"p_sluch_z", CountedBy::Code, u'3', 3, u"sluchové"},
    {u"p_rec", u"p_rec_z", CountedBy::Code, u'5', 5, u"rečové"},
    {u"p_teles", u"p_teles_z", CountedBy::Code, u'6', 6, u"telesné"},
    {u"p_menta", u"p_menta_z", CountedBy::Code, u'2', 2, u"mentálne"},
    {u"p_viacn", u"p_viacn_z", CountedBy::Several, 0, 7, u"viacnásobné"},
    {u"p_autiz", u"p_autiz_z", CountedBy::Code, u'1', 1, u"syndróm\nautizmu"},
    {u"p_vpuc", u"p_vpuc_z", CountedBy::Code, u'8', 9, u"učenia"},
    {u"p_vpsp", u"p_vpsp_z", CountedBy::Code, u'7', 8, u"správania", u" "},
    {u"p_ine", u"p_ine_z", CountedBy::Code, u'9', 10, u"iné"},
}};

/// Counters of a row, or its totals: of each pair all clients, then the girls.
using Counts = std::array<int, 2 * countPairs.size()>;

/// A printed column of counts: which counter it shows, and its name.
struct PrintedColumn {
    std::size_t counter = 0;
    QStringView column;
};

/// The printed columns 1 to 22.
inline constexpr auto printedColumns = [] {
    std::array<PrintedColumn, 2 * countPairs.size()> columns;
    for (std::size_t i = 0; i < countPairs.size(); ++i) {
        columns[2 * countPairs[i].printed] = {2 * i, countPairs[i].all};
        columns[2 * countPairs[i].printed + 1] = {2 * i + 1, countPairs[i].girls};
    }
    return columns;
}();

/// What counting needs of a client, as stored.
struct CountedClient {
    QString pohl;
    QString post;
};

/// Whether a pair counts a client. @param several whether he has more than one impairment
bool isCountedBy(const CountPair& pair, const CountedClient& client, bool several);

/// Whether the client counts in the second column of the pairs, too.
inline bool isGirl(const CountedClient& client) {
    return client.pohl == u"Z";
}

/// Calls `add` with each counter that counts the client.
/// @param several whether he has more than one impairment
template <class Add>
void forEachCounter(const CountedClient& client, bool several, const Add& add) {
    for (std::size_t i = 0; i < countPairs.size(); ++i) {
        if (!isCountedBy(countPairs[i], client, several))
            continue;
        add(2 * i);
        if (isGirl(client))
            add(2 * i + 1);
    }
}

/// Counts a client in. @param several whether the client has more than one impairment
void countClient(Counts& counts, const CountedClient& client, bool several);

/// The text without the blanks at its ends: other white space is part of the value.
QStringView withoutBlanks(QStringView text);

/// Adds up. @throws store::EngineError 6 when a total leaves the range of 16 bits, in which the
/// form's totals are kept
void addCounts(Counts& totals, const Counts& row);

/// A count as cells and captions show it: zero is empty.
QString countText(int count);

/// The counts as the cells of a row, in the order of the stored columns.
QStringList countCells(const Counts& counts);

/// The statement that writes one row: the leading columns, then the 22 counts. Values are quoted.
QString insertStatement(QStringView table, const QStringList& leadingColumns,
                        const QStringList& leadingValues, const QStringList& cells);

} // namespace statreturn
