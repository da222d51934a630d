// The copies that the program makes of its register.

#include "backup/Copies.h"

#include "backup/BackupFiles.h"
#include "backup/FrmDearch_new.h"
#include "backup/FrmZalohy.h"
#include "store/PlainUser.h"
#include "support/ScriptedBoxes.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include <sys/mount.h>
#include <sys/stat.h>

namespace {

using namespace Qt::StringLiterals;

class CopiesOf : public BackupFiles {
  protected:
    /// Moves the time on by a day.
    bool copy(bool isChecked = true, const store::TellProgress& tell = {}) {
        now = now.addDays(1);
        return backup::NextCopy(reg.folder, now).make(isChecked, tell);
    }
    QStringList copyNames() const { return files::namesIn(path("zalohy")); }
    QString copyPath(int place) const {
        return backup::copies(reg.folder)[static_cast<size_t>(place)].path;
    }
    /// Lets the register speak of free pages that are not there.
    void spoilFreePages() {
        QByteArray bytes = files::read(path("tvk.mdb"));
        bytes[39] = static_cast<char>(bytes[39] + 1);
        files::write(path("tvk.mdb"), bytes);
    }
    void damage(const QString& file) {
        QByteArray bytes = files::read(file);
        bytes[bytes.size() / 2] = static_cast<char>(bytes[bytes.size() / 2] ^ 0x55);
        files::write(file, bytes);
    }

    QDateTime now{QDate(2026, 11, 1), QTime(15, 4, 5)};
};

TEST_F(CopiesOf, oneIsMadeWhenSomethingChangedSinceTheLastWholeOne) {
    EXPECT_TRUE(copy());
    EXPECT_EQ(copyNames(), QStringList{u"tvk_2026-11-02_15-04-05.zip"_s});
    struct stat status = {};
    ASSERT_EQ(stat(path("zalohy").toUtf8().constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
    EXPECT_EQ(QFile::permissions(copyPath(0)) & QFile::Permissions(0x77), QFile::Permissions());

    EXPECT_FALSE(copy());
    reg.execute({u"insert into z_vek (vek) values ('6')"_s});
    reg.letGo();
    EXPECT_FALSE(copy()) << "what a print-out leaves is no change";
    reg.engine.CompactDatabase(path("tvk.mdb"), path("b.mdb"), {});
    ASSERT_TRUE(QFile::remove(path("tvk.mdb")) && QFile::rename(path("b.mdb"), path("tvk.mdb")));
    EXPECT_FALSE(copy()) << "nor is a compaction";
    damage(copyPath(0));
    EXPECT_TRUE(copy()) << "the last one is not whole";
    reg.execute({u"update k_zaklad set meno = ''"_s});
    reg.letGo();
    EXPECT_TRUE(copy()) << "an empty text is not Null";
    now = now.addDays(-1);
    setClient(u"Druhý"_s);
    EXPECT_TRUE(copy()) << "in the same second";
    EXPECT_EQ(copyNames().size(), 4);
    now = QDateTime(QDate(2026, 12, 31), QTime(0, 0));
    for (int i = 0; i < 12; ++i) {
        setClient(QString::number(i));
        EXPECT_TRUE(copy());
    }
    EXPECT_EQ(copyNames().size(), 11) << "ten, and the last of November";
    EXPECT_EQ(copyNames().first(), u"tvk_2026-11-07_15-04-06.zip"_s);
}

TEST_F(CopiesOf, aDamagedRegisterIsNotCopiedAndWhatCantBeMadeLeavesNothing) {
    ASSERT_TRUE(copy());
    setClient(u"Druhý"_s);
    EXPECT_THROW(copy(true, [](double part) { return part < 0.5; }), store::GivenUp);
    const QByteArray sound = files::read(path("tvk.mdb"));
    spoilFreePages();
    EXPECT_THROW(copy(false), store::EngineError);
    files::write(path("tvk.mdb"), sound);
    EXPECT_EQ(copyNames().size(), 1);
    ASSERT_TRUE(QFile::rename(path("zalohy"), path("inde")));
    files::write(path("zalohy"), "súbor");
    EXPECT_THROW(copy(), store::EngineError);
    ASSERT_TRUE(QFile::remove(path("zalohy")) && QFile::rename(path("inde"), path("zalohy")));
    files::write(path("zalohy") + u"/rozpracovana.cast"_s, "po zabitom programe");
    EXPECT_TRUE(copy(false));
    EXPECT_EQ(copyNames().size(), 2);
}

TEST_F(CopiesOf, withLittleRoomTheOldestGoButNotTheNewestWholeOne) {
    ASSERT_TRUE(QDir().mkdir(path("zalohy")));
    const QByteArray folder = path("zalohy").toUtf8();
    if (mount("tmpfs", folder.constData(), "tmpfs", 0, "size=56k") != 0)
        GTEST_SKIP() << "only the administrator can make a small disk";
    const auto unmount = qScopeGuard([&folder] { umount2(folder.constData(), MNT_DETACH); });
    int made = 0;
    for (; made == 0 || copyNames().size() == made; ++made) {
        setClient(QString::number(made));
        ASSERT_TRUE(copy());
    }
    EXPECT_GE(made, 3);
    EXPECT_EQ(copyPath(0), path("zalohy/") + now.toString(u"'tvk_'yyyy-MM-dd_HH-mm-ss'.zip'"_s));
    const QStringList whole = copyNames();
    for (qsizetype i = 1; i < whole.size(); ++i)
        damage(copyPath(static_cast<int>(i) - 1));
    const QByteArray page(4096, 'x');
    QFile other(path("zalohy/iny"));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (other.write(page) == page.size()) {
    }
    setClient(u"Druhý"_s);
    EXPECT_TRUE(copy());
    const QStringList left = copyNames();
    EXPECT_EQ(left[1], whole[0]) << "the only whole one";
    EXPECT_EQ(left.mid(2, whole.size() - 2), whole.mid(2)) << "the next oldest has made room";
}

class CopiesWindow : public CopiesOf {
  protected:
    CopiesWindow() {
        copy();
        setClient(u"Druhý"_s);
        copy();
    }
    void expectFile(const QString& answer, const QString& folder) {
        boxes.expect(support::fileDialog(answer, [folder](QWidget& window) {
            EXPECT_EQ(dynamic_cast<QFileDialog&>(window).directory().path(), folder);
        }));
    }
    void expectPassword(const QStringList& typed) {
        boxes.expect(support::ExpectedWindow{
            u"frmHeslo"_s, [typed](QWidget& window) {
                for (qsizetype i = 0; i < typed.size(); ++i) {
                    auto* field = window.findChild<QLineEdit*>(u"txtHeslo(%1)"_s.arg(i));
                    field->setText(typed[i]);
                }
                QTest::keyClick(&window, typed.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
            }});
    }
    static void press(QWidget& form, const QString& name) {
        support::press(*form.findChild<QPushButton*>(name));
    }
    QString rowOf(const QTableWidget& list, int row) {
        QStringList texts;
        for (int column = 0; column < list.columnCount(); ++column)
            texts << list.item(row, column)->text();
        return texts.join(u'|');
    }

    support::ScriptedBoxes boxes;
};

TEST_F(CopiesWindow, tellsWhatTheyAre) {
    damage(copyPath(1));
    setClient(u"Tretí"_s);
    spoilFreePages();
    ASSERT_TRUE(copy());
    backup::FrmZalohy form(reg.folder);
    form.show();
    auto* list = form.findChild<QTableWidget*>(u"lstZalohy"_s);
    ASSERT_TRUE(QTest::qWaitFor([list] { return !list->item(2, 3)->text().contains(u'…'); }));
    EXPECT_TRUE(rowOf(*list, 1).startsWith(u"03.11.2026  15:04:05|"_s));
    const QStringList states{u"||poškodená"_s, u"|1|v poriadku"_s, u"||poškodená"_s};
    for (int row = 0; row < 3; ++row)
        EXPECT_TRUE(rowOf(*list, row).endsWith(states[row])) << rowOf(*list, row).toStdString();
    QTest::keyClick(list, Qt::Key_Down);
    press(form, u"cmdObnovit"_s);
    EXPECT_EQ(form.toRestore(), copyPath(1));
    EXPECT_EQ(copyNames().size(), 3);
}

TEST_F(CopiesWindow, oneIsSavedWithAPasswordThatARestoreAsksFor) {
    const QString away = elsewhere.filePath(u"a.zip"_s);
    files::write(away, "staršia");
    {
        backup::FrmZalohy form(reg.folder);
        form.show();
        expectFile(elsewhere.filePath(u"b"_s), QDir(QDir::homePath()).path());
        expectPassword({});
        press(form, u"cmdUlozit"_s);
        boxes.allCame();
        EXPECT_EQ(files::namesIn(elsewhere.path()), QStringList{u"a.zip"_s});
        EXPECT_THROW(backup::saveCopy(reg.folder, copyPath(0), copyPath(1), {}),
                     store::EngineError);
        for (const QString& password : {QString(), u"čučoriedka"_s}) {
            ASSERT_TRUE(QFile::remove(away));
            expectFile(away, QDir(QDir::homePath()).path());
            expectPassword({password, password});
            press(form, u"cmdUlozit"_s);
            boxes.allCame();
            backup::Restore one(reg.engine, reg.folder, isRegister);
            EXPECT_EQ(one.extract(away),
                      password.isEmpty() ? backup::Finding::Sound : backup::Finding::Locked);
        }
    }
    setClient(u"Tretí"_s);
    backup::FrmDearch_new form(reg.engine, reg.folder, isRegister);
    form.setMode(u"MENU"_s);
    expectFile(away, path("zalohy"));
    expectPassword({});
    boxes.expectTold(u"Vyskytla sa chyba pri obnove dát"_s, {}, QMessageBox::Warning);
    form.exec();
    expectFile(away, path("zalohy"));
    expectPassword({u"iné"_s});
    expectPassword({u"čučoriedka"_s});
    boxes.expectAsked(u"UPOZORNENIE !!\n\nMomentálny obsah dát bude premazaný !!!"_s, {},
                      QMessageBox::Information, QMessageBox::Yes | QMessageBox::No,
                      QMessageBox::Yes);
    boxes.expectTold(u"Obnova dát bola úspešne ukončená"_s);
    form.exec();
    boxes.allCame();
    EXPECT_EQ(client(), u"Druhý"_s);
}

} // namespace
