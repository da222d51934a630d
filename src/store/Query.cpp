#include "store/Query.h"

#include "store/SqliteErrors.h"
#include "store/Utf8.h"

#include <string_view>

namespace store {

namespace {

sqlite3_stmt* prepare(sqlite3* connection, const QString& sql) {
    sqlite3_stmt* statement = nullptr;
    const QByteArray text = sql.toUtf8();
    const int code = sqlite3_prepare_v3(connection, text.constData(), static_cast<int>(text.size()),
                                        0, &statement, nullptr);
    if (code != SQLITE_OK)
        throw sqliteError(code, connection, sql);
    return statement;
}

std::string_view textOf(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return {text, static_cast<size_t>(sqlite3_column_bytes(statement, column))};
}

} // namespace

Query::Query(sqlite3* connection, const QString& sql) : statement_(prepare(connection, sql)) {}

void Query::bind(int parameter, qint64 number) {
    sqlite3_bind_int64(statement_.get(), parameter, number);
}

void Query::bindNull(int parameter) {
    sqlite3_bind_null(statement_.get(), parameter);
}

void Query::bind(int parameter, const Cell& cell) {
    sqlite3_stmt* statement = statement_.get();
    if (const auto* integer = std::get_if<qint64>(&cell))
        sqlite3_bind_int64(statement, parameter, *integer);
    else if (const auto* number = std::get_if<double>(&cell))
        sqlite3_bind_double(statement, parameter, *number);
    else if (const auto* text = std::get_if<std::string>(&cell))
        sqlite3_bind_text64(statement, parameter, text->data(), text->size(), SQLITE_TRANSIENT,
                            SQLITE_UTF8);
    else
        sqlite3_bind_null(statement, parameter);
}

bool Query::step() {
    const int code = sqlite3_step(statement_.get());
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE) {
        reset();
        return false;
    }
    sqlite3* const connection = sqlite3_db_handle(statement_.get());
    const EngineError error = sqliteError(sqlite3_extended_errcode(connection), connection,
                                          QString::fromUtf8(sqlite3_sql(statement_.get())));
    reset();
    throw error;
}

void Query::run() {
    while (step()) {
    }
}

void Query::reset() {
    sqlite3_reset(statement_.get());
}

bool Query::isNull(int column) const {
    return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL;
}

std::string_view Query::bytes(int column) const {
    return textOf(statement_.get(), column);
}

QString Query::text(int column) const {
    return textOfUtf8(textOf(statement_.get(), column));
}

RowView::Slot RowBlock::slotFrom(const Query& query, int column) {
    sqlite3_stmt* const statement = query.statement_.get();
    Slot slot;
    slot.type = sqlite3_column_type(statement, column);
    if (slot.type == SQLITE_INTEGER)
        slot.integer = sqlite3_column_int64(statement, column);
    else if (slot.type == SQLITE_FLOAT)
        slot.number = sqlite3_column_double(statement, column);
    else if (slot.type != SQLITE_NULL)
        slot = textSlot(textOf(statement, column));
    return slot;
}

void RowBlock::append(const Query& query, int firstColumn, const std::vector<bool>& repeats) {
    width_ = static_cast<size_t>(query.columnCount() - firstColumn);
    for (size_t column = 0; column < width_; ++column) {
        const bool isRepeated = !repeats.empty() && repeats[column];
        slots_.push_back(isRepeated ? slots_[slots_.size() - width_]
                                    : slotFrom(query, firstColumn + static_cast<int>(column)));
    }
    ++rows_;
}

void RowBlock::assign(const Query& query, std::span<const int> columns, size_t width) {
    clear();
    width_ = width;
    rows_ = 1;
    Slot none;
    none.type = RowView::unread;
    slots_.assign(width, none);
    for (int from = 0; const int column : columns)
        slots_[static_cast<size_t>(column)] = slotFrom(query, from++);
}

void RowBlock::assign(const RowBlock& other, qint64 index) {
    clear();
    width_ = other.width_;
    const RowView row = other.row(index);
    for (size_t column = 0; column < width_; ++column) {
        Slot slot = row.slots_[column];
        if (slot.type == SQLITE_TEXT)
            slot = textSlot(row.bytes(slot));
        slots_.push_back(slot);
    }
    rows_ = 1;
}

void RowBlock::clear() {
    rows_ = 0;
    slots_.clear();
    bytes_.clear();
}

void RowBlock::set(qint64 index, int column, const Cell& cell) {
    Slot slot;
    if (const auto* integer = std::get_if<qint64>(&cell)) {
        slot.type = SQLITE_INTEGER;
        slot.integer = *integer;
    } else if (const auto* number = std::get_if<double>(&cell)) {
        slot.type = SQLITE_FLOAT;
        slot.number = *number;
    } else if (const auto* text = std::get_if<std::string>(&cell)) {
        slot = textSlot(*text);
    }
    slots_[static_cast<size_t>(index) * width_ + static_cast<size_t>(column)] = slot;
}

RowView::Slot RowBlock::textSlot(std::string_view text) {
    Slot slot;
    slot.type = SQLITE_TEXT;
    slot.length = static_cast<int>(text.size());
    slot.offset = bytes_.size();
    bytes_.append(text);
    return slot;
}

Cell RowView::cell(int column) const {
    const Slot& from = slot(column);
    switch (from.type) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return from.integer;
    case SQLITE_FLOAT:
        return from.number;
    default:
        return std::string(bytes(from));
    }
}

bool RowView::equals(int column, const Cell& other) const {
    return cell(column) == other;
}

} // namespace store
