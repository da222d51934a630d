// A register's file with bytes changed and its end cut off, or any bytes at all: opening it works
// or is refused with an EngineError; a refused file stays as it is and alone, and an opened one can
// be read and written to its end.
//
// The input: two bytes of length to keep, in 128ths of a page, 0 for all; then patches of five
// bytes: page, offset in it (two bytes, the first with a flag for "a run of 16"), value, and a
// value that the byte is mixed with.

#include "store/Database.h"
#include "store/EngineError.h"
#include "store/FileBytes.h"
#include "store/Schema.h"

#include <QTemporaryDir>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <span>

using namespace store;

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr qsizetype pageSize = 4096;

QByteArray wholeRegister() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("tvk.mdb"));
    DBEngine engine;
    engine.CreateDatabase(path);
    auto database = engine.OpenDatabase(path);
    for (int row = 0; row < 20; ++row)
        database.Execute(
            QStringLiteral("insert into k_zaklad (idkod,meno,priezv) values ('K%1','Ján','Čapek')")
                .arg(row));
    database.Close();
    return files::read(path);
}

void patch(QByteArray& file, Bytes five) {
    const qsizetype offset = five[0] * pageSize + (five[1] & 0x0f) * 256 + five[2];
    const qsizetype length = (five[1] & 0x80) != 0 ? 16 : 1;
    for (qsizetype at = offset; at < std::min(offset + length, file.size()); ++at)
        file[at] = static_cast<char>(five[4] == 0 ? five[3] : file[at] ^ five[4]);
}

QByteArray damaged(const QByteArray& whole, Bytes input) {
    QByteArray file = whole;
    for (Bytes rest = input.subspan(2); rest.size() >= 5; rest = rest.subspan(5))
        patch(file, rest.first(5));
    const qsizetype kept = (input[0] * 256 + input[1]) * (pageSize / 128);
    return kept == 0 || kept > file.size() ? file : file.first(kept);
}

/// @return false when the engine refused
bool endsWell(const std::function<void()>& action) {
    try {
        action();
        return true;
    } catch (const EngineError& error) {
        if (error.description().isEmpty())
            std::abort();
        return false;
    }
}

void readTable(Database& database, const QString& name) {
    const auto rows = database.OpenRecordset(name);
    for (; !rows->Eof(); rows->MoveNext())
        for (const OutputColumn& column : rows->columns())
            static_cast<void>(rows->Fields(column.name).Value().toText());
}

void use(DBEngine& engine, Database& database) {
    for (const TableDef& table : schema())
        endsWell([&] { readTable(database, QString::fromUtf16(table.name)); });
    endsWell([&] {
        database.OpenRecordset(QStringLiteral("k_zaklad"))->FindFirst(QStringLiteral("idkod='K7'"));
    });
    endsWell([&] { database.Execute(QStringLiteral("delete from k_zaklad where idkod='K3'")); });
    endsWell([&] { engine.commitPending(); });
}

void open(const QString& folder, const QByteArray& bytes) {
    const QString path = folder + QStringLiteral("/tvk.mdb");
    files::write(path, bytes);
    DBEngine engine;
    const bool opened = endsWell([&] {
        Database database = engine.OpenDatabase(path);
        use(engine, database);
    });
    if (!opened && files::read(path) != bytes)
        std::abort();
    if (files::namesIn(folder).size() != 1)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QTemporaryDir folder;
    static const QByteArray whole = wholeRegister();
    const Bytes input(data, size);
    if (size >= 2)
        open(folder.path(), damaged(whole, input));
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
    open(folder.path(),
         QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
