#include "clientcard/RecordTable.h"

#include <algorithm>

namespace clientcard {

namespace {

constexpr const char16_t* workerTip = u"kód pracovníka z číselnika";

constexpr RecordField datedFields[] = {
    {u"datum", u"Dátum zápisu :", u"", RecordRule::RecordDate, 12, false, 0, 0, 12},
    {u"idkod_p", u"Meno pracovníka :", workerTip, RecordRule::Worker, 0, false, 1, 0, 12},
};

constexpr RecordField careFields[] = {
    {u"datum", u"Dátum záznamu :", u"", RecordRule::RecordDate, 12, false, 0, 0, 12},
    {u"hod_od", u"Hodina od :", u"", RecordRule::Hour, 0, false, 0, 1, 4},
    {u"hod_do", u"Hodina do :", u"", RecordRule::Hour, 0, false, 0, 2, 4},
    {u"idkod_P", u"Pracovník :", workerTip, RecordRule::Worker, 0, false, 1, 0, 12},
};

// The next visit is looked for among the dates of visits, like the visit's own.
constexpr RecordField visitFields[] = {
    {u"datum", u"Návšteva dňa :", u"", RecordRule::RecordDate, 12, false, 0, 0, 12},
    {u"dat_budn", u"Budúca návšteva :", u"", RecordRule::RecordDate, 12, false, 1, 0, 12},
};

constexpr RecordField placementFields[] = {
    {u"nazzar", u"Názov zariadenia ", u"kód zariadenia z číselníka", RecordRule::Facility, 0, false,
     0, 0, 4},
    {u"adresa", u"Adresa zariadenia  ", u"", RecordRule::Address, 0, false, 1, 0, 70},
    {u"vzar_od", u"V zariadení je od   ", u"", RecordRule::Date, 12, false, 2, 0, 12},
    {u"vzar_do", u"V zariadení bol do ", u"", RecordRule::Date, 12, false, 3, 0, 12},
};

constexpr RecordField siblingFields[] = {
    {u"Meno", u"Meno a priezvisko", u"Meno", RecordRule::SiblingName, 0, false, 0, 0, 40},
    {u"roknar", u"Rok narodenia", u"", RecordRule::Year, 4, true, 1, 0, 5},
    {u"pohlavie", u"Pohlavie", u"", RecordRule::Sex, 1, false, 2, 0, 2},
    {u"choroby", u"Prekonané vážn.ochorenia", u"", RecordRule::None, 50, false, 3, 0, 50},
    {u"", u"Dominantné", u"", RecordRule::Dominant, 1, true, 0, 0, 0},
    {u"", u"Pridružené", u"", RecordRule::Associated, 1, true, 0, 0, 0},
};

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
    .frame = u"Frame5",
    .frameTitle = u"Zápis/Oprava údajov",
    .buttons = u"cmdPza",
    .deleteButtons = u"cmdPza",
    .saveCaption = u"Zápis",
    .saveNewCaption = u"Zápis+nový",
    .fieldArray = u"TextPza",
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
    // A field that a key has checked once is not checked again on leaving until the card closes.
    .focusClearsCheck = FocusClearsCheck::No,
    .pageKeysTo = u"cmdPzaZap",
    // The card's own Storno, which is disabled while a record is open: the tab's does not spare a
    // field its check, only Esc does.
    .uncheckedTowards = u"cmdStorno",
    .pick = u"DBCPza",
    .pickedField = 1,
    .towardsPick = TowardsPick::SparesItsField,
};

constexpr RecordRow changes = [] {
    RecordRow row = examinations;
    row.tab = 12;
    row.source = u"datZaznam_zmeny";
    row.table = u"k_zaznam_zmeny";
    row.list = u"DBList4";
    row.frame = u"Frame6";
    row.buttons = row.deleteButtons = u"cmdZaz";
    row.fieldArray = u"TextZaz";
    row.richText = u"rtbZaz";
    row.richColumn = u"zmeny";
    row.richLabel = u"Zaznamenané zmeny";
    row.deleteTitle = u"Výmaz záznamu o zmene";
    row.deleteQuestion = u"Naozaj chceš vymazať zaznamenané zmeny zo dňa: ";
    // After an edit this list and the next two begin from the top.
    row.afterEdit = AfterEdit::FirstRow;
    row.pageKeysTo = u"cmdZazZap";
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
    row.fieldArray = u"textZsc";
    row.fields = careFields;
    row.richText = u"rtbZsc";
    row.richColumn = u"cinnost";
    row.richLabel = u"Špeciálno-pedagogická činnosť";
    row.mandatory[1].field = 3;
    // The question's words stay those of the records of change.
    row.deleteTitle = u"Výmaz záznamu o špec.-ped.činnosti ";
    row.pageKeysTo = u"cmdZscZap";
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
    row.saveNewCaption = u"Zápis + nový";
    row.fieldArray = u"textNav";
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
    row.pageKeysTo = u"cmdZazZap";
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
    row.frame = u"Frame3";
    row.buttons = row.deleteButtons = u"cmdZar";
    row.fieldArray = u"textZar";
    row.fields = placementFields;
    row.richText = row.richColumn = row.richLabel = u"";
    row.mandatory = {{{0, u"Názov zariadenia je povinný údaj !"}, {}}};
    row.deleteTitle = u"Výmaz zariadenia klienta";
    row.deleteQuestion = u"Naozaj chceš vymazať zariadenie : ";
    row.questionParts = placementQuestion;
    row.opensOn = OpensOn::FirstField;
    row.upFromFirst = UpFromFirst::Stays;
    row.focusClearsCheck = FocusClearsCheck::Yes;
    // The card's own button, disabled while a record is open: the keys check and stay.
    row.pageKeysTo = u"CmdZap";
    row.uncheckedTowards = u"cmdZarSto";
    row.pick = u"dbcZar";
    row.pickedField = 0;
    row.towardsPick = TowardsPick::ChecksOthersAgain;
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
    row.frame = u"fraSur";
    row.buttons = u"cmdSur";
    row.deleteButtons = u"CmdSur";
    row.saveCaption = u"Zapíš súrodenca";
    row.saveNewCaption = u"Zapíš+nový";
    row.fieldArray = u"textSur";
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
    row.uncheckedTowards = u"cmdSurSto";
    row.pick = u"cmbSur";
    row.pickedField = -1;
    row.towardsPick = TowardsPick::SparesAllFields;
    return row;
}();

constexpr std::array<const RecordRow*, 6> table = {&siblings, &placements, &examinations,
                                                   &care,     &changes,    &visits};

} // namespace

const RecordRow& recordRow(int tab) {
    return **std::ranges::find(table, tab, [](const RecordRow* row) { return row->tab; });
}

} // namespace clientcard
