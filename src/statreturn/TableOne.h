#pragma once

#include "statreturn/ImpairmentTable.h"
#include "statreturn/SchoolYear.h"
#include "store/Progress.h"

#include <QDate>
#include <QString>
#include <QStringView>

#include <array>

namespace store {
class Database;
class DataSource;
} // namespace store

namespace statreturn {

/// The texts of one row of Table I; its index is the age that it counts. `stlpec` is the row's
/// piece of the heading that runs down the table's side.
struct AgeRow {
    QStringView stlpec;
    QStringView vek;
    QStringView c_riad;
};

inline constexpr std::array<AgeRow, 19> ageRows{{
    {u" ", u"    0 - 1", u"0101"},       {u"Sta-", u"    1 - 2", u"0102"},
    {u"rost-", u"    2 - 3", u"0103"},   {u"li-", u"    3 - 4", u"0104"},
    {u"vosť", u"    4 - 5", u"0105"},    {u" ", u"    5 - 6", u"0106"},
    {u"o", u"    6 - 7", u"0107"},       {u" ", u"    7 - 8", u"0108"},
    {u"deti,", u"    8 - 9", u"0109"},   {u"klien-", u"   9 - 10", u"0110"},
    {u"tov", u"   10 - 11", u"0111"},    {u" ", u"   11 - 12", u"0112"},
    {u" ", u"   12 - 13", u"0113"},      {u"podľa", u"   13 - 14", u"0114"},
    {u"veku", u"   14 - 15", u"0115"},   {u" ", u"   15 - 16", u"0116"},
    {u"(v ro-", u"   16 - 17", u"0117"}, {u"koch)", u"   17 - 18", u"0118"},
    {u" ", u" 18 a viac", u"0119"},
}};

/// Completed years on a day; negative when the birth is still to come.
int completedYears(const QDate& today, const QDate& birth);
/// The age as the table counts it: at most 18.
int ageOn(const QDate& today, const QDate& birth);

/// The records of care of a period with the data that give their client's age.
QString stampSelection(const Period& period);
/// The same for the clients of one stamped age, in the order of their keys.
QString ageSelection(int age, const Period& period);

/// Makes Table I: stamps the ages of all clients in care in the period, counts them, and appends
/// the 19 rows to z_vek.
/// @param datTlac runs the selections; it is left on the last of them
/// @param database executes the inserts
/// @return the totals of the rows
/// @throws store::EngineError, store::GivenUp
Counts makeTableOne(store::DataSource& datTlac, store::Database& database, const Period& period,
                    const QDate& today, const store::TellProgress& tell = {});

} // namespace statreturn
