/// The list of clients and a long text as pages and as PDF: what a client more costs, and what the
/// rows cost against the same statement by hand for SQLite alone.

#include "common/Figures.h"
#include "printouts/CardPrints.h"
#include "printouts/Statements.h"
#include "report/Print.h"
#include "store/Database.h"
#include "store/ReportConnection.h"
#include "store/SqlFunctions.h"

#include <QApplication>
#include <QBuffer>
#include <QDate>
#include <QFile>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <cstdio>
#include <stdexcept>

namespace {

using namespace Qt::StringLiterals;

constexpr qint64 longText = 1 << 20;

const char* const columns[] = {"meno",   "priezv", "rodcis", "katcis",
                               "datnar", "ulica",  "obec",   "psc"};

QByteArray rowsOf(int clients) {
    return u"begin;"
           "with recursive n(i) as (select 0 union all select i + 1 from n where i < %1 - 1) "
           "insert into k_zaklad(idkod, Meno, Priezv, katcis, rodcis, datnar, ulica, obec, psc) "
           "select printf('K%07d', i), char(65 + i * 7 % 26) || 'atarína', char(65 + i % 26) || "
           "char(97 + i / 26 % 26) || 'vorská', i, printf('%010d', 610101000 + i), "
           "printf('%04d-%02d-%02d', 1991 + i % 16, 1 + i % 12, 1 + i % 28), 'Dlhá ulica 17', "
           "'Bratislava-Staré Mesto', '81101' from n;"
           "insert into k_memo(idkod, poznamky) select 'K0000000', '<p>' || "
           "replace(hex(zeroblob(%2)), '00', 'Slovo a druhé. ') || '</p>';"
           "commit;"_s.replace(u"%1"_s, QString::number(clients))
               .replace(u"%2"_s, QString::number(longText / 15))
               .toUtf8();
}

void run(sqlite3* file, const QByteArray& sql) {
    if (sqlite3_exec(file, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(file));
}

class Register {
  public:
    explicit Register(int clients) {
        engine.CreateDatabase(folder.database());
        sqlite3_open(folder.database().toUtf8().constData(), &bare_);
        store::registerSqlFunctions(bare_);
        run(bare_, rowsOf(clients));
    }
    ~Register() { sqlite3_close(bare_); }
    Register(const Register&) = delete;
    Register& operator=(const Register&) = delete;

    /// Reads all cells of the list as the report does.
    void walk() {
        store::ReportConnection connection(engine, folder.database());
        store::ReportRows rows = connection.open(printouts::allClients());
        while (rows.next()) {
            for (const char* column : columns)
                read_ += rows.text(QString::fromLatin1(column)).size();
        }
    }

    /// The same for SQLite alone: in a connection of its own, each cell a text of the program.
    void walkBare() {
        sqlite3* file = nullptr;
        sqlite3_open(folder.database().toUtf8().constData(), &file);
        store::registerSqlFunctions(file);
        sqlite3_stmt* rows = nullptr;
        sqlite3_prepare_v2(file,
                           "select meno, priezv, rodcis, katcis, datnar, ulica, obec, psc from "
                           "k_zaklad order by priezv || meno collate TVK",
                           -1, &rows, nullptr);
        while (sqlite3_step(rows) == SQLITE_ROW) {
            for (int column = 0; column < 8; ++column)
                read_ += QString::fromUtf8(
                             reinterpret_cast<const char*>(sqlite3_column_text(rows, column)),
                             sqlite3_column_bytes(rows, column))
                             .size();
        }
        sqlite3_finalize(rows);
        sqlite3_close(file);
    }

    /// Makes the list as far as its preview does at once.
    report::Pages list() {
        report::Pages pages;
        printouts::printClientList(toolsFor(pages), today, nullptr);
        return pages;
    }
    report::Pages text() {
        report::Pages pages;
        printouts::printTab(toolsFor(pages), 7, {u"K0000000"_s, {}, false}, today, nullptr);
        return pages;
    }

    QTemporaryDir directory;
    store::ProgramFolder folder{directory.path()};
    store::DBEngine engine;

  private:
    printing::PrintTools toolsFor(report::Pages& pages) {
        return {engine, folder, [&pages](const report::Pages& shown, QWidget*) {
                    shown.pages.make(0);
                    pages = shown;
                }};
    }

    const QDate today{2026, 11, 23};
    sqlite3* bare_ = nullptr;
    qint64 read_ = 0;
};

void writePdf(const report::Pages& pages) {
    QFile file(u"/dev/null"_s);
    if (!file.open(QIODevice::WriteOnly) || !report::writePdf(pages, file))
        throw std::runtime_error("no PDF");
}

/// The most memory that the process has taken so far, in MB.
double mostMemory() {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray all = status.readAll();
    return all.mid(all.indexOf("VmHWM:") + 6, 20).trimmed().split(' ').first().toDouble() / 1024;
}

} // namespace

int main(int argc, char** argv) {
    bench::needNoDisplay();
    const QApplication application(argc, argv);
    bench::Figures figures("Print-outs: the list of clients, and a text of 1 MB");
    Register small(10000);
    const auto pdf = [](Register& from) {
        return bench::least([&from] { writePdf(from.list()); }, 3);
    };
    const bench::Times ten = pdf(small);
    Register large(100000);
    const double before = mostMemory();
    const bench::Times hundred = pdf(large);
    std::printf("list as PDF: 10,000 clients %.0f ms (processor %.0f), 100,000 clients %.0f ms "
                "(%.0f); most memory before %.0f MB, then %.0f MB\n",
                ten.wall, ten.processor, hundred.wall, hundred.processor, before, mostMemory());
    figures.ratio("list as PDF, a client of 100000 against one of 10000", hundred.over(10), ten,
                  1.5);
    const bench::Times first = bench::least([&large] { large.list(); }, 3);
    figures.ratio("first page of the list of 100000 / the whole list as PDF", first, hundred, 0.2);
    figures.compare(
        "rows of the list of 100000 / the same by hand", [&large] { large.walk(); },
        [&large] { large.walkBare(); }, 2.0, 5);
    const bench::Times page = bench::least([&small] { small.text(); }, 3);
    const bench::Times text = bench::least([&small] { writePdf(small.text()); }, 3);
    std::printf("text of 1 MB: first page %.0f ms (processor %.0f), PDF %.0f ms (%.0f)\n",
                page.wall, page.processor, text.wall, text.processor);
    figures.ratio("first page of a text of 1 MB / the whole text as PDF", page, text, 0.5);
    return figures.print();
}
