#include "BareFile.h"

#include "store/SqlFunctions.h"

#include <cstdio>
#include <cstdlib>

namespace bench {

namespace {

void require(int code, int wanted, sqlite3* database) {
    if (code == wanted)
        return;
    std::fprintf(stderr, "SQLite: %s\n", sqlite3_errmsg(database));
    std::abort();
}

} // namespace

BareFile::BareFile(const QString& path) {
    sqlite3* database = nullptr;
    const int code =
        sqlite3_open_v2(qUtf8Printable(path), &database, SQLITE_OPEN_READWRITE, nullptr);
    database_.reset(database);
    require(code, SQLITE_OK, database);
    store::registerSqlFunctions(database);
    // As much room as the engine takes.
    sqlite3_exec(database, "PRAGMA temp_store=MEMORY; PRAGMA cache_size=-65536", nullptr, nullptr,
                 nullptr);
}

BareQuery::BareQuery(const BareFile& file, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    require(sqlite3_prepare_v2(file.handle(), sql, -1, &statement, nullptr), SQLITE_OK,
            file.handle());
    statement_.reset(statement);
}

void BareQuery::bind(int parameter, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    sqlite3_bind_text(statement_.get(), parameter, bytes.constData(),
                      static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
}

void BareQuery::bind(int parameter, qint64 number) {
    sqlite3_bind_int64(statement_.get(), parameter, number);
}

bool BareQuery::step() {
    const int code = sqlite3_step(statement_.get());
    if (code != SQLITE_ROW)
        require(code, SQLITE_DONE, sqlite3_db_handle(statement_.get()));
    return code == SQLITE_ROW;
}

QString BareQuery::text(int column) const {
    const unsigned char* bytes = sqlite3_column_text(statement_.get(), column);
    return QString::fromUtf8(reinterpret_cast<const char*>(bytes),
                             sqlite3_column_bytes(statement_.get(), column));
}

qsizetype BareQuery::readRow() const {
    qsizetype characters = 0;
    for (int column = 0; column < sqlite3_column_count(statement_.get()); ++column)
        characters += text(column).size();
    return characters;
}

} // namespace bench
