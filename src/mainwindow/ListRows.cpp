#include "mainwindow/ListRows.h"

namespace mainwindow {

MainSources::MainSources(store::DBEngine& engine)
    : datGrid(engine), datTlac(engine), datCisVzd(engine), DatVymZam(engine) {
    datGrid.setObjectName(QStringLiteral("datGrid"));
    datTlac.setObjectName(QStringLiteral("datTlac"));
    datCisVzd.setObjectName(QStringLiteral("datCisVzd"));
    DatVymZam.setObjectName(QStringLiteral("DatVymZam"));
}

QString fieldText(store::DataSource& source, QStringView column) {
    return source.Recordset().Fields(column).Value().toText();
}

QString trimmedName(store::DataSource& source) {
    return fieldText(source, u"meno").trimmed() + QStringLiteral("  ") +
           fieldText(source, u"priezv").trimmed();
}

} // namespace mainwindow
