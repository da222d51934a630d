#include "oldregister/OldFile.h"

namespace oldregister {

namespace {

template <class Item>
std::span<Item* const> itemsOf(const GPtrArray* array) {
    if (array == nullptr)
        return {};
    // The library's arrays hold pointers without a type.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
    return {reinterpret_cast<Item**>(array->pdata), array->len};
}

OldType typeOf(int type) {
    switch (type) {
    case MDB_TEXT:
        return OldType::Text;
    case MDB_MEMO:
        return OldType::Memo;
    case MDB_DATETIME:
        return OldType::Date;
    case MDB_BOOL:
        return OldType::Boolean;
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
        return OldType::Whole;
    case MDB_MONEY:
    case MDB_FLOAT:
    case MDB_DOUBLE:
    case MDB_NUMERIC:
        return OldType::Number;
    default:
        return OldType::Other;
    }
}

} // namespace

OldFile::OldFile(const QByteArray& path) : handle_(mdb_open(path.constData(), MDB_NOFLAGS)) {}

std::span<MdbCatalogEntry* const> OldFile::catalogue() {
    return itemsOf<MdbCatalogEntry>(mdb_read_catalog(handle_.get(), MDB_ANY));
}

OldTableReader::OldTableReader(MdbCatalogEntry& entry) : definition_(mdb_read_table(&entry)) {
    if (definition_ != nullptr && mdb_read_columns(definition_.get()) == nullptr)
        definition_.reset();
}

OldTable OldTableReader::describe() const {
    OldTable table{QString::fromUtf8(definition_->name), definition_->num_rows, {}};
    for (const MdbColumn* column : columns())
        table.columns.push_back({QString::fromUtf8(column->name), typeOf(column->col_type)});
    return table;
}

std::span<MdbColumn* const> OldTableReader::columns() const {
    return itemsOf<MdbColumn>(definition_->columns);
}

} // namespace oldregister
