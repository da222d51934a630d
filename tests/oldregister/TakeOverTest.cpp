#include "oldregister/TakeOver.h"

#include "Sample.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/FileBytes.h"
#include "store/Recordset.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <unistd.h>

using namespace oldregister;
using namespace Qt::StringLiterals;

namespace {

class TakeOver : public testing::Test {
  protected:
    TakeOver() { files::write(path("tvk.mdb"), sample::bytes()); }

    QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    void expectFiles(const QStringList& names) {
        EXPECT_EQ(files::namesIn(folder.path()).join(u' ').toStdString(),
                  names.join(u' ').toStdString());
    }
    void expectRegister() {
        store::DBEngine engine;
        EXPECT_EQ(engine.OpenDatabase(path("tvk.mdb")).OpenRecordset(u"k_zaklad"_s)->RecordCount(),
                  40);
    }

    QTemporaryDir folder;
    const QString kept = u"tvk_povodny.mdb"_s;
    const QString text = u"tvk_prevod.txt"_s;
    const QString live = u"tvk.mdb"_s;
};

} // namespace

TEST_F(TakeOver, KeepsTheOldFileBesideTheNewOne) {
    const ConversionReport report = takeOver(path("tvk.mdb"));
    expectFiles({live, kept, text});
    expectRegister();
    EXPECT_EQ(files::read(path("tvk_povodny.mdb")), sample::bytes());
    EXPECT_EQ(QString::fromUtf8(files::read(path("tvk_prevod.txt"))), report.text());
    EXPECT_TRUE(report.text().contains(report.keptFile));
    EXPECT_TRUE(report.text().contains(u"Klienti (k_zaklad)"));
}

// What a run that was killed, or an earlier one, may have left.
TEST_F(TakeOver, GoesOnFromWhateverLiesThere) {
    struct Case {
        const char* name;
        std::function<void()> lay;
        QStringList files;
    };
    const auto lay = [this](const char* name) {
        return [this, name] {
            files::write(path(name), "dávne");
        };
    };
    const Case cases[] = {
        {"begun", lay("tvk.mdb.novy.prevod"), {live, kept, text}},
        {"made", lay("tvk.mdb.novy"), {live, kept, text}},
        {"kept",
         [this] {
             ASSERT_EQ(::link(qPrintable(path("tvk.mdb")), qPrintable(path("tvk_povodny.mdb"))), 0);
         },
         {live, kept, text}},
        {"an older one", lay("tvk_povodny.mdb"), {live, kept, u"tvk_povodny_2.mdb"_s, text}},
        {"an older report", lay("tvk_prevod.txt"), {live, kept, text, u"tvk_prevod_2.txt"_s}},
        {"a journal of another file",
         lay("tvk.mdb-journal"),
         {live, kept, u"tvk_povodny.mdb-journal"_s, text}}};
    for (const auto& [name, layIt, names] : cases) {
        SCOPED_TRACE(name);
        for (const QString& file : files::namesIn(folder.path()))
            QFile::remove(folder.filePath(file));
        files::write(path("tvk.mdb"), sample::bytes());
        layIt();
        takeOver(path("tvk.mdb"));
        expectFiles(names);
        expectRegister();
        const bool isSecond = files::read(path("tvk_povodny.mdb")) == "dávne";
        EXPECT_EQ(files::read(path(isSecond ? "tvk_povodny_2.mdb" : "tvk_povodny.mdb")),
                  sample::bytes());
    }
}

TEST_F(TakeOver, LeavesAllAsItWasWhenItFails) {
    const auto changeMeanwhile = [this](double) {
        files::write(path("tvk.mdb"), sample::bytes() + QByteArray(4096, 'x'));
        return true;
    };
    EXPECT_THROW(takeOver(path("tvk.mdb"), changeMeanwhile), store::EngineError);
    expectFiles({live});
}
