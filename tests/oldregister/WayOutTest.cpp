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
    sample::expectTables(path("von"));
    run(mkdb::Command::Import, path("von"), path("b.mdb"));
    run(mkdb::Command::Export, path("b.mdb"), path("znova"));
    sample::expectTables(path("znova"));
}
