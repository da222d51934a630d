#include "mainwindow/ButtonColours.h"
#include "mainwindow/MainWindow.h"
#include "mainwindow/PictureButton.h"
#include "store/EngineError.h"
#include "validation/modKontrola.h"

#include <QFile>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QTableView>
#include <QTest>

#include <SQLiteCpp/Database.h>

using mainwindow::PictureButton;
using mainwindow::Screen;

namespace {

constexpr auto missing = "V adresári - chýba súbor -tvk.mdb-, pokúste sa o obnovu archívu !";
constexpr auto unusable = "Program nemôže pracovať, je nutný reštart počítača !";
constexpr QPoint corner(6, 6);

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("?");
}

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

TEST_F(MainWindow, comesUpWithNoListAndTheSchoolYear) {
    addClient("NOVAKJAN00", "Ján", "Novák");
    open();
    EXPECT_FALSE(shown("dbgKlient"));
    EXPECT_FALSE(shown("dbgPsych"));
    for (const char* button : {"CmdNovy", "cmdOprava", "cmdVymaz", "cmdHladaj"})
        EXPECT_FALSE(enabled(button)) << button;
    EXPECT_FALSE(shown("CmdSort"));
    EXPECT_EQ(caption("lblSkolskyRok"), QStringLiteral("2006/2007"));
    EXPECT_EQ(window->schoolYear(), QStringLiteral("2006/2007"));
    EXPECT_TRUE(modKontrola::gSpusteny);
    EXPECT_EQ(find<PictureButton>("Picture1").colour(), mainwindow::farbaZakl);
    EXPECT_EQ(find<QWidget>("Frame2").palette().color(QPalette::Window), QColor(157, 157, 206));
}

struct PartCase {
    const char* name;
    const char* text;
    const char* toolTip;
};

TEST_F(MainWindow, buttonsSayWhatTheyDo) {
    open();
    const PartCase parts[] = {
        {"Picture1", "", "Zobrazí zoznam klientov"},
        {"Label1", "KLIENTI", "Zobrazí údaje klientov"},
        {"Picture2", "", "Zobrazí zoznam zamestnancov"},
        {"Label2", "   ZAMESTNANCI", "Zobrazí údaje zamestnancov"},
        {"Picture3", "", "Sprístupní editáciu údajov dopĺňajúcich ukazovateľov"},
        {"Label3", "DOPĹŇAJÚCE", ""},
        {"Label5", "UKAZOVATELE", ""},
        {"Picture4", "", "Ukončí program"},
        {"Label4", "KONIEC", ""},
        {"Picture5", "", "Sprístupní editáciu údajov odbornej starostlivosti"},
        {"Label6", "ODBORNÁ", ""},
        {"Label7", "STAROSTLIVOSŤ", ""},
        {"Picture6", "",
         "Nastaví školský rok pre tvorbu výkazov v tvare RR/RR+1 resp. RRRR/RRRR+1"},
        {"Label8", "ŠKOLSKÝ ROK", ""},
        {"CmdNovy", "Nový", "Zadávanie nových dát zamestnancov"},
        {"cmdOprava", "Oprava údajov", "Ctrl+O"},
        {"cmdVymaz", "Výmaz ", "Ctrl+D"},
        {"cmdHladaj", "Hľadaj", "Ctrl+F"},
        {"CmdSort", "Trieď (katalógové číslo)", "Ctrl+T"},
    };
    for (const PartCase& part : parts) {
        EXPECT_EQ(caption(part.name), QString::fromUtf8(part.text)) << part.name;
        EXPECT_EQ(find<QWidget>(part.name).toolTip(), QString::fromUtf8(part.toolTip)) << part.name;
    }
}

TEST_F(MainWindow, hoverActsOnPicturesAndNotOnLabels) {
    open();
    moveTo("Picture1", corner);
    EXPECT_EQ(find<PictureButton>("Picture1").colour(), mainwindow::farbaHover);
    EXPECT_EQ(find<QLabel>("Label1").palette().color(QPalette::Window), mainwindow::farbaHover);
    moveTo("Label4", find<QWidget>("Label4").rect().center());
    EXPECT_EQ(find<PictureButton>("Picture4").colour(), mainwindow::farbaZakl);
    moveTo("Picture4", corner);
    EXPECT_EQ(find<PictureButton>("Picture4").colour(), mainwindow::farbaHover);
    EXPECT_EQ(find<PictureButton>("Picture1").colour(), mainwindow::farbaZakl);
}

TEST_F(MainWindow, afterAClickOnThePictureOneMoveIsIgnored) {
    open();
    moveTo("Picture1", corner);
    clickAt("Picture1", corner);
    moveTo("Picture2", corner);
    EXPECT_EQ(find<PictureButton>("Picture2").colour(), mainwindow::farbaZakl);
    moveTo("Picture2", corner + QPoint(1, 1));
    EXPECT_EQ(find<PictureButton>("Picture2").colour(), mainwindow::farbaHover);
    EXPECT_EQ(find<PictureButton>("Picture1").colour(), mainwindow::farbaVyber);
}

TEST_F(MainWindow, afterAClickOnTheLabelNoMoveIsIgnored) {
    open();
    click("Label1");
    EXPECT_TRUE(shown("dbgKlient"));
    moveTo("Picture2", corner);
    EXPECT_EQ(find<PictureButton>("Picture2").colour(), mainwindow::farbaHover);
}

TEST_F(MainWindow, everyPartAndKeyOfAButtonActs) {
    open();
    for (const char* part : {"Picture3", "Label3", "Label5"})
        clickAt(part, QPoint(6, 6));
    key(Qt::Key_3, Qt::ControlModifier);
    key(Qt::Key_Space);
    key(Qt::Key_Return);
    EXPECT_EQ(opened, std::vector<Screen>(6, Screen::TableIV));
    opened.clear();
    click("Label7");
    EXPECT_EQ(opened, std::vector<Screen>{Screen::TableV});
}

TEST_F(MainWindow, schoolYearIsSetByItsButton) {
    open();
    const auto answer = [this](const char* year) {
        boxes.expect(support::ExpectedInput{
            .prompt =
                QStringLiteral("Aktuálny školský rok je: '2006/2007' zadaj iný,ak nevyhovuje "),
            .title = QStringLiteral("Školský rok"),
            .initial = QStringLiteral("2006/2007"),
            .answer = QString::fromUtf8(year)});
    };
    answer("80/81");
    click("lblSkolskyRok");
    EXPECT_EQ(window->schoolYear(), QStringLiteral("2080/1981"));
    // The prompt goes by the day, not by what was set.
    answer("05/06");
    key(Qt::Key_6, Qt::ControlModifier);
    EXPECT_EQ(caption("lblSkolskyRok"), QStringLiteral("2005/2006"));
    EXPECT_EQ(find<QWidget>("Picture6").accessibleDescription(), QStringLiteral("2005/2006"));
}

TEST_F(MainWindow, tabLeadsThroughEverything) {
    addClient("NOVAKJAN00", "Ján", "Novák");
    open();
    click("Label1");
    QStringList order;
    for (int step = 0; step < 12; ++step) {
        order << focused();
        key(Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(u' '),
              QStringLiteral("dbgKlient CmdNovy cmdOprava cmdVymaz cmdHladaj CmdSort "
                             "Picture1 Picture2 Picture3 Picture4 Picture5 Picture6"));
    EXPECT_EQ(focused(), QStringLiteral("dbgKlient"));
}

TEST_F(MainWindow, leavesRoomForItsFrameOnASmallScreen) {
    open();
    const QSize room = window->screen()->availableSize() - window->size();
    EXPECT_GT(room.width(), 0);
    EXPECT_GE(room.height(), 24);
}

TEST_F(MainWindow, menuOpensItsScreens) {
    open();
    struct Item {
        const char* name;
        const char* caption;
        Screen screen;
    };
    const Item items[] = {
        {"mniVek", "Zostava klientov zoradena podľa veku", Screen::PrintVek},
        {"mniVzd", "Zostava klientov zoradená podľa spôsobu vzdelávania", Screen::PrintVzd},
        {"mniZam", "Evidenčný počet zamestnancov", Screen::PrintZam},
        {"mniOdbStar", "Odborná starostlivosť", Screen::PrintOdbStar},
        {"mniDopUkaz", "Dopĺňajúce ukazovatele", Screen::PrintDopUkaz},
        {"mniZozKlient", "Zoznam klientov", Screen::PrintZozKlient},
        {"mniArchiv", "Archivácia dát", Screen::Archive},
        {"mniDearchiv", "Obnova archivovaných dát", Screen::Restore},
    };
    for (const Item& item : items) {
        auto* action = window->findChild<QAction*>(QLatin1String(item.name));
        ASSERT_NE(action, nullptr) << item.name;
        EXPECT_EQ(action->text(), QString::fromUtf8(item.caption));
        action->trigger();
        EXPECT_EQ(opened.back(), item.screen) << item.name;
    }
    QStringList menus;
    for (const QAction* menu : window->menuBar()->actions())
        menus << menu->objectName() + u' ' + menu->text();
    EXPECT_EQ(menus,
              QStringList({QStringLiteral("mnuTlac Tlač"), QStringLiteral("mnuServis Servis"),
                           QStringLiteral("mnuKoniec Koniec")}));
}

TEST_F(MainWindow, menuOpensByKeys) {
    open();
    for (const auto& [opening, modifiers] :
         {std::pair{Qt::Key_T, Qt::AltModifier}, {Qt::Key_F10, Qt::NoModifier}}) {
        opened.clear();
        key(opening, modifiers);
        QWidget* menu = QApplication::activePopupWidget();
        ASSERT_NE(menu, nullptr);
        if (menu->objectName().isEmpty() ||
            menu != window->findChild<QMenu*>(QStringLiteral("mnuTlac")))
            FAIL() << "another menu";
        QTest::keyClick(menu, Qt::Key_Return);
        EXPECT_EQ(opened, std::vector<Screen>{Screen::PrintVek});
    }
}

// Start without data

TEST_F(MainWindow, missingFileAsksUntilItIsThere) {
    const QString away = reg.folder.path(u"inde.mdb");
    ASSERT_TRUE(QFile::rename(reg.folder.database(), away));
    const support::ExpectedBox no{.text = QString::fromUtf8(missing),
                                  .title = QStringLiteral("Upozornenie"),
                                  .icon = QMessageBox::Critical,
                                  .buttons = yesNo,
                                  .answer = QMessageBox::No};
    boxes.expect(no);
    support::ExpectedBox byEsc = no;
    byEsc.byEscape = true;
    boxes.expect(byEsc);
    support::ExpectedBox last = no;
    last.meanwhile = [&] {
        QFile::rename(away, reg.folder.database());
    };
    boxes.expect(last);
    open();
    boxes.allCame();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->schoolYear(), QStringLiteral("2006/2007"));
    EXPECT_EQ(runsEnded, 0);
    EXPECT_TRUE(opened.empty());
}

TEST_F(MainWindow, missingFileLeadsToARestoreAndEndsTheRun) {
    ASSERT_TRUE(QFile::remove(reg.folder.database()));
    expectBox(missing, "Upozornenie", QMessageBox::Critical, yesNo, QMessageBox::Yes);
    play = [this](Screen) {
        reg.engine.CreateDatabase(reg.folder.database());
    };
    open();
    EXPECT_EQ(opened, std::vector<Screen>{Screen::RestoreAtStart});
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(runsEnded, 1);
}

TEST_F(MainWindow, aFolderInPlaceOfTheFileIsNoFile) {
    ASSERT_TRUE(QFile::remove(reg.folder.database()));
    ASSERT_TRUE(QDir().mkdir(reg.folder.database()));
    expectBox(missing, "Upozornenie", QMessageBox::Critical, yesNo, QMessageBox::Yes);
    open();
    EXPECT_EQ(runsEnded, 1);
}

class DamagedFileTest : public MainWindow, public testing::WithParamInterface<const char*> {
  protected:
    QByteArray damaged() {
        const QByteArray whole = contents(reg.folder.database());
        const std::string kind = GetParam();
        if (kind == "empty")
            return {};
        if (kind == "text")
            return QByteArray("evidencia klientov\n").repeated(500);
        if (kind == "cutOff")
            return whole.first(whole.size() / 2);
        QByteArray other = whole;
        return other.replace(0, 16, "SQLite formaX 3\0");
    }
};

TEST_P(DamagedFileTest, isTheLastMessageAndStaysAsItIs) {
    const QByteArray bytes = damaged();
    write(reg.folder.database(), bytes);
    expectBox(unusable, "", QMessageBox::Warning);
    open();
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(enabled("Picture1"));
    EXPECT_FALSE(window->menuBar()->isEnabled());
    EXPECT_EQ(runsEnded, 1);
    EXPECT_TRUE(opened.empty());
    EXPECT_EQ(contents(reg.folder.database()), bytes);
    EXPECT_FALSE(QFile::exists(reg.folder.path(u"tmp.mdb")));
}

INSTANTIATE_TEST_SUITE_P(Start, DamagedFileTest,
                         testing::Values("empty", "text", "cutOff", "otherHeader"),
                         [](const auto& kind) { return std::string(kind.param); });

TEST_F(MainWindow, anyOtherFaultLeavesTheWindowAsFarAsItGot) {
    SQLite::Database other(reg.folder.database().toStdString(), SQLite::OPEN_READWRITE);
    other.exec("begin exclusive");
    open();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->schoolYear(), QString());
    EXPECT_EQ(runsEnded, 0);
    other.exec("rollback");
    click("Label1");
    EXPECT_EQ(focused(), QStringLiteral("CmdNovy"));
}

TEST_F(MainWindow, aFaultOfAnActionIsReportedAndTheWindowGoesOn) {
    open();
    click("Label2");
    play = [](Screen) {
        throw store::EngineError(store::ErrorNumber::UnknownTable, QStringLiteral("Niet tabuľky"));
    };
    expectBox("Chyba č. 3078\n\nNiet tabuľky", "", QMessageBox::Critical);
    click("CmdNovy");
    click("Label1");
    EXPECT_TRUE(shown("dbgKlient"));
}

TEST_F(MainWindow, closingByTheFrameEndsTheRunWithoutCompaction) {
    write(reg.folder.path(u"arch_tmp.zip"), "zip");
    open();
    const QByteArray before = contents(reg.folder.database());
    QFile untouched(reg.folder.database());
    const QDateTime written = untouched.fileTime(QFileDevice::FileModificationTime);
    window->close();
    EXPECT_EQ(runsEnded, 1);
    EXPECT_EQ(contents(reg.folder.database()), before);
    EXPECT_EQ(untouched.fileTime(QFileDevice::FileModificationTime), written);
    EXPECT_TRUE(QFile::exists(reg.folder.path(u"arch_tmp.zip")));
}

TEST_F(MainWindow, openingAgainSetsEverythingBack) {
    addClient("NOVAKJAN00", "Ján", "Novák");
    open();
    click("Label1");
    moveTo("Picture2", corner);
    window->zavri();
    EXPECT_EQ(runsEnded, 0);
    today = QDate(2007, 1, 1).addYears(1);
    open();
    EXPECT_FALSE(shown("dbgKlient"));
    EXPECT_FALSE(enabled("CmdNovy"));
    EXPECT_EQ(caption("CmdNovy"), QStringLiteral("Nový"));
    EXPECT_EQ(find<PictureButton>("Picture1").colour(), mainwindow::farbaZakl);
    EXPECT_EQ(find<PictureButton>("Picture2").colour(), mainwindow::farbaZakl);
    EXPECT_EQ(window->schoolYear(), QStringLiteral("2007/2008"));
}

} // namespace
