#include "mainwindow/Lists.h"

#include <array>

namespace mainwindow {

namespace {

constexpr auto clientColumns = std::to_array<forms::GridColumn>({
    {u"Meno", u"meno", 1400},
    {u"Priezvisko", u"priezv", 1900},
    {u"Dát.nar.", u"datnar", 1000},
    {u"Kat.číslo", u"katcis", 1300},
});

constexpr auto employeeColumns = std::to_array<forms::GridColumn>({
    {u"Meno", u"meno", 2000},
    {u"Priezvisko", u"priezv", 2500},
    {u"Pracovné zaradenie", u"naz_fun", 2100},
});

constexpr auto clientOrders = std::to_array<QStringView>({
    u"meno,priezv",
    u"priezv,meno",
    u"datnar,priezv,meno",
    u"val(katcis)",
});

constexpr auto employeeOrders = std::to_array<QStringView>({
    u"meno,priezv",
    u"priezv,meno",
    u"c_funkcie.nazov,priezv,meno",
});

constexpr auto clientFiltered =
    std::to_array<QStringView>({u"meno", u"priezv", u"katcis", u"datnar"});
constexpr auto employeeFiltered = std::to_array<QStringView>({u"meno", u"priezv", u"naz_fun"});

} // namespace

constinit const ListTraits clientList{
    .number = 1,
    .gridName = u"dbgKlient",
    .heading = u"Klienti",
    .columns = clientColumns,
    .orders = clientOrders,
    .filtered = clientFiltered,
    .filterHint = u"Filter: meno, priezvisko, kat. číslo, dátum",
    .countedOne = u"klienta",
    .counted = u"klientov",
    .sqlByName = u"select *,meno+space(2)+priezv as celemeno from k_zaklad order by priezv,meno",
    .newCaption = u"Nový klient",
    .deleteCaption = u"Výmaz klienta",
    .findCaption = u"Hľadaj klienta",
    .noneToDelete = u"Nie je vybraný žiaden klient ",
    .deleteQuestion = u"Naozaj chceš vymazať klienta : ",
    .deleteTitle = u"Výmaz klienta",
    .noneToFind = u"Nie sú nahraní žiadni klienti!",
    .findPrompt = u"Zadaj priezvisko a meno klienta :",
    .notFound = u"Klient  '",
    .card = Screen::ClientCard,
};

constinit const ListTraits employeeList{
    .number = 2,
    .gridName = u"dbgPsych",
    .heading = u"Zamestnanci",
    .columns = employeeColumns,
    .orders = employeeOrders,
    .filtered = employeeFiltered,
    .filterHint = u"Filter: meno, priezvisko, zaradenie",
    .countedOne = u"zamestnanca",
    .counted = u"zamestnancov",
    .sqlByName = u"select zamestnanci.meno,zamestnanci.priezv,zamestnanci.idkod,"
                 u"c_funkcie.nazov as naz_fun from zamestnanci,c_funkcie "
                 u"where zamestnanci.prac_zar=c_funkcie.fc_idkod order by priezv,meno",
    .newCaption = u"Nový zamestnanec",
    .deleteCaption = u"Výmaz zamestnanca",
    .findCaption = u"Hľadaj zamestnanca",
    .noneToDelete = u"Nie je vybraný žiaden zamestnanec ",
    .deleteQuestion = u"Naozaj chceš vymazať zamestnanca : ",
    .deleteTitle = u"výmaz zamestnanca",
    .noneToFind = u"Nie sú nahraní žiadni zamestnanci!",
    .findPrompt = u"Zadaj priezvisko a meno zamestnanca :",
    .notFound = u"Zamestnanec  '",
    .card = Screen::EmployeeCard,
};

QString sortedBy(const ListTraits& list, int column, Qt::SortOrder order) {
    const QString source =
        list.sqlByName.first(list.sqlByName.lastIndexOf(u" order by ")).toString();
    QString terms = list.orders[static_cast<std::size_t>(column)].toString();
    if (order == Qt::DescendingOrder)
        terms = terms.replace(u',', QStringLiteral(" desc,")) + QStringLiteral(" desc");
    return source + QStringLiteral(" order by ") + terms;
}

} // namespace mainwindow
