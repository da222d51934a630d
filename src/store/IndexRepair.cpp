#include "store/IndexRepair.h"

#include "store/Connection.h"
#include "store/EngineError.h"
#include "store/Files.h"
#include "store/Maintenance.h"
#include "store/OpenCheck.h"
#include "store/Schema.h"

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

void makeIndexes(const QString& path) {
    Connection file(path, Connection::Access::ReadWrite);
    checkIdentity(file);
    for (const QString& table : allTables())
        checkTable(file, table);
    file.execute("PRAGMA journal_mode=MEMORY; PRAGMA synchronous=OFF");
    for (const QString& statement : createIndexes())
        file.execute(statement.toUtf8().constData());
}

bool isOfDamage(const EngineError& error) {
    return error.number() == ErrorNumber::UnrecognizedFile ||
           error.number() == ErrorNumber::DuplicateKey || error.number() == ErrorNumber::Internal;
}

} // namespace

std::unique_ptr<IndexRepair> IndexRepair::tryMake(const QString& path) {
    std::unique_ptr<IndexRepair> repair(new IndexRepair(QFileInfo(path).canonicalFilePath()));
    try {
        repair->make();
        return repair;
    } catch (const EngineError& error) {
        if (!isOfDamage(error))
            throw;
        return nullptr;
    }
}

IndexRepair::IndexRepair(const QString& path)
    : path_(path), tables_(path + QStringLiteral(".tabulky")),
      copy_(path + QStringLiteral(".oprava")) {
    removeFiles();
}

IndexRepair::~IndexRepair() {
    removeFiles();
}

void IndexRepair::removeFiles() {
    QFile::remove(tables_);
    QFile::remove(copy_);
}

void IndexRepair::make() {
    checkHeader(path_);
    if (!QFile::copy(path_, tables_))
        throw EngineError(ErrorNumber::DiskFull,
                          QStringLiteral("Opravená kópia databázy sa nedá zapísať."), tables_);
    forgetIndexes(tables_);
    makeIndexes(tables_);
    vacuumInto(tables_, copy_);
    verifyDatabase(copy_);
    takeOwnerOf(path_, copy_);
}

void IndexRepair::putInPlace() {
    replaceFile(copy_, path_);
}

} // namespace store
