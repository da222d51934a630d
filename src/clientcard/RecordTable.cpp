#include "clientcard/RecordTable.h"

#include <algorithm>

namespace clientcard {

namespace {

using card::Check;
using card::Tidy;

constexpr card::FieldRow recordDate(const char16_t* column, const char16_t* label) {
    return {.column = column, .caption = label, .maxLength = 12, .check = Check::Date};
}

constexpr card::FieldRow worker(const char16_t* column, const char16_t* label) {
    return {.column = column,
            .caption = label,
            .toolTip = u"kód pracovníka z číselnika",
            .tidy = Tidy::BothCapitals};
}

constexpr card::FieldRow hour(const char16_t* column, const char16_t* label) {
    return {.column = column, .caption = label, .tidy = Tidy::TwoCharacters};
}

constexpr RecordField datedFields[] = {
    {recordDate(u"datum", u"Dátum zápisu :"), RecordCheck::DateIsFree, 0, 0, 12},
    {worker(u"idkod_p", u"Meno pracovníka :"), RecordCheck::OfKind, 1, 0, 12},
};

constexpr RecordField careFields[] = {
    {recordDate(u"datum", u"Dátum záznamu :"), RecordCheck::DateIsFree, 0, 0, 12},
    {hour(u"hod_od", u"Hodina od :"), RecordCheck::None, 0, 1, 4},
    {hour(u"hod_do", u"Hodina do :"), RecordCheck::None, 0, 2, 4},
    {worker(u"idkod_P", u"Pracovník :"), RecordCheck::OfKind, 1, 0, 12},
};

// The next visit is looked for among the dates of visits, like the visit's own.
constexpr RecordField visitFields[] = {
    {recordDate(u"datum", u"Návšteva dňa :"), RecordCheck::DateIsFree, 0, 0, 12},
    {recordDate(u"dat_budn", u"Budúca návšteva :"), RecordCheck::DateIsFree, 1, 0, 12},
};

constexpr RecordField placementFields[] = {
    {{.column = u"nazzar",
      .caption = u"Názov zariadenia ",
      .toolTip = u"kód zariadenia z číselníka"},
     RecordCheck::OfKind,
     0,
     0,
     4},
    {{.column = u"adresa", .caption = u"Adresa zariadenia  ", .tidy = Tidy::CapitalByKey},
     RecordCheck::None,
     1,
     0,
     70},
    {recordDate(u"vzar_od", u"V zariadení je od   "), RecordCheck::None, 2, 0, 12},
    {recordDate(u"vzar_do", u"V zariadení bol do "), RecordCheck::None, 3, 0, 12},
};

constexpr RecordField siblingFields[] = {
    {{.column = u"Meno", .caption = u"Meno", .tidy = Tidy::BothCapitals},
     RecordCheck::NameIsFree,
     0,
     0,
     40},
    {{.column = u"roknar",
      .caption = u"Rok narodenia",
      .maxLength = 4,
      .digitsOnly = true,
      .tidy = Tidy::ZeroIfEmpty},
     RecordCheck::None,
     1,
     0,
     5},
    {{.column = u"pohlavie", .caption = u"Pohlavie", .maxLength = 1, .check = Check::Sex},
     RecordCheck::None,
     2,
     0,
     2},
    {{.column = u"choroby", .caption = u"Prekonané vážn.ochorenia", .maxLength = 50},
     RecordCheck::None,
     3,
     0,
     50},
    {{.caption = u"Dominantné", .maxLength = 1, .digitsOnly = true}, RecordCheck::OfKind},
    // Opened by the dominant one.
    {{.caption = u"Pridružené", .maxLength = 1, .digitsOnly = true, .opensApart = true},
     RecordCheck::OfKind},
};

constexpr card::SparingPick sparingPza[] = {{.name = u"DBCPza", .field = 1}};
constexpr card::SparingPick sparingZaz[] = {{.name = u"DBCZaz", .field = 1}};
constexpr card::SparingPick sparingZsc[] = {{.name = u"DBCZsc", .field = 3}};
constexpr card::SparingPick sparingZar[] = {{.name = u"dbcZar", .field = 0}};
// The pick of associated impairments is not among them.
constexpr card::SparingPick sparingSur[] = {{.name = u"cmbSur"}};

constexpr const char16_t* noWorker = u"Meno psychológa je povinný údaj !";

constexpr QuestionPart datedQuestion[] = {
    {u"", u"", u"datum"},
    {u"  ", u"datZaklad", u"priezv"},
    {u"  ", u"datZaklad", u"meno"},
};
constexpr QuestionPart visitQuestion[] = {{u"", u"", u"datum"}};
// The facility is the one on which the list of codes happens to stand, which need not be the
// record's.
constexpr QuestionPart placementQuestion[] = {
    {u"", u"DatCisZar", u"nazov"},
    {u"  ", u"", u"vzar_od"},
    {u" - ", u"", u"vzar_do"},
};
constexpr QuestionPart siblingQuestion[] = {{u"", u"", u"meno"}};

/// The model of the six; the others say what they do otherwise.
constexpr RecordRow examinations = {
    .tab = 10,
    .source = u"datVysetrenie",
    .table = u"k_vysetrenie",
    .list = u"DBList3",
    .listLabel = u"Zoznam záznamov",
    .shownColumn = u"kedy",
    .listCharacters = 18,
    .dateColumn = u"datum",
    .frame = u"Frame5",
    .frameTitle = u"Zápis/Oprava údajov",
    .buttons = u"cmdPza",
    .deleteButtons = u"cmdPza",
    .saveCaption = u"&Zápis",
    .saveNewCaption = u"Zá&pis+nový",
    .fieldSet = {.array = u"TextPza",
                 .pageKeysTo = u"cmdPzaZap",
                 // The card's own Storno, which is disabled while a record is open: the tab's does
                 // not spare a field its check, only Esc does.
                 .uncheckedTowards = u"cmdStorno",
                 // A field that a key has checked once is not checked again on leaving until the
                 // card closes.
                 .focusClearsCheck = card::FocusClearsCheck::No,
                 .sparing = sparingPza},
    .fields = datedFields,
    .richText = u"rtbPza",
    .richColumn = u"popis",
    .richLabel = u"Priebeh a závery tvk.vyšeterenia",
    .mandatory = {{{0, u"Dátum je povinný údaj !"}, {1, noWorker}}},
    .deleteTitle = u"Výmaz priebehu a záverov špec.-ped.vyšetrenia",
    .deleteQuestion = u"Naozaj chceš vymazať záznam o vyšetrení zo dňa: ",
    .questionParts = datedQuestion,
    .opensOn = OpensOn::RichText,
    .upFromFirst = UpFromFirst::RichText,
    .afterEdit = AfterEdit::SamePlace,
    .editOpens = EditOpens::AfterFields,
    .stornoRereads = StornoRereads::No,
    .pick = u"DBCPza",
    .pickedField = 1,
};

constexpr RecordRow changes = [] {
    RecordRow row = examinations;
    row.tab = 12;
    row.source = u"datZaznam_zmeny";
    row.table = u"k_zaznam_zmeny";
    row.list = u"DBList4";
    row.frame = u"Frame6";
    row.buttons = row.deleteButtons = u"cmdZaz";
    row.fieldSet.array = u"TextZaz";
    row.richText = u"rtbZaz";
    row.richColumn = u"zmeny";
    row.richLabel = u"Zaznamenané zmeny";
    row.deleteTitle = u"Výmaz záznamu o zmene";
    row.deleteQuestion = u"Naozaj chceš vymazať zaznamenané zmeny zo dňa: ";
    // After an edit this list and the next two begin from the top.
    row.afterEdit = AfterEdit::FirstRow;
    row.fieldSet.pageKeysTo = u"cmdZazZap";
    row.fieldSet.sparing = sparingZaz;
    row.pick = u"DBCZaz";
    return row;
}();

constexpr RecordRow care = [] {
    RecordRow row = changes;
    row.tab = 11;
    row.source = u"datZaznam_spc";
    row.table = u"k_zaznam_spc";
    row.list = u"DBList5";
    row.frame = u"Frame7";
    row.buttons = row.deleteButtons = u"cmdZsc";
    row.fieldSet.array = u"textZsc";
    row.fields = careFields;
    row.richText = u"rtbZsc";
    row.richColumn = u"cinnost";
    row.richLabel = u"Špeciálno-pedagogická činnosť";
    row.mandatory[1].field = 3;
    // The question's words stay those of the records of change.
    row.deleteTitle = u"Výmaz záznamu o špec.-ped.činnosti ";
    row.fieldSet.pageKeysTo = u"cmdZscZap";
    row.fieldSet.sparing = sparingZsc;
    row.pick = u"DBCZsc";
    row.pickedField = 3;
    return row;
}();

constexpr RecordRow visits = [] {
    RecordRow row = changes;
    row.tab = 13;
    row.source = u"datNavstevy";
    row.table = u"k_navstevy";
    row.list = u"DBList6";
    row.listLabel = u"Zoznam návštev";
    row.frame = u"Frame8";
    row.frameTitle = u"Zápis/oprava údajov";
    row.buttons = row.deleteButtons = u"cmdNav";
    row.saveNewCaption = u"Zá&pis + nový";
    row.fieldSet.array = u"textNav";
    row.fields = visitFields;
    row.richText = row.richColumn = row.richLabel = u"";
    row.mandatory = {{{0, u"Dátum návštevy je povinný údaj !"},
                      {1, u"Dátum budúcej návštevy je povinný údaj !"}}};
    row.deleteTitle = u"Výmaz zápisu návštevy ";
    row.deleteQuestion = u"Naozaj chceš vymazať zápis zo dňa: ";
    row.questionParts = visitQuestion;
    row.opensOn = OpensOn::FirstField;
    row.upFromFirst = UpFromFirst::Stays;
    // The button of another tab, disabled while a visit is open: PageUp and PageDown check the
    // field and the focus stays. Users know the tab that way.
    row.fieldSet.pageKeysTo = u"cmdZazZap";
    row.fieldSet.sparing = {};
    row.pick = u"";
    row.pickedField = -1;
    return row;
}();

constexpr RecordRow placements = [] {
    RecordRow row = examinations;
    row.tab = 9;
    row.source = u"datZariad";
    row.table = u"k_zariad";
    row.list = u"DBList2";
    row.listLabel = u"Zoznam zapísaných zariadení";
    row.listCharacters = 28;
    row.dateColumn = u"vzar_od";
    row.frame = u"Frame3";
    row.buttons = row.deleteButtons = u"cmdZar";
    row.fieldSet.array = u"textZar";
    row.fields = placementFields;
    row.richText = row.richColumn = row.richLabel = u"";
    row.mandatory = {{{0, u"Názov zariadenia je povinný údaj !"}, {}}};
    row.deleteTitle = u"Výmaz zariadenia klienta";
    row.deleteQuestion = u"Naozaj chceš vymazať zariadenie : ";
    row.questionParts = placementQuestion;
    row.opensOn = OpensOn::FirstField;
    row.upFromFirst = UpFromFirst::Stays;
    row.fieldSet.focusClearsCheck = card::FocusClearsCheck::Yes;
    // The card's own button, disabled while a record is open: the keys check and stay.
    row.fieldSet.pageKeysTo = u"CmdZap";
    row.fieldSet.uncheckedTowards = u"cmdZarSto";
    row.fieldSet.sparing = sparingZar;
    row.pick = u"dbcZar";
    row.pickedField = 0;
    return row;
}();

constexpr RecordRow siblings = [] {
    RecordRow row = placements;
    row.tab = 2;
    row.source = u"datSurodenci";
    row.table = u"k_surodenci";
    row.list = u"DBList1";
    row.listLabel = u"Zoznam súrodencov";
    row.shownColumn = u"meno";
    row.dateColumn = u"";
    row.frame = u"fraSur";
    row.buttons = u"cmdSur";
    row.deleteButtons = u"CmdSur";
    row.saveCaption = u"&Zapíš súrodenca";
    row.saveNewCaption = u"Za&píš+nový";
    row.fieldSet.array = u"textSur";
    row.fields = siblingFields;
    row.mandatory = {{{0, u"Meno je povinný údaj !"}, {}}};
    // The question has no title of its own.
    row.deleteTitle = u"";
    row.deleteQuestion = u"Naozaj chceš vymazať súrodenca : ";
    row.questionParts = siblingQuestion;
    // The associated impairments open only for a record that has a dominant one.
    row.editOpens = EditOpens::BeforeFields;
    // So Storno leads to the first sibling, not to the one that was current.
    row.stornoRereads = StornoRereads::Yes;
    row.fieldSet.uncheckedTowards = u"cmdSurSto";
    row.fieldSet.sparing = sparingSur;
    row.pick = u"";
    row.pickedField = -1;
    return row;
}();

constexpr std::array<const RecordRow*, 6> table = {&siblings, &placements, &examinations,
                                                   &care,     &changes,    &visits};

} // namespace

const RecordRow& recordRow(int tab) {
    return **std::ranges::find(table, tab, [](const RecordRow* row) { return row->tab; });
}

} // namespace clientcard
