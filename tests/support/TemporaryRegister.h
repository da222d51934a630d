#pragma once

#include "store/Database.h"
#include "store/ProgramFolder.h"

#include <QString>
#include <QTemporaryDir>

#include <initializer_list>

namespace support {

/// A register of a test's own, in a folder that ends with it. Empty of rows at first, code-lists
/// included.
struct TemporaryRegister {
    TemporaryRegister() { engine.CreateDatabase(folder.database()); }

    void execute(std::initializer_list<QString> statements) {
        auto database = engine.OpenDatabase(folder.database());
        for (const QString& sql : statements)
            database.Execute(sql);
    }
    qint64 count(const QString& source) {
        return engine.OpenDatabase(folder.database()).OpenRecordset(source)->RecordCount();
    }
    /// The text of a column of the first row.
    QString text(const QString& source, const QString& column) {
        return engine.OpenDatabase(folder.database())
            .OpenRecordset(source)
            ->Fields(column)
            .Value()
            .toText();
    }

    QTemporaryDir directory;
    store::ProgramFolder folder{directory.path()};
    store::DBEngine engine;
};

} // namespace support
