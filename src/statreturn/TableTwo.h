#pragma once

#include "statreturn/ImpairmentTable.h"
#include "store/Progress.h"

#include <QString>
#include <QStringView>

#include <array>
#include <vector>

namespace store {
class Database;
class DataSource;
} // namespace store

namespace statreturn {

/// What a row of Table II holds beside its type of school, by the row's place: its pieces of the
/// two headings that run down the table's side, and its code.
struct EducationRow {
    QStringView stlpec_1;
    QStringView stlpec_2;
    QStringView c_riad;
};

inline constexpr std::array<EducationRow, 16> educationRows{{
    {u" ", u"v pred-", u"0201"},
    {u"Sta-", u"škol-", u"0202"},
    {u"rost-", u"skom", u"0203"},
    {u"li-", u"veku", u"0204"},
    {u"vosť", u" ", u"0205"},
    {u" ", u" ", u"0206"},
    {u"o", u" ", u"0207"},
    {u" ", u" ", u"0208"},
    {u"deti,", u" ", u"0209"},
    {u"klien-", u" ", u"0210"},
    {u"tov", u" ", u"0211"},
    {u" ", u" ", u"0212"},
    {u" ", u" ", u"0213"},
    {u" ", u" ", u"0214"},
    {u" ", u" ", u"0215"},
    {u" ", u" ", u"0216"},
}};

/// A type of school as the code-list has it.
struct EducationType {
    QString code;
    QString title;

    /// Whether its row counts clients; the others are marked as not applicable.
    bool isCounted() const { return code != u"16" && code != u"23"; }
};

/// The types of school in the order of the table's rows. @throws store::EngineError
std::vector<EducationType> educationTypes(store::DataSource& datCisVzd);

/// What the row at that place holds. @throws store::EngineError 9 when the form has no such row
const EducationRow& educationRowAt(std::size_t place);

/// The open placements of a type of school whose clients were in care in the school year, in the
/// order of the clients' keys.
QString educationSelection(const QString& code, const QString& schoolYear);

/// Makes Table II: counts the clients in care by the type of school of their open placement, and
/// appends a row for each type to z_vzdelavanie.
/// @param datCisVzd walks the types of school; like `datTlac` it is left on its last selection
/// @param database executes the inserts
/// @param schoolYear as the main window shows it, "RRRR/RRRR"
/// @return the totals of the rows
/// @throws store::EngineError 3021 without a type of school, 9 with more of them than the form has
/// rows, and what the engine raises; store::GivenUp
Counts makeTableTwo(store::DataSource& datCisVzd, store::DataSource& datTlac,
                    store::Database& database, const QString& schoolYear,
                    const store::TellProgress& tell = {});

} // namespace statreturn
