#include "forms/RecordsetGrid.h"
#include "mainwindow/MainWindow.h"
#include "validation/modKontrola.h"

#include <QHeaderView>
#include <QPaintEvent>
#include <QTableView>
#include <QTest>

#include <array>

using mainwindow::Screen;

namespace {

constexpr std::array clientTables = {"k_zaklad",     "k_memo",   "k_navstevy",   "k_surodenci",
                                     "k_vysetrenie", "k_zariad", "k_zaznam_spc", "k_zaznam_zmeny"};

class ListTest : public MainWindow {
  protected:
    void addClients() {
        addClient("CIZMARAN00", "Anna", "Čižmárová", "10", "1998-02-07");
        addClient("CHOVANPE00", "Peter", "Chovan", "2");
        addClient("HORVATEV00", "Eva", "Horváthová", "x");
        addClient("NOVAKJA000", "Jana", "Nováková", "1", "2001-12-31");
        addClient("NOVAKJAN00", "Ján", "Novák", "3");
    }
    void addEmployees() {
        for (int code = 1; code <= 2; ++code)
            reg.add(QStringLiteral("c_funkcie"),
                    {{u"fc_idkod", code}, {u"nazov", QStringLiteral("funkcia %1").arg(code)}});
        addEmployee("KOVACIV00", "Iveta", "Kováčová", 2);
        addEmployee("BARTOSMA00", "Mária", "Bartošová", 1);
        addEmployee("BEZFUNKC00", "Bez", "Funkcie", 9);
    }
    void showClients() {
        addClients();
        open();
        click("Label1");
    }
    void showEmployees() {
        addEmployees();
        open();
        click("Label2");
    }
    QStringList column(const char* grid, int column) {
        const auto* model = find<QTableView>(grid).model();
        QStringList texts;
        for (int row = 0; row < model->rowCount(); ++row)
            texts << model->index(row, column).data().toString();
        return texts;
    }
    void search(const char* list, const char* typed) {
        expectInput(list, "Hľadanie podľa priezviska", typed);
        click("cmdHladaj");
    }
    std::string buttons() {
        std::string states;
        for (const char* name : {"CmdNovy", "cmdOprava", "cmdVymaz", "cmdHladaj"})
            states += enabled(name) ? '+' : '-';
        return states + (shown("CmdSort") ? "+" : "-");
    }
};

TEST_F(ListTest, clientsComeByName) {
    showClients();
    EXPECT_TRUE(shown("dbgKlient"));
    EXPECT_FALSE(shown("dbgPsych"));
    EXPECT_EQ(column("dbgKlient", 1).join(u' '),
              QStringLiteral("Čižmárová Horváthová Chovan Novák Nováková"));
    EXPECT_EQ(row("dbgKlient", 0), QStringLiteral("Anna|Čižmárová|07.02.1998|10"));
    EXPECT_EQ(row("dbgKlient", 2), QStringLiteral("Peter|Chovan||2"));
    EXPECT_EQ(buttons(), "+++++");
    EXPECT_EQ(focused(), QStringLiteral("dbgKlient"));
    EXPECT_EQ(caption("CmdNovy"), QStringLiteral("Nový klient"));
    EXPECT_EQ(caption("cmdVymaz"), QStringLiteral("Výmaz klienta"));
    EXPECT_EQ(caption("cmdHladaj"), QStringLiteral("Hľadaj klienta"));
}

TEST_F(ListTest, employeesWithoutAFunctionAreNotListed) {
    showEmployees();
    EXPECT_TRUE(shown("dbgPsych"));
    EXPECT_FALSE(shown("dbgKlient"));
    EXPECT_EQ(column("dbgPsych", 1).join(u' '), QStringLiteral("Bartošová Kováčová"));
    EXPECT_EQ(row("dbgPsych", 1), QStringLiteral("Iveta|Kováčová|funkcia 2"));
    EXPECT_EQ(buttons(), "++++-");
    EXPECT_EQ(focused(), QStringLiteral("dbgPsych"));
    EXPECT_EQ(caption("CmdNovy"), QStringLiteral("Nový zamestnanec"));
    EXPECT_EQ(caption("cmdVymaz"), QStringLiteral("Výmaz zamestnanca"));
    EXPECT_EQ(caption("cmdHladaj"), QStringLiteral("Hľadaj zamestnanca"));
}

TEST_F(ListTest, columnsStartWithTheirWidths) {
    showClients();
    auto* header = find<QTableView>("dbgKlient").horizontalHeader();
    QStringList widths;
    for (int column = 0; column < header->count(); ++column) {
        widths << QString::number(header->sectionSize(column));
        EXPECT_EQ(header->sectionResizeMode(column), QHeaderView::Interactive);
    }
    EXPECT_EQ(widths.join(u' '), QStringLiteral("93 127 67 87"));
}

TEST_F(ListTest, anEmptyListTakesANewRecordOnly) {
    open();
    click("Label1");
    EXPECT_EQ(buttons(), "+---+");
    EXPECT_EQ(focused(), QStringLiteral("CmdNovy"));
    click("Label2");
    EXPECT_EQ(buttons(), "+----");
    click("Label1");
    play = [this](Screen) {
        addClient("NOVAKJAN00", "Ján", "Novák");
    };
    click("CmdNovy");
    EXPECT_EQ(buttons(), "+++++");
    EXPECT_EQ(focused(), QStringLiteral("dbgKlient"));
}

TEST_F(ListTest, newOpensTheCardOfTheList) {
    showClients();
    addEmployees();
    modKontrola::gIdKod = QStringLiteral("zvyšok");
    modKontrola::gMenoKlienta = QStringLiteral("zvyšok");
    play = [](Screen) {
        EXPECT_EQ(modKontrola::gAkcia, 1);
        EXPECT_EQ(modKontrola::gIdKod, QString());
        EXPECT_EQ(modKontrola::gMenoKlienta, QString());
    };
    click("CmdNovy");
    click("Label2");
    key(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(opened, std::vector({Screen::ClientCard, Screen::EmployeeCard}));
    EXPECT_EQ(focused(), QStringLiteral("dbgPsych"));
}

TEST_F(ListTest, editNamesTheRowAndStaysOnIt) {
    showClients();
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    play = [this](Screen) {
        EXPECT_EQ(modKontrola::gAkcia, 2);
        EXPECT_EQ(modKontrola::gIdKod, QStringLiteral("CHOVANPE00"));
        EXPECT_EQ(modKontrola::gMenoKlienta, QStringLiteral(" : Peter  Chovan"));
        reg.execute({QStringLiteral("update k_zaklad set priezv='Žiak' where idkod='CHOVANPE00'")});
    };
    click("cmdOprava");
    EXPECT_EQ(opened, std::vector{Screen::ClientCard});
    EXPECT_EQ(row("dbgKlient"), QStringLiteral("Peter|Žiak||2"));
    EXPECT_EQ(find<QTableView>("dbgKlient").currentIndex().row(), 4);
    EXPECT_EQ(focused(), QStringLiteral("dbgKlient"));
}

TEST_F(ListTest, anApostropheInAKeyFindsItsRow) {
    addClient("OHARAJA000", "Ján", "Ohara");
    addClient("O'HARAJA00", "Jack", "O'Hara");
    open();
    click("Label1");
    key(Qt::Key_End);
    const QString before = row("dbgKlient");
    click("cmdOprava");
    EXPECT_EQ(row("dbgKlient"), before);
}

TEST_F(ListTest, enterAndDoubleClickOpenNothing) {
    showClients();
    key(Qt::Key_Return);
    auto& grid = find<QTableView>("dbgKlient");
    const QPoint cell = grid.viewport()->mapTo(window.get(), QPoint(20, 20));
    QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {}, cell);
    EXPECT_TRUE(opened.empty());
}

TEST_F(ListTest, sortTogglesAndKeepsItsCaptionThroughAnEdit) {
    showClients();
    EXPECT_EQ(caption("CmdSort"), QStringLiteral("Trieď (katalógové číslo)"));
    click("CmdSort");
    EXPECT_EQ(caption("CmdSort"), QStringLiteral("Trieď (priezvisko,meno)"));
    EXPECT_EQ(column("dbgKlient", 3).join(u' '), QStringLiteral("x 1 2 3 10"));
    click("cmdOprava");
    EXPECT_EQ(column("dbgKlient", 3).join(u' '), QStringLiteral("10 x 2 3 1"));
    EXPECT_EQ(caption("CmdSort"), QStringLiteral("Trieď (priezvisko,meno)"));
    EXPECT_EQ(row("dbgKlient"), QStringLiteral("Eva|Horváthová||x"));
    click("CmdSort");
    EXPECT_EQ(column("dbgKlient", 3).join(u' '), QStringLiteral("10 x 2 3 1"));
    EXPECT_EQ(caption("CmdSort"), QStringLiteral("Trieď (katalógové číslo)"));
}

TEST_F(ListTest, aClickAnywhereInARowChoosesIt) {
    showClients();
    const auto& grid = find<QTableView>("dbgKlient");
    for (const int x : {20, grid.viewport()->width() - 5}) {
        const int row = x == 20 ? 1 : 3;
        const QPoint at(x, grid.rowViewportPosition(row) + 5);
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                          grid.viewport()->mapTo(window.get(), at));
        click("cmdOprava");
        EXPECT_EQ(modKontrola::gIdKod,
                  row == 1 ? QStringLiteral("HORVATEV00") : QStringLiteral("NOVAKJAN00"));
    }
}

/// Where a widget has been painted.
class PaintWatch : public QObject {
  public:
    explicit PaintWatch(QWidget& watched) { watched.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
    QRegion painted;
};

TEST_F(ListTest, theWholeOfARowIsPaintedAnew) {
    showClients();
    auto& view = find<QTableView>("dbgKlient");
    QCoreApplication::processEvents();
    PaintWatch watch(*view.viewport());
    key(Qt::Key_Down);
    ASSERT_TRUE(QTest::qWaitFor([&watch] { return !watch.painted.isEmpty(); }));
    for (int row : {0, 1})
        EXPECT_TRUE(watch.painted.contains(
            QPoint(view.viewport()->width() - 1, view.rowViewportPosition(row) + 1)));
}

TEST_F(ListTest, keysAndRecordsetMoveTogether) {
    showClients();
    const struct {
        Qt::Key key;
        const char* expected;
    } moves[] = {{Qt::Key_End, "NOVAKJA000"},      {Qt::Key_Up, "NOVAKJAN00"},
                 {Qt::Key_Home, "CIZMARAN00"},     {Qt::Key_Down, "HORVATEV00"},
                 {Qt::Key_PageDown, "NOVAKJA000"}, {Qt::Key_PageUp, "CIZMARAN00"}};
    for (const auto& move : moves) {
        find<QTableView>("dbgKlient").setFocus();
        key(move.key);
        key(Qt::Key_O, Qt::ControlModifier);
        EXPECT_EQ(modKontrola::gIdKod, QLatin1String(move.expected)) << move.key;
    }
}

// Search

struct SearchCase {
    const char* typed;
    /// Surname and first name of the row found, or null for none.
    const char* found;
};

class SearchTest : public ListTest, public testing::WithParamInterface<SearchCase> {};

TEST_P(SearchTest, findsBySurnameAndFirstName) {
    showClients();
    key(Qt::Key_End);
    const auto [typed, found] = GetParam();
    expectInput("Zadaj priezvisko a meno klienta :", "Hľadanie podľa priezviska", typed);
    if (found == nullptr)
        expectBox(("Klient  '" + std::string(typed) + "' nie je v databáze").c_str(), "Informácia",
                  QMessageBox::Information);
    click("cmdHladaj");
    EXPECT_EQ(row("dbgKlient").section(u'|', 0, 1),
              QString::fromUtf8(found != nullptr ? found : "Anna|Čižmárová"));
    EXPECT_EQ(focused(), QStringLiteral("dbgKlient"));
}

INSTANTIATE_TEST_SUITE_P(
    List, SearchTest,
    testing::Values(SearchCase{"Nov", "Ján|Novák"}, SearchCase{"  Nov", nullptr},
                    SearchCase{"Novák Ján", "Ján|Novák"}, SearchCase{"nOVÁK jANA", "Jana|Nováková"},
                    SearchCase{"Novák  Jana ", "Jana|Nováková"}, SearchCase{"Novák n", nullptr},
                    SearchCase{"chov", "Peter|Chovan"}, SearchCase{"Čiž", "Anna|Čižmárová"},
                    SearchCase{"*ková", "Jana|Nováková"}, SearchCase{"N?v", "Ján|Novák"},
                    SearchCase{"%", nullptr}, SearchCase{"Nováčik", nullptr},
                    SearchCase{"O'Hara", nullptr}, SearchCase{"'", nullptr},
                    SearchCase{"Novák J'", nullptr}, SearchCase{"[", nullptr}));

TEST_F(ListTest, emptySearchChangesNothing) {
    showClients();
    key(Qt::Key_End);
    search("Zadaj priezvisko a meno klienta :", nullptr);
    search("Zadaj priezvisko a meno klienta :", "");
    EXPECT_EQ(row("dbgKlient"), QStringLiteral("Jana|Nováková|31.12.2001|1"));
}

TEST_F(ListTest, employeeSearchSpeaksOfEmployees) {
    showEmployees();
    search("Zadaj priezvisko a meno zamestnanca :", "Kov");
    EXPECT_EQ(row("dbgPsych"), QStringLiteral("Iveta|Kováčová|funkcia 2"));
    expectInput("Zadaj priezvisko a meno zamestnanca :", "Hľadanie podľa priezviska", "Novák");
    expectBox("Zamestnanec  'Novák' nie je v databáze", "Informácia", QMessageBox::Information);
    key(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(row("dbgPsych"), QStringLiteral("Mária|Bartošová|funkcia 1"));
}

// Delete

TEST_F(ListTest, clientIsDeletedFromEveryTable) {
    addClient("NOVAK", "Ján ", " Novák");
    addClient("NOVAKX", "Eva", "Zelená");
    for (const char* table : clientTables) {
        if (std::string(table) == "k_zaklad")
            continue;
        // The key of the one memo of a client is unique, blanks at its end aside.
        const bool unique = std::string(table) == "k_memo";
        for (const char* key : {"NOVAK", "NOVAKX", unique ? "IN" : "NOVAK     "})
            reg.add(QLatin1String(table), {{u"idkod", QString::fromLatin1(key)}});
        if (unique)
            reg.execute({QStringLiteral("delete from k_memo where idkod='IN'")});
    }
    open();
    click("Label1");
    const auto ask = [this](QMessageBox::StandardButton answer) {
        expectBox("Naozaj chceš vymazať klienta : Ján  Novák ?", "Výmaz klienta",
                  QMessageBox::NoIcon, yesNo, answer);
        click("cmdVymaz");
    };
    ask(QMessageBox::No);
    EXPECT_EQ(reg.count(QStringLiteral("k_zaklad")), 2);
    EXPECT_EQ(reg.count(QStringLiteral("k_navstevy")), 3);
    ask(QMessageBox::Yes);
    for (const char* table : clientTables) {
        EXPECT_EQ(reg.count(QLatin1String(table)), 1) << table;
        EXPECT_EQ(reg.text(QLatin1String(table), QStringLiteral("idkod")),
                  QStringLiteral("NOVAKX"));
    }
    EXPECT_EQ(column("dbgKlient", 0), QStringList{QStringLiteral("Eva")});
}

TEST_F(ListTest, deletingTheLastRowLeavesNewOnly) {
    addClient("A", "Ján", "Novák");
    open();
    click("Label1");
    expectBox("Naozaj chceš vymazať klienta : Ján  Novák ?", "Výmaz klienta", QMessageBox::NoIcon,
              yesNo, QMessageBox::Yes);
    key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(buttons(), "+---+");
    EXPECT_EQ(caption("lblPocet"), QStringLiteral("Počet: 0"));
}

struct RefusalCase {
    const char* table;
    const char* refusal;
};

class RefusalTest : public ListTest, public testing::WithParamInterface<RefusalCase> {};

TEST_P(RefusalTest, employeeInUseStays) {
    reg.add(QLatin1String(GetParam().table),
            {{u"idkod", QStringLiteral("X")}, {u"idkod_p", QStringLiteral("BARTOSMA00")}});
    showEmployees();
    expectBox(GetParam().refusal, "Chybová správa", QMessageBox::Warning);
    click("cmdVymaz");
    EXPECT_EQ(reg.count(QStringLiteral("zamestnanci")), 3);
}

INSTANTIATE_TEST_SUITE_P(
    List, RefusalTest,
    testing::Values(
        RefusalCase{"k_vysetrenie", "Zamestnanca : -Mária  Bartošová- nie je možné vymazať"},
        RefusalCase{"k_zaznam_zmeny", "Zamestnanca: -Mária  Bartošová- nie je možné vymazať"},
        RefusalCase{"k_zaznam_spc", "Zamestnanca: -Mária  Bartošová- nie je možné vymazať"}));

TEST_F(ListTest, employeeNotInUseIsDeleted) {
    reg.add(QStringLiteral("k_vysetrenie"),
            {{u"idkod", QStringLiteral("X")}, {u"idkod_p", QStringLiteral("INY")}});
    showEmployees();
    key(Qt::Key_Down);
    const auto ask = [this](QMessageBox::StandardButton answer) {
        expectBox("Naozaj chceš vymazať zamestnanca : Iveta  Kováčová ?", "výmaz zamestnanca",
                  QMessageBox::NoIcon, yesNo, answer);
        click("cmdVymaz");
    };
    ask(QMessageBox::No);
    EXPECT_EQ(reg.count(QStringLiteral("zamestnanci")), 3);
    ask(QMessageBox::Yes);
    EXPECT_EQ(column("dbgPsych", 1), QStringList{QStringLiteral("Bartošová")});
    EXPECT_EQ(reg.count(QStringLiteral("select * from zamestnanci where idkod='KOVACIV00'")), 0);
    EXPECT_EQ(reg.count(QStringLiteral("zamestnanci")), 2);
}

// Cost

TEST_F(ListTest, onlyRowsOnShowAreRead) {
    const auto clients = reg.database().OpenRecordset(QStringLiteral("k_zaklad"));
    for (int i = 0; i < 1000; ++i) {
        clients->AddNew();
        clients->Fields(u"idkod").setValue(QStringLiteral("K%1").arg(i));
        clients->Fields(u"priezv").setValue(QStringLiteral("P%1").arg(i, 3, 10, QLatin1Char('0')));
        clients->Update();
    }
    open();
    click("Label1");
    window->grab();
    const auto& grid = find<forms::RecordsetGrid>("dbgKlient");
    const int visible = grid.viewport()->height() / grid.rowHeight(0) + 2;
    EXPECT_EQ(grid.rows().rowCount(), 1000);
    EXPECT_GT(grid.rows().rowsRead(), 5);
    EXPECT_LE(grid.rows().rowsRead(), visible);
    key(Qt::Key_End);
    window->grab();
    EXPECT_EQ(row("dbgKlient").section(u'|', 1, 1), QStringLiteral("P999"));
    EXPECT_LE(grid.rows().rowsRead(), 2 * visible);
}

} // namespace
