#include "clientcard/CardTables.h"

#include <array>

namespace clientcard {

namespace {

constexpr std::array<TabRow, 14> tabs = {{
    {u"Základné údaje", TabKind::Basic},
    {u"Rodičia", TabKind::Parents},
    {u"Súrodenci", TabKind::Siblings},
    {u"Dieťa v rannom predš.veku", TabKind::Memo, 3, u"u_dieta"},
    {u"Žiak vo vých.vyuč.procese", TabKind::Memo, 4, u"u_ziak"},
    {u"Zhrn.výsl.pred.odb.vyš", TabKind::Memo, 5, u"u_zhrn"},
    {u"Ďalšie dôl.údaje o klientovi", TabKind::Memo, 0, u"u_dolezite"},
    {u"Poznámky", TabKind::Memo, 1, u"poznamky"},
    {u"Indiv.plán klienta tvk.por.zar.", TabKind::Memo, 2, u"ip_tvkz"},
    {u"Úd. o vých. a vzdel., resp. o tvk. výchove", TabKind::Placements},
    {u"Priebeh a závery tvk.vyšetrenia", TabKind::Dated},
    {u"Záznam o tvk.starostliv.", TabKind::Dated},
    {u"Zaznamenané zmeny", TabKind::Dated},
    {u"Návštevy", TabKind::Dated},
}};

// In the order that the look-up by name gives the list as well.
constexpr const char16_t* municipalities = u"select * from c_iczuj order by nazov";

constexpr std::array<CodeListRow, 10> codeLists = {{
    {u"DatCisObceN", u"c_iczuj", municipalities},
    {u"datCisObceK", u"c_iczuj", municipalities},
    {u"DatCisObceM", u"c_iczuj", municipalities},
    {u"DatCisObceO", u"c_iczuj", municipalities},
    {u"DatCisObceKo", u"c_iczuj", municipalities},
    {u"datCisStPrisl", u"c_iczeme",
     u"select (format(c_iczeme.kod, '@@')+format(chr(124),'@@@!')+c_iczeme.nazov) as roleta,"
     u"c_iczeme.kod,c_iczeme.nazov from c_iczeme order by kod"},
    {u"DatCisZdrPoi", u"c_zdrpoi",
     u"select (c_zdrpoi.kod+space(2)+chr(124)+space(2)+c_zdrpoi.nazov) as roleta,"
     u"c_zdrpoi.kod,c_zdrpoi.nazov from c_zdrpoi order by kod"},
    {u"DatCisNar", u"c_narodn",
     u"select (c_narodn.kod+space(2)+chr(124)+space(2)+c_narodn.nazov) as roleta,"
     u"c_narodn.kod,c_narodn.nazov from c_narodn order by kod"},
    {u"DatCisJazKom", u"c_jazyk",
     u"select (c_jazyk.kod+space(2)+chr(124)+space(2)+c_jazyk.nazov) as roleta,"
     u"c_jazyk.kod,c_jazyk.nazov from c_jazyk order by kod"},
    {u"DatCisJazyk", u"c_jazyk",
     u"select (c_jazyk.kod+space(2)+chr(124)+space(2)+c_jazyk.nazov) as roleta,"
     u"c_jazyk.kod,c_jazyk.nazov from c_jazyk order by kod"},
}};

// Picker 7 takes two characters of a municipality while the user moves through the list, the whole
// name when it is chosen; picker 8 takes nothing then. Users are used to both.
constexpr std::array<PickerRow, 10> pickers = {{
    {krz::mienar, u"DatCisObceN", u"c_iczuj", u"nazov", municipalityWidth, municipalityWidth},
    {krz::narodn, u"DatCisNar", u"c_narodn", u"roleta", 2, 2},
    {krz::stprisl, u"datCisStPrisl", u"c_iczeme", u"roleta", 2, 2},
    {krz::jazyk, u"DatCisJazKom", u"c_jazyk", u"roleta", 2, 2},
    {krz::obec, u"datCisObceK", u"c_iczuj", u"nazov", municipalityWidth, municipalityWidth},
    {krz::matobe, u"DatCisObceM", u"c_iczuj", u"nazov", municipalityWidth, municipalityWidth},
    {krz::oteobe, u"DatCisObceO", u"c_iczuj", u"nazov", municipalityWidth, municipalityWidth},
    {krz::kon_obe, u"DatCisObceKo", u"c_iczuj", u"nazov", municipalityWidth, 2},
    {krz::zdrpoi, u"DatCisZdrPoi", u"c_zdrpoi", u"roleta", 2, 0},
    {krz::jaz_doma, u"DatCisJazKom", u"c_jazyk", u"roleta", 2, 2},
}};

} // namespace

std::span<const TabRow> tabTable() {
    return tabs;
}

QKeySequence tabKey(int tab) {
    constexpr int byCtrl = 9;
    return tab < byCtrl ? QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + tab))
                        : QKeySequence(Qt::ALT | Qt::Key(Qt::Key_1 + tab - byCtrl));
}

bool isEntry(TabKind kind) {
    return kind == TabKind::Basic || kind == TabKind::Parents;
}

std::span<const CodeListRow> codeListTable() {
    return codeLists;
}

std::span<const PickerRow> pickerTable() {
    return pickers;
}

} // namespace clientcard
