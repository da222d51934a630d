#include "store/DataSource.h"

#include "store/EngineAssertions.h"
#include "store/Files.h"
#include "store/ReportConnection.h"
#include "support/TemporaryRegister.h"

#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>

using store::DataSource;
using support::TemporaryRegister;
using namespace Qt::StringLiterals;

namespace {

class DataSourceTest : public testing::Test, public TemporaryRegister {
  protected:
    DataSourceTest() {
        execute({u"insert into k_zaklad (idkod,meno) values ('A','Anna')"_s,
                 u"insert into k_zaklad (idkod,meno) values ('B','Berta')"_s});
        point(source);
    }

    void point(DataSource& any) const {
        any.setDatabaseName(folder.database());
        any.setRecordSource(u"select * from k_zaklad"_s);
    }

    /// Writes down the signals of the source as they come.
    void listen() {
        const auto note = [this](const char* name) {
            return [this, name] {
                heard << QString::fromLatin1(name);
            };
        };
        QObject::connect(&source, &DataSource::aboutToWrite, note("write"));
        QObject::connect(&source, &DataSource::aboutToLeave, note("leave"));
        QObject::connect(&source, &DataSource::repositioned, note("moved"));
        QObject::connect(&source, &DataSource::refreshed, note("refreshed"));
    }
    QString taken() {
        const QString words = heard.join(QLatin1Char(' '));
        heard.clear();
        return words;
    }

    QStringList heard;
    DataSource source{engine};
};

} // namespace

TEST_F(DataSourceTest, TellsWhatHappens) {
    listen();
    using Act = std::function<void(store::Recordset&)>;
    const std::tuple<const char*, Act, const char*> steps[] = {
        {"move", [](auto& r) { r.MoveNext(); }, "leave moved"},
        {"first", [](auto& r) { r.MoveFirst(); }, "leave moved"},
        {"edit", [](auto& r) { r.Edit(); }, "moved"},
        {"cancel", [](auto& r) { r.CancelUpdate(); }, "moved"},
        {"cancel nothing", [](auto& r) { r.CancelUpdate(); }, ""},
        {"find", [](auto& r) { r.FindFirst(u"idkod='B'"_s); }, "leave moved"},
        {"find none", [](auto& r) { r.FindFirst(u"idkod='X'"_s); }, ""},
        {"add", [](auto& r) { r.AddNew(); }, "leave moved"},
        {"write", [](auto& r) { r.Update(); }, "write moved"},
        {"delete", [](auto& r) { r.Delete(); }, "moved"},
        {"move from the gap", [](auto& r) { r.MoveNext(); }, "moved"}};
    source.Refresh();
    EXPECT_EQ(taken(), u"refreshed moved"_s);
    for (const auto& [name, act, words] : steps) {
        act(source.Recordset());
        EXPECT_EQ(taken(), QString::fromLatin1(words)) << name;
    }
    source.Refresh();
    EXPECT_EQ(taken(), u"leave refreshed moved"_s);
}

TEST_F(DataSourceTest, AFailedRefreshEndsTheOldRows) {
    EXPECT_FALSE(source.isOpen());
    EXPECT_ENGINE_ERROR(source.Recordset(), 3021);
    EXPECT_ENGINE_ERROR(source.Database(), 3021);
    source.Refresh();
    EXPECT_TRUE(source.isOpen());
    source.setRecordSource(u"niet"_s);
    EXPECT_ENGINE_ERROR(source.Refresh(), 3078);
    EXPECT_FALSE(source.isOpen());
    point(source);
    ASSERT_TRUE(QFile::remove(folder.database()));
    EXPECT_ENGINE_ERROR(source.Refresh(), 3024);
    EXPECT_FALSE(source.isOpen());
}

TEST_F(DataSourceTest, AReportReadsTheFileAnew) {
    source.Refresh();
    source.Database().Execute(u"update k_zaklad set datnar=datevalue('1.2.2003')"_s);
    store::ReportConnection report(engine, folder.database());
    auto rows = report.open(u"select * from k_zaklad order by meno desc"_s);
    ASSERT_EQ(rows.count(), 2);
    EXPECT_ENGINE_ERROR(rows.text(u"meno"), 3021);
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(rows.text(u"MENO") + rows.text(u"datnar"), u"Berta01.02.2003"_s);
    EXPECT_ENGINE_ERROR(rows.text(u"niet"), 3265);
    EXPECT_TRUE(rows.next());
    EXPECT_FALSE(rows.next());
    EXPECT_FALSE(rows.next());
    EXPECT_ENGINE_ERROR(report.open(u"select"_s), 3075);
    EXPECT_ENGINE_ERROR(report.open(u"select meno from k_zaklad group by vek"_s), 3122);
}

TEST_F(DataSourceTest, AReportSaysThatItCannotRead) {
    letGo();
    source.Refresh();
    const QString path = folder.database();
    const QString copy = folder.path(u"tmp.mdb");
    engine.CompactDatabase(path, copy, {});
    ASSERT_TRUE(QFile::rename(path, folder.path(u"tvk_ren.mdb")));
    EXPECT_ENGINE_ERROR(store::ReportConnection(engine, path), 3025);
    store::replaceFile(copy, path);
    EXPECT_ENGINE_ERROR(store::ReportConnection(engine, path), 3025);
    letGo();
    source.Refresh();
    EXPECT_EQ(store::ReportConnection(engine, path).open(u"k_zaklad"_s).count(), 2);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.resize(5000));
    EXPECT_ENGINE_ERROR(store::ReportConnection(engine, path).open(u"k_zaklad"_s), 3025);
}
