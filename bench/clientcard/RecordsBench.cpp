/// The card of a client with 5,000 records of care against that of one with 50, and of one with
/// texts of a megabyte against short ones.

#include "clientcard/CardData.h"
#include "clientcard/Registers.h"
#include "common/Figures.h"
#include "forms/Appearance.h"
#include "forms/RichText.h"
#include "forms/RowList.h"

#include <QApplication>
#include <QListWidget>
#include <QTest>
#include <QTextEdit>

namespace {

using bench::Screen;

constexpr int runs = 15;
constexpr double wanted = 3.0;
/// What the noise of two cores makes of the same work.
constexpr double same = 1.5;
constexpr int careTab = 11;
constexpr qsizetype longText = 1'000'000;

void addClient(Screen& screen, const QString& key, int records) {
    QStringList statements{QStringLiteral("insert into k_zaklad (idkod, meno, priezv, katcis) "
                                          "values ('%1', 'Eva', 'Meraná', '%1')"),
                           QStringLiteral("insert into k_memo (idkod) values ('%1')")};
    for (int day = 0; day < records; ++day)
        statements +=
            QStringLiteral("insert into k_zaznam_spc (idkod, datum, idkod_p, cinnost) "
                           "values ('%1', datevalue('%2'), 'NOVAKJA00', 'Nácvik')")
                .arg(QStringLiteral("%1"), QDate(2010, 1, 1).addDays(day).toString(u"d.M.yyyy"));
    for (const QString& statement : statements)
        screen.database().Execute(statement.arg(key));
}

/// A megabyte in every text of the client that the card keeps for its tabs.
void lengthenTexts(Screen& screen, const QString& key) {
    const std::pair<const char*, std::vector<const char*>> texts[] = {
        {"k_zaznam_spc", {"cinnost"}},
        {"k_memo", {"poznamky", "u_dieta", "u_ziak", "u_zhrn", "u_dolezite", "ip_tvkz"}}};
    for (const auto& [table, columns] : texts) {
        const auto rows = screen.database().OpenRecordset(
            QStringLiteral("select * from %1 where idkod = '%2'").arg(QLatin1String(table), key));
        for (; !rows->Eof(); rows->MoveNext()) {
            rows->Edit();
            for (const char* column : columns)
                rows->Fields(QString::fromLatin1(column)).setValue(QString(longText, u'x'));
            rows->Update();
        }
    }
}

struct Step {
    const char* name;
    /// Not timed.
    void (*prepare)(Screen&, const QString& key);
    void (*act)(Screen&, const QString& key);
    double wanted;
};

void readSources(Screen& screen, const QString& key) {
    clientcard::CardData data(screen.engine, screen.folder);
    data.otvorZaznamy(key);
    data.otvorCiselniky();
}

void openCard(Screen& screen, const QString& key) {
    screen.openClient(key);
}

void turnToCare(Screen& screen, const QString&) {
    screen.find<QListWidget>(QStringLiteral("SSTab1")).setCurrentRow(careTab);
    QCoreApplication::processEvents();
}

void openCare(Screen& screen, const QString& key) {
    openCard(screen, key);
    turnToCare(screen, key);
}

void move(Screen& screen, std::initializer_list<Qt::Key> keys) {
    for (const Qt::Key key : keys) {
        QTest::keyClick(&screen.find<forms::RowList>(QStringLiteral("DBList5")), key);
        QCoreApplication::processEvents();
    }
}

forms::EntryField& field(Screen& screen, int index) {
    return screen.find<forms::EntryField>(QStringLiteral("textZsc(%1)").arg(index));
}

void typeText(Screen& screen) {
    screen.find<forms::RichText>(QStringLiteral("rtbZsc"))
        .editor()
        .insertPlainText(QStringLiteral("Čítanie. "));
}

void openEdit(Screen& screen, const QString& key) {
    openCare(screen, key);
    screen.click("cmdZscOpr");
    typeText(screen);
}

void openNew(Screen& screen, const QString& key) {
    static int days = 0;
    openCare(screen, key);
    screen.click("cmdZscNovy");
    typeText(screen);
    field(screen, 0).setText(QDate(1950, 1, 1).addDays(++days).toString(u"d.M.yyyy"));
    field(screen, 3).setText(QStringLiteral("NOVAKJA00"));
    field(screen, 0).setFocus();
}

void save(Screen& screen, const QString&) {
    screen.click("cmdZscZap");
    QCoreApplication::processEvents();
}

const Step manyRecords[] = {
    {"read the card's sources", [](Screen&, const QString&) {}, readSources, wanted},
    {"open the card", [](Screen&, const QString&) {}, openCard, wanted},
    {"turn to the records of care", openCard, turnToCare, wanted},
    {"move by Down, PageDown, End, Up in the list", openCare,
     [](Screen& screen, const QString&) {
         move(screen, {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_End, Qt::Key_Up});
     },
     wanted},
    {"check the date of a new record", openNew,
     [](Screen& screen, const QString&) { screen.key(Qt::Key_Return); }, wanted},
    {"save an edited record (cmdZscZap)", openEdit, save, wanted},
    {"save a new record (cmdZscZap)", openNew, save, wanted},
};

const Step longTexts[] = {
    {"read the card's sources, texts of 1 MB", [](Screen&, const QString&) {}, readSources, same},
    {"open the card, texts of 1 MB", [](Screen&, const QString&) {}, openCard, same},
};

void compare(bench::Figures& figures, const Step& step, Screen& screen, const QString& ours,
             const QString& baseline) {
    const auto on = [&](const QString& key) {
        return bench::PreparedWork{[&] { step.prepare(screen, key); },
                                   [&] {
                                       step.act(screen, key);
                                   }};
    };
    figures.compare(step.name, on(ours), on(baseline), step.wanted, runs);
}

} // namespace

int main(int argc, char** argv) {
    bench::needNoDisplay();
    QApplication application(argc, argv);
    forms::dress(application);
    const auto many = QStringLiteral("MNOHO00");
    const auto few = QStringLiteral("MALO00");
    const auto wordy = QStringLiteral("DLHE00");
    Screen screen(1000);
    screen.database().Execute(QStringLiteral(
        "insert into zamestnanci (idkod, meno, priezv) values ('NOVAKJA00', 'Ján', 'Novák')"));
    for (const auto& [key, count] : {std::pair{many, 5000}, {few, 50}, {wordy, 50}})
        addClient(screen, key, count);
    lengthenTexts(screen, wordy);
    screen.engine.commitPending();
    bench::Figures figures("Records of care, 5,000 against 50, and long texts against short ones");
    for (const Step& step : longTexts)
        compare(figures, step, screen, wordy, few);
    for (const Step& step : manyRecords)
        compare(figures, step, screen, many, few);
    // What was not on the list was not measured.
    openCare(screen, many);
    if (screen.find<forms::RowList>(QStringLiteral("DBList5")).count() != 5000 + runs + 1)
        throw std::runtime_error("the list must show all records, those saved here among them");
    return figures.print();
}
