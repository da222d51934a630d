#include "clientcard/EntryTable.h"

#include <array>

namespace clientcard {

namespace {

using card::Check;
using card::FieldRow;
using card::Tidy;
using Text = const char16_t*;

constexpr FieldRow plain(Text column, Text caption, int maxLength, Text toolTip = u"") {
    return {.column = column, .caption = caption, .toolTip = toolTip, .maxLength = maxLength};
}

constexpr FieldRow tidied(FieldRow row, Tidy tidy) {
    row.tidy = tidy;
    return row;
}

constexpr FieldRow capital(Text column, Text caption, int maxLength, Text toolTip = u"") {
    return tidied(plain(column, caption, maxLength, toolTip), Tidy::Capital);
}

constexpr FieldRow name(Text column, Text caption, int maxLength, Text toolTip = u"") {
    return tidied(plain(column, caption, maxLength, toolTip), Tidy::BothCapitals);
}

constexpr FieldRow mandatory(FieldRow row) {
    row.mandatory = true;
    return row;
}

constexpr FieldRow town(Text column, Text caption, Text toolTip) {
    return capital(column, caption, municipalityWidth, toolTip);
}

constexpr FieldRow digits(Text column, Text caption, int maxLength, Text toolTip = u"") {
    FieldRow row = plain(column, caption, maxLength, toolTip);
    row.digitsOnly = true;
    return row;
}

constexpr FieldRow age(Text column, Text caption, int maxLength, Text toolTip) {
    return tidied(digits(column, caption, maxLength, toolTip), Tidy::ZeroIfEmpty);
}

constexpr FieldRow checked(Text column, Text caption, int maxLength, Text toolTip, Check check) {
    FieldRow row = plain(column, caption, maxLength, toolTip);
    row.check = check;
    return row;
}

constexpr FieldRow date(Text column, Text caption, Text toolTip) {
    return checked(column, caption, 12, toolTip, Check::Date);
}

constexpr FieldRow sexLetter(Text column, Text caption, Text toolTip) {
    return checked(column, caption, 1, toolTip, Check::Sex);
}

/// Not bound, and passed over by Tab.
constexpr FieldRow impairment(Text caption) {
    FieldRow row = digits(u"", caption, 1);
    row.tabStop = false;
    return row;
}

// The tool tips of otetel and oteaza name the mother on the father's fields; users know them that
// way. The elements from stprisl to jaz_doma hold codes too but take letters.
constexpr std::array<EntryRow, krz::count> table = {{
    {krz::meno, mandatory(capital(u"Meno", u"Meno", 20, u"krstné meno klienta"))},
    {krz::priezv, mandatory(capital(u"Priezv", u"Priezvisko", 30, u"priezvisko klienta"))},
    {krz::mienar, town(u"mienar", u"Miesto nar.", u"názov obce(z číselníka)"), Own::NameLookUp, 0},
    {krz::rodcis, digits(u"rodcis", u"Rod.čis.", 10, u"rodné číslo bez lomítka"), Own::BirthNumber},
    {krz::datnar, date(u"datnar", u"Dát. nar.", u"dátum v tvare DD.MM.RRRR")},
    {krz::pohlav, sexLetter(u"pohlav", u"Pohlavie", u"jednomiestny kód pohlavia(z číselníka)")},
    {krz::katcis,
     mandatory(digits(u"katcis", u"Kat. čís.", 0, u"jednoznačné katalógové číslo klienta")),
     Own::CatalogueNumber},
    {krz::zdrpoi,
     digits(u"zdrpoi", u"Zdravotná poisťovňa", 50,
            u"dvojmiestný kód zdravotnej poisťovne( z číselníka)"),
     Own::CodeLookUp, 8},
    {krz::narodn,
     digits(u"narodn", u"Národnosť", 30, u"dvojmiestny kód národnosti klienta(z číselníka)"),
     Own::CodeLookUp, 1},
    {krz::stprisl, plain(u"stprisl", u"Štátna príslušnosť", 30, u"dvojmiestny kód(z číselníka)"),
     Own::CodeLookUp, 2},
    {krz::jazyk,
     plain(u"jazyk", u"Jazyk, ktorým klient komunikuje", 30, u"dvojmiestny kód(z číselníka)"),
     Own::CodeLookUp, 3},
    {krz::jaz_doma,
     plain(u"jaz_doma", u"Jazyk, ktorým klient komunikuje doma", 0,
           u"dvojmiestny kód(z číselníka)"),
     Own::CodeLookUp, 9},
    {krz::ulica, capital(u"ulica", u"Ulica", 25, u"ulica a číslo bydliska klienta")},
    {krz::obec, town(u"obec", u"Mesto", u"obec(z číselníka)"), Own::NameLookUp, 4},
    {krz::psc, digits(u"psc", u"PSČ", 5, u"smerovacie číslo bydliska klienta")},
    {krz::skola, capital(u"skola", u"Škola", 70, u"názov a adresa školy, ktorú navštevuje klient")},
    {krz::odporu, capital(u"odporu", u"Kto klienta odporučil", 30)},
    {krz::datevi, date(u"datevi", u"V evidencii zar.od", u"dátum v tvare DD.MM.RRRR")},
    {krz::dominantK, impairment(u"Dominantné"), Own::Dominant},
    {krz::associatedK, impairment(u"Pridružené"), Own::Associated},
    {krz::matka,
     name(u"matka", u"Meno a priezvisko", 50, u"meno a priezvisko matky, oddelené medzerou")},
    {krz::matnar, digits(u"matnar", u"Rok nar.", 4, u"štvorčíslie roku"), Own::ParentYear},
    {krz::matvek, age(u"matvek", u"Vek v č.n.d.", 2,
                      u"ak bol udaný dátum narodenia klienta, automaticky sa vypočíta vek matky v "
                      u"čase narodenia dieťaťa, je možné zadať aj ručne")},
    {krz::matvzd, plain(u"matvzd", u"Vzdel.", 20, u"najvyššie dosiahnuté vzdelanie matky")},
    {krz::matuli, capital(u"matuli", u"Ulica", 25, u"ulica a číslo bydliska matky")},
    {krz::matobe, town(u"matobe", u"Obec", u"názov obce(z číselníka)"), Own::NameLookUp, 5},
    {krz::matpsc, digits(u"matpsc", u"PSČ", 5)},
    {krz::mattel, plain(u"mattel", u"Tel.č.", 15, u"telefón matky")},
    {krz::matmail, plain(u"matmail", u"E_mail", 0)},
    {krz::matzam, plain(u"matzam", u"Zamest.", 20, u"zamestnanie matky")},
    {krz::mataza, capital(u"mataza", u"Adr.zam.", 50, u"adresa zamestnávateľa matky")},
    {krz::mattza, plain(u"mattza", u"Tel.č.zam.", 15, u"telefónne číslo do zamestnania matky")},
    {krz::matchor, plain(u"matchor", u"Prekonané vážne choroby", 50)},
    {krz::dominantM, impairment(u"Dominantné"), Own::Dominant},
    {krz::associatedM, impairment(u"Pridružené"), Own::Associated},
    {krz::otec, name(u"otec", u"Meno a priezvisko", 50)},
    {krz::otenar, digits(u"otenar", u"Rok nar.", 4), Own::ParentYear},
    {krz::otevek, age(u"otevek", u"Vek v č.n.d.", 2,
                      u"ak bol udaný dátum narodenia klienta, automaticky sa vypočíta vek otca v "
                      u"čase narodenia dieťaťa, je možné zadať aj ručne")},
    {krz::otevzd, plain(u"otevzd", u"Vzdel.", 20, u"najvyššie dosiahnuté vzdelanie otca")},
    {krz::oteuli, capital(u"oteuli", u"Ulica", 25, u"ulica a číslo bydliska otca")},
    {krz::oteobe, town(u"oteobe", u"Obec", u"názov obce(z číselníka)"), Own::NameLookUp, 6},
    {krz::otepsc, digits(u"otepsc", u"PSČ", 5)},
    {krz::otetel, plain(u"otetel", u"Tel.č.", 15, u"telefón matky")},
    {krz::otemail, plain(u"otemail", u"E_mail", 0)},
    {krz::otezam, plain(u"otezam", u"Zamest.", 30, u"zamestnanie otca")},
    {krz::oteaza, capital(u"oteaza", u"Adr.zam.", 50, u"adresa zamestnávateľa matky")},
    {krz::otetza, plain(u"otetza", u"Tel.č.zam.", 15, u"telefónne číslo do zamestnania otca")},
    {krz::otechor, plain(u"otechor", u"Prekonané vážne choroby", 50)},
    {krz::dominantO, impairment(u"Dominantné"), Own::Dominant},
    {krz::associatedO, impairment(u"Pridružené"), Own::Associated},
    {krz::kon_meno, name(u"kon_meno", u"Meno a priezvisko", 50)},
    {krz::kon_pomer, plain(u"kon_pomer", u"Pomer ku kl.", 20)},
    {krz::kon_obe, town(u"kon_obe", u"Obec", u"názov obce(z číselníka)"), Own::NameLookUp, 7},
    {krz::kon_uli, capital(u"kon_uli", u"Ulica", 25)},
    {krz::kon_psc, digits(u"kon_psc", u"Psč", 0)},
    {krz::kon_tel, plain(u"kon_tel", u"Telefón", 15)},
    {krz::kon_mail, plain(u"kon_mail", u"E-mail", 0)},
}};

static_assert(
    [] {
        for (std::size_t i = 0; i < table.size(); ++i) {
            if (table[i].element != int(i))
                return false;
        }
        return true;
    }(),
    "the rows stand in the order of the elements");

// Behind a parent's dominant impairment the walk goes on with the next person while there is none;
// the client's ends there, as several associated ones may be typed one after another. From the
// first field of its tab the walk does not lead to another tab.
constexpr std::array<card::Step, 7> steps = {{
    {krz::dominantK, card::Way::Forth, krz::associatedK, krz::dominantK},
    {krz::associatedK, card::Way::Forth, krz::associatedK, krz::associatedK},
    {krz::matka, card::Way::Back, krz::matka, krz::matka},
    {krz::dominantM, card::Way::Forth, krz::associatedM, krz::otec},
    {krz::otec, card::Way::Back, krz::associatedM, krz::dominantM},
    {krz::dominantO, card::Way::Forth, krz::associatedO, krz::kon_meno},
    {krz::kon_meno, card::Way::Back, krz::associatedO, krz::dominantO},
}};

// The sibling's picker of associated impairments is not among them.
constexpr std::array<card::SparingPick, 3> sparing = {{
    {.name = u"dbcvolby"},
    {.name = u"cmbPos"},
    {.name = u"cmbSek", .lastElement = 2},
}};

} // namespace

std::span<const EntryRow> entryTable() {
    return table;
}

const card::FieldSet entrySet = {.array = u"textKrz",
                                 .pageKeysTo = u"CmdZap",
                                 .uncheckedTowards = u"cmdStorno",
                                 .steps = steps,
                                 .sparing = sparing};

} // namespace clientcard
