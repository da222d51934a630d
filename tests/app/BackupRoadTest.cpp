// Archive and restore from the main window's menu, and at a start without a register.

#include "app/Screens.h"
#include "mainwindow/FrmUvod.h"
#include "store/FileBytes.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include <zip.h>

using namespace Qt::StringLiterals;

namespace {

class BackupRoad : public testing::Test {
  protected:
    BackupRoad() { setClient(u"Prvý"); }

    void setClient(QStringView surname) {
        reg.execute({u"delete * from k_zaklad"_s,
                     u"insert into k_zaklad (idkod, priezv) values ('A', '%1')"_s.arg(surname)});
        reg.engine.commitPending();
        reg.letGo();
    }
    void expectFile(const QString& path) {
        boxes.expect(
            support::fileDialog(path, [this](QWidget&) { EXPECT_FALSE(window.isVisible()); }));
    }
    /// Answered with Yes.
    void expectAsked(const QString& text, const QString& title = {},
                     QMessageBox::Icon icon = QMessageBox::Information) {
        boxes.expectAsked(text, title, icon, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
    }
    void expectRestore(const QString& outcome = u"Obnova dát bola úspešne ukončená"_s) {
        expectAsked(u"UPOZORNENIE !!\n\nMomentálny obsah dát bude premazaný !!!"_s);
        boxes.expectTold(outcome);
    }
    void choose(const char* item) {
        window.findChild<QAction*>(QLatin1String(item))->trigger();
        boxes.allCame();
        EXPECT_TRUE(window.isVisible());
    }
    QString firstSurname() {
        window.ukazKlientov();
        const auto* grid = window.findChild<QTableView*>(u"dbgKlient"_s);
        return grid->model()->index(0, 1).data().toString();
    }

    support::TemporaryRegister reg;
    QTemporaryDir elsewhere;
    const QString archive = elsewhere.filePath(u"a.zip"_s);
    support::ScriptedBoxes boxes;
    int runsEnded = 0;
    QByteArray offered;
    mainwindow::Surroundings around{reg.engine,
                                    reg.folder,
                                    [] { return QDate(2007, 9, 20); },
                                    app::openScreen,
                                    [this] { ++runsEnded; },
                                    [this](const QString& path, QWidget*) {
                                        offered = files::read(path);
                                        return !offered.contains("Jet");
                                    }};
    mainwindow::FrmUvod window{around};
};

TEST_F(BackupRoad, theWindowComesBackOverTheRestoredRegister) {
    window.open();
    expectFile(archive);
    boxes.expectTold(u"Archivácia bola úspešne ukončená"_s);
    choose("mniArchiv");
    window.zavri();
    setClient(u"Druhý");
    window.open();
    EXPECT_EQ(firstSurname(), u"Druhý"_s);
    expectFile(archive);
    expectRestore();
    choose("mniDearchiv");
    EXPECT_FALSE(window.findChild<QTableView*>(u"dbgKlient"_s)->isVisible());
    EXPECT_EQ(firstSurname(), u"Prvý"_s);
    EXPECT_EQ(runsEnded, 0);

    window.zavri();
    ASSERT_TRUE(QFile::remove(reg.folder.database()));
    expectAsked(u"V adresári - chýba súbor -tvk.mdb-, pokúste sa o obnovu archívu !"_s,
                u"Upozornenie"_s, QMessageBox::Critical);
    expectFile(archive);
    boxes.expectTold(u"Obnova dát bola úspešne ukončená"_s);
    window.open();
    boxes.allCame();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(runsEnded, 1);
    window.open();
    EXPECT_EQ(firstSurname(), u"Prvý"_s);
}

TEST_F(BackupRoad, aCopyOfTheListComesBackByTheSameRoad) {
    window.open();
    window.findChild<QAction*>(u"mnuKoniec"_s)->trigger();
    setClient(u"Druhý");
    window.open();
    boxes.expect({.name = u"FrmZalohy"_s, .drive = [](QWidget& form) {
                      QTest::keyClick(form.findChild<QPushButton*>(u"cmdObnovit"_s), Qt::Key_Space);
                  }});
    expectRestore();
    choose("mniZalohy");
    EXPECT_EQ(firstSurname(), u"Prvý"_s);
    EXPECT_TRUE(QFile::exists(reg.folder.path(u"tvk_ren.mdb")));
}

TEST_F(BackupRoad, aSoundRegisterOfTheOldFormatIsOfferedForTakingOver) {
    const QByteArray old = files::read(QStringLiteral(TVK_OLD_SAMPLE));
    window.open();
    for (const QByteArray& bytes : {old.first(old.size() / 2), old}) {
        const bool isWhole = bytes == old;
        zip_t* made = zip_open(archive.toUtf8().constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
        zip_file_add(
            made, "tvk.mdb",
            zip_source_buffer(made, bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0),
            0);
        ASSERT_EQ(zip_close(made), 0);
        offered.clear();
        expectFile(archive);
        expectRestore(isWhole ? u"Obnova dát bola úspešne ukončená"_s
                              : u"Obnova dát nebola úspešná, chybný arch_tvk.zip"_s);
        window.findChild<QAction*>(u"mniDearchiv"_s)->trigger();
        boxes.allCame();
        EXPECT_EQ(offered == old, isWhole);
        EXPECT_EQ(runsEnded, isWhole ? 1 : 0);
    }
}

} // namespace
