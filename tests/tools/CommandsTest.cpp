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

    QString run(Command command, const QString& lists = dataFolder + QStringLiteral("/ciselniky"),
                int clients = 12) {
        return mkdb::run({command,
                          path("a.mdb"),
                          lists,
                          dataFolder + QStringLiteral("/ukazka"),
                          {clients, 1, today}});
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
    EXPECT_EQ(files(), QStringList{QStringLiteral("a.mdb")});
    EXPECT_EQ(QFileInfo(path("a.mdb")).permissions() &
                  (QFile::ReadGroup | QFile::ReadOther | QFile::WriteOther),
              QFile::Permissions());
    for (const char* table : {"k_zaklad", "k_memo", "zamestnanci", "z_vek"})
        EXPECT_EQ(count(table), 0) << table;
    EXPECT_EQ(count("dop_ukaz"), 1);
    EXPECT_EQ(count("odbstar"), 28);
    EXPECT_GT(count("select * from c_iczuj where nazov = 'Žilina'"), 0);
    EXPECT_EQ(count("SELECT *,(format(kod, '00')+space(2)+chr(124)+space(2)+ nazov) as roleta from "
                    "c_zariad where akronym = 'VYCH' order by kod"),
              16);
}

TEST_F(Commands, makeASampleThatTheEngineReads) {
    run(Command::Sample, dataFolder + QStringLiteral("/ciselniky"), 60);
    EXPECT_EQ(count("k_zaklad"), 60);
    EXPECT_EQ(count("k_memo"), 60);
    EXPECT_EQ(count("select k_zaklad.idkod from k_zaklad inner join k_memo on k_zaklad.idkod = "
                    "k_memo.idkod"),
              60);
    EXPECT_GT(count("select * from k_zariad where akronym = 'VYCH' and isdate(vzar_do) = false"),
              0);
    EXPECT_GT(count("select * from k_zaznam_spc where datum >= datevalue('1.9.2026')"), 30);
    const auto clients = open("select * from k_zaklad order by val(katcis)");
    EXPECT_EQ(clients->Fields(u"katcis").Value().toText(), QStringLiteral("1"));
    EXPECT_TRUE(clients->Fields(u"datevi").Value().isDate());
    EXPECT_EQ(clients->Fields(u"matvla").column().type, store::ColumnType::Boolean);
    store::DBEngine::verifyDatabase(path("a.mdb"));
}

TEST_F(Commands, neverOverwrite) {
    write(path("a.mdb"), "moje");
    for (const Command command : {Command::Empty, Command::Sample}) {
        EXPECT_THROW(run(command), store::EngineError);
        EXPECT_EQ(contents(path("a.mdb")), "moje");
    }
    EXPECT_EQ(files(), QStringList{QStringLiteral("a.mdb")});
}

TEST_F(Commands, leaveNothingBehindWhenTheListsAreWrong) {
    EXPECT_THROW(run(Command::Empty, path("niet")), mkdb::CsvError);
    EXPECT_THROW(run(Command::Sample, path("niet")), mkdb::CsvError);
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(Commands, leaveNothingBehindWhenTheNamesDoNotSuffice) {
    const QString words = path("slova");
    ASSERT_TRUE(QDir().mkpath(words));
    for (const QString& file : QDir(dataFolder + QStringLiteral("/ukazka")).entryList(QDir::Files))
        QFile::copy(dataFolder + QStringLiteral("/ukazka/") + file, words + u'/' + file);
    QFile::remove(words + QStringLiteral("/priezviska.csv"));
    write(words + QStringLiteral("/priezviska.csv"), "muzske,zenske\nNovotný,Novotná\n");
    QFile::remove(words + QStringLiteral("/mena.csv"));
    write(words + QStringLiteral("/mena.csv"), "meno,pohlavie\nAnna,Z\nAndrej,M\n");
    EXPECT_THROW(mkdb::run({Command::Sample,
                            path("a.mdb"),
                            dataFolder + QStringLiteral("/ciselniky"),
                            words,
                            {101, 1, today}}),
                 std::runtime_error);
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(Commands, replaceTheListsThatAreThere) {
    run(Command::Sample);
    const int towns = count("c_iczuj");
    ASSERT_TRUE(QDir().mkpath(path("nove")));
    write(path("nove/c_zdrpoi.csv"), "kod,nazov\n25,Všeobecná\n");
    run(Command::ReplaceLists, path("nove"));
    EXPECT_EQ(count("c_zdrpoi"), 1);
    EXPECT_EQ(open("c_zdrpoi")->Fields(u"nazov").Value().toText(), QStringLiteral("Všeobecná"));
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
    const char16_t* const columns[] = {u"kod", u"nazov"};
    EXPECT_THROW(store::BulkInsert::wholly(
                     database,
                     [&] {
                         database.Execute(QStringLiteral("delete * from c_zdrpoi"));
                         store::BulkInsert insert(database, u"c_zdrpoi", columns);
                         insert.add(std::vector<store::Value>{QStringLiteral("1"), {}});
                         insert.add(std::vector<store::Value>{QString(256, u'x'), {}});
                     }),
                 store::EngineError);
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
    EXPECT_EQ(number(u"k_nic", u"idkod", QStringLiteral("A")), 3078);
    EXPECT_EQ(number(u"k_zaklad", u"nic", QStringLiteral("A")), 3265);
    EXPECT_EQ(number(u"k_zaklad", u"datnar", QString()), 3421);
    EXPECT_EQ(number(u"k_zaklad", u"idkod", QStringLiteral("A")), 0);
    EXPECT_EQ(number(u"k_zaklad", u"idkod", QStringLiteral("a  ")), 3022);
    EXPECT_EQ(count("k_zaklad"), 1);
}

} // namespace
