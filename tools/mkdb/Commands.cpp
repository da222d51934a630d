#include "Commands.h"

#include "DatabaseSink.h"
#include "RegisterCsv.h"
#include "oldregister/Conversion.h"
#include "oldregister/CsvExport.h"
#include "oldregister/TakeOver.h"
#include "store/EngineError.h"

#include <QFile>

#include <functional>

namespace mkdb {

namespace {

using Filler = std::function<void(RowSink&)>;
using Maker = std::function<void(store::Database&)>;

/// A file that is being made; goes away again unless it was finished.
class BegunFile {
  public:
    explicit BegunFile(QString path) : path_(std::move(path)) { QFile::remove(path_); }
    ~BegunFile() { QFile::remove(path_); }
    BegunFile(const BegunFile&) = delete;
    BegunFile& operator=(const BegunFile&) = delete;

    const QString& path() const { return path_; }
    /// Gives the file its name; a file of that name is left alone.
    void finish(const QString& name) const {
        if (!QFile::rename(path_, name))
            throw store::EngineError(store::ErrorNumber::TargetExists,
                                     QStringLiteral("Súbor sa nedá vytvoriť."), name);
    }

  private:
    QString path_;
};

void refuseExisting(const QString& file) {
    if (QFile::exists(file))
        throw store::EngineError(store::ErrorNumber::TargetExists,
                                 QStringLiteral("Súbor už existuje a neprepíše sa."), file);
}

/// Makes a register aside and gives it its name once it is complete and durable.
void makeFile(const QString& file, const Maker& make) {
    refuseExisting(file);
    const BegunFile begun(file + QStringLiteral(".tvorba"));
    store::DBEngine engine;
    engine.CreateDatabase(begun.path());
    store::Database database = engine.OpenDatabase(begun.path());
    make(database);
    database.Close();
    begun.finish(file);
}

void fillFile(const QString& file, const Filler& fill) {
    makeFile(file, [&](store::Database& database) {
        DatabaseSink sink(database);
        fill(sink);
    });
}

void writeLists(const std::vector<CodeList>& lists, RowSink& sink) {
    for (const CodeList& list : lists)
        list.write(sink);
}

QString makeEmpty(const Arguments& arguments) {
    const auto lists = readCodeLists(arguments.listsFolder);
    fillFile(arguments.file, [&](RowSink& sink) { writeLists(lists, sink); });
    return QStringLiteral("Vytvorená prázdna databáza %1.").arg(arguments.file);
}

QString makeSample(const Arguments& arguments) {
    const auto lists = readCodeLists(arguments.listsFolder);
    const Vocabulary words = readVocabulary(arguments.wordsFolder);
    fillFile(arguments.file, [&](RowSink& sink) {
        writeLists(lists, sink);
        makeRegister(arguments.plan, words, lists, sink);
    });
    return QStringLiteral("Vytvorená ukážková databáza %1, počet klientov: %2.")
        .arg(arguments.file)
        .arg(arguments.plan.clients);
}

QString replaceLists(const Arguments& arguments) {
    const auto lists = readPresentCodeLists(arguments.listsFolder);
    store::DBEngine engine;
    store::Database database = engine.OpenDatabase(arguments.file);
    store::BulkInsert::wholly(database, [&] {
        for (const CodeList& list : lists)
            database.Execute(QStringLiteral("delete * from ") +
                             QString::fromUtf16(list.table->name));
        DatabaseSink sink(database);
        writeLists(lists, sink);
    });
    database.Close();
    return QStringLiteral("Číselníky v databáze %1 sú vymenené, počet: %2.")
        .arg(arguments.file)
        .arg(lists.size());
}

QString takeOver(const Arguments& arguments) {
    const auto report = oldregister::convert(arguments.file, arguments.target);
    return report.text() +
           QStringLiteral("\nVytvorený register %1, správa o prevode %2.")
               .arg(arguments.target, oldregister::writeReport(arguments.target, report));
}

QString exportTables(const Arguments& arguments) {
    store::DBEngine engine;
    store::Database database = engine.OpenDatabase(arguments.file);
    const qint64 rows = oldregister::exportCsv(database, arguments.target);
    return QStringLiteral("Tabuľky registra %1 sú v priečinku %2, počet riadkov: %3.")
        .arg(arguments.file, arguments.target)
        .arg(rows);
}

QString importTables(const Arguments& arguments) {
    makeFile(arguments.target,
             [&](store::Database& database) { importCsv(database, arguments.file); });
    return QStringLiteral("Vytvorený register %1 z tabuliek v priečinku %2.")
        .arg(arguments.target, arguments.file);
}

} // namespace

QString run(const Arguments& arguments) {
    switch (arguments.command) {
    case Command::Empty:
        return makeEmpty(arguments);
    case Command::Sample:
        return makeSample(arguments);
    case Command::ReplaceLists:
        return replaceLists(arguments);
    case Command::TakeOver:
        return takeOver(arguments);
    case Command::Export:
        return exportTables(arguments);
    case Command::Import:
        return importTables(arguments);
    }
    return {};
}

} // namespace mkdb
