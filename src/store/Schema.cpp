#include "store/Schema.h"

#include <algorithm>
#include <iterator>

namespace store {

namespace {

/// Width of a Text column whose entry field sets no limit: the engine's widest.
constexpr int freeWidth = 255;
/// Eight letters and a sequence of two digits, or of as many more as it needs.
constexpr int keyWidth = 12;
/// The longest name of a municipality has 31 letters.
constexpr int townWidth = 40;

constexpr ColumnDef text(const char16_t* name, int width = freeWidth) {
    return {name, ColumnType::Text, width};
}
constexpr ColumnDef town(const char16_t* name) {
    return text(name, townWidth);
}
constexpr ColumnDef memo(const char16_t* name) {
    return {name, ColumnType::Memo};
}
constexpr ColumnDef date(const char16_t* name) {
    return {name, ColumnType::Date};
}
constexpr ColumnDef flag(const char16_t* name) {
    return {name, ColumnType::Boolean};
}
constexpr ColumnDef whole(const char16_t* name) {
    return {name, ColumnType::Whole};
}

constexpr ColumnDef zaklad[] = {
    text(u"idkod", keyWidth), text(u"Meno", 20),    text(u"Priezv", 30),  town(u"mienar"),
    text(u"rodcis", 10),      date(u"datnar"),      text(u"pohlav", 1),   text(u"katcis"),
    text(u"zdrpoi", 50),      text(u"narodn", 30),  text(u"stprisl", 30), text(u"jazyk", 30),
    text(u"jaz_doma"),        text(u"ulica", 25),   town(u"obec"),        text(u"psc", 5),
    text(u"skola", 70),       text(u"odporu", 30),  date(u"datevi"),      whole(u"vek"),
    text(u"postih"),          text(u"matka", 50),   flag(u"matvla"),      text(u"matnar", 4),
    text(u"matvek", 2),       text(u"matvzd", 20),  text(u"matuli", 25),  town(u"matobe"),
    text(u"matpsc", 5),       text(u"mattel", 15),  text(u"matmail"),     text(u"matzam", 20),
    text(u"mataza", 50),      text(u"mattza", 15),  text(u"matchor", 50), text(u"matpos"),
    text(u"otec", 50),        flag(u"otevla"),      text(u"otenar", 4),   text(u"otevek", 2),
    text(u"otevzd", 20),      text(u"oteuli", 25),  town(u"oteobe"),      text(u"otepsc", 5),
    text(u"otetel", 15),      text(u"otemail"),     text(u"otezam", 30),  text(u"oteaza", 50),
    text(u"otetza", 15),      text(u"otechor", 50), text(u"otepos"),      text(u"kon_meno", 50),
    text(u"kon_pomer", 20),   town(u"kon_obe"),     text(u"kon_uli", 25), text(u"kon_psc"),
    text(u"kon_tel", 15),     text(u"kon_mail"),
};

constexpr ColumnDef memos[] = {
    text(u"idkod", keyWidth), memo(u"u_dolezite"), memo(u"poznamky"), memo(u"ip_tvkz"),
    memo(u"u_dieta"),         memo(u"u_ziak"),     memo(u"u_zhrn"),
};

constexpr ColumnDef surodenci[] = {
    text(u"idkod", keyWidth), text(u"Meno"),        text(u"roknar", 4),
    text(u"pohlavie", 1),     text(u"choroby", 50), text(u"postih"),
};

constexpr ColumnDef zariad[] = {
    text(u"idkod", keyWidth), text(u"akronym"), text(u"nazzar"),
    text(u"adresa"),          date(u"vzar_od"), date(u"vzar_do"),
};

constexpr ColumnDef vysetrenie[] = {
    text(u"idkod", keyWidth),
    date(u"datum"),
    text(u"idkod_p"),
    memo(u"popis"),
};

constexpr ColumnDef zaznamZmeny[] = {
    text(u"idkod", keyWidth),
    date(u"datum"),
    text(u"idkod_p"),
    memo(u"zmeny"),
};

constexpr ColumnDef zaznamSpc[] = {
    text(u"idkod", keyWidth), date(u"datum"),   text(u"hod_od"),
    text(u"hod_do"),          text(u"idkod_P"), memo(u"cinnost"),
};

constexpr ColumnDef navstevy[] = {
    text(u"idkod", keyWidth),
    date(u"datum"),
    date(u"dat_budn"),
};

constexpr ColumnDef zamestnanci[] = {
    text(u"idkod", keyWidth), text(u"meno"),       text(u"priezv"),          whole(u"prac_zar"),
    text(u"pohlavie", 1),     text(u"int-ext", 1), text(u"kvalifikacia", 1),
};

constexpr ColumnDef codeList[] = {text(u"kod"), text(u"nazov")};
constexpr ColumnDef zariadenia[] = {text(u"kod"), text(u"nazov"), text(u"akronym"),
                                    text(u"v_nazov")};
constexpr ColumnDef funkcie[] = {whole(u"fc_idkod"), text(u"nazov")};

constexpr ColumnDef dopUkaz[] = {whole(u"r_0401"), whole(u"r_0402"), whole(u"r_0403"),
                                 whole(u"r_0404"), whole(u"r_0416")};
constexpr ColumnDef odbStar[] = {
    text(u"v_tom"), text(u"naz_ria"), text(u"c_ria"), text(u"s_1"), text(u"s_2"),
    text(u"s_3"),   text(u"s_4"),     text(u"s_5"),   text(u"s_6"), text(u"s_7"),
    text(u"s_8"),   text(u"s_9"),     text(u"s_10"),
};

constexpr ColumnDef zZam[] = {
    text(u"fcia"),   text(u"cria"),    text(u"i_spolu"), text(u"i_zeny"),
    text(u"i_kval"), text(u"e_spolu"), text(u"e_zeny"),  text(u"e_kval"),
};

// The two work tables of clients differ only in what heads a row.
// clang-format off
#define TVK_COUNT_PAIRS                                                                            \
    text(u"c_riad"), text(u"spolu"), text(u"spolu_zeny"),                                          \
    text(u"p_zrak"), text(u"p_zrak_z"), text(u"p_sluch"), text(u"p_sluch_z"),                      \
    text(u"p_rec"), text(u"p_rec_z"), text(u"p_teles"), text(u"p_teles_z"),                        \
    text(u"p_menta"), text(u"p_menta_z"), text(u"p_viacn"), text(u"p_viacn_z"),                    \
    text(u"p_autiz"), text(u"p_autiz_z"), text(u"p_vpuc"), text(u"p_vpuc_z"),                      \
    text(u"p_vpsp"), text(u"p_vpsp_z"), text(u"p_ine"), text(u"p_ine_z")
// clang-format on

constexpr ColumnDef zVek[] = {text(u"stlpec"), text(u"vek"), TVK_COUNT_PAIRS};
constexpr ColumnDef zVzdelavanie[] = {text(u"stlpec_1"), text(u"stlpec_2"), text(u"kod_txt"),
                                      text(u"kod"), TVK_COUNT_PAIRS};
#undef TVK_COUNT_PAIRS

constexpr TableDef tables[] = {
    {u"k_zaklad", zaklad, u"idkod"},
    {u"k_memo", memos, u"idkod"},
    {u"k_surodenci", surodenci},
    {u"k_zariad", zariad},
    {u"k_vysetrenie", vysetrenie},
    {u"k_zaznam_zmeny", zaznamZmeny},
    {u"k_zaznam_spc", zaznamSpc},
    {u"k_navstevy", navstevy},
    {u"zamestnanci", zamestnanci, u"idkod"},
    {u"c_zdrpoi", codeList},
    {u"c_narodn", codeList},
    {u"c_jazyk", codeList},
    {u"c_iczeme", codeList},
    {u"c_iczuj", codeList},
    {u"c_zariad", zariadenia},
    {u"c_funkcie", funkcie},
    {u"dop_ukaz", dopUkaz},
    {u"odbstar", odbStar},
    {u"z_zam", zZam},
    {u"z_vek", zVek},
    {u"z_vzdelavanie", zVzdelavanie},
};

constexpr const char16_t* byKey = u"\"idkod\" COLLATE TVK";
constexpr const char16_t* byKeyAndDate = u"\"idkod\" COLLATE TVK, \"datum\"";
constexpr const char16_t* byWorker = u"\"idkod_p\" COLLATE TVK";
constexpr const char16_t* byName = u"\"priezv\" COLLATE TVK, \"meno\" COLLATE TVK";
constexpr const char16_t* byCode = u"\"kod\" COLLATE TVK";
constexpr const char16_t* byTitle = u"\"nazov\" COLLATE TVK";

constexpr IndexDef allIndexes[] = {
    {u"k_zaklad_idkod", u"k_zaklad", byKey, true},
    {u"k_zaklad_meno", u"k_zaklad", byName},
    {u"k_zaklad_vek", u"k_zaklad", u"\"vek\", \"idkod\" COLLATE TVK"},
    {u"k_zaklad_katcis", u"k_zaklad", u"trim(\"katcis\") COLLATE TVK"},
    {u"k_zaklad_katcis_val", u"k_zaklad", u"tvk_val(\"katcis\")"},
    {u"k_memo_idkod", u"k_memo", byKey, true},
    {u"k_surodenci_idkod", u"k_surodenci", u"\"idkod\" COLLATE TVK, \"Meno\" COLLATE TVK"},
    {u"k_zariad_idkod", u"k_zariad", u"\"idkod\" COLLATE TVK, \"vzar_od\""},
    {u"k_zariad_nazzar", u"k_zariad", u"\"nazzar\" COLLATE TVK"},
    {u"k_vysetrenie_idkod", u"k_vysetrenie", byKeyAndDate},
    {u"k_vysetrenie_idkod_p", u"k_vysetrenie", byWorker},
    {u"k_zaznam_zmeny_idkod", u"k_zaznam_zmeny", byKeyAndDate},
    {u"k_zaznam_zmeny_idkod_p", u"k_zaznam_zmeny", byWorker},
    {u"k_zaznam_spc_idkod", u"k_zaznam_spc", byKeyAndDate},
    {u"k_zaznam_spc_idkod_p", u"k_zaznam_spc", byWorker},
    {u"k_navstevy_idkod", u"k_navstevy", byKeyAndDate},
    {u"zamestnanci_idkod", u"zamestnanci", byKey, true},
    {u"zamestnanci_meno", u"zamestnanci", byName},
    {u"c_zdrpoi_kod", u"c_zdrpoi", byCode},
    {u"c_zdrpoi_nazov", u"c_zdrpoi", byTitle},
    {u"c_narodn_kod", u"c_narodn", byCode},
    {u"c_narodn_nazov", u"c_narodn", byTitle},
    {u"c_jazyk_kod", u"c_jazyk", byCode},
    {u"c_jazyk_nazov", u"c_jazyk", byTitle},
    {u"c_iczeme_kod", u"c_iczeme", byCode},
    {u"c_iczeme_nazov", u"c_iczeme", byTitle},
    {u"c_iczuj_kod", u"c_iczuj", byCode},
    {u"c_iczuj_nazov", u"c_iczuj", byTitle},
    {u"c_zariad_kod", u"c_zariad", byCode},
    {u"c_zariad_nazov", u"c_zariad", byTitle},
    {u"c_funkcie_fc_idkod", u"c_funkcie", u"\"fc_idkod\""},
    {u"c_funkcie_nazov", u"c_funkcie", byTitle},
};

const char* storageOf(ColumnType type) {
    switch (type) {
    case ColumnType::Text:
    case ColumnType::Memo:
    case ColumnType::Date:
        return "TEXT";
    case ColumnType::Boolean:
        return "INTEGER DEFAULT 0";
    case ColumnType::Whole:
        return "INTEGER";
    case ColumnType::Number:
        return "REAL";
    }
    return "TEXT";
}

QString columnsOf(const TableDef& table) {
    QStringList columns{sqlName(rowNumber) + QStringLiteral(" INTEGER PRIMARY KEY AUTOINCREMENT")};
    for (const ColumnDef& column : table.columns)
        columns << sqlName(column.name) + QLatin1Char(' ') + QLatin1String(storageOf(column.type));
    return columns.join(QStringLiteral(", "));
}

QString createIndex(const IndexDef& index) {
    return QStringLiteral("CREATE %1INDEX %2 ON %3 (%4)")
        .arg(index.unique ? QStringLiteral("UNIQUE ") : QString(), sqlName(index.name),
             sqlName(index.table), QString::fromUtf16(index.terms));
}

bool sameName(const char16_t* name, QStringView wanted) {
    return QStringView(name).compare(wanted, Qt::CaseInsensitive) == 0;
}

} // namespace

const ColumnDef* TableDef::column(QStringView wanted) const {
    const auto found = std::ranges::find_if(
        columns, [&](const ColumnDef& column) { return sameName(column.name, wanted); });
    return found == columns.end() ? nullptr : &*found;
}

std::span<const TableDef> schema() {
    return tables;
}

std::span<const IndexDef> indexes() {
    return allIndexes;
}

const TableDef* findTable(QStringView name) {
    const auto found = std::ranges::find_if(
        tables, [&](const TableDef& table) { return sameName(table.name, name); });
    return found == std::end(tables) ? nullptr : found;
}

QString createTable(const TableDef& table, QStringView name) {
    return QStringLiteral("CREATE TABLE %1 (%2) STRICT").arg(sqlName(name), columnsOf(table));
}

QStringList createIndexes() {
    QStringList statements;
    for (const IndexDef& index : allIndexes)
        statements << createIndex(index);
    return statements;
}

QStringList createStatements() {
    QStringList statements;
    for (const TableDef& table : tables)
        statements << createTable(table, table.name);
    return statements + createIndexes();
}

QString sqlName(QStringView name) {
    QString escaped = name.toString();
    escaped.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

} // namespace store
