#pragma once

#include "store/Database.h"
#include "store/ProgramFolder.h"

#include <QString>
#include <QTemporaryDir>

#include <initializer_list>
#include <optional>
#include <utility>

namespace support {

/// A register of a test's own, in a folder that ends with it. Empty of rows at first, code-lists
/// included.
struct TemporaryRegister {
    TemporaryRegister() { engine.CreateDatabase(folder.database()); }
    /// One that is made by this instead, given the path of the file.
    template <typename Maker>
    explicit TemporaryRegister(const Maker& make) {
        make(folder.database());
    }

    /// The database, open until letGo().
    store::Database& database() {
        if (!database_)
            database_ = engine.OpenDatabase(folder.database());
        return *database_;
    }
    /// Leaves the file to the program alone.
    void letGo() { database_.reset(); }

    void execute(std::initializer_list<QString> statements) {
        for (const QString& sql : statements)
            database().Execute(sql);
    }
    /// Adds a row with these columns.
    void add(const QString& table,
             std::initializer_list<std::pair<const char16_t*, store::Value>> columns) {
        const auto rows = database().OpenRecordset(table);
        rows->AddNew();
        for (const auto& [column, value] : columns)
            rows->Fields(column).setValue(value);
        rows->Update();
    }
    qint64 count(const QString& source) { return database().OpenRecordset(source)->RecordCount(); }
    /// The text of a column of the first row.
    QString text(const QString& source, const QString& column) {
        return database().OpenRecordset(source)->Fields(column).Value().toText();
    }

    QTemporaryDir directory;
    store::ProgramFolder folder{directory.path()};
    store::DBEngine engine;

  private:
    std::optional<store::Database> database_;
};

} // namespace support
