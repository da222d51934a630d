#include "mkdb/Commands.h"

#include "store/BulkInsert.h"
#include "store/Database.h"
#include "store/EngineError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using mkdb::Command;
using namespace Qt::StringLiterals;

const QString dataFolder = QStringLiteral(TVK_DATA_FOLDER);
const QDate today(2026, 11, 23);

QByteArray contents(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

class Commands : public testing::Test {
  protected:
    QString path(const char* name) const { return directory_.filePath(QString::fromUtf8(name)); }

    void run(Command command, const QString& lists = dataFolder + u"/ciselniky"_s,
             const QString& words = dataFolder + u"/ukazka"_s, int clients = 12) {
        mkdb::run({command, path("a.mdb"), lists, words, {clients, 1, today}});
    }

    int count(const char* source) { return static_cast<int>(open(source)->RecordCount()); }

    std::unique_ptr<store::Recordset> open(const char* source) {
        return engine_.OpenDatabase(path("a.mdb")).OpenRecordset(QString::fromUtf8(source));
    }

    QStringList files() const { return QDir(directory_.path()).entryList(QDir::Files); }

    QTemporaryDir directory_;
    store::DBEngine engine_;
};

TEST_F(Commands, makeAnEmptyRegisterWithCodeLists) {
    run(Command::Empty);
    EXPECT_EQ(files(), QStringList{u"a.mdb"_s});
    EXPECT_EQ(QFileInfo(path("a.mdb")).permissions() &
                  (QFile::ReadGroup | QFile::ReadOther | QFile::WriteOther),
              QFile::Permissions());
    for (const char* table : {"k_zaklad", "k_memo", "zamestnanci", "z_vek", "dop_ukaz", "odbstar"})
        EXPECT_EQ(count(table), 0) << table;
    EXPECT_GT(count("select * from c_iczuj where nazov = 'Žilina'"), 0);
    EXPECT_EQ(count("SELECT *,(format(kod, '00')+space(2)+chr(124)+space(2)+ nazov) as roleta from "
                    "c_zariad where akronym = 'VYCH' order by kod"),
              16);
}

TEST_F(Commands, makeASampleThatTheEngineReads) {
    run(Command::Sample);
    EXPECT_EQ(count("select k_zaklad.idkod from k_zaklad inner join k_memo on k_zaklad.idkod = "
                    "k_memo.idkod"),
              12);
    EXPECT_GT(count("select * from k_zariad where akronym = 'VYCH' and isdate(vzar_do) = false"),
              0);
    const auto clients = open("select * from k_zaklad order by val(katcis)");
    EXPECT_EQ(clients->Fields(u"katcis").Value().toText(), u"1"_s);
    EXPECT_TRUE(clients->Fields(u"datevi").Value().isDate());
    store::DBEngine::verifyDatabase(path("a.mdb"));
}

TEST_F(Commands, neverOverwrite) {
    write(path("a.mdb"), "moje");
    for (const Command command : {Command::Empty, Command::Sample}) {
        EXPECT_THROW(run(command), store::EngineError);
        EXPECT_EQ(contents(path("a.mdb")), "moje");
    }
    EXPECT_EQ(files(), QStringList{u"a.mdb"_s});
}

TEST_F(Commands, leaveNothingBehindWhenTheyFail) {
    EXPECT_THROW(run(Command::Empty, path("niet")), mkdb::CsvError);
    EXPECT_THROW(run(Command::Sample, path("niet")), mkdb::CsvError);
    ASSERT_TRUE(QDir().mkpath(path("slova")));
    write(path("slova/priezviska.csv"), "muzske,zenske\nNovotný,Novotná\n");
    write(path("slova/mena.csv"), "meno,pohlavie\nAnna,Z\nAndrej,M\n");
    for (const QString& file : QDir(dataFolder + u"/ukazka"_s).entryList(QDir::Files))
        QFile::copy(dataFolder + u"/ukazka/"_s + file, path("slova/") + file);
    EXPECT_THROW(run(Command::Sample, dataFolder + u"/ciselniky"_s, path("slova"), 101),
                 std::runtime_error)
        << "two names, and a hundred keys for each";
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(Commands, replaceTheListsThatAreThere) {
    run(Command::Sample);
    const int towns = count("c_iczuj");
    ASSERT_TRUE(QDir().mkpath(path("nove")));
    write(path("nove/c_zdrpoi.csv"), "kod,nazov\n25,Všeobecná\n");
    run(Command::ReplaceLists, path("nove"));
    EXPECT_EQ(count("c_zdrpoi"), 1);
    EXPECT_EQ(open("c_zdrpoi")->Fields(u"nazov").Value().toText(), u"Všeobecná"_s);
    EXPECT_EQ(count("c_iczuj"), towns);
    EXPECT_EQ(count("k_zaklad"), 12);
}

TEST_F(Commands, replaceAllListsOrNone) {
    run(Command::Sample);
    const QByteArray before = contents(path("a.mdb"));
    ASSERT_TRUE(QDir().mkpath(path("nove")));
    write(path("nove/c_jazyk.csv"), "kod,nazov\nsk,slovenčina\n");
    write(path("nove/c_zdrpoi.csv"), "kod,nazov\n25\n");
    EXPECT_THROW(run(Command::ReplaceLists, path("nove")), mkdb::CsvError);
    QFile::remove(path("nove/c_zdrpoi.csv"));
    write(path("nove/k_zaklad.csv"), "idkod\nx\n");
    EXPECT_THROW(run(Command::ReplaceLists, path("nove")), mkdb::CsvError);
    EXPECT_THROW(run(Command::ReplaceLists, path("niet")), mkdb::CsvError);
    EXPECT_EQ(contents(path("a.mdb")), before);
}

TEST_F(Commands, undoWritesThatFailHalfWay) {
    run(Command::Sample);
    auto database = engine_.OpenDatabase(path("a.mdb"));
    const int insurers = count("c_zdrpoi");
    const char16_t* const columns[] = {u"kod"};
    const auto halfWay = [&] {
        database.Execute(u"delete * from c_zdrpoi"_s);
        store::BulkInsert insert(database, u"c_zdrpoi", columns);
        insert.add(std::vector<store::Value>{u"1"_s});
        insert.add(std::vector<store::Value>{QString(256, u'x')});
    };
    EXPECT_THROW(store::BulkInsert::wholly(database, halfWay), store::EngineError);
    EXPECT_EQ(count("c_zdrpoi"), insurers);
}

TEST_F(Commands, insertOnlyWhatTheSchemaKnows) {
    run(Command::Empty);
    auto database = engine_.OpenDatabase(path("a.mdb"));
    const auto number = [&](const char16_t* table, const char16_t* column,
                            const store::Value& value) {
        try {
            store::BulkInsert(database, table, std::span(&column, 1)).add(std::span(&value, 1));
            return 0;
        } catch (const store::EngineError& error) {
            return static_cast<int>(error.number());
        }
    };
    EXPECT_EQ(number(u"k_nic", u"idkod", u"A"_s), 3078);
    EXPECT_EQ(number(u"k_zaklad", u"nic", u"A"_s), 3265);
    EXPECT_EQ(number(u"k_zaklad", u"datnar", QString()), 3421);
    EXPECT_EQ(number(u"k_zaklad", u"idkod", u"A"_s), 0);
    EXPECT_EQ(number(u"k_zaklad", u"idkod", u"a  "_s), 3022);
    EXPECT_EQ(count("k_zaklad"), 1);
}

} // namespace
