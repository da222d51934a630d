#include "store/IndexRepair.h"

#include "store/Connection.h"
#include "store/EngineError.h"
#include "store/Maintenance.h"
#include "store/OpenCheck.h"
#include "store/Schema.h"
#include "store/Watch.h"

#include <QFile>
#include <QFileInfo>

namespace store {

namespace {

/// Takes the indexes out of the list of what the file holds, without reading them.
void forgetIndexes(const QString& path) {
    Connection file(path, Connection::Access::ReadWrite);
    sqlite3_db_config(file.handle(), SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
    file.execute("PRAGMA journal_mode=MEMORY; PRAGMA writable_schema=ON;"
                 "DELETE FROM sqlite_schema WHERE type='index' AND sql IS NOT NULL");
}

QStringList allTables() {
    QStringList names{QStringLiteral("sqlite_schema"), QStringLiteral("tvk_queries"),
                      QStringLiteral("tvk_meta")};
    for (const TableDef& table : schema())
        names << QString::fromUtf16(table.name);
    return names;
}

void makeIndexes(const QString& path, const Share& share) {
    Connection file(path, Connection::Access::ReadWrite);
    checkIdentity(file);
    const QStringList tables = allTables();
    const QStringList statements = createIndexes();
    double done = 0;
    Watch(file.handle(), [&] {
        return share.tells(done / static_cast<double>(tables.size() + statements.size()));
    }).run([&] {
        for (const QString& table : tables) {
            checkTable(file, table);
            ++done;
        }
        file.execute("PRAGMA journal_mode=MEMORY; PRAGMA synchronous=OFF");
        for (const QString& statement : statements) {
            file.execute(statement.toUtf8().constData());
            ++done;
        }
    });
}

bool isOfDamage(const EngineError& error) {
    return error.number() == ErrorNumber::UnrecognizedFile ||
           error.number() == ErrorNumber::DuplicateKey || error.number() == ErrorNumber::Internal;
}

} // namespace

std::unique_ptr<IndexRepair> IndexRepair::tryMake(const QString& path, const TellProgress& tell) {
    std::unique_ptr<IndexRepair> repair(new IndexRepair(QFileInfo(path).canonicalFilePath()));
    try {
        repair->make(tell);
        return repair;
    } catch (const EngineError& error) {
        if (!isOfDamage(error))
            throw;
        return nullptr;
    }
}

void IndexRepair::make(const TellProgress& tell) {
    const Share made(tell, 0, 0.6);
    const Share copied(tell, 0.6, 0.7);
    const Share checked(tell, 0.7, 1);
    const QString& path = files_.path();
    checkHeader(path);
    if (!QFile::copy(path, files_.tables()))
        throw EngineError(ErrorNumber::DiskFull,
                          QStringLiteral("Opravená kópia databázy sa nedá zapísať."),
                          files_.tables());
    forgetIndexes(files_.tables());
    makeIndexes(files_.tables(), made);
    vacuumInto(files_.tables(), files_.copy(), [&](double part) { return copied.tells(part); });
    verifyDatabase(files_.copy(), [&](double part) { return checked.tells(part); });
    if (!takeOwnerOf(path, files_.copy()))
        throw EngineError(ErrorNumber::ReadOnly,
                          QStringLiteral("Register patrí inému používateľovi, opraviť ho môže "
                                         "len on."),
                          path);
}

void IndexRepair::putInPlace() {
    replaceFile(files_.copy(), files_.path());
}

} // namespace store
