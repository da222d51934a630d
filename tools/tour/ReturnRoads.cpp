#include "tour/Guide.h"
#include "tour/Roads.h"

#include <utility>

namespace tour {

namespace {

void keys(Guide& guide, int key, int times, Qt::KeyboardModifiers modifiers = {}) {
    for (int i = 0; i < times; ++i)
        guide.key(key, modifiers);
}

/// Answers a question about a sum that is about to come with yes.
void correct(Guide& guide, const char* name) {
    guide.inModalWindow([&guide, name](QWidget&) {
        guide.picture(QString::fromLatin1(name));
        guide.key(Qt::Key_Return);
    });
}

void fillTableFour(Guide& guide) {
    guide.enter({"6", "1", "12", "340"});
    correct(guide, "doplnujuce-ukazovatele-otazka");
    guide.enter({"350"});
    keys(guide, Qt::Key_Return, 4);
    guide.type(QStringLiteral("359"));
    guide.picture(QStringLiteral("doplnujuce-ukazovatele"));
    guide.key(Qt::Key_S, Qt::ControlModifier);
}

void fillTableFive(Guide& guide) {
    guide.picture(QStringLiteral("odborna-starostlivost-prazdna"));
    const auto fieldWork = [&guide] {
        keys(guide, Qt::Key_Return, 5);
    };
    guide.enter({"10", "4", "3", "2", "1"});
    fieldWork();
    guide.enter({"4", "2", "1", "1", "0"});
    fieldWork();
    guide.enter({"3", "1", "1", "0", "1"});
    fieldWork();
    guide.enter({"2", "1", "1", "0", "0"});
    fieldWork();
    correct(guide, "odborna-starostlivost-otazka");
    guide.enter({"2"});
    keys(guide, Qt::Key_Down, 4, Qt::ControlModifier);
    guide.enter({"1", "0", "0", "1", "0"});
    keys(guide, Qt::Key_Return, 5);
    keys(guide, Qt::Key_Down, 22, Qt::ControlModifier);
    guide.enter({"20", "8", "6", "4", "2"});
    guide.picture(QStringLiteral("odborna-starostlivost"));
    guide.key(Qt::Key_S, Qt::ControlModifier);
}

} // namespace

void walkSchoolYear(Guide& guide) {
    guide.inModalWindow([&guide](QWidget&) {
        guide.picture(QStringLiteral("skolsky-rok"));
        guide.key(Qt::Key_Return);
    });
    guide.click(QStringLiteral("Picture6"));
}

void walkEntryForms(Guide& guide) {
    guide.inModalWindow([&guide](QWidget&) { fillTableFour(guide); });
    guide.click(QStringLiteral("Picture3"));
    guide.inModalWindow([&guide](QWidget&) { fillTableFive(guide); });
    guide.click(QStringLiteral("Picture5"));
}

void walkTables(Guide& guide, mainwindow::FrmUvod& window) {
    constexpr std::pair<const char*, const char*> tables[] = {{"mniVek", "rptVek"},
                                                              {"mniVzd", "rptVzd"},
                                                              {"mniZam", "rptZam"},
                                                              {"mniDopUkaz", "rptDopUkaz"},
                                                              {"mniOdbStar", "rptOdbStar"}};
    for (const auto& [entry, name] : tables)
        lookAtPrint(guide, QString::fromLatin1(name), window, entry);
}

void walkWholeReturn(Guide& guide, mainwindow::FrmUvod& window) {
    guide.key(Qt::Key_T, Qt::AltModifier);
    guide.picture(QStringLiteral("ponuka-tlac"));
    guide.key(Qt::Key_Escape);
    lookAtPrint(guide, QStringLiteral("cely-vykaz"), window, "mniVykaz");
}

} // namespace tour
