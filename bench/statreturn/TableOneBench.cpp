/// Table I without its preview against the best pair of one update and one aggregate that we could
/// write by hand for SQLite alone, on the same rows.

#include "common/Figures.h"
#include "statreturn/TableOne.h"
#include "store/DataSource.h"
#include "store/Database.h"
#include "store/Schema.h"
#include "store/SqlFunctions.h"

#include <QDate>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <stdexcept>

namespace {

using namespace Qt::StringLiterals;

/// A connection with a database file, free of the engine's functions.
class Bare {
  public:
    explicit Bare(const QString& path) {
        check(sqlite3_open(path.toUtf8().constData(), &connection_));
        run("pragma synchronous = full; pragma cache_size = -65536");
    }
    ~Bare() { sqlite3_close(connection_); }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;

    sqlite3* handle() const { return connection_; }
    void run(const QByteArray& sql) {
        check(sqlite3_exec(connection_, sql.constData(), nullptr, nullptr, nullptr));
    }
    /// Runs a select to its end and gives its first number.
    qint64 read(const QByteArray& sql) {
        sqlite3_stmt* statement = nullptr;
        check(sqlite3_prepare_v2(connection_, sql.constData(), -1, &statement, nullptr));
        qint64 sum = 0;
        while (sqlite3_step(statement) == SQLITE_ROW)
            sum += sqlite3_column_int64(statement, 0);
        check(sqlite3_finalize(statement));
        return sum;
    }

  private:
    void check(int code) const {
        if (code != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(connection_));
    }
    sqlite3* connection_ = nullptr;
};

/// Ten records of care a client, a tenth of the clients without an impairment. All ages from 1 to
/// 17, so that each run a year later stamps every client anew.
/// @param years school years over which the records are spread
QByteArray rowsOf(int clients, int years) {
    return u"begin;"
           "with recursive n(i) as (select 0 union all select i + 1 from n where i < %1 - 1) "
           "insert into k_zaklad(idkod, Meno, Priezv, datnar, pohlav, postih, ulica, obec, skola) "
           "select KEY, 'Krstné meno', 'Priezvisko', "
           "printf('%%04d-%%02d-%%02d', 1991 + i %% 16, 1 + i %% 12, 1 + i %% 28), "
           "iif(i %% 3, 'M', 'Z'), printf('%%d%%d', i %% 10, (i %% 4) / 3 * 5), 'Dlhá ulica 17', "
           "'Bratislava-Staré Mesto', 'Základná škola s materskou školou' from n;"
           "with recursive n(i) as (select 0 union all select i + 1 from n where i < 10 * %1 - 1) "
           "insert into k_zaznam_spc(idkod, datum) "
           "select KEY, "
           "printf('%%04d-%%02d-15', 2007 - (i / %1) %% %2, 1 + i %% 6) from n;"
           "commit;"_s
               .replace(
                   u"KEY"_s,
                   u"char(65+i%%%1*7%%26,65+i%%%1/26%%26,65+i%%%1/676%%26,65+i%%%1/17576)||'OVJA00'"_s)
               .replace(u"%%"_s, u"\x01"_s)
               .arg(clients)
               .arg(years)
               .replace(u'\x01', u'%')
               .toUtf8();
}

/// The same tables and rows twice: as the engine makes them, and with SQLite's own order of texts.
class Registers {
  public:
    Registers(int clients, int years) {
        engine.CreateDatabase(path(u"tvk.mdb"));
        {
            Bare own(path(u"tvk.mdb"));
            store::registerSqlFunctions(own.handle());
            own.run(rowsOf(clients, years));
        }
        bare = std::make_unique<Bare>(path(u"bare.db"));
        for (const QString& statement : store::createStatements()) {
            if (!statement.contains(u"tvk_"_s))
                bare->run(QString(statement).remove(u"COLLATE TVK"_s).toUtf8());
        }
        bare->run(rowsOf(clients, years));
        datTlac = std::make_unique<store::DataSource>(engine);
        datTlac->setDatabaseName(path(u"tvk.mdb"));
    }

    QString path(QStringView name) const { return directory.filePath(name.toString()); }

    QTemporaryDir directory;
    store::DBEngine engine;
    std::unique_ptr<Bare> bare;
    std::unique_ptr<store::DataSource> datTlac;
};

statreturn::Period period() {
    return statreturn::schoolYearPeriod(QStringLiteral("2006/2007"));
}

qint64 tableOne(Registers& registers, const QDate& today) {
    auto database = registers.engine.OpenDatabase(registers.path(u"tvk.mdb"));
    const auto totals = statreturn::makeTableOne(*registers.datTlac, database, period(), today);
    database.Execute(QStringLiteral("delete * from z_vek"));
    registers.engine.commitPending();
    return totals[0];
}

constexpr const char* inCare = "exists (select 1 from k_zaznam_spc s where s.idkod = k.idkod and "
                               "s.datum >= '2006-09-01' and s.datum < '2007-09-01')";

qint64 byHand(Bare& bare, const QDate& today) {
    const QByteArray age = "min(18, " + QByteArray::number(today.year()) +
                           " - substr(datnar, 1, 4) - ('" + today.toString(u"MM-dd").toUtf8() +
                           "' < substr(datnar, 6)))";
    bare.run("update k_zaklad as k set vek = " + age + " where datnar is not null and vek is not " +
             age + " and " + inCare);
    // A row for each cell of the table; adding some of them up is left to the caller.
    return bare.read("select count(*), vek, substr(postih, 1, 1), "
                     "substr(postih, 2, 1) between '1' and '9', pohlav from k_zaklad k where "
                     "datnar is not null and vek between 0 and 18 and postih >= '1' and " +
                     QByteArray(inCare) + " group by 2, 3, 4, 5");
}

/// @return the median of Table I in milliseconds
double compare(bench::Figures& figures, int clients, int years, int runs) {
    Registers registers(clients, years);
    QDate ours(2007, 9, 3);
    QDate theirs = ours;
    // A year back and forth changes every age, so that each run writes as much as the first.
    const auto turn = [](QDate& day) {
        return day = day.addYears(day.year() == 2007 ? -1 : 1);
    };
    if (tableOne(registers, ours) != byHand(*registers.bare, theirs))
        throw std::runtime_error("both ways must count the same clients");
    const auto name = std::to_string(clients) + " clients, " + std::to_string(10 * clients) +
                      " records in " + std::to_string(years) + " school years";
    return figures.compare(
        name, [&] { tableOne(registers, turn(ours)); },
        [&] { byHand(*registers.bare, turn(theirs)); }, 3.0, runs);
}

} // namespace

int main() {
    bench::Figures figures("Table I without preview, against an update and an aggregate by hand");
    compare(figures, 1000, 5, 7);
    const double small = compare(figures, 10000, 5, 7);
    compare(figures, 10000, 1, 7);
    const double large = compare(figures, 100000, 5, 3);
    figures.ratio("time per client at 100000 clients against 10000", large / 10, small, 1.5);
    return figures.print();
}
