#include "app/Screens.h"
#include "mainwindow/FrmUvod.h"
#include "mkdb/Arguments.h"
#include "mkdb/Commands.h"
#include "report/PreviewDialog.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"

#include <QApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QTableView>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

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
    QString stored(const char* table, const char* column) {
        return reg.text(text(table), text(column));
    }

    void fillCard();
    void addCareRecord();
    void readTableOne(QWidget& preview);

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

void RoadTest::fillCard() {
    enter({"jana", "kováčiková", "nitra", "0055120010"});
    enter({"", "", "17", "25", "01", "SK", "sk", "sk", "dlhá 1", "nitra", "94901"});
    enter({"základná škola", "lekár", "1.9.06"});
    ASSERT_EQ(focused(), text("textKrz(18)"));
    goTo("cmbPos(2)");
    key(Qt::Key_F4);
    for (const auto code : {Qt::Key_3, Qt::Key_Return})
        key(code);
    goTo("cmbSek(0)");
    key(Qt::Key_F4);
    for (const auto code : {Qt::Key_5, Qt::Key_Return})
        key(code);
    EXPECT_EQ(focused(), text("textKrz(19)"));
    press("cmdZaklUd");
    EXPECT_EQ(focused(), text("textKrz(0)"));
}

void RoadTest::addCareRecord() {
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

/// Notes the rows with counts on the page, without what stands before their codes.
void RoadTest::readTableOne(QWidget& preview) {
    EXPECT_EQ(reg.count(text("z_vek")), 19);
    for (const char* column : {"spolu", "spolu_zeny", "p_viacn", "p_viacn_z"})
        EXPECT_EQ(stored("select * from z_vek where c_riad = '0108'", column), text("1"));
    const QString file = reg.directory.filePath(text("rptVek.pdf"));
    dynamic_cast<report::PreviewDialog&>(preview).savePdf(file);
    QProcess tool;
    tool.start(text("pdftotext"), {text("-layout"), file, text("-")});
    ASSERT_TRUE(tool.waitForFinished());
    for (const QString& line : QString::fromUtf8(tool.readAllStandardOutput()).split(u'\n')) {
        static const QRegularExpression counted(text("01[012]\\d( +\\d+)+$"));
        const auto found = counted.match(line);
        if (found.hasMatch())
            countsOnPage << found.captured().simplified();
    }
    key(Qt::Key_Escape);
}

} // namespace

TEST_F(RoadTest, fromAnEmptyRegisterToTableOne) {
    reg.letGo();
    window.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    click("Picture2");
    boxes.expect(support::ExpectedWindow{text("FrmPsychUdaj"), [this](QWidget& card) {
                                             ASSERT_TRUE(QTest::qWaitForWindowActive(&card));
                                             enter({"eva", "adamová", "psychológ"});
                                             press("cmdZap");
                                         }});
    click("CmdNovy");
    boxes.allCame();
    click("Picture1");
    boxes.expect(support::ExpectedWindow{text("FrmKlientUdaj"), [this](QWidget& card) {
                                             ASSERT_TRUE(QTest::qWaitForWindowActive(&card));
                                             fillCard();
                                             addCareRecord();
                                             press("CmdZap");
                                         }});
    click("CmdNovy");
    boxes.allCame();
    auto* grid = window.findChild<QTableView*>(text("dbgKlient"));
    ASSERT_EQ(grid->model()->rowCount(), 1);
    EXPECT_EQ(grid->model()->index(0, 1).data().toString(), text("Kováčiková"));

    boxes.expect(support::ExpectedInput{
        text("Aktuálny školský rok je: '2006/2007' zadaj iný,ak nevyhovuje "), text("Školský rok"),
        text("2006/2007"), text("2006/2007")});
    click("Picture6");
    boxes.expect(support::ExpectedWindow{text("PreviewDialog"), [this](QWidget& preview) {
                                             readTableOne(preview);
                                         }});
    key(Qt::Key_T, Qt::AltModifier);
    key(Qt::Key_Return);
    boxes.allCame();
    EXPECT_EQ(countsOnPage, (QStringList{text("0108 1 1 1 1"), text("0126 1 1 1 1")}));
    EXPECT_EQ(reg.count(text("z_vek")), 0);
    for (const auto& [table, column, value] : {std::tuple{"k_zaklad", "idkod", "KOVÁČIJA00"},
                                               {"k_zaklad", "vek", "7"},
                                               {"k_zaklad", "postih", "35"},
                                               {"k_memo", "idkod", "KOVÁČIJA00"},
                                               {"k_zaznam_spc", "idkod", "KOVÁČIJA00"},
                                               {"k_zaznam_spc", "datum", "15.09.2006"},
                                               {"k_zaznam_spc", "idkod_p", "ADAMOVEV00"}})
        EXPECT_EQ(stored(table, column), text(value)) << table << '.' << column;
}
