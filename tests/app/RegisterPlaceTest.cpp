#include "app/RegisterPlace.h"

#include "store/FileBytes.h"
#include "support/ScriptedBoxes.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

TEST(RegisterPlaceTest, anInstalledProgramKeepsItsRegisterInTheUsersFolder) {
    const QTemporaryDir root;
    const QString bin = root.filePath(u"usr/bin"_s);
    const QString home = root.filePath(u"home/tvk"_s);
    const QString empty = app::emptyRegisterOf(bin);
    QDir().mkpath(bin);
    QDir().mkpath(root.filePath(u"usr/share/tvk"_s));
    EXPECT_EQ(app::registerPlace(bin, home).database(), bin + u"/tvk.mdb"_s);
    EXPECT_FALSE(QFile::exists(home));

    files::write(empty, "empty");
    const store::ProgramFolder place = app::registerPlace(bin, home);
    EXPECT_EQ(place.database(), home + u"/tvk.mdb"_s);
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        support::ScriptedBoxes boxes;
        boxes.expect({.text = u"Register ešte nie je. Založiť prázdny, s číselníkmi ?\n\n"
                              u"Bude v súbore "_s +
                              place.database(),
                      .title = u"Nový register"_s,
                      .icon = QMessageBox::Question,
                      .buttons = QMessageBox::Yes | QMessageBox::No,
                      .answer = answer});
        app::offerEmptyRegister(place, empty);
        boxes.allCame();
        EXPECT_EQ(QFile::exists(place.database()), answer == QMessageBox::Yes);
    }
    EXPECT_EQ(files::read(place.database()), "empty");
    EXPECT_EQ(QDir(home).entryList(QDir::Files), QStringList(u"tvk.mdb"_s));
    EXPECT_FALSE(QFile::permissions(place.database()) & QFile::ReadGroup);
    app::offerEmptyRegister(place, empty);

    files::write(bin + u"/tvk.mdb"_s, "lies there");
    EXPECT_EQ(app::registerPlace(bin, home).database(), bin + u"/tvk.mdb"_s);
}

} // namespace
