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

} // namespace

constinit const ListTraits clientList{
    .number = 1,
    .gridName = u"dbgKlient",
    .heading = u"Klienti",
    .columns = clientColumns,
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

} // namespace mainwindow
