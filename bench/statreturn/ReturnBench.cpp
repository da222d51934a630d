/// Tables I to III without their previews against the best statements that we could write by hand
/// for SQLite alone, on the same rows; and what the whole return as PDF takes beyond them.

#include "common/Figures.h"
#include "report/Print.h"
#include "statreturn/ReturnPrints.h"
#include "statreturn/TableOne.h"
#include "statreturn/TableThree.h"
#include "statreturn/TableTwo.h"
#include "store/DataSource.h"
#include "store/Database.h"
#include "store/Schema.h"
#include "store/SqlFunctions.h"

#include <QBuffer>
#include <QDate>
#include <QFile>
#include <QGuiApplication>
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
/// 17, so that each run a year later stamps every client anew. Two placements a client, the first
/// of them closed; an employee for every ten clients.
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
           "with recursive n(i) as (select 0 union all select i + 1 from n where i < 2 * %1 - 1) "
           "insert into k_zariad(idkod, akronym, nazzar, vzar_do) "
           "select KEY, 'VYCH', printf('%%02d', 1 + i %% 15), iif(i < %1, '2005-06-30', null) from "
           "n;"
           "with recursive n(i) as (select 0 union all select i + 1 from n where i < %1 / 10 - 1) "
           "insert into zamestnanci(idkod, prac_zar, \"int-ext\", pohlavie, kvalifikacia) "
           "select KEY, 1 + i %% 8, iif(i %% 3, 'i', 'e'), iif(i %% 5, 'z', 'm'), "
           "iif(i %% 2, 'a', 'n') from n;"
           "with recursive n(i) as (select 1 union all select i + 1 from n where i < 15) "
           "insert into c_zariad(kod, akronym, v_nazov) select printf('%%02d', i), 'VYCH', 'Škola' "
           "from n;"
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
        for (auto* source : {&datTlac, &datCisVzd}) {
            *source = std::make_unique<store::DataSource>(engine);
            (*source)->setDatabaseName(path(u"tvk.mdb"));
        }
    }

    QString path(QStringView name) const { return directory.filePath(name.toString()); }

    QTemporaryDir directory;
    store::DBEngine engine;
    std::unique_ptr<Bare> bare;
    std::unique_ptr<store::DataSource> datTlac;
    std::unique_ptr<store::DataSource> datCisVzd;
};

statreturn::Period period() {
    return statreturn::schoolYearPeriod(QStringLiteral("2006/2007"));
}

/// Makes a table and empties it again, each made durable, as around its preview.
template <class MakeTable>
qint64 printed(Registers& registers, const char16_t* scratchTable, const MakeTable& make) {
    auto database = registers.engine.OpenDatabase(registers.path(u"tvk.mdb"));
    const qint64 counted = make(database);
    registers.engine.commitPending();
    database.Execute(u"delete * from "_s + QString::fromUtf16(scratchTable));
    registers.engine.commitPending();
    return counted;
}

qint64 tableOne(Registers& registers, const QDate& today) {
    return printed(registers, u"z_vek", [&](store::Database& database) {
        return statreturn::makeTableOne(*registers.datTlac, database, period(), today)[0];
    });
}

qint64 tableTwo(Registers& registers) {
    return printed(registers, u"z_vzdelavanie", [&](store::Database& database) {
        return statreturn::makeTableTwo(*registers.datCisVzd, *registers.datTlac, database,
                                        u"2006/2007"_s)[0];
    });
}

qint64 tableThree(Registers& registers) {
    return printed(registers, u"z_zam", [&](store::Database& database) {
        statreturn::makeTableThree(*registers.datTlac, database);
        return 0;
    });
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

constexpr const char* tableTwoByHand =
    "select count(*), nazzar, substr(postih, 1, 1), length(trim(postih)) <> 1, pohlav "
    "from k_zariad z join k_zaklad k on k.idkod = z.idkod "
    "where akronym = 'VYCH' and date(vzar_do) is null and postih >= '1' and ";

constexpr const char* tableThreeByHand =
    "insert into z_zam(fcia, i_spolu, i_zeny, i_kval, e_spolu, e_zeny, e_kval) "
    "select prac_zar, sum(i), sum(i and z), sum(i and a), sum(not i), sum(not i and z), "
    "sum(not i and a) from (select prac_zar, \"int-ext\" = 'i' i, pohlavie = 'z' z, "
    "kvalifikacia = 'a' a from zamestnanci) group by prac_zar";

/// Times Tables II and III. @return the least of ours
std::pair<bench::Times, bench::Times> compareTables(bench::Figures& figures, int clients,
                                                    int runs) {
    Registers registers(clients, 5);
    const QByteArray two = tableTwoByHand + QByteArray(inCare) + " group by 2, 3, 4, 5";
    if (tableTwo(registers) != registers.bare->read(two))
        throw std::runtime_error("both ways must count the same clients");
    const auto name = [clients](const char* table, int size, const char* what) {
        return table + std::to_string(size) + what;
    };
    const bench::Times second = figures.compare(
        name("Table II, ", clients, " clients"), [&] { tableTwo(registers); },
        [&] { registers.bare->read(two); }, 2.0, runs);
    const bench::Times third = figures.compare(
        name("Table III, ", clients / 10, " employees"), [&] { tableThree(registers); },
        [&] {
            registers.bare->run(tableThreeByHand);
            registers.bare->run("delete from z_zam");
        },
        2.0, runs);
    return {second, third};
}

/// @return the least of Table I
bench::Times compare(bench::Figures& figures, int clients, int years, int runs) {
    Registers registers(clients, years);
    QDate ours(2007, 9, 3);
    QDate theirs = ours;
    // A year back and forth changes every age, so that each run writes as much as the first.
    const auto turn = [](QDate& day) {
        return day = day.addYears(day.year() == 2007 ? -1 : 1);
    };
    if (tableOne(registers, ours) != byHand(*registers.bare, theirs))
        throw std::runtime_error("both ways must count the same clients");
    const auto name = "Table I, " + std::to_string(clients) + " clients, " +
                      std::to_string(10 * clients) + " records in " + std::to_string(years) +
                      " school years";
    return figures.compare(
        name, [&] { tableOne(registers, turn(ours)); },
        [&] { byHand(*registers.bare, turn(theirs)); }, 3.0, runs);
}

/// Makes the whole return and writes it as PDF.
void wholeReturn(Registers& registers, const QDate& today) {
    const auto writePdf = [](const report::Pages& pages, QWidget*) {
        QBuffer file;
        file.open(QIODevice::WriteOnly);
        if (pages.pages.size() != 5 || !report::writePdf(pages, file))
            throw std::runtime_error("no return came");
    };
    const statreturn::ReturnTools tools{
        {registers.engine, store::ProgramFolder(registers.directory.path()), writePdf},
        *registers.datTlac,
        *registers.datCisVzd};
    statreturn::printReturn(tools, u"2006/2007"_s, today, nullptr);
}

/// Times the whole return against the making of its tables alone.
void compareWhole(bench::Figures& figures, int clients) {
    Registers registers(clients, 5);
    QDate day(2007, 9, 3);
    // A year back and forth changes every age.
    const auto turn = [&day] {
        return day = day.addYears(day.year() == 2007 ? -1 : 1);
    };
    figures.compare(
        "whole return as PDF, " + std::to_string(clients) + " clients, against its tables alone",
        [&] { wholeReturn(registers, turn()); },
        [&] {
            tableOne(registers, turn());
            tableTwo(registers);
            tableThree(registers);
        },
        1.5, 7);
}

} // namespace

int main(int argc, char** argv) {
    bench::needNoDisplay();
    // The pages take their measures from its fonts.
    const QGuiApplication application(argc, argv);
    bench::Figures figures("Tables of the return without preview, against statements by hand");
    compare(figures, 1000, 5, 7);
    const bench::Times small = compare(figures, 10000, 5, 7);
    compare(figures, 10000, 1, 7);
    const bench::Times large = compare(figures, 100000, 5, 3);
    figures.ratio("Table I, a client of 100000 against one of 10000", large.over(10), small, 1.5);
    const auto [smallTwo, smallThree] = compareTables(figures, 10000, 7);
    const auto [largeTwo, largeThree] = compareTables(figures, 100000, 3);
    figures.ratio("Table II, a client of 100000 against one of 10000", largeTwo.over(10), smallTwo,
                  1.5);
    figures.ratio("Table III, an employee of 10000 against one of 1000", largeThree.over(10),
                  smallThree, 1.5);
    compareWhole(figures, 10000);
    return figures.print();
}
