#include "clientcard/EntryTable.h"

#include <array>

namespace clientcard {

namespace {

// The tool tips of 42 and 45 name the mother on the father's fields; users know them that way.
// Elements 9 to 11 hold codes too but take letters.
constexpr std::array<EntryRow, 57> table = {{
    {u"Meno", u"Meno", 20, 1, false, Rule::Capital, -1, u"krstné meno klienta"},
    {u"Priezv", u"Priezvisko", 30, 2, false, Rule::Capital, -1, u"priezvisko klienta"},
    {u"mienar", u"Miesto nar.", 30, 3, false, Rule::NameLookup, 0, u"názov obce(z číselníka)"},
    {u"rodcis", u"Rod.čis.", 10, 4, true, Rule::BirthNumber, -1, u"rodné číslo bez lomítka"},
    {u"datnar", u"Dát. nar.", 12, 5, false, Rule::Date, -1, u"dátum v tvare DD.MM.RRRR"},
    {u"pohlav", u"Pohlavie", 1, 267, false, Rule::Sex, -1,
     u"jednomiestny kód pohlavia(z číselníka)"},
    {u"katcis", u"Kat. čís.", 0, 7, true, Rule::CatalogueNumber, -1,
     u"jednoznačné katalógové číslo klienta"},
    {u"zdrpoi", u"Zdravotná poisťovňa", 50, 8, true, Rule::CodeLookup, 8,
     u"dvojmiestný kód zdravotnej poisťovne( z číselníka)"},
    {u"narodn", u"Národnosť", 30, 9, true, Rule::CodeLookup, 1,
     u"dvojmiestny kód národnosti klienta(z číselníka)"},
    {u"stprisl", u"Štátna príslušnosť", 30, 10, false, Rule::CodeLookup, 2,
     u"dvojmiestny kód(z číselníka)"},
    {u"jazyk", u"Jazyk, ktorým klient komunikuje", 30, 11, false, Rule::CodeLookup, 3,
     u"dvojmiestny kód(z číselníka)"},
    {u"jaz_doma", u"Jazyk, ktorým klient komunikuje doma", 0, 12, false, Rule::CodeLookup, 9,
     u"dvojmiestny kód(z číselníka)"},
    {u"ulica", u"Ulica", 25, 13, false, Rule::Capital, -1, u"ulica a číslo bydliska klienta"},
    {u"obec", u"Mesto", 30, 14, false, Rule::NameLookup, 4, u"obec(z číselníka)"},
    {u"psc", u"PSČ", 5, 15, true, Rule::None, -1, u"smerovacie číslo bydliska klienta"},
    {u"skola", u"Škola", 70, 16, false, Rule::Capital, -1,
     u"názov a adresa školy, ktorú navštevuje klient"},
    {u"odporu", u"Kto klienta odporučil", 30, 17, false, Rule::Capital, -1, u""},
    {u"datevi", u"V evidencii zar.od", 12, 18, false, Rule::Date, -1, u"dátum v tvare DD.MM.RRRR"},
    {u"", u"Dominantné", 1, 309, true, Rule::Dominant, -1, u""},
    {u"", u"Pridružené", 1, 310, true, Rule::Associated, -1, u""},
    {u"matka", u"Meno a priezvisko", 50, 23, false, Rule::CapitalBoth, -1,
     u"meno a priezvisko matky, oddelené medzerou"},
    {u"matnar", u"Rok nar.", 4, 24, true, Rule::ParentYear, -1, u"štvorčíslie roku"},
    {u"matvek", u"Vek v č.n.d.", 2, 25, true, Rule::ParentAge, -1,
     u"ak bol udaný dátum narodenia klienta, automaticky sa vypočíta vek matky v čase narodenia "
     u"dieťaťa, je možné zadať aj ručne"},
    {u"matvzd", u"Vzdel.", 20, 26, false, Rule::None, -1, u"najvyššie dosiahnuté vzdelanie matky"},
    {u"matuli", u"Ulica", 25, 27, false, Rule::Capital, -1, u"ulica a číslo bydliska matky"},
    {u"matobe", u"Obec", 30, 28, false, Rule::NameLookup, 5, u"názov obce(z číselníka)"},
    {u"matpsc", u"PSČ", 5, 29, true, Rule::None, -1, u""},
    {u"mattel", u"Tel.č.", 15, 30, false, Rule::None, -1, u"telefón matky"},
    {u"matmail", u"E_mail", 0, 31, false, Rule::None, -1, u""},
    {u"matzam", u"Zamest.", 20, 32, false, Rule::None, -1, u"zamestnanie matky"},
    {u"mataza", u"Adr.zam.", 50, 33, false, Rule::Capital, -1, u"adresa zamestnávateľa matky"},
    {u"mattza", u"Tel.č.zam.", 15, 34, false, Rule::None, -1,
     u"telefónne číslo do zamestnania matky"},
    {u"matchor", u"Prekonané vážne choroby", 50, 35, false, Rule::None, -1, u""},
    {u"", u"Dominantné", 1, 311, true, Rule::Dominant, -1, u""},
    {u"", u"Pridružené", 1, 312, true, Rule::Associated, -1, u""},
    {u"otec", u"Meno a priezvisko", 50, 40, false, Rule::CapitalBoth, -1, u""},
    {u"otenar", u"Rok nar.", 4, 41, true, Rule::ParentYear, -1, u""},
    {u"otevek", u"Vek v č.n.d.", 2, 42, true, Rule::ParentAge, -1,
     u"ak bol udaný dátum narodenia klienta, automaticky sa vypočíta vek otca v čase narodenia "
     u"dieťaťa, je možné zadať aj ručne"},
    {u"otevzd", u"Vzdel.", 20, 43, false, Rule::None, -1, u"najvyššie dosiahnuté vzdelanie otca"},
    {u"oteuli", u"Ulica", 25, 44, false, Rule::Capital, -1, u"ulica a číslo bydliska otca"},
    {u"oteobe", u"Obec", 30, 45, false, Rule::NameLookup, 6, u"názov obce(z číselníka)"},
    {u"otepsc", u"PSČ", 5, 46, true, Rule::None, -1, u""},
    {u"otetel", u"Tel.č.", 15, 47, false, Rule::None, -1, u"telefón matky"},
    {u"otemail", u"E_mail", 0, 48, false, Rule::None, -1, u""},
    {u"otezam", u"Zamest.", 30, 49, false, Rule::None, -1, u"zamestnanie otca"},
    {u"oteaza", u"Adr.zam.", 50, 50, false, Rule::Capital, -1, u"adresa zamestnávateľa matky"},
    {u"otetza", u"Tel.č.zam.", 15, 51, false, Rule::None, -1,
     u"telefónne číslo do zamestnania otca"},
    {u"otechor", u"Prekonané vážne choroby", 50, 52, false, Rule::None, -1, u""},
    {u"", u"Dominantné", 1, 313, true, Rule::Dominant, -1, u""},
    {u"", u"Pridružené", 1, 314, true, Rule::Associated, -1, u""},
    {u"kon_meno", u"Meno a priezvisko", 50, 58, false, Rule::CapitalBoth, -1, u""},
    {u"kon_pomer", u"Pomer ku kl.", 20, 59, false, Rule::None, -1, u""},
    {u"kon_obe", u"Obec", 30, 60, false, Rule::NameLookup, 7, u"názov obce(z číselníka)"},
    {u"kon_uli", u"Ulica", 25, 61, false, Rule::Capital, -1, u""},
    {u"kon_psc", u"Psč", 0, 62, true, Rule::None, -1, u""},
    {u"kon_tel", u"Telefón", 15, 63, false, Rule::None, -1, u""},
    {u"kon_mail", u"E-mail", 0, 64, false, Rule::None, -1, u""},
}};

} // namespace

std::span<const EntryRow> entryTable() {
    return table;
}

} // namespace clientcard
