#include "forms/RecordsetGrid.h"
#include "mainwindow/MainWindow.h"
#include "store/Connection.h"
#include "validation/modKontrola.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QPaintEvent>
#include <QPushButton>

using mainwindow::Screen;
using namespace Qt::StringLiterals;

namespace {

const QString clientTables[] = {u"k_zaklad"_s,     u"k_memo"_s,        u"k_navstevy"_s,
                                u"k_surodenci"_s,  u"k_vysetrenie"_s,  u"k_zariad"_s,
                                u"k_zaznam_spc"_s, u"k_zaznam_zmeny"_s};

class ListTest : public MainWindow {
  protected:
    void addClients() {
        addClient("CIZMARAN00", "Anna", "Čižmárová", "10", "1998-02-07");
        addClient("CHOVAN'P00", "Peter", "Chovan", "2");
        addClient("HORVATEV00", "Eva", "Horváthová", "x");
        addClient("NOVAKJA000", "Jana", "Nováková", "1", "2001-12-31");
        addClient("NOVAKJAN00", "Ján", "Novák", "3");
    }
    void addEmployees() {
        for (int code = 1; code <= 2; ++code)
            reg.add(u"c_funkcie"_s, {{u"fc_idkod", code}, {u"nazov", u"funkcia %1"_s.arg(code)}});
        addEmployee("KOVA'IV00", "Iveta", "Kováčová", 2);
        addEmployee("BARTO'MA00", "Mária", "Bartošová", 1);
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
    /// Enter gives the harmless answer.
    void expectDelete(const char* question, const char* title, QMessageBox::StandardButton answer) {
        boxes.expect({.text = QString::fromUtf8(question),
                      .title = QString::fromUtf8(title),
                      .buttons = yesNo,
                      .answer = answer,
                      .meanwhile = [] {
                          auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                          EXPECT_EQ(box->standardButton(box->defaultButton()), QMessageBox::No);
                      }});
    }
    QStringList column(const char* grid, int column) {
        const auto* model = find<QTableView>(grid).model();
        QStringList texts;
        for (int row = 0; row < model->rowCount(); ++row)
            texts << model->index(row, column).data().toString();
        return texts;
    }
    /// As the keys of a Slovak keyboard come.
    void type(const QString& text) {
        for (const QChar letter : text) {
            QKeyEvent press(QEvent::KeyPress, 0, {}, letter);
            QCoreApplication::sendEvent(window->focusWidget(), &press);
        }
    }
    void expectList(const char* grid, const char* other, const char* states, QStringView captions) {
        EXPECT_TRUE(shown(grid) && !shown(other));
        EXPECT_EQ(focused(), QLatin1String(grid));
        EXPECT_EQ(buttons(), states);
        QStringList found;
        for (const char* name : {"CmdNovy", "cmdVymaz", "cmdHladaj", "lblZoznam"})
            found << caption(name);
        EXPECT_EQ(found.join(u'/'), captions);
    }
    std::string buttons() {
        std::string states;
        for (const char* name : {"CmdNovy", "cmdOprava", "cmdVymaz", "cmdHladaj"})
            states += enabled(name) ? '+' : '-';
        return states + (shown("CmdSort") ? "+" : "-");
    }
};

TEST_F(ListTest, bothListsComeByNameAndEmployeesWithoutAFunctionDoNot) {
    addEmployees();
    showClients();
    EXPECT_EQ(column("dbgKlient", 1).join(u' '), u"Čižmárová Horváthová Chovan Novák Nováková"_s);
    EXPECT_EQ(row("dbgKlient", 0), u"Anna|Čižmárová|07.02.1998|10"_s);
    EXPECT_EQ(row("dbgKlient", 2), u"Peter|Chovan||2"_s);
    expectList("dbgKlient", "dbgPsych", "+++++",
               u"Nový klient/Výmaz klienta/Hľadaj klienta/Klienti");
    click("Label2");
    EXPECT_EQ(column("dbgPsych", 1).join(u' '), u"Bartošová Kováčová"_s);
    EXPECT_EQ(row("dbgPsych", 1), u"Iveta|Kováčová|funkcia 2"_s);
    expectList("dbgPsych", "dbgKlient", "++++-",
               u"Nový zamestnanec/Výmaz zamestnanca/Hľadaj zamestnanca/Zamestnanci");
}

TEST_F(ListTest, anEmptyListTakesANewRecordOnly) {
    open();
    click("Label1");
    EXPECT_EQ(buttons(), "+---+");
    EXPECT_EQ(focused(), u"CmdNovy"_s);
    click("Label2");
    EXPECT_EQ(buttons(), "+----");
    click("Label1");
    play = [this](Screen) {
        addClient("NOVAKJAN00", "Ján", "Novák");
    };
    click("CmdNovy");
    EXPECT_EQ(buttons(), "+++++");
    EXPECT_EQ(focused(), u"dbgKlient"_s);
}

TEST_F(ListTest, newOpensTheCardOfTheList) {
    showClients();
    addEmployees();
    modKontrola::gIdKod = u"zvyšok"_s;
    modKontrola::gMenoKlienta = u"zvyšok"_s;
    play = [](Screen) {
        EXPECT_EQ(modKontrola::gAkcia, 1);
        EXPECT_EQ(modKontrola::gIdKod + modKontrola::gMenoKlienta, QString());
    };
    click("CmdNovy");
    click("Label2");
    key(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(opened, std::vector({Screen::ClientCard, Screen::EmployeeCard}));
    EXPECT_EQ(focused(), u"dbgPsych"_s);
}

TEST_F(ListTest, editNamesTheRowAndStaysOnIt) {
    showClients();
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    play = [this](Screen) {
        EXPECT_EQ(modKontrola::gAkcia, 2);
        EXPECT_EQ(modKontrola::gIdKod + modKontrola::gMenoKlienta, u"CHOVAN'P00 : Peter  Chovan"_s);
        reg.execute({u"update k_zaklad set priezv='Žiak' where idkod='CHOVAN''P00'"_s});
    };
    click("cmdOprava");
    EXPECT_EQ(opened, std::vector{Screen::ClientCard});
    EXPECT_EQ(row("dbgKlient"), u"Peter|Žiak||2"_s);
    EXPECT_EQ(find<QTableView>("dbgKlient").currentIndex().row(), 4);
    EXPECT_EQ(focused(), u"dbgKlient"_s);
}

TEST_F(ListTest, sortTogglesAndKeepsItsCaptionThroughAnEdit) {
    showClients();
    EXPECT_EQ(caption("CmdSort"), u"Trieď (katalógové číslo)"_s);
    click("CmdSort");
    EXPECT_EQ(caption("CmdSort"), u"Trieď (priezvisko,meno)"_s);
    EXPECT_EQ(column("dbgKlient", 3).join(u' '), u"x 1 2 3 10"_s);
    click("cmdOprava");
    EXPECT_EQ(column("dbgKlient", 3).join(u' '), u"10 x 2 3 1"_s);
    EXPECT_EQ(caption("CmdSort"), u"Trieď (priezvisko,meno)"_s);
    EXPECT_EQ(row("dbgKlient"), u"Eva|Horváthová||x"_s);
    click("CmdSort");
    EXPECT_EQ(column("dbgKlient", 3).join(u' '), u"10 x 2 3 1"_s);
    EXPECT_EQ(caption("CmdSort"), u"Trieď (katalógové číslo)"_s);
}

TEST_F(ListTest, aClickAnywhereInARowChoosesItAndOpensNothing) {
    showClients();
    const auto& grid = find<QTableView>("dbgKlient");
    for (const auto& [row, x, client] :
         {std::tuple(1, 20, u"HORVATEV00"_s), {3, grid.viewport()->width() - 5, u"NOVAKJAN00"_s}}) {
        opened.clear();
        const QPoint inGrid(x, grid.rowViewportPosition(row) + 5);
        support::press(*grid.viewport(), inGrid);
        QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {},
                           grid.viewport()->mapTo(window.get(), inGrid));
        EXPECT_TRUE(opened.empty());
        key(Qt::Key_Return);
        EXPECT_EQ(opened.size(), 1);
        EXPECT_EQ(modKontrola::gIdKod, client);
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
    const std::pair<Qt::Key, QString> moves[] = {
        {Qt::Key_End, u"NOVAKJA000"_s},      {Qt::Key_Up, u"NOVAKJAN00"_s},
        {Qt::Key_Home, u"CIZMARAN00"_s},     {Qt::Key_Down, u"HORVATEV00"_s},
        {Qt::Key_PageDown, u"NOVAKJA000"_s}, {Qt::Key_PageUp, u"CIZMARAN00"_s}};
    for (const auto& [moving, expected] : moves) {
        find<QTableView>("dbgKlient").setFocus();
        key(moving);
        key(Qt::Key_O, Qt::ControlModifier);
        EXPECT_EQ(modKontrola::gIdKod, expected) << moving;
    }
}

// Filter

TEST_F(ListTest, whatIsTypedLeavesThoseInWhichAllWordsBeginAWord) {
    using Filter = std::tuple<const char*, const char*, const char*>;
    showClients();
    for (const auto& [typed, surnames, count] :
         {Filter{"nova jan", "Novák Nováková", "2 z 5 klientov"},
          Filter{"JÁN NOV", "Novák Nováková", "2 z 5 klientov"},
          Filter{"jana n", "Nováková", "1 z 5 klientov"},
          Filter{"Čiž", "Čižmárová", "1 z 5 klientov"}, Filter{"ova", "", "0 z 5 klientov"},
          Filter{"3", "Novák Nováková", "2 z 5 klientov"},
          Filter{"x", "Horváthová", "1 z 5 klientov"},
          Filter{"7.2.1998", "Čižmárová", "1 z 5 klientov"},
          Filter{"07.02.", "Čižmárová", "1 z 5 klientov"}, Filter{"'", "", "0 z 5 klientov"}}) {
        SCOPED_TRACE(typed);
        type(QString::fromUtf8(typed));
        EXPECT_EQ(column("dbgKlient", 1).join(u' '), QString::fromUtf8(surnames));
        EXPECT_EQ(caption("lblPocet"), QString::fromUtf8(count));
        EXPECT_EQ(buttons(), *surnames != 0 ? "+++++" : "+--++");
        EXPECT_EQ(focused(), u"dbgKlient"_s);
        key(Qt::Key_Escape);
        EXPECT_EQ(caption("lblPocet"), u"Počet: 5"_s);
        EXPECT_EQ(buttons(), "+++++");
    }
    addEmployees();
    click("Label2");
    type(u"funkcia ivx"_s);
    key(Qt::Key_Backspace);
    EXPECT_EQ(row("dbgPsych"), u"Iveta|Kováčová|funkcia 2"_s);
    EXPECT_EQ(caption("lblPocet"), u"1 z 2 zamestnancov"_s);
}

/// What is on show is what is stored, and what is chosen is seen.
TEST_F(ListTest, theFilterHoldsOrGivesWayWhenRowsChange) {
    showClients();
    const auto expectShown = [this](const char* surnames, const char* count) {
        EXPECT_EQ(column("dbgKlient", 1).join(u' '), QString::fromUtf8(surnames));
        EXPECT_EQ(caption("lblPocet").section(u"·  "_s, -1), QString::fromUtf8(count));
    };
    type(u"nov"_s);
    click("CmdSort");
    expectShown("Nováková Novák", "2 z 5 klientov");
    play = [this](Screen) {
        addClient("NOVOTN0000", "Ida", "Novotná");
    };
    click("CmdNovy");
    expectShown("Novotná Nováková Novák", "3 z 6 klientov");
    key(Qt::Key_Home);
    expectDelete("Naozaj chceš vymazať klienta : Ida  Novotná ?", "Výmaz klienta",
                 QMessageBox::Yes);
    key(Qt::Key_Delete);
    expectShown("Nováková Novák", "2 z 5 klientov");
    const auto rename = [this](const char16_t* surname) {
        play = [this, surname](Screen) {
            reg.execute({u"update k_zaklad set priezv='%1' where idkod='NOVAKJAN00'"_s.arg(
                QString::fromUtf16(surname))});
        };
        key(Qt::Key_Return);
    };
    key(Qt::Key_End);
    rename(u"Novotný");
    expectShown("Nováková Novotný", "2 z 5 klientov");
    EXPECT_EQ(row("dbgKlient"), u"Ján|Novotný||3"_s);
    rename(u"Žiak");
    expectShown("Čižmárová Horváthová Chovan Nováková Žiak", "Počet: 5");
    EXPECT_TRUE(caption("lblPocet").startsWith(u"Filter je zrušený"_s));
    EXPECT_EQ(row("dbgKlient"), u"Ján|Žiak||3"_s) << "the row is kept, and seen";
    type(u"xyz"_s);
    expectInput("Zadaj priezvisko a meno klienta :", "Hľadanie podľa priezviska", "Chov");
    click("cmdHladaj");
    EXPECT_EQ(row("dbgKlient"), u"Peter|Chovan||2"_s);
    expectShown("Čižmárová Horváthová Chovan Nováková Žiak", "Počet: 5");
}

TEST_F(ListTest, headsSortBothWaysAndTheArrowTellsWhatIsOnShow) {
    showClients();
    auto& view = find<QTableView>("dbgKlient");
    const auto clickHead = [&](int column) {
        const int x = view.horizontalHeader()->sectionViewportPosition(column) + 20;
        support::press(*view.horizontalHeader()->viewport(), QPoint(x, 8));
    };
    const auto arrow = [&] {
        const QHeaderView& head = *view.horizontalHeader();
        return head.sortIndicatorSection() *
               (head.sortIndicatorOrder() == Qt::AscendingOrder ? 1 : -1);
    };
    key(Qt::Key_End);
    const std::tuple<int, int, const char*> clicks[] = {
        {1, -1, "1 3 2 x 10"}, {1, 1, "10 x 2 3 1"}, {2, 2, "x 2 3 10 1"},
        {2, -2, "1 10 3 2 x"}, {3, 3, "x 1 2 3 10"}, {3, -3, "10 3 2 1 x"}};
    for (const auto& [column, shown, numbers] : clicks) {
        clickHead(column);
        EXPECT_EQ(this->column("dbgKlient", 3).join(u' ').toStdString(), numbers);
        EXPECT_EQ(arrow(), shown);
        EXPECT_EQ(row("dbgKlient"), u"Jana|Nováková|31.12.2001|1"_s) << "the row stays";
    }
    EXPECT_EQ(caption("CmdSort"), u"Trieď (katalógové číslo)"_s);
    click("cmdOprava");
    EXPECT_EQ(arrow(), 1);
    click("CmdSort");
    EXPECT_EQ(arrow(), 3);
    view.horizontalHeader()->resizeSection(0, 300);
    window->resize(window->width() + 40, window->height());
    click("Label2");
    click("Label1");
    EXPECT_GE(view.columnWidth(0), 300) << "widths hold";
    EXPECT_EQ(view.horizontalHeader()->length(), view.viewport()->width());
}

TEST_F(ListTest, theMenuOffersWhatTheButtonsDo) {
    showClients();
    const auto choose = [this](const char* entry) {
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
        QCoreApplication::sendEvent(&find<QTableView>("dbgKlient"), &asked);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QStringList texts;
        for (const QAction* action : menu->actions())
            texts << action->text().replace(u'\t', u'|') +
                         (action->isEnabled() ? QString() : u" -"_s);
        menu->findChild<QAction*>(QLatin1String(entry))->trigger();
        menu->close();
        return texts.join(u'/');
    };
    EXPECT_EQ(choose("cmdOprava"),
              u"Nový klient|Ctrl+N/Oprava údajov|Enter/Výmaz klienta|Del/Hľadaj klienta|Ctrl+F/"
              "Trieď (katalógové číslo)|Ctrl+T//Hľadaj ďalej|F3/Zruš filter|Esc -/Zoradiť podľa"_s);
    EXPECT_EQ(opened, std::vector{Screen::ClientCard});
    type(u"nov"_s);
    choose("mniVsetci");
    EXPECT_EQ(caption("lblPocet"), u"Počet: 5"_s);
}

// Search

TEST_F(ListTest, f3GoesOnWithTheLastSearchAndBeginsAnewBehindTheLastHit) {
    showClients();
    expectInput("Zadaj priezvisko a meno klienta :", "Hľadanie podľa priezviska", "Nov");
    key(Qt::Key_F3);
    EXPECT_EQ(row("dbgKlient"), u"Ján|Novák||3"_s);
    for (const QString& next : {u"Jana|Nováková|31.12.2001|1"_s, u"Ján|Novák||3"_s}) {
        key(Qt::Key_F3);
        EXPECT_EQ(row("dbgKlient"), next);
    }
    addEmployees();
    click("Label2");
    expectBox("Zamestnanec  'Nov' nie je v databáze", "Informácia", QMessageBox::Information);
    key(Qt::Key_F3);
}

TEST_F(ListTest, searchFindsBySurnameAndFirstName) {
    using Search = std::pair<std::string, std::string>;
    showClients();
    for (const auto& [typed, found] :
         {Search{"Nov", "Ján|Novák"}, Search{"  Nov", ""}, Search{"Novák Ján", "Ján|Novák"},
          Search{"nOVÁK jANA", "Jana|Nováková"}, Search{"Novák  Jana ", "Jana|Nováková"},
          Search{"Novák n", ""}, Search{"chov", "Peter|Chovan"}, Search{"Čiž", "Anna|Čižmárová"},
          Search{"*ková", "Jana|Nováková"}, Search{"N?v", "Ján|Novák"}, Search{"%", ""},
          Search{"Nováčik", ""}, Search{"O'Hara", ""}, Search{"'", ""}, Search{"Novák J'", ""},
          Search{"[", ""}}) {
        SCOPED_TRACE(typed);
        key(Qt::Key_End);
        const std::string message = "Klient  '" + typed + "' nie je v databáze";
        expectInput("Zadaj priezvisko a meno klienta :", "Hľadanie podľa priezviska",
                    typed.c_str());
        if (found.empty())
            expectBox(message.c_str(), "Informácia", QMessageBox::Information);
        click("cmdHladaj");
        boxes.allCame();
        EXPECT_EQ(row("dbgKlient").section(u'|', 0, 1).toStdString(),
                  found.empty() ? "Anna|Čižmárová" : found);
        EXPECT_EQ(focused(), u"dbgKlient"_s);
    }
}

TEST_F(ListTest, employeeSearchSpeaksOfEmployees) {
    const auto search = [this](const char* typed, const char* answer = nullptr) {
        expectInput("Zadaj priezvisko a meno zamestnanca :", "Hľadanie podľa priezviska", typed);
        if (answer != nullptr)
            expectBox(answer, "Informácia", QMessageBox::Information);
        key(Qt::Key_F, Qt::ControlModifier);
        return row("dbgPsych");
    };
    showEmployees();
    for (const char* typed : {"Kov", static_cast<const char*>(nullptr), ""})
        EXPECT_EQ(search(typed), u"Iveta|Kováčová|funkcia 2"_s);
    EXPECT_EQ(search("Novák", "Zamestnanec  'Novák' nie je v databáze"),
              u"Mária|Bartošová|funkcia 1"_s);
}

// Delete

TEST_F(ListTest, clientIsDeletedFromEveryTable) {
    addClient("O'HAR", "Ján ", " Novák");
    addClient("O'HARX", "Eva", "Zelená");
    for (const QString& table : clientTables) {
        for (const auto& key : {u"O'HAR"_s, u"O'HARX"_s, u"O'HAR     "_s}) {
            // Their key is unique, blanks at its end aside.
            if (table != u"k_zaklad" && (table != u"k_memo" || !key.endsWith(u' ')))
                reg.add(table, {{u"idkod", key}});
        }
    }
    open();
    click("Label1");
    const auto ask = [this](QMessageBox::StandardButton answer, const char* error = nullptr) {
        expectDelete("Naozaj chceš vymazať klienta : Ján  Novák ?", "Výmaz klienta", answer);
        if (error != nullptr)
            expectBox(error, "", QMessageBox::Critical);
        click("cmdVymaz");
    };
    ask(QMessageBox::No);
    EXPECT_EQ(reg.count(u"k_zaklad"_s), 2);
    EXPECT_EQ(reg.count(u"k_navstevy"_s), 3);
    reg.engine.commitPending();
    store::Connection other(reg.folder.database(), store::Connection::Access::ReadWrite);
    other.execute("create trigger refusal before delete on k_zariad begin "
                  "select raise(abort, 'nie'); end");
    ask(QMessageBox::Yes, "Chyba č. 3000\n\nChyba databázového stroja: nie.");
    EXPECT_EQ(reg.count(u"k_navstevy"_s), 3) << "stopped midway";
    reg.engine.commitPending();
    other.execute("drop trigger refusal");
    ask(QMessageBox::Yes);
    for (const QString& table : clientTables) {
        EXPECT_EQ(reg.count(table), 1) << qPrintable(table);
        EXPECT_EQ(reg.text(table, u"idkod"_s), u"O'HARX"_s);
    }
    EXPECT_EQ(column("dbgKlient", 0), QStringList{u"Eva"_s});
    expectDelete("Naozaj chceš vymazať klienta : Eva  Zelená ?", "Výmaz klienta", QMessageBox::Yes);
    key(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(buttons(), "+---+");
    EXPECT_EQ(caption("lblPocet"), u"Počet: 0"_s);
}

TEST_F(ListTest, employeeIsDeletedWhenNotInUse) {
    const std::pair<QString, const char*> uses[] = {{u"k_vysetrenie"_s, "Zamestnanca : "},
                                                    {u"k_zaznam_zmeny"_s, "Zamestnanca: "},
                                                    {u"k_zaznam_spc"_s, "Zamestnanca: "}};
    showEmployees();
    for (const auto& [table, refusal] : uses) {
        reg.execute({u"delete * from "_s + table});
        reg.add(table, {{u"idkod", u"X"_s}, {u"idkod_p", u"BARTO'MA00"_s}});
        expectBox((refusal + std::string("-Mária  Bartošová- nie je možné vymazať")).c_str(),
                  "Chybová správa", QMessageBox::Warning);
        click("cmdVymaz");
        boxes.allCame();
        reg.execute({u"update %1 set idkod_p = 'INY'"_s.arg(table)});
    }
    for (const auto& [answer, left] : {std::pair{QMessageBox::No, 3}, {QMessageBox::Yes, 2}}) {
        expectDelete("Naozaj chceš vymazať zamestnanca : Mária  Bartošová ?", "výmaz zamestnanca",
                     answer);
        click("cmdVymaz");
        EXPECT_EQ(reg.count(u"zamestnanci"_s), left);
    }
    EXPECT_EQ(column("dbgPsych", 1), QStringList{u"Kováčová"_s});
}

// Cost

TEST_F(ListTest, onlyRowsOnShowAreRead) {
    for (int i = 1000; i < 2000; ++i)
        reg.add(u"k_zaklad"_s, {{u"idkod", u"K%1"_s.arg(i)}, {u"priezv", u"P%1"_s.arg(i)}});
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
    EXPECT_EQ(row("dbgKlient").section(u'|', 1, 1), u"P1999"_s);
    EXPECT_LE(grid.rows().rowsRead(), 2 * visible);
    // A letter that comes before a long list has been read for it.
    window->readListAnew();
    type(u"x"_s);
    EXPECT_EQ(caption("lblPocet"), u"Filtruje sa …"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return caption("lblPocet") == u"0 z 1000 klientov"; }));
    // A key that acts on the row waits for what was typed before it.
    for (const auto& [acting, modifiers] :
         {std::pair{Qt::Key_Return, Qt::KeyboardModifiers()}, {Qt::Key_O, Qt::ControlModifier}}) {
        key(Qt::Key_Escape);
        window->readListAnew();
        type(u"x"_s);
        EXPECT_EQ(caption("lblPocet"), u"Filtruje sa …"_s);
        key(acting, modifiers);
        EXPECT_EQ(caption("lblPocet"), u"0 z 1000 klientov"_s);
        EXPECT_TRUE(opened.empty()) << "who was not meant";
    }
}

} // namespace
