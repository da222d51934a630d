#include "forms/MessageBox.h"
#include "mainwindow/ListRows.h"

#include <array>

namespace mainwindow {

namespace {

constexpr int paddedWidth = 10;

/// A table whose rows can name an employee, the data source that looks there, and how the refusal
/// begins.
struct EmployeeUse {
    QStringView source;
    QStringView table;
    QStringView refusal;
};

constexpr auto employeeUses = std::to_array<EmployeeUse>({
    {u"datVysetrenie", u"k_vysetrenie", u"Zamestnanca : -"},
    {u"datZaznam_zmeny", u"k_zaznam_zmeny", u"Zamestnanca: -"},
    {u"datZaznam_spc", u"k_zaznam_spc", u"Zamestnanca: -"},
});

constexpr auto clientTables = std::to_array<QStringView>({
    u"k_memo",
    u"k_navstevy",
    u"k_surodenci",
    u"k_vysetrenie",
    u"k_zariad",
    u"k_zaznam_spc",
    u"k_zaznam_zmeny",
});

QString paddedKey(store::DataSource& source) {
    return fieldText(source, u"idkod").leftJustified(paddedWidth);
}

bool noneChosen(const ListPlace& place, const ListTraits& list) {
    if (!place.sources.datGrid.Recordset().Eof())
        return false;
    forms::showMessage(place.window, {.text = list.noneToDelete.toString(),
                                      .title = QStringLiteral("Upozornenie"),
                                      .icon = QMessageBox::Critical});
    return true;
}

bool confirmed(const ListPlace& place, const ListTraits& list) {
    const QString name = trimmedName(place.sources.datGrid);
    const QString text = list.deleteQuestion.toString() + name + QStringLiteral(" ?");
    return forms::showMessage(place.window, {.text = text,
                                             .title = list.deleteTitle.toString(),
                                             .icon = QMessageBox::NoIcon,
                                             .buttons = QMessageBox::Yes | QMessageBox::No,
                                             .defaultButton = QMessageBox::No}) == QMessageBox::Yes;
}

bool isUsed(const ListPlace& place, const EmployeeUse& use, const QString& criterion) {
    store::DataSource source(place.around.engine);
    source.setObjectName(use.source.toString());
    source.setDatabaseName(place.around.folder.database());
    source.setRecordSource(use.table.toString());
    source.Refresh();
    if (source.Recordset().Eof())
        return false;
    source.Recordset().FindFirst(criterion);
    return !source.Recordset().NoMatch();
}

/// Tells why the current employee has to stay, if so.
bool refused(const ListPlace& place) {
    store::DataSource& grid = place.sources.datGrid;
    const QString criterion = QStringLiteral("idkod_p=") + store::quoted(fieldText(grid, u"idkod"));
    for (const EmployeeUse& use : employeeUses) {
        if (!isUsed(place, use, criterion))
            continue;
        forms::showMessage(place.window, {.text = use.refusal.toString() + trimmedName(grid) +
                                                  QStringLiteral("- nie je možné vymazať"),
                                          .title = QStringLiteral("Chybová správa"),
                                          .icon = QMessageBox::Warning});
        return true;
    }
    return false;
}

void deleteEmployee(const ListPlace& place, const QString& key) {
    store::DataSource& source = place.sources.DatVymZam;
    source.setDatabaseName(place.around.folder.database());
    source.setRecordSource(QStringLiteral("Select * from zamestnanci"));
    source.Refresh();
    source.Recordset().FindFirst(QStringLiteral("idkod = ") + store::quoted(key));
    if (!source.Recordset().NoMatch())
        source.Recordset().Delete();
    source.Refresh();
}

} // namespace

bool vymazKlienta(const ListPlace& place) {
    if (noneChosen(place, clientList) || !confirmed(place, clientList))
        return false;
    store::DataSource& grid = place.sources.datGrid;
    const QString key = store::quoted(paddedKey(grid));
    auto database = place.around.engine.OpenDatabase(place.around.folder.database());
    for (const QStringView table : clientTables)
        database.Execute(QStringLiteral("delete from %1 where idkod=%2").arg(table, key));
    grid.Recordset().Delete();
    grid.Refresh();
    database.Close();
    return true;
}

bool vymazZamestnanca(const ListPlace& place) {
    if (noneChosen(place, employeeList) || refused(place) || !confirmed(place, employeeList))
        return false;
    deleteEmployee(place, paddedKey(place.sources.datGrid));
    place.sources.datGrid.Refresh();
    place.around.engine.OpenDatabase(place.around.folder.database()).Close();
    return true;
}

} // namespace mainwindow
