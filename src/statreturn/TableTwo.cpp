#include "statreturn/TableTwo.h"

#include "store/DataSource.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Recordset.h"
#include "store/Sql.h"

namespace statreturn {

namespace {

/// The form has no figures for the clients of these types of school.
bool isNotApplicable(const QString& code) {
    return code == u"16" || code == u"23";
}

const EducationRow& rowAt(std::size_t place) {
    if (place >= educationRows.size())
        throw store::EngineError(
            store::ErrorNumber::SubscriptOutOfRange,
            QStringLiteral("Tabuľka má miesto pre %1 druhov vzdelávania, v číselníku ich je viac.")
                .arg(educationRows.size()),
            QStringLiteral("c_zariad"));
    return educationRows[place];
}

QString rowStatement(const EducationRow& row, const QString& code, const QString& title,
                     const QStringList& cells) {
    static const QStringList columns{QStringLiteral("stlpec_1"), QStringLiteral("stlpec_2"),
                                     QStringLiteral("kod_txt"), QStringLiteral("kod"),
                                     QStringLiteral("c_riad")};
    return insertStatement(tableTwo.scratchTable, columns,
                           {row.stlpec_1.toString(), row.stlpec_2.toString(), title, code.left(2),
                            row.c_riad.toString()},
                           cells);
}

} // namespace

QString educationSelection(const QString& code, const QString& schoolYear) {
    const QString year = store::quoted(schoolYear);
    return QStringLiteral(
               "Select  k_zariad.idkod as idk_zar,k_zariad.akronym as akr,k_zariad.nazzar as kod"
               ",k_zaklad.postih as post,k_zaklad.pohlav as pohl,k_zaznam_spc.datum"
               " from k_zariad,k_zaklad,k_zaznam_spc "
               " where (k_zariad.idkod=k_zaklad.idkod and k_zaznam_spc.idkod = k_zaklad.idkod)"
               "and (k_zariad.akronym = 'VYCH' and k_zariad.nazzar = ") +
           store::quoted(code) +
           QStringLiteral(" and (isdate(k_zariad.vzar_do) = false)"
                          " and Val(Left(k_zaklad.postih, 1)) <> 0) "
                          " and  (k_zaznam_spc.datum >= DateSerial(Val(Left(") +
           year +
           QStringLiteral(", 4)), 9, 1) and k_zaznam_spc.datum <= DateSerial(Val(Right(Trim(") +
           year + QStringLiteral("), 4)), 8, 31)) order by k_zaklad.idkod");
}

Counts makeTableTwo(store::DataSource& datCisVzd, store::DataSource& datTlac,
                    store::Database& database, const QString& schoolYear) {
    static const QStringList notApplicable(qsizetype(printedColumns.size()), QStringLiteral("  x"));
    datCisVzd.setRecordSource(
        QStringLiteral("select * from c_zariad where akronym= 'VYCH' order by kod"));
    datCisVzd.Refresh();
    store::Recordset& types = datCisVzd.Recordset();
    types.MoveFirst();
    Counts totals{};
    for (std::size_t place = 0; !types.Eof(); types.MoveNext(), ++place) {
        const QString code = types.Fields(u"kod").Value().toText();
        const QString title = types.Fields(u"v_nazov").Value().toText();
        const EducationRow& row = rowAt(place);
        if (isNotApplicable(code)) {
            database.Execute(rowStatement(row, code, title, notApplicable));
            continue;
        }
        const Counts counts = countClients(datTlac, educationSelection(code, schoolYear), tableTwo);
        database.Execute(rowStatement(row, code, title, countCells(counts)));
        addCounts(totals, counts);
    }
    return totals;
}

} // namespace statreturn
