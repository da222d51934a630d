#include "statreturn/TableTwo.h"

#include "statreturn/Selections.h"
#include "store/DataSource.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Recordset.h"
#include "store/Sql.h"

namespace statreturn {

namespace {

QString rowStatement(const EducationRow& row, const EducationType& type, const QStringList& cells) {
    static const QStringList columns{QStringLiteral("stlpec_1"), QStringLiteral("stlpec_2"),
                                     QStringLiteral("kod_txt"), QStringLiteral("kod"),
                                     QStringLiteral("c_riad")};
    return insertStatement(tableTwo.scratchTable, columns,
                           {row.stlpec_1.toString(), row.stlpec_2.toString(), type.title,
                            type.code.left(2), row.c_riad.toString()},
                           cells);
}

} // namespace

std::vector<EducationType> educationTypes(store::DataSource& datCisVzd) {
    datCisVzd.setRecordSource(
        QStringLiteral("select * from c_zariad where akronym= 'VYCH' order by kod"));
    datCisVzd.Refresh();
    std::vector<EducationType> found;
    store::Recordset& types = datCisVzd.Recordset();
    for (; !types.Eof(); types.MoveNext())
        found.push_back(
            {types.Fields(u"kod").Value().toText(), types.Fields(u"v_nazov").Value().toText()});
    return found;
}

const EducationRow& educationRowAt(std::size_t place) {
    if (place >= educationRows.size())
        throw store::EngineError(
            store::ErrorNumber::SubscriptOutOfRange,
            QStringLiteral("Tabuľka má miesto pre %1 druhov vzdelávania, v číselníku ich je viac.")
                .arg(educationRows.size()),
            QStringLiteral("c_zariad"));
    return educationRows[place];
}

QString educationSelection(const QString& code, const QString& schoolYear) {
    const QString year = store::quoted(schoolYear);
    return QStringLiteral(
               "Select  k_zariad.idkod as idk_zar,k_zariad.akronym as akr,k_zariad.nazzar as kod"
               ",k_zaklad.postih as post,k_zaklad.pohlav as pohl,k_zaznam_spc.datum"
               " from k_zariad,k_zaklad,k_zaznam_spc "
               " where (k_zariad.idkod=k_zaklad.idkod and k_zaznam_spc.idkod = k_zaklad.idkod)"
               "and (") +
           isEducation + QStringLiteral(" and k_zariad.nazzar = ") + store::quoted(code) +
           QStringLiteral(" and ") + isOpen + QStringLiteral(" and ") + isImpaired +
           QStringLiteral(")  and  (k_zaznam_spc.datum >= DateSerial(Val(Left(") + year +
           QStringLiteral(", 4)), 9, 1) and k_zaznam_spc.datum <= DateSerial(Val(Right(Trim(") +
           year + QStringLiteral("), 4)), 8, 31)) order by k_zaklad.idkod");
}

Counts makeTableTwo(store::DataSource& datCisVzd, store::DataSource& datTlac,
                    store::Database& database, const QString& schoolYear,
                    const store::TellProgress& tell) {
    static const QStringList notApplicable(qsizetype(printedColumns.size()), QStringLiteral("  x"));
    const std::vector<EducationType> types = educationTypes(datCisVzd);
    if (types.empty())
        datCisVzd.Recordset().MoveFirst();
    Counts totals{};
    for (std::size_t place = 0; place < types.size(); ++place) {
        const EducationType& type = types[place];
        const EducationRow& row = educationRowAt(place);
        if (!type.isCounted()) {
            database.Execute(rowStatement(row, type, notApplicable));
            continue;
        }
        const double part = 1.0 / double(types.size());
        const Counts counts =
            countClients(datTlac, educationSelection(type.code, schoolYear), tableTwo,
                         {tell, part * double(place), part * double(place + 1)});
        database.Execute(rowStatement(row, type, countCells(counts)));
        addCounts(totals, counts);
    }
    return totals;
}

} // namespace statreturn
