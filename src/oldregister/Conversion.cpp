#include "oldregister/Conversion.h"

#include "oldregister/FileKind.h"
#include "oldregister/Loose.h"
#include "oldregister/OldReader.h"
#include "oldregister/Protection.h"
#include "oldregister/TableWriter.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Files.h"
#include "store/Schema.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <numeric>

namespace oldregister {

namespace {

using store::EngineError;
using store::ErrorNumber;
using store::TellProgress;

constexpr QStringView clientTable = u"k_zaklad";
constexpr int tellEveryMs = 50;

/// The new register while it is made; goes away again unless it was finished.
class BegunRegister {
  public:
    explicit BegunRegister(const QString& name)
        : name_(name), path_(name + QStringLiteral(".prevod")) {
        if (QFileInfo::exists(name) || QFileInfo(name).isSymLink())
            throw EngineError(ErrorNumber::TargetExists,
                              QStringLiteral("Cieľový súbor už existuje."), name);
        remove();
        engine_.CreateDatabase(path_);
        database_ = engine_.OpenDatabase(path_);
    }
    ~BegunRegister() {
        database_.reset();
        remove();
    }
    Q_DISABLE_COPY_MOVE(BegunRegister)

    store::Database& database() { return *database_; }
    void finish() {
        database_->Close();
        database_.reset();
        store::DBEngine::verifyDatabase(path_);
        store::moveToFreeName(path_, name_);
    }

  private:
    void remove() const {
        QFile::remove(path_);
        QFile::remove(path_ + QStringLiteral("-journal"));
    }

    QString name_;
    QString path_;
    store::DBEngine engine_;
    std::optional<store::Database> database_;
};

/// Tells the progress at once and then now and then.
class Teller {
  public:
    explicit Teller(const TellProgress& tell) : tell_(tell) { sinceTold_.start(); }

    /// @param total 0 when the file doesn't tell
    void begin(qint64 total) {
        total_ = total;
        tell();
    }
    void step() {
        ++done_;
        if (sinceTold_.hasExpired(tellEveryMs))
            tell();
    }
    bool goOn() {
        sinceTold_.restart();
        const auto done = static_cast<double>(std::min(done_, total_));
        return !tell_ || tell_(total_ > 0 ? done / static_cast<double>(total_) : 0);
    }

  private:
    void tell() {
        if (!goOn())
            throw store::GivenUp();
    }

    const TellProgress& tell_;
    qint64 done_ = 0;
    qint64 total_ = 0;
    QElapsedTimer sinceTold_;
};

bool hasName(QStringView wanted, const QString& name) {
    return name.compare(wanted, Qt::CaseInsensitive) == 0;
}

bool lists(const TableList& list, QStringView wanted) {
    return std::ranges::any_of(list.tables,
                               [&](const OldTable& table) { return hasName(wanted, table.name); });
}

bool listsUnreadable(const TableList& list, QStringView wanted) {
    return std::ranges::any_of(list.unreadable,
                               [&](const QString& name) { return hasName(wanted, name); });
}

void requireRegister(const TableList& list, const QString& path) {
    if (lists(list, clientTable))
        return;
    throw EngineError(
        ErrorNumber::UnrecognizedFile,
        listsUnreadable(list, clientTable)
            ? QStringLiteral("Súbor je poškodený: tabuľka klientov sa nedá prečítať.")
            : QStringLiteral("Súbor je databáza iného programu: nie je v ňom tabuľka klientov "
                             "(%1).")
                  .arg(clientTable),
        path);
}

qint64 rowsOf(const TableList& list) {
    return std::accumulate(list.tables.begin(), list.tables.end(), qint64{0},
                           [](qint64 sum, const OldTable& table) { return sum + table.rows; });
}

class Converter {
  public:
    Converter(const QString& oldFile, store::Database& database, const TellProgress& progress)
        : database_(database), teller_(progress),
          reader_(oldFile, [this] { return teller_.goOn(); }) {
        report_.oldFile = oldFile;
        report_.protection = protectionOf(oldFile);
    }

    ConversionReport run() {
        while (!isAtEnd_)
            std::visit([this](auto&& message) { take(message); }, reader_.next());
        for (auto& writer : writers_)
            finish(*writer);
        mendLoose(database_, report_.findings);
        nameClients(database_, report_.findings);
        return std::move(report_);
    }

  private:
    void tell(const QString& table, const QString& what) {
        report_.findings.push_back({{}, table, what, {}});
    }

    void take(const TableList& list) {
        requireRegister(list, report_.oldFile);
        for (const OldTable& table : list.tables)
            writers_.push_back(std::make_unique<TableWriter>(database_, table, report_.findings));
        teller_.begin(rowsOf(list));
        tellTables(list);
    }
    void take(const OldRow& row) {
        writer(row.table).add(row.values);
        teller_.step();
    }
    void take(const BrokenPage& page) {
        const QString what =
            page.lostRows > 0
                ? QStringLiteral("na strane %1 súboru sa nedajú prečítať riadky, počet: %2")
                      .arg(page.page)
                      .arg(page.lostRows)
                : QStringLiteral("strana %1 súboru je poškodená, jej riadky chýbajú")
                      .arg(page.page);
        tell(writer(page.table).count().table, what);
    }
    void take(const Refusal& /*refusal*/) {}
    void take(const EndOfFile& /*end*/) { isAtEnd_ = true; }

    TableWriter& writer(quint32 table) {
        if (table >= writers_.size())
            throw EngineError(ErrorNumber::UnrecognizedFile, QStringLiteral("Súbor je poškodený."),
                              report_.oldFile);
        return *writers_[table];
    }

    void tellTables(const TableList& list) {
        for (const QString& name : list.unreadable)
            tell(name, QStringLiteral("opis tabuľky je poškodený, jej riadky sa nepreniesli"));
        for (const QString& name : list.foreign)
            tell(name, QStringLiteral("tabuľku register nepozná, nepreniesla sa"));
        for (const store::TableDef& table : store::schema())
            if (!lists(list, table.name) && !listsUnreadable(list, table.name))
                tell(QString::fromUtf16(table.name),
                     QStringLiteral("tabuľka v pôvodnom súbore nie je, ostala prázdna"));
    }

    void finish(TableWriter& writer) {
        writer.finish();
        const TableCount& count = writer.count();
        if (count.told > count.read)
            tell(count.table, QStringLiteral("súbor hovorí o %1 riadkoch, čitateľných je %2")
                                  .arg(count.told)
                                  .arg(count.read));
        report_.tables.push_back(count);
    }

    store::Database& database_;
    Teller teller_;
    OldReader reader_;
    ConversionReport report_;
    std::vector<std::unique_ptr<TableWriter>> writers_;
    bool isAtEnd_ = false;
};

void requireOldRegister(const QString& path) {
    const FileKind kind = kindOf(path);
    if (kind == FileKind::OldRegister)
        return;
    throw EngineError(kind == FileKind::Missing ? ErrorNumber::FileNotFound
                                                : ErrorNumber::UnrecognizedFile,
                      refusalOf(kind), path);
}

} // namespace

void readThrough(const QString& path, const TellProgress& progress) {
    requireOldRegister(path);
    Teller teller(progress);
    OldReader reader(path, [&teller] { return teller.goOn(); });
    for (Message message = reader.next(); !std::holds_alternative<EndOfFile>(message);
         message = reader.next()) {
        if (const auto* list = std::get_if<TableList>(&message)) {
            requireRegister(*list, path);
            teller.begin(rowsOf(*list));
        } else {
            teller.step();
        }
    }
}

ConversionReport convert(const QString& oldFile, const QString& newFile,
                         const TellProgress& progress) {
    requireOldRegister(oldFile);
    BegunRegister begun(newFile);
    ConversionReport report = Converter(oldFile, begun.database(), progress).run();
    begun.finish();
    return report;
}

} // namespace oldregister
