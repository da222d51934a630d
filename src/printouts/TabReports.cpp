#include "printouts/TabReports.h"

#include "printouts/Forms.h"
#include "printouts/Statements.h"

#include <array>

namespace printouts {

namespace {

constexpr TabReport text(const char16_t* title, const char16_t* heading, const char16_t* column) {
    return {title, rptDemo, u"vyp_memo", nullptr, heading, column};
}

constexpr Names facilities{u"k_zariad", u"nazzar", u"c_zariad", u"kod"};
constexpr Names examiners{u"k_vysetrenie", u"idkod_p", u"zamestnanci", u"idkod"};
constexpr Names carers{u"k_zaznam_spc", u"idkod_p", u"zamestnanci", u"idkod"};

constexpr std::array<TabReport, 14> tabs = {{
    {u"Základné údaje", rptZakUdaj, u"vyp_zaklad", basicData},
    {u"Rodičia", rptRodicia, u"vyp_rodicia", parents},
    {u"Súrodenci", rptSurodenci, u"vyp_surodenci", siblings},
    text(u"Dieťa v rannom predškolskom veku", u"Dieťa v rannom predškolskom veku", u"u_dieta"),
    text(u"Žiak vo výchovno-vyučovacom procese", u"Žiak vo výchovno-vyučovacom procese", u"u_ziak"),
    text(u"Zhrnutie výsledkov vyšetrenia",
         u"Zhrnutie výsledkov predchádzajúceho odborného vyšetrenia", u"u_zhrn"),
    text(u"Ďalšie dôležité údaje", u"Ďalšie dôležité údaje o klientovi", u"u_dolezite"),
    text(u"Poznámky", u"Poznámky", u"poznamky"),
    text(u"Individuálny plán", u"Individuálny plán klienta tvk.por.zar.", u"ip_tvkz"),
    {u"Výchova a vzdelávanie", rptUdajVV, u"vyp_zariad", placements, u"", u"", &facilities},
    {u"Vyšetrenia", rptVysetrenie, u"vyp_vysetrenie", examinations, u"", u"", &examiners},
    {u"Záznam o činnosti", rptZaz_spc, u"vyp_zazspc", careRecords, u"", u"", &carers},
    {u"Zaznamenané zmeny", rptZaz_zmeny, u"", changes},
    {u"Návštevy", rptNavstevy, u"vyp_navstevy", nullptr},
}};

} // namespace

std::span<const TabReport> tabReports() {
    return tabs;
}

report::Layout formOf(const TabReport& tab) {
    report::Layout form = tab.form();
    if (*tab.column == u'\0')
        return form;
    form.reportHeader.control(u"lblNadpis").caption = QString::fromUtf16(tab.heading);
    form.detail.control(u"txtPolozka").dataField = QString::fromUtf16(tab.column);
    return form;
}

} // namespace printouts
