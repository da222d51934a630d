#include "store/SqlFunctions.h"

#include "store/EngineError.h"
#include "store/sql/Functions.h"
#include "store/sql/TextOrder.h"

#include <sqlite3.h>

#include <memory>
#include <string_view>

namespace store {

namespace {

int collate(void* order, int leftSize, const void* left, int rightSize, const void* right) {
    const auto text = [](const void* bytes, int size) {
        return std::string_view(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
    };
    return static_cast<const sql::TextOrder*>(order)->compare(text(left, leftSize),
                                                              text(right, rightSize));
}

void endOrder(void* order) {
    delete static_cast<sql::TextOrder*>(order);
}

void check(sqlite3* connection, int code) {
    if (code != SQLITE_OK)
        throw EngineError(ErrorNumber::Internal,
                          QStringLiteral("Funkcie jazyka SQL sa nedajú pripojiť."),
                          QString::fromUtf8(sqlite3_errmsg(connection)));
}

} // namespace

void registerSqlFunctions(sqlite3* connection) {
    auto order = std::make_unique<sql::TextOrder>();
    sql::TextOrder* const shared = order.get();
    check(connection, sqlite3_create_collation_v2(connection, "TVK", SQLITE_UTF8, order.get(),
                                                  collate, endOrder));
    // From here on the connection owns it; no function outlives the collation.
    static_cast<void>(order.release());
    for (const sql::RuntimeFunction& function : sql::runtimeFunctions())
        check(connection,
              sqlite3_create_function_v2(connection, function.name, function.arguments,
                                         SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                                         shared, function.call, nullptr, nullptr, nullptr));
}

QString textOrderVersion() {
    return sql::TextOrder().version();
}

} // namespace store
