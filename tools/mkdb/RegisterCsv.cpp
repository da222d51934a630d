#include "RegisterCsv.h"

#include "Csv.h"
#include "store/BulkInsert.h"
#include "store/Schema.h"
#include "store/Value.h"

#include <QDateTime>
#include <QDir>

namespace mkdb {

namespace {

/// A text that is no date of the form stays as it was typed.
store::Value dateOf(const QString& text) {
    for (const auto* form : {u"yyyy-MM-dd", u"yyyy-MM-dd hh:mm:ss"}) {
        const QDateTime date = QDateTime::fromString(text, QStringView(form));
        if (date.isValid())
            return store::DateTime{date.date(), date.time()};
    }
    return text;
}

store::Value valueOf(const QString& text, store::ColumnType type) {
    if (text.isNull())
        return {};
    if (type == store::ColumnType::Date)
        return dateOf(text);
    return text;
}

void importTable(store::Database& database, const store::TableDef& table, const QString& folder) {
    const QString name = QString::fromUtf16(table.name);
    const CsvTable csv = readCsv(QDir(folder).filePath(name + QStringLiteral(".csv")));
    std::vector<const char16_t*> columns;
    std::vector<int> sources;
    for (const store::ColumnDef& column : table.columns) {
        columns.push_back(column.name);
        sources.push_back(csv.column(QString::fromUtf16(column.name)));
    }
    store::BulkInsert insert(database, name, columns);
    std::vector<store::Value> values(columns.size());
    for (const QStringList& row : csv.rows) {
        for (std::size_t index = 0; index < columns.size(); ++index)
            values[index] = valueOf(row[sources[index]], table.columns[index].type);
        insert.add(values);
    }
}

} // namespace

void importCsv(store::Database& database, const QString& folder) {
    for (const store::TableDef& table : store::schema())
        importTable(database, table, folder);
}

} // namespace mkdb
