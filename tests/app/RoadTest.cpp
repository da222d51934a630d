#include "app/Screens.h"
#include "mainwindow/FrmUvod.h"
#include "mkdb/Arguments.h"
#include "mkdb/Commands.h"
#include "report/PreviewDialog.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"

#include <QAction>
#include <QApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QTableView>
#include <QWindow>

namespace {

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

/// The program over a register as a new user gets it, driven by clicks and keys alone.
class RoadTest : public testing::Test {
  protected:
    QWidget& inFront() {
        QWidget* modal = QApplication::activeModalWidget();
        return modal != nullptr ? *modal : window;
    }
    QString focused() {
        const QWidget* named = inFront().focusWidget();
        while (named != nullptr && named->objectName().isEmpty())
            named = named->parentWidget();
        return named != nullptr ? named->objectName() : QString();
    }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(inFront().windowHandle(), code, modifiers);
    }
    void keys(std::initializer_list<Qt::Key> codes) {
        for (const Qt::Key code : codes)
            key(code);
    }
    void type(const char* typed) {
        for (const QChar letter : text(typed))
            QTest::sendKeyEvent(QTest::Click, inFront().focusWidget(), Qt::Key_unknown, letter, {});
    }
    void enter(std::initializer_list<const char*> texts) {
        for (const char* typed : texts) {
            type(typed);
            key(Qt::Key_Return);
        }
    }
    void goTo(const char* name, Qt::KeyboardModifiers direction = {}) {
        for (int i = 0; i < 30 && focused() != text(name); ++i)
            key(Qt::Key_Tab, direction);
        ASSERT_EQ(focused(), text(name));
    }
    void press(const char* button, Qt::KeyboardModifiers direction = {}) {
        goTo(button, direction);
        key(Qt::Key_Return);
    }
    void click(const char* name) {
        auto* target = window.findChild<QWidget*>(text(name));
        ASSERT_TRUE(target != nullptr && target->isVisible());
        support::press(*target);
    }
    /// A modal window comes, is used and closed.
    void expectWindow(const char* name, const std::function<void(QWidget&)>& use) {
        boxes.expect({.name = text(name), .drive = [use](QWidget& window) {
                          ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
                          use(window);
                      }});
    }

    void fillCard() {
        enter({"jana", "kováčiková", "nitra", "0055120010"});
        enter({"", "", "17", "25", "01", "SK", "sk", "sk", "dlhá 1", "nitra", "94901"});
        enter({"základná škola", "lekár", "1.9.06"});
        ASSERT_EQ(focused(), text("textKrz(18)"));
        goTo("cmbPos(2)");
        keys({Qt::Key_F4, Qt::Key_3, Qt::Key_Return});
        goTo("cmbSek(0)");
        keys({Qt::Key_F4, Qt::Key_5, Qt::Key_Return});
        EXPECT_EQ(focused(), text("textKrz(19)"));
        press("cmdZaklUd");
        EXPECT_EQ(focused(), text("textKrz(0)"));
    }

    void addCareRecord() {
        for (int tab = 0; tab < 11; ++tab)
            key(Qt::Key_PageDown, Qt::ControlModifier);
        ASSERT_EQ(focused(), text("cmdZscNovy"));
        key(Qt::Key_Return);
        ASSERT_EQ(focused(), text("rtbZsc"));
        type("Nácvik čítania");
        goTo("textZsc(0)");
        enter({"15.9.06", "08", "09", "ADAMOVEV00"});
        key(Qt::Key_PageDown);
        press("cmdZscZap");
        EXPECT_EQ(focused(), text("DBList5"));
    }

    /// The lines of the preview's PDF.
    QString textOf(QWidget& preview) {
        const QString file = reg.directory.filePath(text("zostava.pdf"));
        dynamic_cast<report::PreviewDialog&>(preview).savePdf(file);
        QProcess tool;
        tool.start(text("pdftotext"), {text("-layout"), file, text("-")});
        EXPECT_TRUE(tool.waitForFinished());
        return QString::fromUtf8(tool.readAllStandardOutput());
    }

    /// Types Tables IV and V.
    void typeTables() {
        expectWindow("FrmDoUkaz", [this](QWidget&) {
            enter({"6", "1", "12", "340", "359"});
            press("cmdZap");
        });
        click("Picture3");
        expectWindow("FrmOdbStar", [this](QWidget&) {
            enter({"9", "2", "3", "4", "0", "", "", "", "", "", "9", "2", "3", "4", "0"});
            key(Qt::Key_S, Qt::ControlModifier);
        });
        click("Picture5");
        boxes.allCame();
    }

    /// Each table on its page, with what was counted and typed.
    void readReturn(QWidget& preview) {
        const QStringList pages = textOf(preview).split(u'\f');
        ASSERT_EQ(pages.size(), 6) << "the last one is what follows the last page";
        const QStringList lines[] = {
            {text("0108 1 1 1 1"), text("0126 1 1 1 1")},
            {text("0216 ") + QStringList(22, text("x")).join(u' ')},
            {text("0301 x x x"), text("0304 1 1 1"), text("0316 1 1 1")},
            {text("0401 6"), text("0402 1"), text("0403 12"), text("0404 340"), text("0416 359")},
            {text("0501 9 2 3 4"), text("0502 9 2 3 4"), text("0536")},
        };
        for (qsizetype page = 0; page < 5; ++page) {
            QString shown = pages[page].simplified() + u' ';
            for (const QString& line : lines[page])
                EXPECT_TRUE(shown.contains(line))
                    << line.toStdString() << " in " << shown.toStdString();
            EXPECT_TRUE(shown.endsWith(text("Strana %1 z 5 ").arg(page + 1)))
                << shown.toStdString();
        }
        key(Qt::Key_Escape);
    }

    /// Notes the rows with counts on the page, without what stands before their codes.
    void readTableOne(QWidget& preview) {
        for (const QString& line : textOf(preview).split(u'\n')) {
            static const QRegularExpression counted(text("01[012]\\d( +\\d+)+$"));
            const auto found = counted.match(line);
            if (found.hasMatch())
                countsOnPage << found.captured().simplified();
        }
        key(Qt::Key_Escape);
    }

    support::TemporaryRegister reg{[](const QString& file) {
        QString problem;
        mkdb::run(mkdb::readArguments({text("prazdna"), file}, text(TVK_DATA_FOLDER), {}, problem)
                      .value());
    }};
    support::ScriptedBoxes boxes;
    mainwindow::Surroundings around{reg.engine, reg.folder, [] { return QDate(2007, 9, 20); },
                                    app::openScreen,
                                    [] {
                                    }};
    mainwindow::FrmUvod window{around};
    QStringList countsOnPage;
};

} // namespace

TEST_F(RoadTest, fromAnEmptyRegisterToTheWholeReturn) {
    reg.letGo();
    window.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    click("Picture2");
    expectWindow("FrmPsychUdaj", [this](QWidget&) {
        enter({"eva", "adamová", "psychológ"});
        // Internal, a woman, qualified.
        keys({Qt::Key_Space, Qt::Key_Return, Qt::Key_Down, Qt::Key_Return, Qt::Key_Space,
              Qt::Key_Return});
        press("cmdZap");
    });
    click("CmdNovy");
    boxes.allCame();
    click("Picture1");
    expectWindow("FrmKlientUdaj", [this](QWidget&) {
        fillCard();
        addCareRecord();
        press("CmdZap");
    });
    click("CmdNovy");
    auto* grid = window.findChild<QTableView*>(text("dbgKlient"));
    ASSERT_EQ(grid->model()->rowCount(), 1);
    EXPECT_EQ(grid->model()->index(0, 1).data().toString(), text("Kováčiková"));

    boxes.expect(support::ExpectedInput{
        text("Aktuálny školský rok je: '2006/2007' zadaj iný,ak nevyhovuje "), text("Školský rok"),
        text("2006/2007"), text("2006/2007")});
    click("Picture6");
    expectWindow("PreviewDialog", [this](QWidget& preview) { readTableOne(preview); });
    key(Qt::Key_T, Qt::AltModifier);
    key(Qt::Key_Return);
    boxes.allCame();
    EXPECT_EQ(countsOnPage, (QStringList{text("0108 1 1 1 1"), text("0126 1 1 1 1")}));
    typeTables();
    expectWindow("PreviewDialog", [this](QWidget& preview) { readReturn(preview); });
    window.findChild<QAction*>(text("mniVykaz"))->trigger();
    boxes.allCame();
}
