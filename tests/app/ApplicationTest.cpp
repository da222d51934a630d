#include "app/Application.h"

#include "app/OneRun.h"
#include "app/Screens.h"
#include "forms/MessageBox.h"
#include "mainwindow/FrmUvod.h"
#include "oldregister/ReaderMain.h"
#include "store/FaultVfs.h"
#include "store/FileBytes.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"

#include <QAction>
#include <QEventLoop>
#include <QLabel>
#include <QLockFile>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include <unistd.h>

#include <future>
#include <optional>
#include <stdexcept>

using support::ScriptedBoxes;
using namespace Qt::StringLiterals;

namespace {

app::Application* application = nullptr;

/// Runs something as an event of the loop, as an action of the user is.
void inLoop(const std::function<void()>& action) {
    QEventLoop loop;
    QMetaObject::invokeMethod(application, action, Qt::QueuedConnection);
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    loop.exec();
}

void expectReport(ScriptedBoxes& boxes, const char* text) {
    boxes.expect({.text = QString::fromUtf8(text), .icon = QMessageBox::Critical});
}

TEST(ApplicationTest, anErrorIsReportedAndTheProgramGoesOn) {
    ScriptedBoxes boxes;
    expectReport(boxes, "Chyba č. 3024\n\nSúbor chýba");
    inLoop([] { throw store::EngineError(store::ErrorNumber::FileNotFound, u"Súbor chýba"_s); });
    QTest::qWait(0);
    boxes.allCame();
    expectReport(boxes, "Chyba č. 3000\n\nmimo");
    inLoop([] {
        const auto fail = [] {
            throw std::runtime_error("mimo");
        };
        for (int again = 0; again < 3; ++again)
            QMetaObject::invokeMethod(application, fail, Qt::QueuedConnection);
        fail();
    });
    QTest::qWait(0);
    boxes.allCame();
    bool alive = false;
    inLoop([&alive] { alive = true; });
    EXPECT_TRUE(alive);
}

auto startAnother(const QString& database) {
    return std::async(std::launch::async, [database] { return app::OneRun(database).take(); });
}

bool isOver(const std::future<app::OneRun::Outcome>& start) {
    return start.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

/// While this thread goes on answering.
app::OneRun::Outcome outcomeOfAnotherStart(const QString& database) {
    auto start = startAnother(database);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isOver(start); }));
    return start.get();
}

TEST(OneRunTest, anotherStartWaitsForTheEndOfOneThatHasNoWindowMore) {
    const QTemporaryDir folder;
    const QString register_ = folder.filePath(u"tvk.mdb"_s);
    std::optional<app::OneRun> ending(std::in_place, register_);
    ASSERT_EQ(ending->take(), app::OneRun::Outcome::Taken);
    ending->stopAnswering();
    auto start = startAnother(register_);
    EXPECT_FALSE(QTest::qWaitFor([&] { return isOver(start); }, 300));
    ending.reset();
    EXPECT_EQ(start.get(), app::OneRun::Outcome::Taken);
}

TEST(OneRunTest, theSecondOfAComputerShowsTheFirstAndAnotherComputerIsNamed) {
    const QTemporaryDir folder;
    const QString register_ = folder.filePath(u"tvk.mdb"_s);
    const QString lock = register_ + u".zamok"_s;
    using Outcome = app::OneRun::Outcome;
    // Of a program that was killed, here and elsewhere.
    for (const char* left : {"999999\ntvk\n", "1\ntvk\niny-pocitac\n"}) {
        files::write(lock, left);
        app::OneRun first(register_);
        ASSERT_EQ(first.take(), Outcome::Taken);
        int shown = 0;
        QObject::connect(&first, &app::OneRun::windowAsked, [&shown] { ++shown; });
        EXPECT_EQ(outcomeOfAnotherStart(register_), Outcome::Shown);
        EXPECT_EQ(shown, 1);
        // What another user's session shows can't be seen here.
        if (geteuid() == 0 && chown(lock.toUtf8().constData(), 1234, 5678) == 0) {
            EXPECT_EQ(outcomeOfAnotherStart(register_), Outcome::Held);
        }
    }
    EXPECT_FALSE(QFile::exists(lock));
    QLockFile held(lock);
    ASSERT_TRUE(held.lock());
    const QByteArray ours = files::read(lock);
    QFile rewritten(lock);
    ASSERT_TRUE(rewritten.open(QIODevice::ReadWrite));
    QList<QByteArray> lines = ours.split('\n');
    lines[2] = "iny-pocitac";
    rewritten.resize(0);
    rewritten.write(lines.join('\n'));
    rewritten.flush();
    app::OneRun another(register_);
    EXPECT_EQ(another.take(), Outcome::Held);
    EXPECT_TRUE(another.holder().endsWith(u" (počítač iny-pocitac)"_s));
    if (geteuid() == 0 && chown(lock.toUtf8().constData(), 1234, 5678) == 0) {
        EXPECT_EQ(another.holder(), u"niekto (počítač iny-pocitac)"_s);
    }
}

/// A screen's writing is durable for another process as soon as the program waits.
TEST(DurableTest, anActionIsDurableWhenTheProgramWaitsAndWhenItAsks) {
    support::TemporaryRegister reg;
    application->beforeWaiting([&] { reg.engine.commitPending(); });
    const auto durableRows = [&] {
        store::DBEngine other;
        return other.OpenDatabase(reg.folder.database()).OpenRecordset(u"k_memo"_s)->RecordCount();
    };
    qint64 meanwhile = -1;
    ScriptedBoxes boxes;
    boxes.expect({.text = u"?"_s, .meanwhile = [&] {
                      meanwhile = durableRows();
                  }});
    inLoop([&] {
        reg.add(u"k_memo"_s, {{u"idkod", u"A"_s}});
        EXPECT_EQ(durableRows(), 0);
        forms::showMessage(nullptr, {.text = u"?"_s});
        reg.add(u"k_memo"_s, {{u"idkod", u"B"_s}});
        EXPECT_EQ(durableRows(), 1);
    });
    EXPECT_EQ(meanwhile, 1);
    QEventLoop waiting;
    QTimer::singleShot(1, &waiting, &QEventLoop::quit);
    waiting.exec();
    EXPECT_EQ(durableRows(), 2);
    application->beforeWaiting({});
}

class WholeProgramTest : private faults::Layer, public testing::Test {
  protected:
    WholeProgramTest() { window.open(); }
    void press(Qt::Key key) { QTest::keyClick(window.windowHandle(), key, Qt::ControlModifier); }
    void add(const QString& key, const QString& surname) {
        reg.add(u"k_zaklad"_s, {{u"idkod", key}, {u"meno", u"Eva"_s}, {u"priezv", surname}});
    }

    support::TemporaryRegister reg;
    ScriptedBoxes boxes;
    mainwindow::Surroundings around{reg.engine, reg.folder, [] { return QDate(2006, 10, 1); },
                                    app::openScreen,
                                    [] {
                                    }};
    mainwindow::FrmUvod window{around};
};

TEST_F(WholeProgramTest, whomTheDiskDoesNotLetGoStaysInTheList) {
    add(u"A"_s, u"Malá"_s);
    window.show();
    press(Qt::Key_1);
    reg.engine.commitPending();
    boxes.expectAsked(u"Naozaj chceš vymazať klienta : Eva  Malá ?"_s, u"Výmaz klienta"_s,
                      QMessageBox::NoIcon, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
    faults::install({faults::Plan::Fault::SyncFails, 1});
    expectReport(boxes, "Chyba č. 3043\n\nChyba pri čítaní disku alebo zápise naň.");
    press(Qt::Key_Delete);
    QTest::qWait(0);
    boxes.allCame();
    EXPECT_EQ(window.findChild<QTableView*>(u"dbgKlient"_s)->model()->rowCount(), 1);
    EXPECT_TRUE(window.findChild<QPushButton*>(u"cmdVymaz"_s)->isEnabled());
}

TEST_F(WholeProgramTest, aListThatCannotBeReadIsToldOnceEndsAndCanBeChosenAnew) {
    for (int i = 1000; i < 1300; ++i)
        add(u"K%1"_s.arg(i), u"P%1"_s.arg(i));
    window.show();
    auto* grid = window.findChild<QTableView*>(u"dbgKlient"_s);
    press(Qt::Key_1);
    reg.engine.commitPending();
    faults::install({faults::Plan::Fault::ReadFails});
    expectReport(boxes, "Chyba č. 3043\n\nChyba pri čítaní disku alebo zápise naň.");
    press(Qt::Key_End);
    EXPECT_TRUE(QTest::qWaitFor([&] { return boxes.isEmpty() && !grid->isVisible(); }));
    EXPECT_TRUE(window.findChild<QLabel*>(u"lblStav"_s)->text().contains(u"Chyba pri čítaní"_s));
    faults::install({});
    press(Qt::Key_1);
    EXPECT_TRUE(grid->isVisible());
    EXPECT_EQ(grid->model()->rowCount(), 300);
}

TEST_F(WholeProgramTest, thePrintOutsOfTheMenuComeInPreviews) {
    reg.execute({u"insert into c_zariad (kod, akronym) values ('01', 'VYCH')"_s});
    QStringList previews;
    const QString entries[] = {u"mniVek"_s,     u"mniVzd"_s,     u"mniZam"_s,
                               u"mniOdbStar"_s, u"mniDopUkaz"_s, u"mniZozKlient"_s};
    for (const QString& entry : entries) {
        boxes.expect({.name = u"PreviewDialog"_s, .drive = [&](QWidget& preview) {
                          previews << preview.windowTitle();
                          EXPECT_EQ(reg.count(u"z_vek"_s), entry == u"mniVek" ? 19 : 0);
                          preview.close();
                      }});
        auto* action = window.findChild<QAction*>(entry);
        action->trigger();
        EXPECT_EQ(previews.value(previews.size() - 1), QString(action->text()).remove(u'&'));
    }
    EXPECT_EQ(previews.size(), qsizetype(std::size(entries)));
    EXPECT_EQ(reg.count(u"z_vek"_s), 0);
}

TEST_F(WholeProgramTest, aCardOpenedFromTheReturnIsFreshInTheListToo) {
    for (const auto& [key, surname] : {std::pair(u"A"_s, u"Malá"_s), {u"B"_s, u"Nová"_s}}) {
        add(key, surname);
        reg.add(u"k_memo"_s, {{u"idkod", key}});
    }
    window.show();
    window.ukazKlientov();
    QTest::keyClick(window.windowHandle(), Qt::Key_Down);
    auto* grid = window.findChild<QTableView*>(u"dbgKlient"_s);
    const auto cell = [grid](int column) {
        return grid->model()->index(grid->currentIndex().row(), column).data().toString();
    };
    boxes.expect({.name = u"frmKlientVykaz"_s, .drive = [&](QWidget& numbers) {
                      boxes.expect({.name = u"frmKlientUdaj"_s, .drive = [&](QWidget& card) {
                                        reg.execute({u"update k_zaklad set datnar='1.2.1999'"_s});
                                        card.close();
                                    }});
                      QTest::keyClick(numbers.windowHandle(), Qt::Key_PageUp, Qt::ControlModifier);
                      QTest::keyClick(numbers.windowHandle(), Qt::Key_Return);
                      QTest::keyClick(numbers.windowHandle(), Qt::Key_Return);
                      numbers.close();
                  }});
    window.findChild<QAction*>(u"mniKlientVykaz"_s)->trigger();
    EXPECT_EQ(cell(1), u"Nová"_s);
    EXPECT_EQ(cell(2), u"01.02.1999"_s);
}

} // namespace

int main(int argc, char** argv) {
    if (const auto code = oldregister::runAsReader(argc, argv))
        return *code;
    app::Application own(argc, argv);
    application = &own;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
