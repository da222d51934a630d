#include "mainwindow/MainWindow.h"
#include "store/FileBytes.h"

#include <QLabel>
#include <QPushButton>

#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace Qt::StringLiterals;

class ExitTest : public MainWindow {
  protected:
    void fillAndEmpty() {
        for (int i = 0; i < 200; ++i)
            reg.add(u"k_memo"_s, {{u"idkod", u"K%1"_s.arg(i)}, {u"poznamky", QString(4000, u'x')}});
        reg.execute({u"delete * from k_memo"_s});
        reg.engine.commitPending();
    }
    qint64 size() const { return QFileInfo(reg.folder.database()).size(); }
};

TEST_F(ExitTest, menuAndButtonCompactTheFile) {
    for (const bool byMenu : {true, false}) {
        fillAndEmpty();
        addClient(byMenu ? "A" : "B", "Ján", "Novák");
        reg.engine.commitPending();
        files::write(reg.folder.path(u"arch_tmp.zip"), "zvysok");
        files::write(reg.folder.path(u"tvk.mdb.kopia"), "po zabití");
        const qint64 before = size();
        open();
        if (byMenu)
            key(Qt::Key_K, Qt::AltModifier);
        else
            click("Label4");
        EXPECT_FALSE(window->isVisible());
        EXPECT_LT(size(), before / 2);
        EXPECT_EQ(files::namesIn(reg.directory.path()), QStringList{u"tvk.mdb"_s});
        EXPECT_EQ(QFile::permissions(reg.folder.database()) &
                      (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
                  QFile::Permissions());
        EXPECT_EQ(reg.count(u"k_zaklad"_s), byMenu ? 1 : 2);
    }
    EXPECT_EQ(runsEnded, 2);
}

TEST_F(ExitTest, theFileKeepsItsRightsAndItsPlaceBehindALink) {
    const QTemporaryDir elsewhere;
    const QString behind = elsewhere.filePath(u"data.mdb"_s);
    ASSERT_TRUE(QFile::rename(reg.folder.database(), behind));
    ASSERT_TRUE(QFile::link(behind, reg.folder.database()));
    fillAndEmpty();
    ASSERT_EQ(chmod(behind.toUtf8().constData(), 0640), 0);
    const bool mayGive = geteuid() == 0;
    ASSERT_TRUE(!mayGive || chown(behind.toUtf8().constData(), 1234, 5678) == 0);
    const qint64 before = size();
    open();
    click("Label4");
    struct stat status = {};
    ASSERT_EQ(lstat(behind.toUtf8().constData(), &status), 0);
    EXPECT_LT(status.st_size, before / 2);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
    EXPECT_EQ(status.st_uid, mayGive ? 1234U : geteuid());
    EXPECT_EQ(status.st_gid, mayGive ? 5678U : getegid());
    EXPECT_TRUE(QFileInfo(reg.folder.database()).isSymLink());
}

TEST_F(ExitTest, aCopyLeftBehindIsReportedAndNothingIsTouched) {
    addClient("A", "Ján", "Novák");
    reg.engine.commitPending();
    files::write(reg.folder.path(u"tmp.mdb"), "zvysok");
    files::write(reg.folder.path(u"arch_tmp.zip"), "zvysok");
    open();
    const QByteArray before = files::read(reg.folder.database());
    boxes.expect({.name = u"QMessageBox"_s, .drive = [](QWidget& shown) {
                      auto& box = dynamic_cast<QMessageBox&>(shown);
                      EXPECT_TRUE(box.text().contains(u"3204"_s)) << box.text().toStdString();
                      EXPECT_EQ(box.icon(), QMessageBox::Critical);
                      EXPECT_TRUE(box.informativeText().endsWith(u"/tmp.mdb"_s));
                      box.button(QMessageBox::Ok)->click();
                  }});
    click("Label4");
    EXPECT_EQ(runsEnded, 1);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(files::read(reg.folder.database()), before);
    EXPECT_EQ(files::namesIn(reg.directory.path()),
              QStringList({u"arch_tmp.zip"_s, u"tmp.mdb"_s, u"tvk.mdb"_s}));
}

TEST_F(ExitTest, aCopyIsMadeOfWhatChangedButNotByTheFrameAndItsFailureIsSaid) {
    const QString folder = reg.folder.path(u"zalohy");
    const auto leave = [&](const QString& change) {
        if (!change.isEmpty())
            reg.execute({change});
        reg.engine.commitPending();
        open();
        click("Label4");
        return files::namesIn(folder).size();
    };
    files::write(reg.folder.path(u"arch_tmp.zip"), "zip");
    open();
    const QByteArray before = files::read(reg.folder.database());
    const QDateTime written = QFileInfo(reg.folder.database()).lastModified();
    window->close();
    EXPECT_EQ(runsEnded, 1);
    EXPECT_EQ(files::read(reg.folder.database()), before);
    EXPECT_EQ(QFileInfo(reg.folder.database()).lastModified(), written);
    EXPECT_EQ(files::namesIn(reg.directory.path()), QStringList({u"arch_tmp.zip"_s, u"tvk.mdb"_s}));
    EXPECT_EQ(leave({}), 1);
    EXPECT_EQ(leave({}), 1);
    EXPECT_EQ(leave(u"insert into k_zaklad (idkod) values ('A')"_s), 2);
    QDir(folder).removeRecursively();
    files::write(folder, "súbor");
    expectBox("Záloha údajov sa nevytvorila.\n\nCieľový súbor už existuje.", "Upozornenie",
              QMessageBox::Warning);
    leave(u"insert into k_zaklad (idkod) values ('B')"_s);
    EXPECT_EQ(runsEnded, 5);
}

TEST_F(ExitTest, aCompactionGivenUpLeavesTheFileAndTheRunEnds) {
    fillAndEmpty();
    files::write(reg.folder.path(u"arch_tmp.zip"), "zvysok");
    around.patience = std::chrono::milliseconds(0);
    open();
    int left = 0;
    QObject::connect(window.get(), &mainwindow::FrmUvod::leaving, [&left] { ++left; });
    const QByteArray before = files::read(reg.folder.database());
    for (const auto doing : {u"Údaje sa zhusťujú …", u"Robí sa záloha údajov …"})
        boxes.expect({.name = u"frmKoniec"_s, .drive = [doing, &left](QWidget& form) {
                          EXPECT_EQ(form.findChild<QLabel*>(u"lblStav"_s)->text(), doing);
                          EXPECT_EQ(left, 1);
                          QTest::keyClick(form.windowHandle(), Qt::Key_Escape);
                      }});
    click("Label4");
    EXPECT_EQ(runsEnded, 1);
    EXPECT_EQ(files::read(reg.folder.database()), before);
    EXPECT_EQ(files::namesIn(reg.directory.path()), QStringList{u"tvk.mdb"_s});
}

} // namespace
