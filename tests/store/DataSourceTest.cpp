#include "store/DataSource.h"

#include "store/EngineAssertions.h"
#include "store/Files.h"
#include "store/ReportConnection.h"
#include "support/TemporaryRegister.h"

#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>

using store::DataSource;
using store::EditState;
using support::TemporaryRegister;

namespace {

class DataSourceTest : public testing::Test, public TemporaryRegister {
  protected:
    DataSourceTest() {
        execute({QStringLiteral("insert into k_zaklad (idkod,meno) values ('A','Anna')"),
                 QStringLiteral("insert into k_zaklad (idkod,meno) values ('B','Berta')")});
        point(source);
    }

    void point(DataSource& any) const {
        any.setDatabaseName(folder.database());
        any.setRecordSource(QStringLiteral("select * from k_zaklad"));
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
    QString name() { return source.Recordset().Fields(u"meno").Value().toText(); }
    void setName(const QString& text) { source.Recordset().Fields(u"meno").setValue(text); }

    QStringList heard;
    DataSource source{engine};
};

} // namespace

TEST_F(DataSourceTest, TellsWhatHappens) {
    listen();
    struct Step {
        const char* name;
        std::function<void(store::Recordset&)> act;
        const char* heard;
    };
    const Step steps[] = {
        {"move", [](auto& r) { r.MoveNext(); }, "leave moved"},
        {"first", [](auto& r) { r.MoveFirst(); }, "leave moved"},
        {"edit", [](auto& r) { r.Edit(); }, "moved"},
        {"cancel", [](auto& r) { r.CancelUpdate(); }, "moved"},
        {"cancel nothing", [](auto& r) { r.CancelUpdate(); }, ""},
        {"find", [](auto& r) { r.FindFirst(QStringLiteral("idkod='B'")); }, "leave moved"},
        {"find none", [](auto& r) { r.FindFirst(QStringLiteral("idkod='X'")); }, ""},
        {"add", [](auto& r) { r.AddNew(); }, "leave moved"},
        {"write", [](auto& r) { r.Update(); }, "write moved"},
        {"delete", [](auto& r) { r.Delete(); }, "moved"},
        {"move from the gap", [](auto& r) { r.MoveNext(); }, "moved"},
    };
    source.Refresh();
    EXPECT_EQ(taken(), QStringLiteral("refreshed moved"));
    for (const Step& step : steps) {
        step.act(source.Recordset());
        EXPECT_EQ(taken(), QString::fromLatin1(step.heard)) << step.name;
    }
    source.Refresh();
    EXPECT_EQ(taken(), QStringLiteral("leave refreshed moved"));
}

TEST_F(DataSourceTest, ARowLeftOpenIsCompletedOrDropped) {
    source.Refresh();
    source.Recordset().Edit();
    setName(QStringLiteral("Adela"));
    source.Refresh();
    EXPECT_EQ(name(), QStringLiteral("Anna")) << "nobody completed it";

    QObject::connect(&source, &DataSource::aboutToLeave, [this] {
        if (source.Recordset().EditMode() != EditState::None)
            source.Recordset().Update();
    });
    source.Recordset().Edit();
    setName(QStringLiteral("Adela"));
    source.Refresh();
    EXPECT_EQ(name(), QStringLiteral("Adela"));
}

TEST_F(DataSourceTest, FieldsWriteThemselvesWithTheRow) {
    QObject::connect(&source, &DataSource::aboutToWrite,
                     [this] { setName(QStringLiteral("Agáta")); });
    source.Refresh();
    source.Recordset().Edit();
    source.Recordset().Update();
    EXPECT_EQ(name(), QStringLiteral("Agáta"));
}

TEST_F(DataSourceTest, TheEndOfASourceCompletesItsRow) {
    {
        DataSource ending(engine);
        point(ending);
        ending.Refresh();
        QObject::connect(&ending, &DataSource::aboutToLeave, [&] { ending.Recordset().Update(); });
        ending.Recordset().Edit();
        ending.Recordset().Fields(u"meno").setValue(QStringLiteral("Adela"));
    }
    EXPECT_EQ(text(QStringLiteral("k_zaklad"), QStringLiteral("meno")), QStringLiteral("Adela"));
}

TEST_F(DataSourceTest, AnErrorAtTheEndIsToldLater) {
    {
        DataSource ending(engine);
        point(ending);
        ending.Refresh();
        QObject::connect(&ending, &DataSource::aboutToLeave, [&] { ending.Recordset().Update(); });
        ending.Recordset().Edit();
        ending.Recordset().Fields(u"idkod").setValue(QStringLiteral("B"));
    }
    EXPECT_ENGINE_ERROR(engine.commitPending(), 3022);
    engine.commitPending();
}

TEST_F(DataSourceTest, AFailedRefreshEndsTheOldRows) {
    EXPECT_FALSE(source.isOpen());
    EXPECT_ENGINE_ERROR(source.Recordset(), 3021);
    EXPECT_ENGINE_ERROR(source.Database(), 3021);
    source.Refresh();
    EXPECT_TRUE(source.isOpen());
    source.setRecordSource(QStringLiteral("niet"));
    EXPECT_ENGINE_ERROR(source.Refresh(), 3078);
    EXPECT_FALSE(source.isOpen());
    point(source);
    ASSERT_TRUE(QFile::remove(folder.database()));
    EXPECT_ENGINE_ERROR(source.Refresh(), 3024);
    EXPECT_FALSE(source.isOpen());
}

TEST_F(DataSourceTest, TwoSourcesSeeEachOther) {
    DataSource other(engine);
    point(other);
    source.Refresh();
    other.Refresh();
    other.Recordset().Edit();
    other.Recordset().Fields(u"meno").setValue(QStringLiteral("Adela"));
    EXPECT_EQ(name(), QStringLiteral("Anna"));
    other.Recordset().Update();
    EXPECT_EQ(name(), QStringLiteral("Adela"));
    other.Database().Execute(QStringLiteral("delete from k_zaklad where idkod='A'"));
    EXPECT_ENGINE_ERROR(name(), 3167);
}

TEST_F(DataSourceTest, AReportReadsTheFileAnew) {
    source.Refresh();
    source.Database().Execute(QStringLiteral("update k_zaklad set datnar=datevalue('1.2.2003')"));
    store::ReportConnection report(engine, folder.database());
    auto rows = report.open(QStringLiteral("select * from k_zaklad order by meno desc"));
    ASSERT_EQ(rows.count(), 2);
    EXPECT_ENGINE_ERROR(rows.text(u"meno"), 3021);
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(rows.text(u"MENO") + rows.text(u"datnar"), QStringLiteral("Berta01.02.2003"));
    EXPECT_ENGINE_ERROR(rows.text(u"niet"), 3265);
    EXPECT_TRUE(rows.next());
    EXPECT_FALSE(rows.next());
    EXPECT_FALSE(rows.next());
    EXPECT_ENGINE_ERROR(report.open(QStringLiteral("select")), 3075);
    EXPECT_ENGINE_ERROR(report.open(QStringLiteral("select meno from k_zaklad group by vek")),
                        3122);
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
    EXPECT_EQ(store::ReportConnection(engine, path).open(QStringLiteral("k_zaklad")).count(), 2);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.resize(5000));
    EXPECT_ENGINE_ERROR(store::ReportConnection(engine, path).open(QStringLiteral("k_zaklad")),
                        3025);
}
