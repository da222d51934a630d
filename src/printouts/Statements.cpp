#include "printouts/Statements.h"

#include "store/Sql.h"

#include <QStringList>

#include <array>

namespace printouts {

namespace {

constexpr int impairmentColumns = 9;

/// By their codes from 0.
constexpr std::array<QStringView, 10> impairmentWords = {u"žiadne",
                                                         u"syndróm autizmu",
                                                         u"mentálne",
                                                         u"sluchové",
                                                         u"zrakové",
                                                         u"rečové",
                                                         u"telesné",
                                                         u"špecifické vývinové poruchy správania",
                                                         u"špecifické vývinové poruchy učenia",
                                                         u"iné"};

/// The word for the code in one place of a string of codes, empty for whatever is no code.
QString impairmentWord(QStringView column, int place) {
    QString words;
    for (std::size_t code = 0; code < impairmentWords.size(); ++code)
        words += QStringLiteral("IIf(Mid(%1,%2, 1) = '%3', '%4',")
                     .arg(column)
                     .arg(place)
                     .arg(code)
                     .arg(impairmentWords[code]);
    return words + QStringLiteral("''") + QString(qsizetype(impairmentWords.size()), u')');
}

/// The words of all places, as columns "retaz1" to "retaz9" with the person's letter behind.
QString impairments(QStringView column, QStringView person = {}) {
    QStringList columns;
    for (int place = 1; place <= impairmentColumns; ++place)
        columns << impairmentWord(column, place) +
                       QStringLiteral(" as retaz%1%2").arg(place).arg(person);
    return columns.join(u',');
}

QString equals(const QString& key) {
    return u'=' + store::quoted(key);
}

} // namespace

QString basicData(const QString& key) {
    return QStringLiteral(
               "SELECT k_zaklad.Meno, k_zaklad.Priezv, k_zaklad.Idkod, k_zaklad.pohlav, "
               "k_zaklad.katcis, k_zaklad.datnar, k_zaklad.mienar, k_zaklad.vek,"
               "k_zaklad.rodcis, k_zaklad.obec, k_zaklad.ulica, k_zaklad.psc, k_zaklad.skola, "
               "k_zaklad.odporu, k_zaklad.datevi, k_zaklad.matka, k_zaklad.matvla,"
               "k_zaklad.matnar, k_zaklad.matvek, k_zaklad.matvzd, k_zaklad.matuli, "
               "k_zaklad.matobe, k_zaklad.matpsc, k_zaklad.mattel, k_zaklad.matmail,"
               "k_zaklad.matzam, k_zaklad.mataza, k_zaklad.mattza, k_zaklad.matchor, "
               "k_zaklad.matpos, k_zaklad.otec, k_zaklad.otevla, k_zaklad.otenar,"
               "k_zaklad.otevek, k_zaklad.otevzd, k_zaklad.oteuli, k_zaklad.oteobe, "
               "k_zaklad.otepsc, k_zaklad.otetel, k_zaklad.otemail, k_zaklad.otezam,"
               "k_zaklad.oteaza, k_zaklad.otetza, k_zaklad.otechor, k_zaklad.otepos, "
               "k_zaklad.kon_meno, k_zaklad.kon_pomer, k_zaklad.kon_uli, k_zaklad.kon_obe,"
               "k_zaklad.kon_tel, k_zaklad.kon_psc, k_zaklad.kon_mail, c_narodn.NAZOV, "
               "c_jazyk.nazov, k_zaklad.jazyk, k_zaklad.jaz_doma, c_jazyk_1.nazov,"
               "c_iczeme.NAZOV, k_zaklad.stprisl, c_zdrpoi.nazov,") +
           impairments(u"k_zaklad.postih") +
           QStringLiteral(
               " FROM ((((k_zaklad LEFT JOIN c_zdrpoi ON k_zaklad.zdrpoi = c_zdrpoi.KOD) "
               "LEFT JOIN c_jazyk ON k_zaklad.jazyk = c_jazyk.kod) LEFT JOIN c_narodn ON "
               "k_zaklad.narodn = c_narodn.KOD)LEFT JOIN c_iczeme ON k_zaklad.stprisl = "
               "c_iczeme.KOD) LEFT JOIN c_jazyk AS c_jazyk_1 ON k_zaklad.jaz_doma = "
               "c_jazyk_1.kod WHERE (((k_zaklad.Idkod)") +
           equals(key) + QStringLiteral("))");
}

// The age of the father is read and that of the mother is not; the form shows neither.
QString parents(const QString& key) {
    return QStringLiteral(
               "SELECT k_zaklad.Meno, k_zaklad.Priezv, k_zaklad.Idkod, k_zaklad.pohlav, "
               "k_zaklad.katcis, k_zaklad.datnar, k_zaklad.mienar, k_zaklad.vek,"
               "k_zaklad.rodcis, k_zaklad.obec, k_zaklad.ulica, k_zaklad.psc, k_zaklad.skola, "
               "k_zaklad.odporu, k_zaklad.datevi, k_zaklad.matka,"
               "iif(k_zaklad.matvla = true, 'vlastná','nevlastná') as vlnevlM, "
               "k_zaklad.matnar, k_zaklad.matvzd, k_zaklad.matuli, k_zaklad.matobe, "
               "k_zaklad.matpsc, k_zaklad.mattel, k_zaklad.matmail,"
               "k_zaklad.matzam, k_zaklad.mataza, k_zaklad.mattza, k_zaklad.matchor, "
               "k_zaklad.matpos, k_zaklad.otec, "
               "iif(k_zaklad.otevla = true, 'vlastný','nevlastný') as vlnevlO,k_zaklad.otenar,"
               "k_zaklad.otevek, k_zaklad.otevzd, k_zaklad.oteuli, k_zaklad.oteobe, "
               "k_zaklad.otepsc, k_zaklad.otetel, k_zaklad.otemail, k_zaklad.otezam,"
               "k_zaklad.oteaza, k_zaklad.otetza, k_zaklad.otechor, k_zaklad.otepos, "
               "k_zaklad.kon_meno, k_zaklad.kon_pomer, k_zaklad.kon_uli, k_zaklad.kon_obe,"
               "k_zaklad.kon_tel, k_zaklad.kon_psc, k_zaklad.kon_mail, ") +
           impairments(u"k_zaklad.matpos", u"M") + u',' + impairments(u"k_zaklad.otepos", u"O") +
           QStringLiteral(" FROM k_zaklad WHERE k_zaklad.Idkod") + equals(key);
}

QString siblings(const QString& key) {
    return QStringLiteral("SELECT k_surodenci.Meno, k_surodenci.pohlavie, k_surodenci.Idkod, "
                          "k_surodenci.roknar,k_surodenci.choroby, k_surodenci.postih,") +
           impairments(u"k_surodenci.postih") +
           QStringLiteral(" FROM k_surodenci WHERE k_surodenci.Idkod") + equals(key);
}

QString memo(QStringView column, const QString& key) {
    return QStringLiteral("SELECT  k_memo.%1 FROM k_memo WHERE k_memo.Idkod").arg(column) +
           equals(key);
}

QString placements(const QString& key) {
    return QStringLiteral(
               "SELECT k_zariad.akronym, k_zariad.vzar_od, k_zariad.vzar_do, k_zariad.adresa, "
               "c_zariad.nazov FROM c_zariad INNER JOIN k_zariad ON c_zariad.kod = "
               "k_zariad.nazzar WHERE k_zariad.Idkod") +
           equals(key);
}

QString examinations(const QString& key) {
    return QStringLiteral(
               "SELECT (Format([datum],'dd')+'.'+Format([datum],'mm')+'.'+Format([datum],'yyyy')) "
               "AS kedy, Trim([meno]) + '  ' & Trim([priezv]) AS Expr1, * FROM Zamestnanci INNER "
               "JOIN k_vysetrenie ON Zamestnanci.idkod = k_vysetrenie.idkod_p  WHERE "
               "k_vysetrenie.Idkod") +
           equals(key);
}

QString careRecords(const QString& key) {
    return QStringLiteral(
               "SELECT k_zaznam_spc.cinnost, k_zaznam_spc.datum, k_zaznam_spc.hod_od, "
               "k_zaznam_spc.hod_do,Trim([meno]) & '  ' & Trim([priezv]) AS Expr1 FROM "
               "Zamestnanci INNER JOIN k_zaznam_spc ON Zamestnanci.idkod = k_zaznam_spc.idkod_P "
               "WHERE (((k_zaznam_spc.Idkod)") +
           equals(key) + QStringLiteral("))");
}

QString changes(const QString& key) {
    return QStringLiteral("select * from vyp_zazZmeny where idkod") + equals(key);
}

QString recordsWithoutName(QStringView records, QStringView code, QStringView list,
                           QStringView listCode, const QString& key) {
    return QStringLiteral("select %1.idkod from %1 left join %3 on %1.%2 = %3.%4 where %1.idkod")
               .arg(records, code, list, listCode) +
           equals(key) + QStringLiteral(" and isnull(%1.%2)").arg(list, listCode);
}

QString allClients() {
    return QStringLiteral(
        "SELECT k_zaklad.meno,k_zaklad.priezv,k_zaklad.rodcis,k_zaklad.katcis,k_zaklad.datnar,"
        "k_zaklad.ulica,k_zaklad.obec,k_zaklad.psc FROM k_zaklad  ORDER BY "
        "k_zaklad.priezv+k_zaklad.meno");
}

} // namespace printouts
