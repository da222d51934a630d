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

    /// Archives to where the user says, and is told how it went.
    void archiveTo(const QString& target, const QString& told) {
        expectSave(target);
        expectTold(told);
        archive();
    }
    /// Restores from an archive; only where it is asked about is there something to agree to.
    void restoreFrom(const QString& archive, const char* mode,
                     std::optional<QMessageBox::StandardButton> agreed, const QString& told,
                     QMessageBox::Icon icon = QMessageBox::Information) {
        expectOpen(archive);
        if (agreed)
            expectWarning(*agreed);
        if (!told.isEmpty())
            expectTold(told, icon);
        restore(mode);
    }

    support::ScriptedBoxes boxes;
    const QString away = elsewhere.filePath(u"moja záloha"_s);
};

TEST_F(Forms, anArchiveGoesWhereTheUserSaysAndItsFaultsAreTold) {
    const auto done = u"Archivácia bola úspešne ukončená"_s;
    archiveTo(away + u" "_s, done);
    EXPECT_EQ(files::namesIn(elsewhere.path()), QStringList{u"moja záloha"_s});
    EXPECT_EQ(names(), (QStringList{u"arch_tmp.zip"_s, u"tvk.mdb"_s}));

    expectSave(u" "_s + away + u" "_s);
    boxes.expectAsked(u"moja záloha už existuje.\nChcete ho nahradiť?"_s, u"Kde bude archív"_s,
                      QMessageBox::Warning, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
    expectTold(done);
    archive();
    archiveTo({}, failedArchive + u"Výber súboru bol zrušený."_s);
    const QByteArray before = files::read(path("tvk.mdb"));
    archiveTo(path("tmp.mdb"), failedArchive + u"Do súboru tmp.mdb sa archív uložiť nedá, pracuje "
                                               "s ním program. Zvoľte iný názov."_s);
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
    const auto bad = u"Obnova dát nebola úspešná, chybný arch_tvk.zip"_s;
    const auto done = u"Obnova dát bola úspešne ukončená"_s;
    backup::makeArchive(reg.engine, reg.folder);
    const QString sound = elsewhere.filePath(u"a.zip"_s);
    backup::placeArchive(reg.folder, sound);
    const QString foreign = elsewhere.filePath(u"b.zip"_s);
    files::write(foreign, "text");
    const QString empty = elsewhere.filePath(u"c.zip"_s);
    files::write(empty, QByteArray("PK\5\6") + QByteArray(18, '\0'));
    setClient(u"Druhý"_s);
    QFile::remove(path("arch_tmp.zip"));

    restoreFrom({}, "MENU", {}, failed, QMessageBox::Warning);
    restoreFrom(foreign, "MENU", {}, u"Vybraný súbor neobsahuje očakávané dáta"_s,
                QMessageBox::Warning);
    restoreFrom(empty, "MENU", QMessageBox::Yes, bad);
    expectOpen(sound);
    expectGivenUp(u"FrmDearch_new"_s);
    expectTold(failed, QMessageBox::Warning);
    restore("MENU", std::chrono::milliseconds(0));
    restoreFrom(sound, "MENU", QMessageBox::No, {});
    EXPECT_EQ(names(), QStringList{u"tvk.mdb"_s});
    ASSERT_TRUE(QDir().mkdir(path("tvk_ren.mdb")));
    restoreFrom(sound, "MENU", QMessageBox::Yes, failed, QMessageBox::Warning);
    ASSERT_TRUE(QDir().rmdir(path("tvk_ren.mdb")));
    EXPECT_EQ(client(), u"Druhý"_s);

    restoreFrom(sound, "MENU", QMessageBox::Yes, done);
    EXPECT_EQ(names(), (QStringList{u"tvk.mdb"_s, u"tvk_ren.mdb"_s}));
    EXPECT_EQ(client(), u"Prvý"_s);

    restoreFrom(sound, "LOAD", {}, {});
    QFile::remove(path("tvk.mdb"));
    restoreFrom(empty, "LOAD", {}, bad);
    EXPECT_EQ(names(), QStringList{u"tvk.mdb"_s}) << "what was kept is back";
    EXPECT_EQ(client(), u"Druhý"_s);
    QFile::remove(path("tvk.mdb"));
    restoreFrom(empty, "LOAD", {}, bad);
    EXPECT_EQ(names(), QStringList());
    restoreFrom(sound, "LOAD", {}, done);
    EXPECT_EQ(client(), u"Prvý"_s);
}

} // namespace
