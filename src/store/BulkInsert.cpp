#include "store/BulkInsert.h"

#include "store/Connection.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Query.h"
#include "store/Schema.h"
#include "store/StoredValue.h"

#include <QStringList>

namespace store {

namespace {

const TableDef& knownTable(QStringView name) {
    if (const TableDef* table = findTable(name))
        return *table;
    throw EngineError(ErrorNumber::UnknownTable,
                      QStringLiteral("Tabuľka %1 v databáze nie je.").arg(name), name.toString());
}

OutputColumn knownColumn(const TableDef& table, QStringView name) {
    const ColumnDef* column = table.column(name);
    if (column == nullptr)
        throw EngineError(ErrorNumber::UnknownColumn,
                          QStringLiteral("Stĺpec %1 v tabuľke nie je.").arg(name), name.toString());
    OutputColumn output;
    output.name = QString::fromUtf16(column->name);
    output.type = column->type;
    output.width = column->width;
    return output;
}

QString insertStatement(const TableDef& table, const std::vector<OutputColumn>& columns) {
    QStringList names;
    QStringList parameters;
    for (const OutputColumn& column : columns) {
        names.append(u'"' + column.name + u'"');
        parameters.append(QStringLiteral("?"));
    }
    return QStringLiteral("INSERT INTO \"%1\" (%2) VALUES (%3)")
        .arg(QString::fromUtf16(table.name), names.join(u','), parameters.join(u','));
}

} // namespace

BulkInsert::BulkInsert(Database& database, QStringView table,
                       std::span<const char16_t* const> columns)
    : connection_(database.connection_) {
    const TableDef& definition = knownTable(table);
    for (const char16_t* column : columns)
        columns_.push_back(knownColumn(definition, column));
    insert_ = std::make_unique<Query>(connection_->handle(), insertStatement(definition, columns_));
}

BulkInsert::~BulkInsert() = default;
BulkInsert::BulkInsert(BulkInsert&&) noexcept = default;
BulkInsert& BulkInsert::operator=(BulkInsert&&) noexcept = default;

void BulkInsert::add(std::span<const Value> values) {
    for (std::size_t index = 0; index < columns_.size(); ++index)
        insert_->bind(static_cast<int>(index) + 1, toCell(values[index], columns_[index]));
    connection_->writeRow([&] {
        insert_->run();
        return true;
    });
}

void BulkInsert::wholly(Database& database, const std::function<void()>& writes) {
    database.connection_->writeAll([&] {
        writes();
        return true;
    });
}

} // namespace store
