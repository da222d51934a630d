#include "statreturn/TableThree.h"

#include "statreturn/Counts.h"
#include "store/DataSource.h"
#include "store/Database.h"
#include "store/Recordset.h"
#include "store/Sql.h"

#include <array>

namespace statreturn {

namespace {

/// A row of the form; the first one is function 1.
struct StaffRow {
    QStringView fcia;
    QStringView cria;
};

constexpr std::array<StaffRow, 8> staffRows{{
    {u"Riaditeľ", u"0301"},
    {u"Špeciálny pedagóg", u"0302"},
    {u"Školský špeciálny pedagóg", u"0303"},
    {u"Psychológ", u"0304"},
    {u"Liečebný pedagóg", u"0305"},
    {u"Zdravotnícky zamestnanec", u"0306"},
    {u"Sociálny zamestnanec", u"0307"},
    {u"Iní", u"0308"},
}};
constexpr StaffRow totalRow{u"Spolu (0301 až 0308)", u"0316"};

/// All, women, qualified; of the internal employees and then of the external ones.
using StaffCounts = std::array<int, 6>;
constexpr std::size_t external = 3;
using StaffTable = std::array<StaffCounts, staffRows.size()>;

bool isText(const store::Value& value, QStringView text) {
    // As the engine compares texts.
    return value.toText().compare(text, Qt::CaseInsensitive) == 0;
}

void addGroup(StaffCounts& counts, store::Recordset& group) {
    const auto employment = employmentOf(group.Fields(u"int-ext").Value());
    if (!employment)
        return;
    const std::size_t first = employment == Employment::External ? external : 0;
    const int sum = int(group.Fields(u"sucet").Value().toNumber());
    counts[first] += sum;
    counts[first + 1] += isWoman(group.Fields(u"pohlavie").Value()) ? sum : 0;
    counts[first + 2] += isText(group.Fields(u"kvalifikacia").Value(), u"a") ? sum : 0;
}

StaffTable countStaff(store::DataSource& datTlac) {
    datTlac.setRecordSource(QStringLiteral(
        "SELECT Zamestnanci.prac_zar, Zamestnanci.[int-ext], Zamestnanci.pohlavie, "
        "Zamestnanci.kvalifikacia, Count(Zamestnanci.idkod) AS sucet From Zamestnanci "
        "GROUP BY Zamestnanci.prac_zar, Zamestnanci.[int-ext], Zamestnanci.pohlavie, "
        "Zamestnanci.kvalifikacia"));
    datTlac.Refresh();
    StaffTable table{};
    store::Recordset& groups = datTlac.Recordset();
    for (; !groups.Eof(); groups.MoveNext()) {
        if (const auto row = staffRowOf(groups.Fields(u"prac_zar").Value()))
            addGroup(table[*row], groups);
    }
    return table;
}

QStringList cellsOf(const StaffCounts& counts) {
    QStringList cells;
    for (const int count : counts)
        cells << countText(count);
    return cells;
}

void writeRow(store::Database& database, const StaffRow& row, const QStringList& cells) {
    QStringList values;
    for (const QString& value : QStringList{row.fcia.toString(), row.cria.toString()} + cells)
        values << store::quoted(value);
    database.Execute(
        QStringLiteral("Insert Into z_zam(fcia,cria,i_spolu,i_zeny,i_kval,e_spolu,e_zeny,e_kval)"
                       " values (%1)")
            .arg(values.join(QLatin1Char(','))));
}

QStringList directorCells(const StaffCounts& counts) {
    return cellsOf(counts).first(qsizetype(external)) +
           QStringList(qsizetype(counts.size() - external), QStringLiteral("   x"));
}

} // namespace

std::optional<std::size_t> staffRowOf(const store::Value& function) {
    const double number = function.toNumber();
    if (number < 1 || number > double(staffRows.size()))
        return std::nullopt;
    return std::size_t(number) - 1;
}

std::optional<Employment> employmentOf(const store::Value& kind) {
    if (isText(kind, u"i"))
        return Employment::Internal;
    return isText(kind, u"e") ? std::optional(Employment::External) : std::nullopt;
}

bool isWoman(const store::Value& sex) {
    return isText(sex, u"z");
}

void makeTableThree(store::DataSource& datTlac, store::Database& database) {
    const StaffTable table = countStaff(datTlac);
    StaffCounts totals{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        writeRow(database, staffRows[i],
                 i == directorRow ? directorCells(table[i]) : cellsOf(table[i]));
        for (std::size_t column = 0; column < totals.size(); ++column)
            totals[column] += table[i][column];
    }
    writeRow(database, totalRow, cellsOf(totals));
}

} // namespace statreturn
