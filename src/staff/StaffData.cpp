#include "staff/StaffData.h"

#include "store/Sql.h"

#include <algorithm>
#include <array>

namespace staff {

namespace {

struct SourceRow {
    store::DataSource StaffData::*source;
    const char16_t* name;
    const char16_t* table;
};

constexpr std::array<SourceRow, 5> sources = {{
    {&StaffData::datPsych, u"datPsych", u"Zamestnanci"},
    {&StaffData::datFunkc, u"datFunkc", u"c_funkcie"},
    {&StaffData::datVysetrenie, u"datVysetrenie", u"k_vysetrenie"},
    {&StaffData::datZaznam_spc, u"datZaznam_spc", u"k_zaznam_spc"},
    {&StaffData::datZaznam_zmeny, u"datZaznam_zmeny", u"k_zaznam_zmeny"},
}};

} // namespace

StaffData::StaffData(store::DBEngine& engine, const store::ProgramFolder& folder)
    : datPsych(engine), datFunkc(engine), datVysetrenie(engine), datZaznam_spc(engine),
      datZaznam_zmeny(engine) {
    for (const SourceRow& row : sources) {
        store::DataSource& source = this->*row.source;
        source.setObjectName(QString::fromUtf16(row.name));
        source.setDatabaseName(folder.database());
        source.setRecordSource(QString::fromUtf16(row.table));
    }
    datFunkc.setRecordSource(QStringLiteral("select * from c_funkcie order by fc_idkod"));
    datFunkc.Refresh();
}

void StaffData::openEmployee(const QString& key) {
    datPsych.setRecordSource(
        QStringLiteral("select * from zamestnanci where idkod= %1").arg(store::quoted(key)));
    datPsych.Refresh();
}

store::DataSource& StaffData::source(QStringView name) {
    const auto found = std::ranges::find(
        sources, name, [](const SourceRow& row) { return QStringView(row.name); });
    Q_ASSERT_X(found != sources.end(), "StaffData", "unknown data source");
    return this->*found->source;
}

} // namespace staff
