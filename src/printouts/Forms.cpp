#include "printouts/Forms.h"

#include "printouts/FormTable.h"

namespace printouts {

namespace {

using enum Look;

/// Where the values of forms with one row for each stand.
constexpr int valueLeft = 3402;
constexpr int valueWidth = uprightWidth - valueLeft;
constexpr int impairmentWidth = valueWidth / 9;

struct Row {
    int top;
    const char16_t* caption;
    const char16_t* column;
};

/// Rows of caption and value, the values below one another.
std::vector<Part> partsOf(std::initializer_list<Row> rows, int left, int right = uprightWidth) {
    std::vector<Part> parts;
    for (const Row& row : rows) {
        parts.push_back({Caption, 0, row.top, left, QString::fromUtf16(row.caption)});
        if (row.column != nullptr)
            parts.push_back({Value, left, row.top, right - left, QString::fromUtf16(row.column)});
    }
    return parts;
}

/// A parent, by the beginnings and ends of the columns that are theirs alone.
struct Parent {
    int top;
    const char16_t* caption;
    const char16_t* own;
    const char16_t* name;
    const char16_t* stem;
    QChar letter;
};

constexpr Parent mother{0, u"matka :", u"vlnevlM", u"matka", u"mat", u'M'};
constexpr Parent father{3175, u"otec :", u"vlnevlO", u"otec", u"ote", u'O'};
constexpr int contactTop = 6463;

/// Ends of columns in places of a parent's rows; the rows are counted from the parent's own.
struct ParentPart {
    int row;
    int left;
    int width;
    Look look;
    const char16_t* text;
};

constexpr ParentPart parentParts[] = {
    {1, 0, valueLeft, Caption, u"meno a priezvisko :"},
    {1, 7371, 1474, Caption, u"dátum narodenia:"},
    {1, 8845, uprightWidth - 8845, Value, u"nar"},
    {2, 0, valueLeft, Caption, u"vzdelanie :"},
    {2, valueLeft, valueWidth, Value, u"vzd"},
    {3, 0, valueLeft, Caption, u"bydlisko :"},
    {3, valueLeft, 2835, Value, u"uli"},
    {3, 6237, 3402, Value, u"obe"},
    {3, 9639, uprightWidth - 9639, Value, u"psc"},
    {4, 0, valueLeft, Caption, u"telefón, email :"},
    {4, valueLeft, 2268, Value, u"tel"},
    {4, 5670, uprightWidth - 5670, Value, u"mail"},
    {5, 0, valueLeft, Caption, u"zamestnanie :"},
    {5, valueLeft, 2268, Value, u"zam"},
    {5, 5670, 2041, Caption, u"adresa zamestnávateľa :"},
    {5, 7711, uprightWidth - 7711, Value, u"aza"},
    {6, 0, valueLeft, Caption, u"telefón zamestnávateľa :"},
    {6, valueLeft, valueWidth, Value, u"tza"},
    {7, 0, valueLeft, Caption, u"prekonané vážne choroby :"},
    {7, valueLeft, valueWidth, Value, u"chor"},
    {8, 0, valueLeft, Caption, u"postihnutie :"},
};

void addParent(std::vector<Part>& parts, const Parent& parent) {
    const auto rowTop = [&parent](int row) {
        return parent.top + row * rowHeight;
    };
    parts.push_back({Caption, 0, parent.top, valueLeft, QString::fromUtf16(parent.caption)});
    parts.push_back({Value, valueLeft, parent.top, valueWidth, QString::fromUtf16(parent.own)});
    parts.push_back(
        {Value, valueLeft, rowTop(1), 7371 - valueLeft, QString::fromUtf16(parent.name)});
    for (const ParentPart& part : parentParts) {
        const QString text = QString::fromUtf16(part.text);
        parts.push_back({part.look, part.left, rowTop(part.row), part.width,
                         part.look == Value ? QString::fromUtf16(parent.stem) + text : text});
    }
    addImpairments(parts, {Small, valueLeft, rowTop(8), impairmentWidth, {}, 700}, parent.letter);
}

} // namespace

report::Layout rptZakUdaj() {
    std::vector<Part> parts =
        partsOf({{0, u"rodné číslo :", u"rodcis"},
                 {283, u"katalógové číslo :", u"katcis"},
                 {566, u"dátum narodenia :", u"datnar"},
                 {849, u"zdravotná poisťovňa :", u"c_zdrpoi.nazov"},
                 {1132, u"národnosť :", u"c_narodn.nazov"},
                 {1413, u"štátna príslušnosť :", u"c_iczeme.nazov"},
                 {1696, u"jazyk, ktorým klient komunikuje :", u"c_jazyk.nazov"},
                 {1979, u"jazyk, ktorým klient komunikuje doma :", u"c_jazyk_1.nazov"},
                 {2262, u"postihnutie klienta :", nullptr},
                 {3394, u"bydlisko klienta :", u"ulica"},
                 {3960, u"škola, zariad.,  ktoré klient navštevuje :", u"skola"},
                 {4243, u"kto klienta odporučil :", u"odporu"},
                 {4526, u"odkedy je v evidencii zariadenia :", u"datevi"}},
                valueLeft);
    addImpairments(parts, {Small, valueLeft, 2262, impairmentWidth, {}, 1074});
    parts.push_back({Value, valueLeft, 3677, 850, QStringLiteral("psc")});
    parts.push_back({Value, 4252, 3677, uprightWidth - 4252, QStringLiteral("obec")});
    return layoutOf({.name = QStringLiteral("rptZakUdaj"),
                     .title = QStringLiteral("Základné údaje o klientovi :"),
                     .detail = parts,
                     .detailHeight = 4526 + rowHeight});
}

report::Layout rptRodicia() {
    std::vector<Part> parts =
        partsOf({{contactTop, u"meno kontaktnej osoby :", u"kon_meno"},
                 {contactTop + 283, u"pomer kontaktnej osoby ku klientovi :", u"kon_pomer"},
                 {contactTop + 566, u"adresa kontaktnej osoby :", nullptr},
                 {contactTop + 849, u"telefón, email kontaktnej osoby :", nullptr}},
                valueLeft);
    const int address = contactTop + 566;
    const int telephone = contactTop + 849;
    parts.push_back({Value, valueLeft, address, 2835, QStringLiteral("kon_uli")});
    parts.push_back({Value, 6237, address, 3402, QStringLiteral("kon_obe")});
    parts.push_back({Value, 9639, address, uprightWidth - 9639, QStringLiteral("kon_psc")});
    parts.push_back({Value, valueLeft, telephone, 2268, QStringLiteral("kon_tel")});
    parts.push_back({Value, 5670, telephone, uprightWidth - 5670, QStringLiteral("kon_mail")});
    addParent(parts, mother);
    addParent(parts, father);
    return layoutOf({.name = QStringLiteral("rptRodicia"),
                     .title = QStringLiteral("Údaje o rodičoch :"),
                     .detail = parts,
                     .detailHeight = telephone + rowHeight,
                     .lines = {father.top - 142, contactTop - 142}});
}

report::Layout rptSurodenci() {
    constexpr int left = 2835;
    constexpr int impairmentTop = 1132;
    std::vector<Part> parts = partsOf({{0, u"meno :", u"meno"},
                                       {283, u"pohlavie:", u"pohlavie"},
                                       {566, u"rok narodenia :", u"roknar"},
                                       {849, u"choroby :", u"choroby"},
                                       {impairmentTop, u"postihnutia :", nullptr}},
                                      left, sidewaysWidth);
    addImpairments(parts, {Small, left, impairmentTop, 1134, {}});
    constexpr int lineTop = impairmentTop + rowHeight;
    // Nine impairments of that width need the paper's long side.
    return layoutOf({.name = QStringLiteral("rptSurodenci"),
                     .title = QStringLiteral("Zoznam súrodencov klienta :"),
                     .detail = parts,
                     .detailHeight = lineTop + 142,
                     .lines = {lineTop},
                     .orientation = report::Orientation::Landscape});
}

report::Layout rptDemo() {
    report::Layout layout =
        layoutOf({.name = QStringLiteral("rptDemo"),
                  .title = QStringLiteral("Dieťa v rannom predškolskom veku"),
                  .detail = {{Words, 0, 0, uprightWidth, QStringLiteral("u_dieta")}}});
    layout.detail.controls.front().name = QStringLiteral("txtPolozka");
    return layout;
}

report::Layout rptUdajVV() {
    return layoutOf({.name = QStringLiteral("rptUdajVV"),
                     .title = QStringLiteral("Údaje o výchove a vzdelávaní :"),
                     .detail = {{Value, 0, 0, 2835, QStringLiteral("nazov")},
                                {Value, 2835, 0, 3571, QStringLiteral("adresa")},
                                {Value, 6406, 0, 1020, QStringLiteral("vzar_od")},
                                {Caption, 7426, 0, 227, QStringLiteral("--")},
                                {Value, 7653, 0, 1134, QStringLiteral("vzar_do")}},
                     .heads = {{Caption, 0, 0, 2835, QStringLiteral("Názov zariadenia")},
                               {Caption, 2835, 0, 3571, QStringLiteral("Adresa zariadenia")},
                               {Caption, 6406, 0, 4366, QStringLiteral("v zariadení je od-do")}},
                     .saved = {{QStringLiteral("Názov zariadenia"), QStringLiteral("nazov")},
                               {QStringLiteral("Adresa zariadenia"), QStringLiteral("adresa")},
                               {QStringLiteral("od"), QStringLiteral("vzar_od")},
                               {QStringLiteral("do"), QStringLiteral("vzar_do")}}});
}

report::Layout rptVysetrenie() {
    std::vector<Part> parts = partsOf({{0, u"dátum vyšetrenia :", u"datum"},
                                       {283, u"meno vyšetrujúceho psychológa:", u"Expr1"},
                                       {566, u"Popis vyšetrenia :", nullptr}},
                                      2835);
    parts.push_back({Words, 0, 850, 8277, QStringLiteral("popis")});
    return layoutOf({.name = QStringLiteral("rptVysetrenie"),
                     .title = QStringLiteral("Priebeh a závery špeciálneho pedagogického "
                                             "vyšetrenia :"),
                     .detail = parts,
                     .detailHeight = 850 + 2 * rowHeight});
}

report::Layout rptZaz_spc() {
    return layoutOf({.name = QStringLiteral("rptZaz_spc"),
                     .title = QStringLiteral("Záznam o špeciálno-pedagogickej činnosti :"),
                     .detail = {{Caption, 0, 0, 680, QStringLiteral("dátum :")},
                                {Value, 680, 0, 1134, QStringLiteral("datum")},
                                {Caption, 1984, 0, 1304, QStringLiteral("od - do(hodiny)")},
                                {Value, 3288, 0, 567, QStringLiteral("hod_od")},
                                {Value, 3855, 0, 567, QStringLiteral("hod_do")},
                                {Caption, 5103, 0, 1757, QStringLiteral("meno zamestnanca :")},
                                {Value, 6860, 0, uprightWidth - 6860, QStringLiteral("Expr1")},
                                {Caption, 0, 283, 1134, QStringLiteral("činnosť :")},
                                {Words, 0, 567, 9015, QStringLiteral("cinnost")}},
                     .detailHeight = 567 + 2 * rowHeight});
}

report::Layout rptZaz_zmeny() {
    return layoutOf({.name = QStringLiteral("rptZaz_zmeny"),
                     .title = QStringLiteral("Zaznamenané zmeny :"),
                     .detail = {{Caption, 0, 0, 680, QStringLiteral("dátum:")},
                                {Value, 680, 0, 1134, QStringLiteral("datum")},
                                {Caption, 1984, 0, 1757, QStringLiteral("meno zamestnanca:")},
                                {Value, 3741, 0, uprightWidth - 3741, QStringLiteral("Expr1")},
                                {Caption, 0, 283, 1134, QStringLiteral("zmeny :")},
                                {Words, 0, 566, 8731, QStringLiteral("zmeny")}},
                     .detailHeight = 566 + 2 * rowHeight});
}

report::Layout rptNavstevy() {
    constexpr int second = 1984;
    return layoutOf(
        {.name = QStringLiteral("rptNavstevy"),
         .title = QStringLiteral("Zoznam návštev klienta :"),
         .detail = {{Value, 0, 0, second, QStringLiteral("datum")},
                    {Value, second, 0, uprightWidth - second, QStringLiteral("dat_budn")}},
         .heads = {{Caption, 0, 0, second, QStringLiteral("dátum návštevy :")},
                   {Caption, second, 0, 2835, QStringLiteral("dátum budúcej návštevy :")}},
         .saved = {{QStringLiteral("dátum návštevy"), QStringLiteral("datum")},
                   {QStringLiteral("dátum budúcej návštevy"), QStringLiteral("dat_budn")}}});
}

report::Layout rptZozKlient() {
    struct Column {
        int headLeft;
        const char16_t* head;
        int left;
        int right;
        const char16_t* column;
    };
    static constexpr Column columns[] = {
        {0, u"Meno", 0, 1247, u"meno"},
        {1247, u"Priezvisko", 1247, 3402, u"priezv"},
        {3402, u"K.číslo", 3402, 4252, u"katcis"},
        {4252, u"Dat.narodenia", 4252, 5329, u"datnar"},
        {5273, u"R.číslo", 5329, 6236, u"rodcis"},
        {6236, u"Ulica", 6236, 7823, u"ulica"},
        {7824, u"Mesto", 7823, 10091, u"obec"},
        {10091, u"Psč", 10091, uprightWidth, u"psc"},
    };
    Form form{.name = QStringLiteral("rptZozKlient"),
              .title = QStringLiteral("Zoznam klientov TVK :"),
              .detail = {}};
    for (const Column& column : columns) {
        const QString head = QString::fromUtf16(column.head);
        const QString name = QString::fromUtf16(column.column);
        form.heads.push_back({Head, column.headLeft, 0, column.right - column.headLeft, head});
        form.detail.push_back({Cell, column.left, 0, column.right - column.left, name});
        form.saved.push_back({head, name});
    }
    return layoutOf(form);
}

} // namespace printouts
