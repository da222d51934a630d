/// What the check of all rows costs for a client more, and against SQLite's own check of the file.

#include "common/Figures.h"
#include "datacheck/Checker.h"
#include "mkdb/DatabaseSink.h"
#include "mkdb/Register.h"
#include "store/ProgramFolder.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <optional>

namespace {

constexpr int small = 10'000;
constexpr int large = 100'000;
constexpr int runs = 3;
/// Of a client in the large register to one in the small.
constexpr double wantedGrowth = 1.4;
constexpr double wantedOfFile = 2.0;

class Register {
  public:
    explicit Register(int clients) {
        const auto lists = mkdb::readCodeLists(QStringLiteral(TVK_DATA_FOLDER "/ciselniky"));
        const auto words = mkdb::readVocabulary(QStringLiteral(TVK_DATA_FOLDER "/ukazka"));
        engine_.CreateDatabase(path());
        database_ = engine_.OpenDatabase(path());
        mkdb::DatabaseSink sink(*database_);
        for (const mkdb::CodeList& list : lists)
            list.write(sink);
        mkdb::makeRegister({clients, 1, QDate(2026, 11, 23)}, words, lists, sink);
        engine_.commitPending();
    }

    void checkRows() {
        datacheck::Checker checker(*database_);
        for (std::size_t step = 0; step < checker.steps(); ++step)
            checker.run(step);
        found_ = checker.take().size();
    }
    void checkFile() const { store::DBEngine::verifyDatabase(path()); }
    std::size_t found() const { return found_; }

  private:
    QString path() const { return folder_.filePath(QStringLiteral("tvk.mdb")); }

    QTemporaryDir folder_;
    store::DBEngine engine_;
    std::optional<store::Database> database_;
    std::size_t found_ = 0;
};

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    Register few(small);
    Register many(large);
    bench::Figures figures("Check of the data");
    const bench::Times ofFew = bench::least([&] { few.checkRows(); }, runs);
    const bench::Times ofMany = figures.compare(
        "rows of 100,000 clients / pages and indexes of their file", [&] { many.checkRows(); },
        [&] { many.checkFile(); }, wantedOfFile, runs);
    figures.ratio("rows of a client: 100,000 / 10,000", ofMany.over(large), ofFew.over(small),
                  wantedGrowth);
    std::printf("%zu and %zu findings\n", few.found(), many.found());
    return figures.print();
}
