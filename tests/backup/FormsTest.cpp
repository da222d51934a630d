#include "backup/BackupFiles.h"
#include "backup/FrmArch_new.h"
#include "backup/FrmDearch_new.h"
#include "support/ScriptedBoxes.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

using namespace Qt::StringLiterals;

const QString failedArchive = u"Vyskytla sa chyba pri archivácii :"_s;
const QString warning = u"UPOZORNENIE !!\n\nMomentálny obsah dát bude premazaný !!!"_s;

class Forms : public BackupFiles {
  protected:
    /// A file dialog that offers the default name; Esc without an answer.
    void expectDialog(const QString& title, const QString& answer) {
        boxes.expect(support::fileDialog(answer, [=](QWidget& window) {
            auto& dialog = dynamic_cast<QFileDialog&>(window);
            EXPECT_EQ(dialog.windowTitle(), title);
            EXPECT_EQ(dialog.selectedNameFilter(), u"záloha"_s);
            EXPECT_EQ(dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->text(), u"arch_tvk.zip"_s);
            EXPECT_NE(dialog.directory().path(), QDir::currentPath());
        }));
    }
    void expectSave(const QString& target) { expectDialog(u"Kde bude archív"_s, target); }
    void expectOpen(const QString& archive) { expectDialog(u"Súbor pre obnovu dát"_s, archive); }
    void expectTold(const QString& text, QMessageBox::Icon icon = QMessageBox::Information) {
        boxes.expectTold(text, {}, icon);
    }
    void expectWarning(QMessageBox::StandardButton answer) {
        boxes.expectAsked(warning, {}, QMessageBox::Information, QMessageBox::Yes | QMessageBox::No,
                          answer);
    }
    void expectGivenUp(const QString& form) {
        boxes.expect(support::ExpectedWindow{form, [](QWidget& window) {
                                                 support::press(*window.findChild<QPushButton*>(
                                                     u"cmdZrusit"_s));
                                             }});
    }
    void archive(std::chrono::milliseconds patience = std::chrono::hours(1)) {
        backup::FrmArch_new form(reg.engine, reg.folder);
        form.setPatience(patience);
        form.exec();
        EXPECT_FALSE(form.isVisible());
        boxes.allCame();
    }
    void restore(const char* mode, std::chrono::milliseconds patience = std::chrono::hours(1)) {
        backup::FrmDearch_new form(reg.engine, reg.folder, isRegister);
        form.setMode(QString::fromLatin1(mode));
        form.setPatience(patience);
        form.exec();
        boxes.allCame();
    }

    support::ScriptedBoxes boxes;
    const QString away = elsewhere.filePath(u"moja záloha"_s);
};

TEST_F(Forms, anArchiveGoesWhereTheUserSaysAndItsFaultsAreTold) {
    expectSave(away + u" "_s);
    expectTold(u"Archivácia bola úspešne ukončená"_s);
    archive();
    EXPECT_EQ(files::namesIn(elsewhere.path()), QStringList{u"moja záloha"_s});
    EXPECT_EQ(names(), (QStringList{u"arch_tmp.zip"_s, u"tvk.mdb"_s}));

    expectSave(u" "_s + away + u" "_s);
    boxes.expectAsked(u"moja záloha už existuje.\nChcete ho nahradiť?"_s, u"Kde bude archív"_s,
                      QMessageBox::Warning, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
    expectTold(u"Archivácia bola úspešne ukončená"_s);
    archive();

    expectSave({});
    expectTold(failedArchive + u"Výber súboru bol zrušený."_s);
    archive();
    const QByteArray before = files::read(path("tvk.mdb"));
    boxes.expect(support::fileDialog(path("tmp.mdb")));
    expectTold(failedArchive + u"Do súboru tmp.mdb sa archív uložiť nedá, pracuje s ním program. "
                               "Zvoľte iný názov."_s);
    archive();
    EXPECT_EQ(files::read(path("tvk.mdb")), before);

    expectGivenUp(u"frmArch_new"_s);
    expectTold(failedArchive + u"Archivácia bola zrušená."_s);
    archive(std::chrono::milliseconds(0));
    EXPECT_EQ(names(), QStringList{u"tvk.mdb"_s});
    QFile::remove(path("tvk.mdb"));
    expectTold(failedArchive);
    archive();
}

TEST_F(Forms, fromTheMenuTheOldRegisterIsKeptAndOnlyASoundOneReplacesIt) {
    const auto failed = u"Vyskytla sa chyba pri obnove dát"_s;
    backup::makeArchive(reg.engine, reg.folder);
    const QString sound = elsewhere.filePath(u"a.zip"_s);
    backup::placeArchive(reg.folder, sound);
    const QString foreign = elsewhere.filePath(u"b.zip"_s);
    files::write(foreign, "text");
    const QString empty = elsewhere.filePath(u"c.zip"_s);
    files::write(empty, QByteArray("PK\5\6") + QByteArray(18, '\0'));
    setClient(u"Druhý"_s);
    QFile::remove(path("arch_tmp.zip"));

    expectOpen({});
    expectTold(failed, QMessageBox::Warning);
    restore("MENU");
    expectOpen(foreign);
    expectTold(u"Vybraný súbor neobsahuje očakávané dáta"_s, QMessageBox::Warning);
    restore("MENU");
    expectOpen(empty);
    expectWarning(QMessageBox::Yes);
    expectTold(u"Obnova dát nebola úspešná, chybný arch_tvk.zip"_s);
    restore("MENU");
    expectOpen(sound);
    expectGivenUp(u"FrmDearch_new"_s);
    expectTold(failed, QMessageBox::Warning);
    restore("MENU", std::chrono::milliseconds(0));
    expectOpen(sound);
    expectWarning(QMessageBox::No);
    restore("MENU");
    EXPECT_EQ(names(), QStringList{u"tvk.mdb"_s});
    ASSERT_TRUE(QDir().mkdir(path("tvk_ren.mdb")));
    expectOpen(sound);
    expectWarning(QMessageBox::Yes);
    expectTold(failed, QMessageBox::Warning);
    restore("MENU");
    ASSERT_TRUE(QDir().rmdir(path("tvk_ren.mdb")));
    EXPECT_EQ(client(), u"Druhý"_s);

    expectOpen(sound);
    expectWarning(QMessageBox::Yes);
    expectTold(u"Obnova dát bola úspešne ukončená"_s);
    restore("MENU");
    EXPECT_EQ(names(), (QStringList{u"tvk.mdb"_s, u"tvk_ren.mdb"_s}));
    EXPECT_EQ(client(), u"Prvý"_s);

    expectOpen(sound);
    restore("LOAD");
    QFile::remove(path("tvk.mdb"));
    expectOpen(empty);
    expectTold(u"Obnova dát nebola úspešná, chybný arch_tvk.zip"_s);
    restore("LOAD");
    EXPECT_EQ(names(), QStringList{u"tvk.mdb"_s}) << "what was kept is back";
    EXPECT_EQ(client(), u"Druhý"_s);
    QFile::remove(path("tvk.mdb"));
    expectOpen(empty);
    expectTold(u"Obnova dát nebola úspešná, chybný arch_tvk.zip"_s);
    restore("LOAD");
    EXPECT_EQ(names(), QStringList());
    expectOpen(sound);
    expectTold(u"Obnova dát bola úspešne ukončená"_s);
    restore("LOAD");
    EXPECT_EQ(client(), u"Prvý"_s);
}

} // namespace
