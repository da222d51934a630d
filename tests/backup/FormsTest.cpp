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
constexpr QStringView warning = u"UPOZORNENIE !!\n\nMomentálny obsah dát bude premazaný !!!";

class Forms : public BackupFiles {
  protected:
    /// A file dialog that offers the default name; Esc without an answer.
    void expectDialog(const QString& title, const QString& filter,
                      const std::optional<QString>& answer) {
        boxes.expect(support::ExpectedWindow{
            u"QFileDialog"_s, [=](QWidget& window) {
                auto& dialog = dynamic_cast<QFileDialog&>(window);
                EXPECT_EQ(dialog.windowTitle(), title);
                EXPECT_EQ(dialog.selectedNameFilter(), filter);
                auto* name = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
                EXPECT_EQ(name->text(), u"arch_tvk.zip"_s);
                EXPECT_NE(dialog.directory().path(), QDir::currentPath());
                name->setText(answer.value_or(QString()));
                QTest::keyClick(name, answer ? Qt::Key_Return : Qt::Key_Escape);
            }});
    }
    void expectSave(const std::optional<QString>& target) {
        expectDialog(u"Kde bude archív"_s, u"záloha"_s, target);
    }
    void expectOpen(const std::optional<QString>& archive) {
        expectDialog(u"Súbor pre obnovu dát"_s, u"záloha"_s, archive);
    }
    void expectTold(QStringView text, QMessageBox::Icon icon = QMessageBox::Information) {
        boxes.expect(support::ExpectedBox{.text = text.toString(), .icon = icon});
    }
    void expectWarning(QMessageBox::StandardButton answer) {
        boxes.expect(support::ExpectedBox{.text = warning.toString(),
                                          .icon = QMessageBox::Information,
                                          .buttons = QMessageBox::Yes | QMessageBox::No,
                                          .answer = answer});
    }
    void expectGivenUp(const QString& form) {
        boxes.expect(support::ExpectedWindow{
            form, [](QWidget& window) {
                const auto* button = window.findChild<QPushButton*>(u"cmdZrusit"_s);
                QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                                  button->mapTo(&window, button->rect().center()));
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
        backup::FrmDearch_new form(reg.engine, reg.folder, checker());
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
    expectTold(u"Archivácia bola úspešne ukončená");
    archive();
    EXPECT_EQ(files::namesIn(elsewhere.path()), QStringList{u"moja záloha"_s});
    EXPECT_EQ(names(), (QStringList{u"arch_tmp.zip"_s, u"tvk.mdb"_s}));

    expectSave(u" "_s + away + u" "_s);
    boxes.expect(support::ExpectedBox{.text = u"moja záloha už existuje.\nChcete ho nahradiť?"_s,
                                      .title = u"Kde bude archív"_s,
                                      .icon = QMessageBox::Warning,
                                      .buttons = QMessageBox::Yes | QMessageBox::No,
                                      .answer = QMessageBox::Yes});
    expectTold(u"Archivácia bola úspešne ukončená");
    archive();

    expectSave({});
    expectTold(failedArchive + u"Výber súboru bol zrušený."_s);
    archive();
    const QByteArray before = files::read(path("tvk.mdb"));
    boxes.expect(support::ExpectedWindow{u"QFileDialog"_s, [this](QWidget& window) {
                                             auto* name =
                                                 window.findChild<QLineEdit*>(u"fileNameEdit"_s);
                                             name->setText(path("tmp.mdb"));
                                             QTest::keyClick(name, Qt::Key_Return);
                                         }});
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
    const auto failed = u"Vyskytla sa chyba pri obnove dát";
    backup::makeArchive(reg.engine, reg.folder);
    const QString sound = elsewhere.filePath(u"a.zip"_s);
    backup::placeArchive(reg.folder, sound);
    const QString foreign = elsewhere.filePath(u"b.zip"_s);
    files::write(foreign, "text");
    const QString empty = elsewhere.filePath(u"c.zip"_s);
    files::write(empty, QByteArray("PK\5\6") + QByteArray(18, '\0'));
    setClient(u"Druhý");
    QFile::remove(path("arch_tmp.zip"));

    expectOpen({});
    expectTold(failed, QMessageBox::Warning);
    restore("MENU");
    expectOpen(foreign);
    expectTold(u"Vybraný súbor neobsahuje očakávané dáta", QMessageBox::Warning);
    restore("MENU");
    expectOpen(empty);
    expectWarning(QMessageBox::Yes);
    expectTold(u"Obnova dát nebola úspešná, chybný arch_tvk.zip");
    restore("MENU");
    expectOpen(sound);
    expectGivenUp(u"FrmDearch_new"_s);
    expectTold(failed, QMessageBox::Warning);
    restore("MENU", std::chrono::milliseconds(0));
    expectOpen(sound);
    expectWarning(QMessageBox::No);
    restore("MENU");
    EXPECT_EQ(names(), QStringList{u"tvk.mdb"_s});
    EXPECT_EQ(client(), u"Druhý"_s);

    expectOpen(sound);
    expectWarning(QMessageBox::Yes);
    expectTold(u"Obnova dát bola úspešne ukončená");
    restore("MENU");
    EXPECT_EQ(names(), (QStringList{u"tvk.mdb"_s, u"tvk_ren.mdb"_s}));
    EXPECT_EQ(client(), u"Prvý"_s);

    expectOpen(sound);
    restore("LOAD");
    QFile::remove(path("tvk.mdb"));
    expectOpen(empty);
    expectTold(u"Obnova dát nebola úspešná, chybný arch_tvk.zip");
    restore("LOAD");
    EXPECT_EQ(names(), QStringList{u"tvk.mdb"_s}) << "what was kept is back";
    EXPECT_EQ(client(), u"Druhý"_s);
    QFile::remove(path("tvk.mdb"));
    expectOpen(empty);
    expectTold(u"Obnova dát nebola úspešná, chybný arch_tvk.zip");
    restore("LOAD");
    EXPECT_EQ(names(), QStringList());
    expectOpen(sound);
    expectTold(u"Obnova dát bola úspešne ukončená");
    restore("LOAD");
    EXPECT_EQ(client(), u"Prvý"_s);
}

} // namespace
