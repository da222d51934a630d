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
    /// Follows the count of all inside its quotes.
    QStringView tail = u"";
};

/// The pairs in the order in which the tables by impairment hold them.
inline constexpr std::array<CountPair, 11> countPairs{{
    {u"spolu", u"spolu_zeny", CountedBy::Everyone},
    {u"p_zrak", u"p_zrak_z", CountedBy::Code, u'4'},
    {u"p_sluch", u"p_sluch_z", CountedBy::Code, u'3'},
    {u"p_rec", u"p_rec_z", CountedBy::Code, u'5'},
    {u"p_teles", u"p_teles_z", CountedBy::Code, u'6'},
    {u"p_menta", u"p_menta_z", CountedBy::Code, u'2'},
    {u"p_viacn", u"p_viacn_z", CountedBy::Several},
    {u"p_autiz", u"p_autiz_z", CountedBy::Code, u'1'},
    {u"p_vpuc", u"p_vpuc_z", CountedBy::Code, u'8'},
    {u"p_vpsp", u"p_vpsp_z", CountedBy::Code, u'7', u" "},
    {u"p_ine", u"p_ine_z", CountedBy::Code, u'9'},
}};

/// Counters of a row, or its totals: of each pair all clients, then the girls.
using Counts = std::array<int, 2 * countPairs.size()>;

/// What counting needs of a client, as stored.
struct CountedClient {
    QString pohl;
    QString post;
};

/// Counts a client in. @param several whether the client has more than one impairment
void countClient(Counts& counts, const CountedClient& client, bool several);

/// Whether the second character of the trimmed impairment string is a digit other than 0.
bool hasSecondImpairment(const QString& post);

void addCounts(Counts& totals, const Counts& row);

/// The counter of a column, whatever its case. @throws std::out_of_range for any other name
int countOf(const Counts& counts, QStringView column);

/// A count as cells and captions show it: zero is empty.
QString countText(int count);

/// The statement that writes one row: the leading columns, then the 22 counts. Values are put
/// between apostrophes as they are.
QString insertStatement(QStringView table, const QStringList& leadingColumns,
                        const QStringList& leadingValues, const Counts& counts);

} // namespace statreturn
