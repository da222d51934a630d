#include "statreturn/TableOne.h"

#include "statreturn/Selections.h"
#include "store/DataSource.h"
#include "store/Database.h"
#include "store/Recordset.h"

#include <QCalendar>

#include <algorithm>
#include <tuple>

namespace statreturn {

namespace {

constexpr int oldestAge = 18;
/// Of the time that the table takes.
constexpr double stampingPart = 0.5;

void stampAges(store::DataSource& datTlac, const Period& period, const QDate& today,
               const store::Share& share) {
    share(0);
    datTlac.setRecordSource(stampSelection(period));
    datTlac.Refresh();
    store::Recordset& records = datTlac.Recordset();
    const store::Field dat = records.Fields(u"dat");
    store::Field vek = records.Fields(u"Vek");
    // The records of a client come one after another.
    QDate birth;
    store::Value age;
    for (RowProgress progress(records, share); !records.Eof(); progress.next()) {
        if (const QDate next = dat.Value().toDate(); next != birth) {
            birth = next;
            // A text that is no calendar date gives no age, and the one of an earlier run is none.
            age = birth.isValid() ? store::Value(ageOn(today, birth)) : store::Value();
        }
        if (vek.Value() != age) {
            records.Edit();
            vek.setValue(age);
            records.Update();
        }
    }
}

} // namespace

int completedYears(const QDate& today, const QDate& birth) {
    const auto now = QCalendar().partsFromDate(today);
    const auto born = QCalendar().partsFromDate(birth);
    const bool birthdayToCome = std::tie(now.month, now.day) < std::tie(born.month, born.day);
    return now.year - born.year - (birthdayToCome ? 1 : 0);
}

int ageOn(const QDate& today, const QDate& birth) {
    return std::min(completedYears(today, birth), oldestAge);
}

QString stampSelection(const Period& period) {
    return QStringLiteral(
               "Select k_zaklad.datnar as dat,k_zaklad.pohlav as pohl,k_zaklad.vek as vek,"
               "k_zaklad.postih as post, k_zaznam_spc.datum  from k_zaklad "
               "inner join k_zaznam_spc on k_zaklad.idkod=k_zaznam_spc.idkod "
               "where ((isnull(k_zaklad.datnar) = false) and ") +
           isInPeriod(period) + u')';
}

QString ageSelection(int age, const Period& period) {
    return QStringLiteral(
               "Select k_zaklad.idkod as idk, k_zaklad.datnar as dat,k_zaklad.pohlav as pohl,"
               "k_zaklad.vek as vek,k_zaklad.postih as post from k_zaklad "
               "inner join k_zaznam_spc on k_zaklad.idkod=k_zaznam_spc.idkod "
               "where isnull(datnar) = false and k_zaklad.vek = ") +
           QString::number(age) + QStringLiteral(" and ") + isImpaired + QStringLiteral(" and ") +
           isInPeriod(period) + QStringLiteral(" order by k_zaklad.idkod");
}

Counts makeTableOne(store::DataSource& datTlac, store::Database& database, const Period& period,
                    const QDate& today, const store::TellProgress& tell) {
    static const QStringList columns{QStringLiteral("stlpec"), QStringLiteral("vek"),
                                     QStringLiteral("c_riad")};
    stampAges(datTlac, period, today, {tell, 0, stampingPart});
    Counts totals{};
    for (int age = 0; age <= oldestAge; ++age) {
        const auto partBefore = [](int row) {
            return stampingPart + (1 - stampingPart) * row / double(ageRows.size());
        };
        const Counts counts = countClients(datTlac, ageSelection(age, period), tableOne,
                                           {tell, partBefore(age), partBefore(age + 1)});
        const AgeRow& row = ageRows[static_cast<std::size_t>(age)];
        database.Execute(
            insertStatement(tableOne.scratchTable, columns,
                            {row.stlpec.toString(), row.vek.toString(), row.c_riad.toString()},
                            countCells(counts)));
        addCounts(totals, counts);
    }
    return totals;
}

} // namespace statreturn
