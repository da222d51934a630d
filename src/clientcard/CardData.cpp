#include "clientcard/CardData.h"

#include "clientcard/CardTables.h"
#include "store/Sql.h"

#include <QSignalBlocker>

#include <array>
#include <initializer_list>

namespace clientcard {

namespace {

struct SourceRow {
    QStringView name;
    QStringView table;
};

constexpr std::array<SourceRow, 11> tableSources = {{
    {u"datZaklad", u"k_zaklad"},
    {u"datMemo", u"k_memo"},
    {u"datSurodenci", u"k_surodenci"},
    {u"datZariad", u"k_zariad"},
    {u"datVysetrenie", u"k_vysetrenie"},
    {u"datZaznam_zmeny", u"k_zaznam_zmeny"},
    {u"datZaznam_spc", u"k_zaznam_spc"},
    {u"datNavstevy", u"k_navstevy"},
    {u"datZamestnanci", u"Zamestnanci"},
    {u"DatCisZar", u"c_zariad"},
    {u"datOdbStar", u"odbStar"},
}};

constexpr std::array<SourceRow, 4> datedSources = {{
    {u"datVysetrenie", u"k_vysetrenie"},
    {u"datNavstevy", u"k_navstevy"},
    {u"datZaznam_spc", u"k_zaznam_spc"},
    {u"datZaznam_zmeny", u"k_zaznam_zmeny"},
}};

constexpr QStringView employees =
    u"select *,(trim(priezv) + space(1) + trim(meno)) as spolu,(format(idkod, '         ')+chr(124)"
    "+trim(priezv)+ space(2) + trim(meno)) as roleta from zamestnanci order by priezv, meno";

} // namespace

QString placementsOf(const QString& key, QStringView akronym) {
    return QStringLiteral(
               "select *,(format(vzar_od,'dd') + '.' + format(vzar_od,'mm') + '.' + "
               "format(vzar_od,'yyyy') + ' - ' + format(vzar_do,'dd') + '.' + "
               "format(vzar_do,'mm') + '.' + format(vzar_do,'yyyy')) as kedy from k_zariad where "
               "akronym = '%1' and idkod= %2 order by vzar_od")
        .arg(akronym, store::quoted(key));
}

QString placementCodes(QStringView akronym) {
    return QStringLiteral(
               "SELECT *,(format(kod, '00')+space(2)+chr(124)+space(2)+ nazov) as roleta from "
               "c_zariad where akronym = '%1' order by kod")
        .arg(akronym);
}

QString siblingsOf(const QString& key) {
    return QStringLiteral("select * from k_surodenci where idkod = %1 order by meno")
        .arg(store::quoted(key));
}

QString datedRecordsOf(QStringView table, const QString& key) {
    return QStringLiteral("select *,(format(datum,'dd') + '.' + format(datum,'mm') + '.' + "
                          "format(datum,'yyyy')) as kedy from %1 where idkod= %2 order by datum")
        .arg(table, store::quoted(key));
}

QString keyCriterion(const QString& key) {
    return QStringLiteral("idkod =%1").arg(store::quoted(key));
}

CardData::CardData(store::DBEngine& engine, const store::ProgramFolder& folder) {
    const auto add = [&](QStringView name, QStringView table) {
        auto source = std::make_shared<store::DataSource>(engine);
        source->setObjectName(name.toString());
        source->setDatabaseName(folder.database());
        source->setRecordSource(table.toString());
        sources_.insert(name.toString(), source);
    };
    for (const SourceRow& row : tableSources)
        add(row.name, row.table);
    for (const CodeListRow& row : codeListTable())
        add(row.dataSource, row.table);
    datZaklad_ = &source(u"datZaklad");
    datMemo_ = &source(u"datMemo");
}

store::DataSource& CardData::source(QStringView name) const {
    const auto found = sources_.constFind(name.toString());
    Q_ASSERT_X(found != sources_.cend(), "CardData", "unknown data source");
    return **found;
}

void CardData::open(QStringView name, const QString& recordSource) const {
    store::DataSource& opened = source(name);
    opened.setRecordSource(recordSource);
    opened.Refresh();
}

void CardData::otvorZaznamy(const QString& key) {
    open(u"datMemo", QStringLiteral("select * from k_memo where idkod= %1 order by idkod")
                         .arg(store::quoted(key)));
    open(u"datZariad", placementsOf(key, schools));
    for (const SourceRow& row : datedSources)
        open(row.name, datedRecordsOf(row.table, key));
    reopenOn(datZaklad(), QStringLiteral("select * from k_zaklad"), key);
    open(u"datSurodenci", siblingsOf(key));
}

void CardData::reopenOn(store::DataSource& source, const QString& recordSource,
                        const QString& key) {
    source.setRecordSource(recordSource);
    source.Refresh();
    source.Recordset().FindFirst(keyCriterion(key));
}

void CardData::leaveClient() const {
    for (store::DataSource* source : {datZaklad_, datMemo_})
        source->Recordset().Close();
}

void CardData::dropClient() const {
    for (store::DataSource* source : {datZaklad_, datMemo_}) {
        const QSignalBlocker silent(*source);
        if (source->isOpen())
            source->Recordset().CancelUpdate();
    }
}

int CardData::recordsIn(QStringView table, const QString& key) const {
    const auto counted = datZaklad_->Database().OpenRecordset(
        QStringLiteral("select count(*) as pocet from %1 where %2").arg(table, keyCriterion(key)));
    return int(counted->Fields(u"pocet").Value().toNumber());
}

QString CardData::latestIn(QStringView column, QStringView table, const QString& key) const {
    const auto latest = datZaklad_->Database().OpenRecordset(
        QStringLiteral("select max(%1) as posledny from %2 where %3")
            .arg(column, table, keyCriterion(key)));
    return latest->Fields(u"posledny").Value().toText();
}

void CardData::otvorCiselniky() {
    open(u"DatCisZar", placementCodes(schools));
    open(u"datZamestnanci", employees.toString());
    for (const CodeListRow& row : codeListTable())
        open(row.dataSource, QString::fromUtf16(row.statement));
    source(u"datOdbStar").Refresh();
}

} // namespace clientcard
