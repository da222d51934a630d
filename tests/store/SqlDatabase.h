#pragma once

#include "store/EngineAssertions.h"
#include "store/Schema.h"
#include "store/Sql.h"
#include "store/SqlFunctions.h"

#include <QString>
#include <QStringList>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <map>
#include <memory>
#include <ostream>
#include <stdexcept>

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << text.toStdString();
}

namespace test {

/// An empty register in memory, on bare SQLite.
class SqlDatabase {
  public:
    SqlDatabase() {
        sqlite3* opened = nullptr;
        sqlite3_open(":memory:", &opened);
        connection_.reset(opened);
        store::registerSqlFunctions(opened);
        for (const QString& statement : store::createStatements())
            raw(statement);
    }

    /// Runs SQLite's SQL. A row becomes one text, its values parted by "|", Null as "<Null>".
    /// @throws std::runtime_error with SQLite's message
    QStringList raw(const QString& sql, const QList<qint64>& parameters = {}) {
        sqlite3_stmt* prepared = nullptr;
        check(sqlite3_prepare_v2(connection_.get(), sql.toUtf8().constData(), -1, &prepared,
                                 nullptr));
        const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(prepared,
                                                                              sqlite3_finalize);
        for (int i = 0; i < parameters.size(); ++i)
            check(parameters[i] == 0 ? SQLITE_OK
                                     : sqlite3_bind_int64(prepared, i + 1, parameters[i]));
        QStringList rows;
        int code = sqlite3_step(prepared);
        for (; code == SQLITE_ROW; code = sqlite3_step(prepared))
            rows << row(prepared);
        check(code == SQLITE_DONE ? SQLITE_OK : code);
        return rows;
    }

    QStringList select(const QString& sql) { return raw(plan(sql).rows); }
    void execute(const QString& sql) { raw(store::translateAction(sql, lookup())); }
    store::SelectPlan plan(const QString& sql) { return store::translateSelect(sql, lookup()); }

    store::QueryLookup lookup() const {
        return [this](QStringView name) -> std::optional<QString> {
            const auto found = stored.find(name.toString().toCaseFolded());
            return found == stored.end() ? std::nullopt : std::optional(found->second);
        };
    }

    /// Stored queries by their case-folded names.
    std::map<QString, QString> stored;

  private:
    struct Close {
        void operator()(sqlite3* connection) const { sqlite3_close(connection); }
    };

    void check(int code) const {
        if (code != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(connection_.get()));
    }

    static QString row(sqlite3_stmt* statement) {
        QStringList values;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            const auto* bytes = sqlite3_column_text(statement, i);
            values << (bytes ? QString::fromUtf8(reinterpret_cast<const char*>(bytes))
                             : QStringLiteral("<Null>"));
        }
        return values.join(u'|');
    }

    std::unique_ptr<sqlite3, Close> connection_;
};

} // namespace test
