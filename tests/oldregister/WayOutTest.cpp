// The register goes out as CSV and comes back the same.

#include "Sample.h"
#include "mkdb/Commands.h"
#include "store/FileBytes.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(WayOut, AndBackGiveTheSameRegister) {
    const QTemporaryDir folder;
    const auto run = [](mkdb::Command command, const QString& file, const QString& target) {
        mkdb::Arguments arguments;
        arguments.command = command;
        arguments.file = file;
        arguments.target = target;
        mkdb::run(arguments);
    };
    const auto path = [&](const char* name) {
        return folder.filePath(QString::fromLatin1(name));
    };
    run(mkdb::Command::TakeOver, sample::path, path("a.mdb"));
    run(mkdb::Command::Export, path("a.mdb"), path("von"));
    run(mkdb::Command::Import, path("von"), path("b.mdb"));
    run(mkdb::Command::Export, path("b.mdb"), path("znova"));
    const QStringList names = files::namesIn(path("von"));
    EXPECT_EQ(names.size(), 21);
    for (const QString& name : names)
        EXPECT_EQ(files::read(path("von/") + name), files::read(path("znova/") + name))
            << name.toStdString();
    const QString clients = QString::fromUtf8(files::read(path("von/k_zaklad.csv")));
    EXPECT_TRUE(clients.startsWith(u"idkod,Meno,Priezv,mienar,rodcis,datnar,pohlav,katcis,"));
    EXPECT_TRUE(clients.contains(
        u"\nCHALUPCH00,Chariton,Chalupka,\"\",9104038933,1991-04-03,M,16,77,02,A,RO,X,"));
    EXPECT_TRUE(clients.contains(u",\"Škola\r\nna dvoch\triadkoch\",,2004-02-06,,6,"));
    EXPECT_TRUE(QString::fromUtf8(files::read(path("von/k_memo.csv"))).contains(u",<p>"));
}
