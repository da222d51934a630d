#include "mkdb/Commands.h"

#include "store/BulkInsert.h"
#include "store/EngineAssertions.h"
#include "store/FileBytes.h"
#include "support/TemporaryRegister.h"

#include <gtest/gtest.h>

namespace {

using mkdb::Command;
using namespace Qt::StringLiterals;

const QString listsFolder = QStringLiteral(TVK_DATA_FOLDER "/ciselniky");
const QString wordsFolder = QStringLiteral(TVK_DATA_FOLDER "/ukazka");

class Commands : public testing::Test, public support::TemporaryRegister {
  protected:
    Commands() : TemporaryRegister([](const QString&) {}) {}

    QString path(const char* name) const { return folder.path(QString::fromUtf8(name)); }
    void run(Command command, const QString& lists = listsFolder,
             const QString& words = wordsFolder, int clients = 12) {
        letGo();
        mkdb::run({command, folder.database(), lists, words, {clients, 1, {2026, 11, 23}}});
    }
    /// A file in a folder of lists of the test's own.
    void writeList(const char* name, const QByteArray& bytes) {
        ASSERT_TRUE(QDir().mkpath(path("nove")));
        files::write(path("nove/") + QString::fromUtf8(name), bytes);
    }
};

TEST_F(Commands, makeARegisterOnceAndLeaveNothingBehindWhenTheyFail) {
    run(Command::Empty);
    EXPECT_EQ(files::namesIn(directory.path()), QStringList{u"tvk.mdb"_s});
    EXPECT_EQ(QFile::permissions(folder.database()) & QFile::Permissions(0x77),
              QFile::Permissions());
    EXPECT_EQ(count(u"k_zaklad"_s), 0);
    EXPECT_EQ(count(u"select * from c_iczuj where nazov = 'Žilina'"_s), 1);
    letGo();
    const QByteArray before = files::read(folder.database());
    for (const Command command : {Command::Empty, Command::Sample})
        EXPECT_THROW(run(command), store::EngineError);
    EXPECT_EQ(files::read(folder.database()), before);
    QFile::remove(folder.database());
    for (const Command command : {Command::Empty, Command::Sample})
        EXPECT_THROW(run(command, path("niet")), mkdb::CsvError);
    writeList("priezviska.csv", "muzske,zenske\nNovotný,Novotná\n");
    writeList("mena.csv", "meno,pohlavie\nAnna,Z\nAndrej,M\n");
    for (const QString& file : files::namesIn(wordsFolder))
        QFile::copy(wordsFolder + u'/' + file, path("nove/") + file);
    EXPECT_THROW(run(Command::Sample, listsFolder, path("nove"), 101), std::runtime_error)
        << "two names, and a hundred keys for each";
    EXPECT_TRUE(files::namesIn(directory.path()).isEmpty());
}

TEST_F(Commands, replaceTheListsThatAreThereOrNone) {
    run(Command::Sample);
    store::DBEngine::verifyDatabase(folder.database());
    const qint64 towns = count(u"c_iczuj"_s);
    letGo();
    const QByteArray before = files::read(folder.database());
    writeList("c_zdrpoi.csv", "kod,nazov\n25\n");
    writeList("c_jazyk.csv", "kod,nazov\nsk,slovenčina\n");
    EXPECT_THROW(run(Command::ReplaceLists, path("nove")), mkdb::CsvError);
    writeList("c_zdrpoi.csv", "kod,nazov\n25,Všeobecná\n");
    writeList("k_zaklad.csv", "idkod\nx\n");
    EXPECT_THROW(run(Command::ReplaceLists, path("nove")), mkdb::CsvError);
    EXPECT_THROW(run(Command::ReplaceLists, path("niet")), mkdb::CsvError);
    EXPECT_EQ(files::read(folder.database()), before);
    QFile::remove(path("nove/k_zaklad.csv"));
    run(Command::ReplaceLists, path("nove"));
    EXPECT_EQ(count(u"c_zdrpoi"_s), 1);
    EXPECT_EQ(text(u"c_zdrpoi"_s, u"nazov"_s), u"Všeobecná"_s);
    EXPECT_EQ(count(u"c_iczuj"_s), towns);
    EXPECT_EQ(count(u"k_zaklad"_s), 12);
}

TEST_F(Commands, insertWhatTheSchemaKnowsWhollyOrNotAtAll) {
    run(Command::Empty);
    const qint64 insurers = count(u"c_zdrpoi"_s);
    const char16_t* const columns[] = {u"kod"};
    const auto halfWay = [&] {
        database().Execute(u"delete * from c_zdrpoi"_s);
        store::BulkInsert insert(database(), u"c_zdrpoi", columns);
        insert.add(std::vector<store::Value>{u"1"_s});
        insert.add(std::vector<store::Value>{QString(256, u'x')});
    };
    EXPECT_ENGINE_ERROR(store::BulkInsert::wholly(database(), halfWay), 3163);
    EXPECT_EQ(count(u"c_zdrpoi"_s), insurers);
    const auto insert = [&](const char16_t* table, const char16_t* column,
                            const store::Value& value) {
        store::BulkInsert(database(), table, std::span(&column, 1)).add(std::span(&value, 1));
    };
    insert(u"k_zaklad", u"idkod", u"A"_s);
    EXPECT_ENGINE_ERROR(insert(u"k_nic", u"idkod", u"A"_s), 3078);
    EXPECT_ENGINE_ERROR(insert(u"k_zaklad", u"nic", u"A"_s), 3265);
    EXPECT_ENGINE_ERROR(insert(u"k_zaklad", u"datnar", QString()), 3421);
    EXPECT_ENGINE_ERROR(insert(u"k_zaklad", u"idkod", u"a  "_s), 3022);
    EXPECT_EQ(count(u"k_zaklad"_s), 1);
}

} // namespace
