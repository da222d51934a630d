#include "mainwindow/MainWindow.h"
#include "mainwindow/PictureButton.h"
#include "store/Connection.h"
#include "store/EngineError.h"
#include "store/FileBytes.h"
#include "validation/modKontrola.h"

#include <QLabel>
#include <QMenuBar>
#include <QScreen>

using mainwindow::PictureButton;
using mainwindow::Screen;
using namespace Qt::StringLiterals;

namespace {

constexpr auto missing = "V adresári - chýba súbor -tvk.mdb-, pokúste sa o obnovu archívu !";
constexpr auto unusable = "Program nemôže pracovať, je nutný reštart počítača !";
constexpr QPoint corner(6, 6);

class StartTest : public MainWindow {
  protected:
    /// A letter for each picture.
    std::string colours() {
        std::string letters;
        for (int button = 1; button <= 6; ++button) {
            const auto name = "Picture" + std::to_string(button);
            letters += colourLetter(find<PictureButton>(name.c_str()).colour());
        }
        return letters;
    }
};

TEST_F(StartTest, comesUpWithNoListAndTheSchoolYear) {
    addClient("NOVAKJAN00", "Ján", "Novák");
    open();
    const QSize room = window->screen()->availableSize() - window->size();
    EXPECT_TRUE(room.width() > 0 && room.height() >= 24) << "no room for the title";
    for (const char* hidden : {"dbgKlient", "dbgPsych", "CmdSort"})
        EXPECT_FALSE(shown(hidden)) << hidden;
    for (const char* button : {"CmdNovy", "cmdOprava", "cmdVymaz", "cmdHladaj"})
        EXPECT_FALSE(enabled(button)) << button;
    EXPECT_EQ(caption("lblSkolskyRok"), u"2006/2007"_s);
    EXPECT_TRUE(modKontrola::gSpusteny);
}

TEST_F(StartTest, tabLeadsThroughEverything) {
    addClient("NOVAKJAN00", "Ján", "Novák");
    open();
    click("Label1");
    QStringList order;
    for (int step = 0; step < 13; ++step) {
        order << focused();
        key(Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(u' '),
              u"dbgKlient CmdNovy cmdOprava cmdVymaz cmdHladaj CmdSort textFilter "
              "Picture1 Picture2 Picture3 Picture4 Picture5 Picture6"_s);
    EXPECT_EQ(focused(), u"dbgKlient"_s);
}

TEST_F(StartTest, menuOpensItsScreens) {
    open();
    const std::pair<const char*, Screen> items[] = {
        {"mniVek", Screen::PrintVek},         {"mniVzd", Screen::PrintVzd},
        {"mniZam", Screen::PrintZam},         {"mniOdbStar", Screen::PrintOdbStar},
        {"mniDopUkaz", Screen::PrintDopUkaz}, {"mniZozKlient", Screen::PrintZozKlient},
        {"mniVykaz", Screen::PrintReturn},    {"mniKlientVykaz", Screen::ClientsInReturn},
        {"mniArchiv", Screen::Archive},       {"mniDearchiv", Screen::Restore}};
    for (const auto& [name, screen] : items) {
        window->findChild<QAction*>(QLatin1String(name))->trigger();
        EXPECT_EQ(opened.back(), screen) << name;
    }
    for (const auto& [opening, modifiers] :
         {std::pair{Qt::Key_T, Qt::AltModifier}, {Qt::Key_F10, Qt::NoModifier}}) {
        opened.clear();
        key(opening, modifiers);
        QWidget* menu = QApplication::activePopupWidget();
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(menu->objectName(), u"mnuTlac"_s);
        QTest::keyClick(menu, Qt::Key_Return);
        EXPECT_EQ(opened, std::vector<Screen>{Screen::PrintVek});
    }
}

TEST_F(StartTest, buttonsActWithEveryPartAndKeyAndFollowThePointer) {
    open();
    moveTo("Picture1", corner);
    EXPECT_EQ(find<QLabel>("Label1").palette().color(QPalette::Window), mainwindow::farbaHover);
    moveTo("Label4", find<QWidget>("Label4").rect().center());
    EXPECT_EQ(colours(), "h.....") << "a label is no picture";
    clickAt("Picture1", corner);
    moveTo("Picture4", corner);
    EXPECT_EQ(colours(), "h.....") << "the first move after a click";
    moveTo("Picture4", corner + QPoint(1, 1));
    EXPECT_EQ(colours(), "V..h..");
    click("Label2");
    moveTo("Picture6", corner);
    EXPECT_EQ(colours().substr(2), "...h") << "no move is ignored after a label";
    for (const char* part : {"Picture3", "Label3", "Label5"})
        clickAt(part, QPoint(6, 6));
    key(Qt::Key_3, Qt::ControlModifier);
    key(Qt::Key_Space);
    key(Qt::Key_Return);
    EXPECT_EQ(opened, std::vector<Screen>(6, Screen::TableIV));
    click("Label7");
    EXPECT_EQ(opened.back(), Screen::TableV);
    // The prompt goes by the day, not by what was set, and comes again after a complaint.
    const char* length = "Chybna dlzka vstupu, zadaj v tvare rok/rok+1";
    const char* date = "Chybne zadany datum,zadaj v tvare rok/rok+1";
    const char* none = nullptr;
    QString year = u"2006/2007"_s;
    for (const auto& [typed, answer] : {std::pair{"6/7", length},
                                        {"06-07", date},
                                        {" 80/81 ", "2080/1981"},
                                        {none, none},
                                        {"05/06", "2005/2006"},
                                        {"   ", none}}) {
        expectInput("Aktuálny školský rok je: '2006/2007' zadaj iný,ak nevyhovuje ", "Školský rok",
                    typed, "2006/2007");
        if (answer == length || answer == date) {
            expectBox(answer, "Chybová správa", QMessageBox::Warning);
            continue;
        }
        key(Qt::Key_6, Qt::ControlModifier);
        boxes.allCame();
        year = answer == none ? year : QString::fromUtf8(answer);
        EXPECT_EQ(caption("lblSkolskyRok"), year);
        EXPECT_EQ(window->schoolYear(), year);
    }
}

// Start without data

TEST_F(StartTest, missingFileAsksUntilItIsThere) {
    const QString away = reg.folder.path(u"inde.mdb");
    ASSERT_TRUE(QFile::rename(reg.folder.database(), away));
    expectBox(missing, "Upozornenie", QMessageBox::Critical, yesNo, QMessageBox::No);
    boxes.expect({.text = QString::fromUtf8(missing),
                  .title = u"Upozornenie"_s,
                  .icon = QMessageBox::Critical,
                  .buttons = yesNo,
                  .byEscape = true,
                  .meanwhile = [&] {
                      QFile::rename(away, reg.folder.database());
                  }});
    open();
    boxes.allCame();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->schoolYear(), u"2006/2007"_s);
    EXPECT_EQ(runsEnded, 0);
    EXPECT_TRUE(opened.empty());
}

TEST_F(StartTest, missingFileLeadsToARestoreAndEndsTheRun) {
    ASSERT_TRUE(QFile::remove(reg.folder.database()));
    ASSERT_TRUE(QDir().mkdir(reg.folder.database())) << "a folder of that name is no file";
    expectBox(missing, "Upozornenie", QMessageBox::Critical, yesNo, QMessageBox::Yes);
    open();
    EXPECT_EQ(opened, std::vector<Screen>{Screen::RestoreAtStart});
    EXPECT_TRUE(!window->isVisible() && runsEnded == 1);
}

TEST_F(StartTest, aDamagedFileIsTheLastMessageAndStaysAsItIs) {
    const QByteArray whole = files::read(reg.folder.database());
    const std::pair<const char*, QByteArray> kinds[] = {
        {"empty", {}},
        {"text", QByteArray("evidencia klientov\n").repeated(500)},
        {"cut off", whole.first(whole.size() / 2)},
        {"other header", QByteArray(whole).replace(0, 16, "SQLite formaX 3\0")}};
    for (const auto& [kind, bytes] : kinds) {
        SCOPED_TRACE(kind);
        runsEnded = 0;
        files::write(reg.folder.database(), bytes);
        expectBox(unusable, "", QMessageBox::Warning);
        open();
        boxes.allCame();
        EXPECT_FALSE(window->isVisible() || enabled("Picture1") || window->menuBar()->isEnabled());
        EXPECT_TRUE(runsEnded == 1 && opened.empty());
        EXPECT_EQ(files::read(reg.folder.database()), bytes);
        EXPECT_FALSE(QFile::exists(reg.folder.path(u"tmp.mdb")));
    }
}

TEST_F(StartTest, anyOtherFaultLeavesTheWindowAsFarAsItGot) {
    store::Connection other(reg.folder.database(), store::Connection::Access::ReadWrite);
    other.execute("begin exclusive");
    open();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->schoolYear(), QString());
    EXPECT_EQ(runsEnded, 0);
    EXPECT_TRUE(caption("lblStav").contains(u"iný program"_s));
    expectBox("Chyba č. 3218\n\nSúbor práve používa iný program.", "", QMessageBox::Critical);
    key(Qt::Key_1, Qt::ControlModifier);
    other.execute("rollback");
    window->findChild<QAction*>(u"mniVek"_s)->trigger();
    EXPECT_EQ(opened, std::vector<Screen>{Screen::PrintVek});
    EXPECT_EQ(window->schoolYear(), u"2006/2007"_s);
    EXPECT_EQ(caption("lblStav"), QString());
    key(Qt::Key_1, Qt::ControlModifier);
    EXPECT_TRUE(shown("dbgKlient"));
}

TEST_F(StartTest, aDamagedIndexIsMadeAnewAfterOneQuestion) {
    constexpr auto question = "Register v súbore -tvk.mdb- je poškodený, údaje sú v poriadku. Má "
                              "sa register vytvoriť nanovo ?";
    const auto damage = [this] {
        reg.letGo();
        store::Connection file(reg.folder.database(), store::Connection::Access::ReadWrite);
        sqlite3_db_config(file.handle(), SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
        // The rows of one index are those of another.
        file.execute("PRAGMA writable_schema=ON; UPDATE sqlite_schema SET rootpage=(SELECT "
                     "rootpage FROM sqlite_schema WHERE name='k_navstevy_idkod') WHERE "
                     "name='k_zaklad_idkod'");
    };
    addClient("NOVAKJAN00", "Ján", "Novák");
    for (const bool inTheBackground : {false, true}) {
        if (inTheBackground)
            reg.add(u"k_memo"_s, {{u"poznamky", QString(9 << 20, u'x')}});
        damage();
        boxes.expect({.text = QString::fromUtf8(question),
                      .title = u"Upozornenie"_s,
                      .icon = QMessageBox::Warning,
                      .buttons = yesNo,
                      .answer = QMessageBox::Yes,
                      .meanwhile = [this] {
                          find<QLabel>("lblSkolskyRok").setText(u"1999/2000"_s);
                      }});
        open();
        ASSERT_TRUE(QTest::qWaitFor([this] { return boxes.isEmpty(); }));
        EXPECT_TRUE(window->isVisible());
        EXPECT_EQ(window->schoolYear(), u"1999/2000"_s) << "what was chosen before";
        EXPECT_EQ(reg.count(u"select * from k_zaklad where idkod='NOVAKJAN00'"_s), 1);
        reg.letGo();
        window->zavri();
    }
    damage();
    expectBox(question, "Upozornenie", QMessageBox::Warning, yesNo, QMessageBox::No);
    expectBox(unusable, "", QMessageBox::Warning);
    open();
    ASSERT_TRUE(QTest::qWaitFor([this] { return boxes.isEmpty(); }));
    EXPECT_EQ(runsEnded, 1);
    EXPECT_EQ(files::namesIn(reg.directory.path()), QStringList{u"tvk.mdb"_s});
}

TEST_F(StartTest, aRegisterOfAnOlderVersionIsBroughtToThisOneInSight) {
    store::Connection(reg.folder.database(), store::Connection::Access::ReadWrite)
        .execute("pragma user_version=1");
    around.patience = std::chrono::milliseconds(0);
    boxes.expect({.name = u"frmUprava"_s, .drive = [](QWidget& form) {
                      QTest::keyClick(form.windowHandle(), Qt::Key_Escape);
                      EXPECT_TRUE(form.isVisible()) << "nothing can stop it";
                  }});
    open();
    EXPECT_EQ(caption("lblSkolskyRok"), u"2006/2007"_s);
}

TEST_F(StartTest, aFaultOfAnActionIsReportedAndTheWindowGoesOn) {
    open();
    click("Label2");
    play = [](Screen) {
        throw store::EngineError(store::ErrorNumber::UnknownTable, u"Niet tabuľky"_s);
    };
    expectBox("Chyba č. 3078\n\nNiet tabuľky", "", QMessageBox::Critical);
    click("CmdNovy");
    click("Label1");
    EXPECT_TRUE(shown("dbgKlient"));
}

TEST_F(StartTest, openingAgainSetsEverythingBack) {
    // What a print-out that was killed left is gone; what this run leaves stays.
    const auto leaveRow = u"insert into z_vek (vek) values ('1')"_s;
    reg.execute({leaveRow});
    open();
    EXPECT_EQ(reg.count(u"z_vek"_s), 0);
    reg.execute({leaveRow});
    click("Label1");
    moveTo("Picture2", corner);
    window->zavri();
    EXPECT_EQ(runsEnded, 0);
    today = QDate(2007, 1, 1).addYears(1);
    open();
    EXPECT_FALSE(shown("dbgKlient"));
    EXPECT_FALSE(enabled("CmdNovy"));
    EXPECT_EQ(caption("CmdNovy"), u"Nový"_s);
    EXPECT_EQ(colours(), "......");
    EXPECT_EQ(window->schoolYear(), u"2007/2008"_s);
    EXPECT_EQ(reg.count(u"z_vek"_s), 1);
}

} // namespace
