#include "store/Rowset.h"

#include "store/Connection.h"
#include "store/EngineError.h"
#include "store/Schema.h"

#include <algorithm>
#include <numeric>

namespace store {

namespace {

[[noreturn]] void refuseWrite(const QString& place) {
    throw EngineError(ErrorNumber::NotUpdatable,
                      QStringLiteral("Riadky tohto výberu sa nedajú meniť."), place);
}

void addMissingFlags(const SourceTable& source, QStringList& names, std::vector<Cell>& values) {
    for (const ColumnDef& column : findTable(source.table)->columns) {
        const QString name = sqlName(column.name);
        if (column.type != ColumnType::Boolean || names.contains(name, Qt::CaseInsensitive))
            continue;
        names << name;
        values.emplace_back(qint64{0});
    }
}

} // namespace

void refuseDeleted() {
    throw EngineError(ErrorNumber::RecordDeleted, QStringLiteral("Záznam bol vymazaný."));
}

Rowset::Rowset(std::shared_ptr<Connection> connection, const QString& source)
    : connection_(std::move(connection)),
      plan_(translateSelect(source, connection_->queryLookup())),
      ahead_(plan_, connection_->changeStamp()), asked_(plan_.columns.size()) {
    connection_->beginRead();
    if (plan_.updatable)
        keys_.emplace(*connection_, plan_, ahead_);
    else
        loadStoredRows();
}

void Rowset::loadStoredRows() {
    Query query(connection_->handle(), plan_.rows);
    while (query.step())
        storedRows_.append(query);
    keys_.emplace(storedRows_.count());
}

int Rowset::columnIndex(QStringView name) {
    const auto known = columns_.find(name);
    if (known != columns_.end())
        return known->second;
    const auto found = std::ranges::find_if(plan_.columns, [&](const OutputColumn& column) {
        return column.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    if (found == plan_.columns.end())
        throw EngineError(ErrorNumber::UnknownColumn,
                          QStringLiteral("Stĺpec %1 vo výbere nie je.").arg(name), name.toString());
    const auto index = static_cast<int>(found - plan_.columns.begin());
    columns_.emplace(name.toString(), index);
    return index;
}

void Rowset::ask(int column) {
    const auto at = static_cast<size_t>(column);
    if (!asked_[at] && read_.size() < plan_.columns.size())
        reading_ = Reading::Whole;
    asked_[at] = true;
}

Rowset::Columns Rowset::askedColumns() const {
    Columns columns;
    for (int column = 0; const bool isAsked : asked_) {
        if (isAsked)
            columns.push_back(column);
        ++column;
    }
    return columns.empty() ? Columns{0} : columns;
}

void Rowset::prepareRow(Columns columns) {
    row_.emplace(connection_->handle(), selectRow(plan_, columns));
    read_ = std::move(columns);
}

std::optional<RowView> Rowset::read(RowKeyView key, std::optional<qint64> index, RowBlock& room) {
    if (!plan_.updatable)
        return storedRows_.row(key[0]);
    if (index)
        if (const auto row = ahead_.read(*index, key, connection_->changeStamp(), room))
            return row;
    return lookUp(key, room) ? std::optional(room.row(0)) : std::nullopt;
}

/// To look for a row costs most by the columns that it has.
bool Rowset::lookUp(RowKeyView key, RowBlock& row) {
    if (reading_ == Reading::Whole) {
        Columns all(plan_.columns.size());
        std::iota(all.begin(), all.end(), 0);
        prepareRow(std::move(all));
    } else if (reading_ == Reading::Asked) {
        prepareRow(askedColumns());
    }
    reading_ = reading_ == Reading::Whole ? Reading::Asked : Reading::Same;
    connection_->beginRead();
    bindKey(*row_, key);
    const bool found = row_->step();
    if (found)
        row.assign(*row_, read_, plan_.columns.size());
    row_->reset();
    return found;
}

bool Rowset::holds(RowKeyView key) {
    const size_t width = plan_.updatable ? plan_.sources.size() : 1;
    if (key.size() != width)
        return false;
    // Of a whole table every row belongs to it, which spares the count.
    const bool isWholeTable = plan_.updatable && width == 1 && plan_.filter.isEmpty();
    if (isWholeTable && keys_->isOld(key) && lookUp(key, scratch_))
        return true;
    return keys_->indexOf(key).has_value();
}

std::optional<RowKey> Rowset::find(const QString& criterion) {
    const QString condition = translateCriterion(criterion, plan_);
    connection_->beginRead();
    if (!plan_.updatable)
        return findByNumber(condition, -1);
    if (plan_.sources.size() > 1)
        return firstBehind(condition, -1);
    const QString old = QStringLiteral("%1.rowid <= ?1").arg(sqlName(plan_.sources[0].alias));
    const auto found = firstOf({condition, old});
    return found || keys_->added().empty() ? found : findAdded(condition);
}

std::optional<RowKey> Rowset::findBehind(const QString& criterion, qint64 position) {
    const QString condition = translateCriterion(criterion, plan_);
    connection_->beginRead();
    return plan_.updatable ? firstBehind(condition, position) : findByNumber(condition, position);
}

std::optional<RowKey> Rowset::firstOf(const QStringList& conditions) {
    Query query(connection_->handle(), selectKeys(plan_, conditions) + QStringLiteral(" LIMIT 1"));
    query.bind(1, keys_->bound());
    if (!query.step())
        return std::nullopt;
    RowKey key(plan_.sources.size());
    readKey(query, key);
    return key;
}

/// In the order of the keyset, which another statement need not share.
std::optional<RowKey> Rowset::firstBehind(const QString& condition, qint64 position) {
    Query query(connection_->handle(), selectKeys(plan_, {condition}));
    std::optional<qint64> first;
    RowKey key(plan_.sources.size());
    while (query.step()) {
        readKey(query, key);
        if (const auto index = keys_->indexOf(key); index && *index > position)
            first = std::min(*index, first.value_or(*index));
    }
    if (!first)
        return std::nullopt;
    const RowKeyView found = keys_->at(*first);
    return RowKey(found.begin(), found.end());
}

/// Rows without keys are known by their number.
std::optional<RowKey> Rowset::findByNumber(const QString& condition, qint64 behind) {
    Query query(connection_->handle(),
                QStringLiteral("SELECT tvk_row FROM (SELECT row_number() OVER () - 1 AS tvk_row, * "
                               "FROM (%1)) WHERE (%2) AND tvk_row > ?1 ORDER BY tvk_row LIMIT 1")
                    .arg(plan_.rows, condition));
    query.bind(1, behind);
    if (!query.step() || !keys_->has(query.integer(0)))
        return std::nullopt;
    return RowKey{query.integer(0)};
}

/// Rows added here stand behind the others, whether the query would select them or not.
std::optional<RowKey> Rowset::findAdded(const QString& condition) {
    Query query(connection_->handle(),
                QStringLiteral("SELECT 1 FROM %1 WHERE (%2) AND %3.rowid = ?1")
                    .arg(plan_.from, condition, sqlName(plan_.sources[0].alias)));
    for (const qint64 rowid : keys_->added()) {
        query.bind(1, rowid);
        const bool found = query.step();
        query.reset();
        if (found)
            return RowKey{rowid};
    }
    return std::nullopt;
}

void Rowset::update(RowKeyView key, const Changes& changes) {
    std::map<int, Changes> bySource;
    for (const auto& change : changes)
        bySource[plan_.columns[static_cast<size_t>(change.first)].source].push_back(change);
    const auto writeSources = [&] {
        for (const auto& [source, own] : bySource)
            updateSource(source, key[static_cast<size_t>(source)], own);
        return true;
    };
    if (bySource.size() > 1)
        connection_->writeAll(writeSources);
    else if (!bySource.empty())
        connection_->writeRow(writeSources);
}

void Rowset::updateSource(int source, qint64 rowid, const Changes& changes) {
    if (rowid == noRow)
        refuseWrite(plan_.sources[static_cast<size_t>(source)].table);
    Columns columns;
    for (const auto& change : changes)
        columns.push_back(change.first);
    Query& query = updateQuery(source, columns);
    for (int parameter = 1; const auto& change : changes)
        query.bind(parameter++, change.second);
    query.bind(static_cast<int>(changes.size()) + 1, rowid);
    const quint64 before = connection_->changeStamp();
    query.run();
    if (sqlite3_changes(connection_->handle()) == 0)
        refuseDeleted();
    ahead_.noteWrite(source, rowid, changes, before, connection_->changeStamp());
}

Query& Rowset::updateQuery(int source, const Columns& columns) {
    const auto known = updates_.find(columns);
    if (known != updates_.end())
        return known->second;
    QStringList settings;
    for (const int column : columns)
        settings << sqlName(plan_.columns[static_cast<size_t>(column)].baseColumn) +
                        QStringLiteral(" = ?");
    const QString sql = QStringLiteral("UPDATE %1 SET %2 WHERE rowid = ?")
                            .arg(sqlName(plan_.sources[static_cast<size_t>(source)].table),
                                 settings.join(QStringLiteral(", ")));
    return updates_.emplace(columns, Query(connection_->handle(), sql)).first->second;
}

const SourceTable& Rowset::onlySource() const {
    if (!plan_.updatable || plan_.sources.size() != 1)
        refuseWrite(plan_.from);
    return plan_.sources.front();
}

RowKey Rowset::insert(const Changes& changes) {
    const SourceTable& source = onlySource();
    QStringList names;
    std::vector<Cell> values;
    for (const auto& [column, cell] : changes) {
        names << sqlName(plan_.columns[static_cast<size_t>(column)].baseColumn);
        values.push_back(cell);
    }
    addMissingFlags(source, names, values);
    const QString sql =
        names.isEmpty()
            ? QStringLiteral("INSERT INTO %1 DEFAULT VALUES").arg(sqlName(source.table))
            : QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                  .arg(sqlName(source.table), names.join(QStringLiteral(", ")),
                       QStringList(names.size(), QStringLiteral("?")).join(QStringLiteral(", ")));
    Query query(connection_->handle(), sql);
    for (int parameter = 1; const Cell& value : values)
        query.bind(parameter++, value);
    const RowKey key = connection_->writeRow([&] {
        query.run();
        return RowKey{sqlite3_last_insert_rowid(connection_->handle())};
    });
    keys_->append(key);
    return key;
}

void Rowset::erase(RowKeyView key) {
    const SourceTable& source = onlySource();
    Query query(connection_->handle(),
                QStringLiteral("DELETE FROM %1 WHERE rowid = ?1").arg(sqlName(source.table)));
    bindKey(query, key);
    const auto index = keys_->indexOf(key);
    connection_->writeRow([&] {
        query.run();
        if (sqlite3_changes(connection_->handle()) == 0)
            refuseDeleted();
        return true;
    });
    if (index)
        keys_->remove(*index);
}

} // namespace store
